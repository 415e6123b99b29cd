#include "dialogs/frmKVXSearchChooser.h"

forms::Layout frmKVXSearchChooser::MakeLayout() {
  using namespace forms;
  SetCaption(u"What kind of search do you usually do?");
  txtSearchTypeInstrux.SetText(
      u"Are the defined terms in your documents in double quotes when they're \r\ndefined? \r\n\r\nOr are they just in "
      u"initial caps?\r\n\r\nChoose the default automatic search type below.  You can always change the \r\ntype of "
      u"search you want to search in the Kelvarin dialog.\r\n");
  optSearchType[0].SetCaption(u"&Double quotes");
  optSearchType[1].SetCaption(u"&Initial caps");
  txtQuotesExample.SetText(u"Example:\r\n\r\n\"Stock Purchase Agreement\" means this agreement.\r\n");
  txtCapsExample.SetText(u"Example:\r\n\r\nStock Purchase Agreement means this agreement.\r\n");
  chkDontShow.SetCaption(u"Don't sho&w this form again");
  cmdOK.SetCaption(u"OK");
  cmdCancel.SetCaption(u"&Cancel");
  cmdHelp.SetCaption(u"&Help");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);

  return Column(
      {Item(txtSearchTypeInstrux),
       Grid(2, {Item(optSearchType[0]), Item(txtQuotesExample), Item(optSearchType[1]), Item(txtCapsExample)}),
       Item(chkDontShow), Buttons({Item(cmdOK), Item(cmdCancel), Item(cmdHelp)})});
}
