#include "dialogs/frmKVXSearchChooser.h"

#include "addin/modCommonErrorMsgs.h"
#include "settings/Defaults.h"

frmKVXSearchChooser::frmKVXSearchChooser(const Host& host, modIniFile& ini)
    : HelpedForm(host, "frmKVXSearchChooser"), ini_(ini) {
  cmdOK.onClick = Trapped(u"Error choosing search type", [this] { cmdOK_Click(); });
  cmdCancel.onClick = [this] {
    SetTag(u"Cancel");
    Hide();
  };
  cmdHelp.onClick = ShowsTopic(kHelpGettingStarted);
}

void frmKVXSearchChooser::OnLoad() {
  const std::u16string searchType = ini_.ReadIniValue(kDefaultsSection, u"SearchType");
  if (searchType == u"SearchFlagged") optSearchType[0].SetValue(true);
  if (searchType == u"SearchInitCaps") optSearchType[1].SetValue(true);
}

void frmKVXSearchChooser::cmdOK_Click() {
  if (chkDontShow.Value() == 1) Write(u"ShowSearchChooser", u"False");
  if (optSearchType[0].Value()) Write(u"SearchType", u"SearchFlagged");
  if (optSearchType[1].Value()) Write(u"SearchType", u"SearchInitCaps");
  SetTag(u"OK");
  Hide();
}

void frmKVXSearchChooser::Write(std::u16string_view key, std::u16string_view value) {
  if (!ini_.WriteIniValue(kDefaultsSection, key, value)) ShowIniFileProblem(Services().messages);
}

void frmKVXSearchChooser::OnQueryUnload(forms::UnloadReason reason) {
  if (reason == forms::UnloadReason::kControlMenu) SetTag(u"Cancel");
}
