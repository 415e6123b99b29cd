#include "dialogs/frmKVXChangeQuotes.h"

forms::Layout frmKVXChangeQuotes::MakeLayout() {
  using namespace forms;
  SetCaption(u"Change double quotes");
  lblOpenQuote.SetCaption(u"Open &quote:");
  lblCloseQuote.SetCaption(u"C&lose quote:");
  cmdOK.SetCaption(u"OK");
  cmdCancel.SetCaption(u"Cancel");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);

  return Column({Grid(2, {Item(lblOpenQuote), Item(cmbOpenQuote), Item(lblCloseQuote), Item(cmbCloseQuote)}),
                 Buttons({Item(cmdOK), Item(cmdCancel)})});
}
