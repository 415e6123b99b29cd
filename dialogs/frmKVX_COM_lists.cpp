#include "dialogs/frmKVX_COM.h"

#include "addin/clsProgForm.h"
#include "discovery/CappedSearch.h"
#include "discovery/DocumentCheck.h"
#include "discovery/QuotedSearch.h"
#include "discovery/TermList.h"
#include "platform/Text.h"
#include "platform/forms/FormHost.h"
#include "settings/Defaults.h"
#include "settings/OptionSettings.h"

#include <algorithm>
#include <utility>

namespace {

/// A list as it was. Searching clears the list before it is known whether anything is found.
class KeptList {
 public:
  explicit KeptList(const forms::ListBox& list) : current_(list.ListIndex()) {
    for (int i = 0; i < list.ListCount(); ++i) entries_.emplace_back(list.List(i), list.Selected(i));
  }
  void PutBack(forms::ListBox& list) const {
    list.Clear();
    for (const auto& [text, selected] : entries_) {
      list.AddItem(text);
      list.SetSelected(list.ListCount() - 1, selected);
    }
    list.SetListIndex(current_);
  }

 private:
  std::vector<std::pair<std::u16string, bool>> entries_;
  int current_;
};

}  // namespace

int frmKVX_COM::WidestEntry(const forms::ListBox& list) {
  int widest = 0;
  for (int i = 0; i < list.ListCount(); ++i) {
    widest = std::max(widest, Services().forms.TextWidth(*this, list.List(i)));
  }
  return widest;
}

void frmKVX_COM::SetHorizontalExtent(const forms::ListBox& list) {
  Services().forms.SetHorizontalExtent(*this, list.Name(), WidestEntry(list));
}

void frmKVX_COM::SelectAll(forms::ListBox& list, bool selected) {
  const int current = list.ListIndex();
  for (int i = 0; i < list.ListCount(); ++i) list.SetSelected(i, selected);
  list.SetListIndex(current);
}

bool frmKVX_COM::IsOnList(const forms::ListBox& list, std::u16string_view term) {
  for (int i = 0; i < list.ListCount(); ++i) {
    if (TrimBlanks(list.List(i)) != term) continue;
    Services().messages.Show(u"Already on list", std::u16string(term) + u" is already in the list of defined terms.",
                             os::Icon::kInformation, os::Buttons::kOk);
    return true;
  }
  return false;
}

void frmKVX_COM::cmdAddTerm_Click() {
  const std::u16string text = txtAddTerm.Text();
  const std::u16string term(TrimBlanks(text));
  if (!term.empty()) {
    if (IsOnList(lstTermsInDoc, term) || IsOnList(lstAddTerms, term)) return;
    lstAddTerms.AddItem(term);
    for (int i = 0; i < lstAddTerms.ListCount(); ++i) {
      if (lstAddTerms.List(i) == term) lstAddTerms.SetSelected(i, true);
    }
  }
  forms::FormHost& windows = Services().forms;
  int extent = WidestEntry(lstAddTerms);
  const int typed = windows.TextWidth(*this, text);
  if (typed > extent) extent = typed + windows.TextWidth(*this, u"W");
  windows.SetHorizontalExtent(*this, lstAddTerms.Name(), extent);
  txtAddTerm.SetText(u"");
  txtAddTerm.SetFocus();
}

void frmKVX_COM::cmdDeleteTerm_Click() {
  if (lstAddTerms.SelCount() == 0) {
    Services().messages.Show(u"Nothing deleted", u"No items were selected for deletion.", os::Icon::kExclamation,
                             os::Buttons::kOk);
    return;
  }
  if (Services().messages.Show(u"Confirm delete", u"Delete selected term(s) from list?", os::Icon::kQuestion,
                               os::Buttons::kYesNo) != os::Pressed::kYes) {
    return;
  }
  // The entries' numbers change with each that goes.
  std::vector<std::u16string> texts;
  for (int i = 0; i < lstAddTerms.ListCount(); ++i) {
    if (lstAddTerms.Selected(i)) texts.push_back(lstAddTerms.List(i));
  }
  for (const std::u16string& text : texts) {
    for (int i = 0; i < lstAddTerms.ListCount(); ++i) {
      if (lstAddTerms.List(i) != text) continue;
      lstAddTerms.RemoveItem(i);
      break;
    }
  }
  SetHorizontalExtent(lstAddTerms);
}

