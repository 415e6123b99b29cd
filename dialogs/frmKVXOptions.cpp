#include "dialogs/frmKVXOptions.h"

#include "settings/OptionSettings.h"

frmKVXOptions::frmKVXOptions(const Host& host, modIniFile& ini)
    : HelpedForm(host, "frmKVXOptions"), OptionPanel(*this, ini) {
  cmdSetDefaults.onClick = [this] { SaveOptionsToIni(Ini(), Services().messages, Options()); };
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
  lblHelpClick.onClick = ShowsTopic(kHelpGettingStarted);
  lblFAQClick.onClick = ShowsFAQ();
}

void frmKVXOptions::cmdOK_Click() {
  SaveOptionsToIni(Ini(), Services().messages, Options());
  SetTag(u"OK");
  Hide();
}

void frmKVXOptions::cmdCancel_Click() {
  SetTag(u"Cancel");
  Hide();
}

void frmKVXOptions::OnQueryUnload(forms::UnloadReason reason) {
  SetTag(reason == forms::UnloadReason::kControlMenu ? u"Cancel" : u"Done");
}
