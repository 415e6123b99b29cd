#include "dialogs/ReadmeTexts.h"
#include "dialogs/frmKVX_COM.h"

forms::Layout frmKVX_COM::MakeLayout() {
  using namespace forms;
  SetCaption(u"Kelvarin");
  frameTermsInDoc.SetCaption(u"Te&rms found in document");
  cmdSelectAllTermsInDoc.SetCaption(u"&Select all");
  cmdDeselectAllTermsInDoc.SetCaption(u"&Deselect all");
  cmdSaveList[0].SetCaption(u"Save ter&ms list");
  cmdSaveList[0].SetToolTip(u"Save selected found terms for re-use");
  frameAddTerms.SetCaption(u"Add terms &for indexing");
  lblAddTerms.SetCaption(u"Add terms for inde&xing, in addition to terms already in your document (if any).");
  cmdAddTerm.SetCaption(u"&Add to list");
  cmdSelectAllAddTerms.SetCaption(u"S&elect all");
  cmdDeselectAllAddTerms.SetCaption(u"Desele&ct all");
  cmdDeleteTerm.SetCaption(u"Delete");
  cmdSaveList[1].SetCaption(u"Sa&ve list");
  cmdSaveList[1].SetToolTip(u"Save selected additional terms for re-use");
  cmdLoadSavedList.SetCaption(u"&Load saved list");
  frameOptions.SetCaption(u"O&ptions");
  lblReadme[0].SetCaption(u"Ctl+click or Space+click to select/ deselect individual terms.");
  lblReadme[1].SetCaption(kMixedQuotesWarning);
  lblFAQClick.SetCaption(u"FAQs - click here");
  lblHelpClick.SetCaption(u"Help - click here");
  cmdRefresh.SetCaption(u"Find terms and refresh list");
  cmdFormHelp.SetCaption(u"Help");
  cmdOK.SetCaption(u"OK");
  cmdCancel.SetCaption(u"Cancel");
  lblLabel1.SetCaption(u"Please wait");
  lblLabel2.SetCaption(u"Status");
  lblLabel3.SetCaption(u"% complete");
  for (Label* line : {&lblLabel1, &lblLabel2, &lblLabel3}) line->SetVisible(false);
  for (Frame& frame : fraTab) frame.SetVisible(frame.Index() == tbcTabs.SelectedTab());
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdCancel);

  LayoutNode terms = Framed(
      frameTermsInDoc, {Item(lblTermsInDoc), Item(lstTermsInDoc),
                        Row({Item(cmdSelectAllTermsInDoc), Item(cmdDeselectAllTermsInDoc), Item(cmdSaveList[0])})});
  LayoutNode added =
      Framed(frameAddTerms, {Item(lblAddTerms), Row({Item(txtAddTerm), Item(cmdAddTerm)}), Item(lstAddTerms),
                             Row({Item(cmdSelectAllAddTerms), Item(cmdDeselectAllAddTerms), Item(cmdDeleteTerm),
                                  Item(cmdSaveList[1]), Item(cmdLoadSavedList)})});
  LayoutNode search =
      Framed(fraTab[0], {Framed(frameSearchType, {Item(optSearchType[0]), Item(optSearchType[1])}), Item(chkBold),
                         Grid(2, {Item(lblOpenQuote), Item(cmbOpenQuote), Item(lblCloseQuote), Item(cmbCloseQuote)}),
                         Item(chkCaseSensitive), Item(chkIndexCaps), Item(chkIgnoreNums), Item(chkHighlight)});
  LayoutNode index =
      Framed(fraTab[1], {Framed(frmIndexWhat, {Item(optIndexWhat[0]), Item(optIndexWhat[1])}), Item(chkIncludeNotUsed),
                         Item(chkIncludeNotFound), Row({Item(lblCols), Item(txtCols), Item(updownCols)}),
                         Row({Item(lblSep), Item(txtSep), Item(chkTabSep)})});
  LayoutNode readme = Framed(fraTab[2], {Item(lblReadme[0]), Item(lblReadme[1]),
                                         Row({Item(lblFAQClick), Item(lblHelpClick), Item(imgAbout)})});
  return Column(
      {Row({Column({std::move(terms), std::move(added)}),
            Framed(frameOptions, {Item(tbcTabs), Stack({std::move(search), std::move(index), std::move(readme)}),
                                  Row({Item(cmdRefresh), Item(cmdSetDefaults)})})}),
       Row({Item(lblLabel1), Item(lblLabel2), Item(lblLabel3)}),
       Buttons({Item(cmdFormHelp), Item(cmdOK), Item(cmdCancel)}), Item(StatusBar1)});
}