void frmKVX_COM::ShowStatusLines() {
  lblTermsInDoc.SetCaption(u"");
  lblLabel1.SetCaption(u"Please wait");
  lblLabel1.SetVisible(true);
  lblLabel2.SetCaption(u"Refreshing list...");
  lblLabel2.SetVisible(true);
  lblLabel3.SetCaption(u"");
  lblLabel3.SetVisible(false);
  Repaint();
}

void frmKVX_COM::HideStatusLines() {
  lblLabel1.SetVisible(false);
  lblLabel2.SetVisible(false);
  // A search that an error ended has left its last step there.
  SetStatusText(u"");
  Repaint();
}

void frmKVX_COM::UnderStatusLines(const std::function<void()>& search) {
  try {
    ShowStatusLines();
    search();
  } catch (...) {
    HideStatusLines();
    throw;
  }
  HideStatusLines();
}

void frmKVX_COM::cmdRefresh_Click() {
  UnderStatusLines([this] {
    if (optSearchType.Selected() != -1) ApplySearchTypeRule(Options(), optSearchType[0].Value());
    SearchAgain();
  });
}

void frmKVX_COM::cmdSetDefaults_Click() {
  UnderStatusLines([this] {
    // Written first, so that the search type chosen here is the one that runs.
    SaveOptionsToIni(Ini(), Services().messages, Options());
    SearchAgain();
  });
}

void frmKVX_COM::SearchAgain() {
  if (KVXAddIn == nullptr) return;
  const std::u16string_view chosenType = optSearchType[1].Value() ? u"SearchInitCaps" : u"SearchFlagged";
  const DocumentCheck check = CheckDocumentBeforeSearch(
      KVXAddIn->ActiveIndexDocument(), Services().forms.WindowHandle(*this), true, chosenType, Services());
  if (check == DocumentCheck::kStop) return;
  const KeptList before(lstTermsInDoc);
  FoundTerms terms{u""};
  if (FindTerms(terms) && AnyFound(terms)) {
    ShowFoundTerms(terms);
  } else {
    before.PutBack(lstTermsInDoc);
  }
}

bool frmKVX_COM::FindTerms(FoundTerms& terms) {
  // The saved setting decides, not the option button: a search type takes effect once it is saved.
  const std::u16string searchType = Ini().ReadIniValue(kDefaultsSection, u"SearchType");
  const TermSearch search{KVXAddIn->WordApp(), KVXAddIn->ActiveIndexDocument(),
                          KVXAddIn->Marker(),  KVXAddIn->Progress(),
                          SearchControls(),    ProgressMode::kStatusBar};
  if (searchType == u"SearchInitCaps") {
    return SearchCappedTerms(search, Services(), chkIgnoreNums.Value() == 1, terms) == SearchResult::kGoOn;
  }
  if (searchType != u"SearchFlagged") return false;
  const QuoteCodes codes{cmbOpenQuote.ItemData(cmbOpenQuote.ListIndex()),
                         cmbCloseQuote.ItemData(cmbCloseQuote.ListIndex())};
  const QuotedSearch quoted{search, Services(), Ini(), Options(), KVXAddIn->SavedReplaceQuotes()};
  return SearchQuotedTerms(quoted, codes, chkBold.Value() == 1, terms) == SearchResult::kGoOn;
}

void frmKVX_COM::ShowFoundTerms(const FoundTerms& terms) {
  lstTermsInDoc.Clear();
  FillFoundTerms(lstTermsInDoc, terms);
  lstTermsInDoc.SetListIndex(0);
  SetHorizontalExtent(lstTermsInDoc);
  cmdOK.SetEnabled(true);
  SetDefaultButton(&cmdOK);
  cmdCancel.SetEnabled(true);
}
