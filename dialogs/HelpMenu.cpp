#include "dialogs/HelpMenu.h"

HelpMenu::HelpMenu(forms::Form& form, std::u16string_view gettingStarted)
    : mnuHelp(form, "mnuHelp"),
      cmdGettingStarted(form, "cmdGettingStarted", mnuHelp),
      cmdCreate(form, "cmdCreate", mnuHelp),
      cmdDelete(form, "cmdDelete", mnuHelp),
      cmdNoHighlight(form, "cmdNoHighlight", mnuHelp),
      cmdUpdate(form, "cmdUpdate", mnuHelp),
      cmdLists(form, "cmdLists", mnuHelp),
      cmdOptions(form, "cmdOptions", mnuHelp),
      cmdFAQ(form, "cmdFAQ", mnuHelp),
      cmdAbout(form, "cmdAbout", mnuHelp) {
  mnuHelp.SetCaption(u"&Help");
  cmdGettingStarted.SetCaption(gettingStarted);
  cmdCreate.SetCaption(u"Create index");
  cmdDelete.SetCaption(u"Delete index");
  cmdNoHighlight.SetCaption(u"Remove highlighting");
  cmdUpdate.SetCaption(u"Update index");
  cmdLists.SetCaption(u"Save and load lists");
  cmdOptions.SetCaption(u"Options");
  cmdFAQ.SetCaption(u"FAQ");
  cmdAbout.SetCaption(u"&About");
}
