#pragma once

#include "platform/forms/Control.h"

/// The menu "&Help" that both option dialogs have.
struct HelpMenu {
  /// @param gettingStarted the caption of the first entry, which differs between the dialogs
  HelpMenu(forms::Form& form, std::u16string_view gettingStarted);

  forms::Menu mnuHelp;
  forms::MenuItem cmdGettingStarted;
  forms::MenuItem cmdCreate;
  forms::MenuItem cmdDelete;
  forms::MenuItem cmdNoHighlight;
  forms::MenuItem cmdUpdate;
  forms::MenuItem cmdLists;
  forms::MenuItem cmdOptions;
  forms::MenuItem cmdFAQ;
  forms::MenuItem cmdAbout;
};
