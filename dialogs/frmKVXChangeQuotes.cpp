#include "dialogs/frmKVXChangeQuotes.h"

#include "addin/modCommonErrorMsgs.h"
#include "settings/OptionSettings.h"

frmKVXChangeQuotes::frmKVXChangeQuotes(const Host& host, modIniFile& ini)
    : HelpedForm(host, "frmKVXChangeQuotes", kHelpFormattingTerms), ini_(ini) {
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdCancel.onClick = [this] { Hide(); };
}

void frmKVXChangeQuotes::OnLoad() {
  FillQuotes(cmbOpenQuote, cmbCloseQuote);
  SelectQuotes(cmbOpenQuote, cmbCloseQuote, ReadQuoteCode(ini_, u"OpenQuote", u"147"),
               ReadQuoteCode(ini_, u"CloseQuote", u"148"));
}

void frmKVXChangeQuotes::cmdOK_Click() {
  if (!SaveQuotes(ini_, cmbOpenQuote, cmbCloseQuote)) ShowIniFileProblem(Services().messages);
  SetTag(u"OK");
  Hide();
}
