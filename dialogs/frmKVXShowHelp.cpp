#include "dialogs/frmKVXShowHelp.h"

#include "settings/Defaults.h"

frmKVXShowHelp::frmKVXShowHelp(const Host& host, modIniFile& ini) : HelpedForm(host, "frmKVXShowHelp") {
  chkDontShow.onClick = Trapped(u"Error saving the help setting", [this, &ini] {
    ini.WriteIniValue(kDefaultsSection, u"ShowHelp", chkDontShow.Value() == 1 ? u"False" : u"True");
  });
  cmdYes.onClick = [this] { Close(u"Yes"); };
  cmdNo.onClick = [this] { Close(u"No"); };
}

void frmKVXShowHelp::Close(std::u16string_view answer) {
  SetTag(answer);
  Hide();
}

void frmKVXShowHelp::OnQueryUnload(forms::UnloadReason reason) {
  if (reason == forms::UnloadReason::kControlMenu) SetTag(u"No");
}

forms::Layout frmKVXShowHelp::MakeLayout() {
  using namespace forms;
  SetCaption(u"Do you need help?");
  Label1.SetCaption(u"Would you like some help getting started with Kelvarin (recommended)?");
  chkDontShow.SetCaption(u"Don't sho&w this form again");
  cmdYes.SetCaption(u"&Yes please");
  cmdNo.SetCaption(u"&No thanks");
  SetDefaultButton(&cmdYes);
  SetCancelButton(&cmdNo);
  return Column({Item(Label1), Item(chkDontShow), Buttons({Item(cmdYes), Item(cmdNo)})});
}
