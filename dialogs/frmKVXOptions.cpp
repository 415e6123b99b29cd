#include "dialogs/frmKVXOptions.h"

#include "settings/OptionSettings.h"

frmKVXOptions::frmKVXOptions(const Host& host, modIniFile& ini)
    : Form(host.forms, "frmKVXOptions"), OptionPanel(*this, ini), messages_(host.messages) {
  cmdSetDefaults.onClick = [this] { SaveOptionsToIni(Ini(), messages_, Options()); };
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmKVXOptions::cmdOK_Click() {
  SaveOptionsToIni(Ini(), messages_, Options());
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
