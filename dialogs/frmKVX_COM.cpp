#include "dialogs/frmKVX_COM.h"

#include "addin/modCommonErrorMsgs.h"
#include "engine/TermLists.h"
#include "platform/BookmarkNames.h"
#include "platform/forms/FormHost.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Selection.h"
#include "settings/OptionSettings.h"

#include <algorithm>
#include <utility>

namespace {

/// The number that a text begins with, blanks aside; 0 when it begins with none. Long ones stop growing.
int LeadingNumber(std::u16string_view text) {
  constexpr int kLargest = 100000;
  text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
  int number = 0;
  for (const char16_t unit : text) {
    if (unit < u'0' || unit > u'9' || number > kLargest) break;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

}  // namespace

frmKVX_COM::frmKVX_COM(const Host& host, modIniFile& ini) : HelpedForm(host, "frmKVX_COM"), OptionPanel(*this, ini) {
  tbcTabs.onClick = [this] { ManageFrames(tbcTabs, fraTab); };
  cmdSelectAllTermsInDoc.onClick = [this] { SelectAll(lstTermsInDoc, true); };
  cmdDeselectAllTermsInDoc.onClick = [this] { SelectAll(lstTermsInDoc, false); };
  cmdSelectAllAddTerms.onClick = [this] { SelectAll(lstAddTerms, true); };
  cmdDeselectAllAddTerms.onClick = [this] { SelectAll(lstAddTerms, false); };
  cmdAddTerm.onClick = Trapped(u"Error adding term", [this] { cmdAddTerm_Click(); });
  cmdDeleteTerm.onClick = Trapped(u"Error deleting terms", [this] { cmdDeleteTerm_Click(); });
  cmdLoadSavedList.onClick = Trapped(u"Error loading list", [this] { cmdLoadSavedList_Click(); });
  cmdSaveList[0].onClick = Trapped(u"Error saving list", [this] { cmdSaveList_Click(lstTermsInDoc); });
  cmdSaveList[1].onClick = Trapped(u"Error saving list", [this] { cmdSaveList_Click(lstAddTerms); });
  cmdRefresh.onClick = Trapped(u"Error refreshing list", [this] { cmdRefresh_Click(); });
  cmdSetDefaults.onClick = Trapped(u"Error setting defaults", [this] { cmdSetDefaults_Click(); });
  cmdOK.onClick = Trapped(u"Error indexing terms", [this] { cmdOK_Click(); });
  cmdCancel.onClick = [this] { cmdCancel_Click(); };
  cmdFormHelp.onClick = ShowsTopic(kHelpGettingStarted);
  lblHelpClick.onClick = ShowsTopic(kHelpGettingStarted);
  lblFAQClick.onClick = ShowsFAQ();
  imgAbout.onClick = ShowsAbout();
  WatchForReminder();
}

void frmKVX_COM::OnActivate() { RemoveCloseBox(Caption()); }

void frmKVX_COM::OnQueryUnload(forms::UnloadReason reason) {
  SetTag(reason == forms::UnloadReason::kControlMenu ? u"Cancel" : u"Done");
}

void frmKVX_COM::RemoveCloseBox(std::u16string_view strCaption) {
  closeBoxWindow_ = Services().forms.RemoveCloseBox(strCaption);
}

void frmKVX_COM::WatchForReminder() {
  chkBold.onGotFocus = [this] { boldOnFocus_ = chkBold.Value(); };
  cmbOpenQuote.onGotFocus = [this] { openQuoteOnFocus_ = cmbOpenQuote.ListIndex(); };
  cmbCloseQuote.onGotFocus = [this] { closeQuoteOnFocus_ = cmbCloseQuote.ListIndex(); };
  chkBold.onLostFocus = [this] { RemindWhenChanged(chkBold.Value() != boldOnFocus_); };
  cmbOpenQuote.onLostFocus = [this] { RemindWhenChanged(cmbOpenQuote.ListIndex() != openQuoteOnFocus_); };
  cmbCloseQuote.onLostFocus = [this] { RemindWhenChanged(cmbCloseQuote.ListIndex() != closeQuoteOnFocus_); };
}

void frmKVX_COM::RemindWhenChanged(bool changed) {
  if (!changed || firstFillInProgress) return;
  const forms::Control* next = ActiveControl();
  // These refresh the list themselves, or show the reminder themselves.
  if (next == &cmdSetDefaults || next == &cmdRefresh || next == &optSearchType[0] || next == &optSearchType[1]) return;
  ShowReminder();
}

void frmKVX_COM::SearchTypeChosen() { ShowReminder(); }

void frmKVX_COM::ShowReminder() {
  Services().messages.Show(u"Refresh terms list",
                           u"You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms "
                           u"found in document' list.",
                           os::Icon::kInformation, os::Buttons::kOk);
}

void frmKVX_COM::IndexInsertOrUpdate(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                                     bool updateOnly) {
  if (KVXAddIn == nullptr) return;
  std::u16string separator = txtSep.Text();
  if (chkTabSep.Value() != 0) separator += u'\t';
  if (updateOnly) {
    KVXAddIn->Marker().UpdateIndex(document);
  } else {
    KVXAddIn->Marker().InsertIndex(application, document, LeadingNumber(txtCols.Text()), separator);
  }
  document->UndoClear();
}

void frmKVX_COM::NotUsedList(const word::DocumentPtr& document, std::u16string_view terms) {
  WriteNotUsedList(document, terms);
}

void frmKVX_COM::NotFoundList(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                              std::u16string_view terms) {
  WriteNotFoundList(application, document, terms);
}

void frmKVX_COM::cmdOK_Click() {
  if (KVXAddIn == nullptr) return;
  SaveOptionsToIni(Ini(), Services().messages, Options());
  KVXAddIn->WordApp()->SetScreenUpdating(true);
  if (!txtAddTerm.Text().empty()) OfferPendingTerm();
  if (lstTermsInDoc.ListCount() == 0 && lstAddTerms.ListCount() == 0) return;
  if (!AnyTermSelected()) {
    Services().messages.Show(u"Nothing selected", u"No terms were selected for indexing.", os::Icon::kNone,
                             os::Buttons::kOk);
    return;
  }
  cmdCancel.SetEnabled(false);
  // An error before the dialog was hidden leaves it to the user, who must have a way out.
  const auto leaveAWayOut = [this] {
    if (Visible()) cmdCancel.SetEnabled(true);
  };
  try {
    IndexChosenTerms();
  } catch (...) {
    leaveAWayOut();
    throw;
  }
  leaveAWayOut();
}

void frmKVX_COM::OfferPendingTerm() {
  const std::u16string term = txtAddTerm.Text();
  const std::u16string question =
      u"Do you want to add "
      u"\"" +
      term +
      u"\""
      u" to the list of terms for indexing?";
  if (Services().messages.Show(u"Add term?", question, os::Icon::kQuestion, os::Buttons::kYesNo) != os::Pressed::kYes) {
    return;
  }
  lstAddTerms.AddItem(term);
  for (int i = 0; i < lstAddTerms.ListCount(); ++i) {
    if (lstAddTerms.List(i) != term) continue;
    lstAddTerms.SetSelected(i, true);
    break;
  }
  txtAddTerm.SetText(u"");
  SetHorizontalExtent(lstAddTerms);
}

bool frmKVX_COM::AnyTermSelected() { return lstTermsInDoc.SelCount() + lstAddTerms.SelCount() > 0; }

void frmKVX_COM::IndexChosenTerms() {
  const word::ApplicationPtr application = KVXAddIn->WordApp();
  const word::DocumentPtr document = KVXAddIn->ActiveIndexDocument();
  IndexingOptions options;
  options.matchCase = chkCaseSensitive.Value() == 1;
  options.indexCaps = chkIndexCaps.Enabled() && chkIndexCaps.Value() == 1;
  if (optIndexWhat[1].Enabled() && optIndexWhat[1].Value()) options.indexWhat = u"IndexDefs";

  KVXAddIn->Engine().RunIndexing(application, document, ChosenTerms(lstTermsInDoc, lstAddTerms), *this, options);

  if (chkHighlight.Value() == 0) {
    // Marking always highlights; what the user did not want is taken away again.
    KVXAddIn->Marker().RemoveTermHighlighting(document);
    document->UndoClear();
    application->Selection()->GoTo({.What = word::wdGoToPage, .Which = word::wdGoToFirst});
  }
  application->SetScreenUpdating(true);
  application->ScreenRefresh();
  // After an error the dialog may still be there, to be confirmed again: the place stays until the command's end.
  if (KVXAddIn->OptionsAccepted() && !Visible()) DeleteIndexStart();
}

void frmKVX_COM::DeleteIndexStart() {
  const word::BookmarksPtr bookmarks = KVXAddIn->ActiveIndexDocument()->Bookmarks();
  if (bookmarks->Exists(kIndexStartBookmark)) bookmarks->Item(kIndexStartBookmark)->Delete();
}

void frmKVX_COM::cmdCancel_Click() {
  if (KVXAddIn != nullptr) {
    IgnoreErrors([this] {
      const word::BookmarksPtr bookmarks = KVXAddIn->WordApp()->ActiveDocument()->Bookmarks();
      if (!bookmarks->Exists(kReturnBookmark)) return;
      const word::BookmarkPtr mark = bookmarks->Item(kReturnBookmark);
      IgnoreErrors([&] { mark->Select(); });
      mark->Delete();
    });
    if (KVXAddIn->IndexStartMarked()) IgnoreErrors([this] { DeleteIndexStart(); });
  }
  SetTag(u"Cancel");
  Hide();
}
