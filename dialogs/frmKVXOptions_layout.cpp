#include "dialogs/ReadmeTexts.h"
#include "dialogs/frmKVXOptions.h"

forms::Layout frmKVXOptions::MakeLayout() {
  using namespace forms;
  SetCaption(u"Kelvarin");
  fraIndex[0].SetCaption(u"Search options");
  fraIndex[1].SetCaption(u"Index options");
  lblCloseQuote.SetCaption(u"C&lose quote&:");
  chkIgnoreNums.SetCaption(u"Ig&nore words with numbers");
  optIndexWhat[0].SetCaption(u"Inde&x all instances");
  cmdSetDefaults.SetCaption(u"Set as de&faults");
  lblReadme.SetCaption(kMixedQuotesWarning);
  lblHelpClick.SetCaption(u"Help - click here");
  lblFAQClick.SetCaption(u"FAQs - click here");
  cmdOK.SetCaption(u"Search");
  cmdCancel.SetCaption(u"Cancel");
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);

  return Column(
      {Row({Framed(fraIndex[0],
                   {Framed(frameSearchType, {Item(optSearchType[0]), Item(optSearchType[1])}), Item(chkBold),
                    Grid(2, {Item(lblOpenQuote), Item(cmbOpenQuote), Item(lblCloseQuote), Item(cmbCloseQuote)}),
                    Item(chkCaseSensitive), Item(chkIndexCaps), Item(chkIgnoreNums), Item(chkHighlight)}),
            Framed(fraIndex[1],
                   {Framed(frmIndexWhat, {Item(optIndexWhat[0]), Item(optIndexWhat[1])}), Item(chkIncludeNotUsed),
                    Item(chkIncludeNotFound), Row({Item(lblCols), Item(txtCols), Item(updownCols)}),
                    Row({Item(lblSep), Item(txtSep), Item(chkTabSep)})})}),
       Item(lblReadme), Row({Item(lblHelpClick), Item(lblFAQClick)}),
       Buttons({Item(cmdSetDefaults), Item(cmdOK), Item(cmdCancel)})});
}
