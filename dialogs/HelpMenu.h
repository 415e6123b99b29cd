#pragma once

#include "dialogs/HelpedForm.h"
#include "platform/forms/Control.h"

/// The menu "&Help" that both option dialogs have.
struct HelpMenu {
  /// @param gettingStarted the caption of the first entry, which differs between the dialogs
  HelpMenu(HelpedForm& form, std::u16string_view gettingStarted);

  forms::Menu mnuHelp;
  forms::MenuItem cmdGettingStarted;
  forms::MenuItem cmdCreate;
  forms::MenuItem cmdDelete;
  forms::MenuItem cmdNoHighlight;
  forms::MenuItem cmdUpdate;
  forms::MenuItem cmdLists;
  forms::MenuItem cmdOptions;
  forms::MenuItem cmdInstructionsA4;
  forms::MenuItem cmdInstructionsLetter;
  forms::MenuItem cmdFAQ;
  forms::MenuItem cmdAbout;
};
