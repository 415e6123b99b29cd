#include "dialogs/frmKVXFormatInstrux.h"

#include "addin/modCommonErrorMsgs.h"
#include "settings/Defaults.h"

frmKVXFormatInstrux::frmKVXFormatInstrux(const Host& host, modIniFile& ini)
    : HelpedForm(host, "frmKVXFormatInstrux", kHelpFormattingTerms), ini_(ini) {
  cmdOK.onClick = Trapped(u"Error saving the reminder's setting", [this] { cmdOK_Click(); });
}

void frmKVXFormatInstrux::cmdOK_Click() {
  if (chkDontShow.Value() == 1 && !ini_.WriteIniValue(kDefaultsSection, u"ShowFormatReminder", u"False")) {
    ShowIniFileProblem(Services().messages);
  }
  Hide();
}

forms::Layout frmKVXFormatInstrux::MakeLayout() {
  using namespace forms;
  SetCaption(u"Formatting defined terms");
  lblFormatInstrux.SetCaption(
      u"Kelvarin searches for any words or "
      u"phrases in double quotes and lists them as defined "
      u"terms in the \"Terms found for indexing\" list.  "
      u"If there aren't any words or phrases in double quotes "
      u"in your document, the \"Terms found for indexing\" "
      u"list won't be displayed."
      u"\r\n\r\n"
      u"You can specify additional terms for indexing in "
      u"the \"Add terms for indexing list\".  Those additional "
      u"terms don't have to be in double quotes for KVX to index "
      u"them.  You can save and re-use any lists of additional "
      u"terms for indexing."
      u"\r\n\r\n"
      u"If you have quotations in your document, of course you "
      u"don't want them to be indexed.  You can either manually "
      u"deselect them from the list of terms found for indexing, "
      u"or you can tick the \"Defined terms in bold\" option "
      u"and go through your document to make sure all the defined "
      u"terms you want to index are in bold as well as double quotes."
      u"\r\n\r\n"
      u"See the Help topic \"About formatting defined terms\" for "
      u"more information.");
  chkDontShow.SetCaption(u"Don't show this reminder again");
  cmdOK.SetCaption(u"OK");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdOK);
  return Column({Item(lblFormatInstrux), Item(chkDontShow), Buttons({Item(cmdOK)})});
}
