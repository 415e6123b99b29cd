#include "dialogs/HelpMenu.h"

HelpMenu::HelpMenu(HelpedForm& form, std::u16string_view gettingStarted)
    : mnuHelp(form, "mnuHelp"),
      cmdGettingStarted(form, "cmdGettingStarted", mnuHelp),
      cmdCreate(form, "cmdCreate", mnuHelp),
      cmdDelete(form, "cmdDelete", mnuHelp),
      cmdNoHighlight(form, "cmdNoHighlight", mnuHelp),
      cmdUpdate(form, "cmdUpdate", mnuHelp),
      cmdLists(form, "cmdLists", mnuHelp),
      cmdOptions(form, "cmdOptions", mnuHelp),
      cmdInstructionsA4(form, "cmdInstructionsA4", mnuHelp),
      cmdInstructionsLetter(form, "cmdInstructionsLetter", mnuHelp),
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
  cmdInstructionsA4.SetCaption(u"Instructions (A4)");
  cmdInstructionsLetter.SetCaption(u"Instructions (Letter)");
  cmdFAQ.SetCaption(u"FAQ");
  cmdAbout.SetCaption(u"&About");

  cmdGettingStarted.onClick = form.ShowsTopic(kHelpGettingStarted);
  cmdCreate.onClick = form.ShowsTopic(kHelpCreateIndex);
  cmdDelete.onClick = form.ShowsTopic(kHelpDeleteIndex);
  cmdNoHighlight.onClick = form.ShowsTopic(kHelpRemoveHighlighting);
  cmdUpdate.onClick = form.ShowsTopic(kHelpUpdateIndex);
  cmdLists.onClick = form.ShowsTopic(kHelpTermLists);
  cmdOptions.onClick = form.ShowsTopic(kHelpOptions);
  cmdInstructionsA4.onClick = form.ShowsInstructions(PaperSize::kA4);
  cmdInstructionsLetter.onClick = form.ShowsInstructions(PaperSize::kLetter);
  cmdFAQ.onClick = form.ShowsFAQ();
  cmdAbout.onClick = form.ShowsAbout();
}
