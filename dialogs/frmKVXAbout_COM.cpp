#include "dialogs/frmKVXAbout_COM.h"

#include "platform/forms/FormHost.h"

frmKVXAbout_COM::frmKVXAbout_COM(const Host& host) : HelpedForm(host, "frmKVXAbout_COM") {
  cmdOK.onClick = [this] { Hide(); };
}

forms::Layout frmKVXAbout_COM::MakeLayout() {
  using namespace forms;
  SetCaption(u"About Kelvarin");
  lblProduct.SetCaption(u"Kelvarin");
  lblVersion.SetCaption(u"Version " KVX_VERSION);
  lblNotices.SetCaption(
      u"Kelvarin makes an index of the defined terms of a document. It does not read the document as a lawyer does, "
      u"and "
      u"it gives no legal advice: please look through what it found before you rely on it."
      u"\r\n\r\n"
      u"The program is provided as it is, without warranty of any kind. As far as the law allows, its makers are not "
      u"liable for what comes of its use."
      u"\r\n\r\n"
      u"Microsoft and Word are trademarks of Microsoft Corporation. Other names may be trademarks of their owners.");
  cmdOK.SetCaption(u"OK");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdOK);
  return Column({Item(lblProduct), Item(lblVersion), Item(lblNotices), Buttons({Item(cmdOK)})});
}

void ShowAbout(const Host& host) {
  frmKVXAbout_COM box(host);
  host.forms.ShowModal(box);
  box.Unload();
}
