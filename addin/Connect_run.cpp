#include "addin/Connect.h"

#include "addin/frmKVXProgressFormKVXClose.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "addin/modCommonErrorMsgs.h"
#include "dialogs/FirstRunPrompts.h"
#include "dialogs/frmKVXOptions.h"
#include "dialogs/frmKVX_COM.h"
#include "discovery/CappedSearch.h"
#include "discovery/DocumentCheck.h"
#include "discovery/QuotedSearch.h"
#include "discovery/TermList.h"
#include "platform/BookmarkNames.h"
#include "platform/forms/FormHost.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"
#include "settings/Defaults.h"
#include "settings/OptionSettings.h"
#include "settings/modKVXAppDocsSettingsSubPath.h"

namespace {

constexpr std::u16string_view kRunTitle = u"Find and index";

/// The view that a change of view type goes to: the active pane's, or the window's while a special pane is open.
word::ViewPtr TypedView(const word::DocumentPtr& document) {
  const word::WindowPtr window = document->ActiveWindow();
  return window->View()->SplitSpecial() == word::wdPaneNone ? window->ActivePane()->View() : window->View();
}

bool HasIndex(const word::DocumentPtr& document) { return document->Bookmarks()->Exists(kIndexBookmark); }

void DeleteBookmark(const word::DocumentPtr& document, std::u16string_view name) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (bookmarks->Exists(name)) bookmarks->Item(name)->Delete();
}

void ReturnToMark(const word::DocumentPtr& document) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (!bookmarks->Exists(kReturnBookmark)) return;
  bookmarks->Item(kReturnBookmark)->Select();
  bookmarks->Item(kReturnBookmark)->Delete();
}

}  // namespace

void Connect::ShowKVXForm() {
  // A modal window still handles menu clicks.
  if (run_.ActiveIndexDocument) return;
  run_ = {};
  bool finished = false;
  TrapErrors(host_.messages, kRunTitle, [&] { finished = Run(); });
  if (!finished) LeaveEarly();
  run_.ActiveIndexDocument.reset();
}

bool Connect::Run() {
  if (wordApp_->Documents()->Count() < 1) {
    host_.messages.Show(u"No document to index", u"At least 1 document needs to be open to run the indexer.",
                        os::Icon::kInformation, os::Buttons::kOk);
    return true;
  }
  run_.ActiveIndexDocument = LookUpActiveDocument();
  run_.viewType = TypedView(run_.ActiveIndexDocument)->Type();
  if (!HasIndex(run_.ActiveIndexDocument) && !CursorMayTakeIndex()) return false;
  ReadWordState();
  if (!ShowOptionsDialog()) return false;

  frmKVX_COM dialog(host_, ini_);
  if (!LoadSettingsIntoDialog(ini_, host_.messages, dialog.Options())) {
    ShowIniFileProblem(host_.messages);
    return false;
  }
  dialog.KVXAddIn = this;
  MarkPlaces();
  dialog.Load();
  if (!Search(dialog)) return false;

  running_ = true;
  run_.wordStateChanged = true;
  if (PrepareTermsDialog(dialog) == u"Ready") {
    host_.forms.ShowModal(dialog);
    if (dialog.Visible()) dialog.Hide();
  }
  dialog.KVXAddIn = nullptr;
  if (dialog.Loaded()) dialog.Unload();
  frmKVXProgressFormKVXClose closing(host_.forms, [this] { Restore(); });
  ShowAtWork(closing, u"Restoring document...");
  return true;
}

word::DocumentPtr Connect::LookUpActiveDocument() const {
  return wordApp_->Documents()->Item(wordApp_->ActiveDocument()->Name());
}

bool Connect::CursorMayTakeIndex() {
  const word::SelectionPtr selection = wordApp_->Selection();
  if (selection->Tables()->Count() >= 1) {
    host_.messages.Show(u"Cannot continue - inside a table",
                        u"A defined terms index can't be inside a table.  Please move to wherever you want your "
                        u"index, so long as it's not inside a table.",
                        os::Icon::kExclamation, os::Buttons::kOk);
    return false;
  }
  if (selection->Range()->StoryType() != word::wdMainTextStory) {
    host_.messages.Show(u"Cannot continue",
                        u"Your defined terms index has to be in the main body of your document.  Please put your "
                        u"cursor where you want the index to be inserted and try again.",
                        os::Icon::kExclamation, os::Buttons::kOk);
    return false;
  }
  return true;
}

void Connect::ReadWordState() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  const word::OptionsPtr options = wordApp_->Options();
  SavedWordState& saved = run_.saved;
  saved.SavedReplaceQuotes = options->AutoFormatAsYouTypeReplaceQuotes();
  saved.SavedAllowFastSave = options->AllowFastSave();
  saved.SavedCheckSpelling = options->CheckSpellingAsYouType();
  saved.SavedCheckGrammar = options->CheckGrammarAsYouType();
  saved.SavedShowGrammarErrors = document->ShowGrammaticalErrors();
  saved.SavedShowSpellingErrors = document->ShowSpellingErrors();
  saved.SavedShowHiddenText = document->ActiveWindow()->View()->ShowHiddenText();
  run_.showAll = document->ActiveWindow()->ActivePane()->View()->ShowAll();
}

bool Connect::ShowOptionsDialog() {
  frmKVXOptions dialog(host_, ini_);
  dialog.Load();
  const std::intptr_t owner = host_.forms.WindowHandle(dialog);
  ini_.IniFilePath = settingsFolder_.GetSettingsFolder(owner, modKVXAppDocsSettingsSubPath) + u"\\kvx.ini";
  const auto fill = [&] {
    if (LoadSettingsIntoDialog(ini_, host_.messages, dialog.Options())) return true;
    ShowIniFileProblem(host_.messages);
    dialog.Unload();
    return false;
  };
  if (!fill()) return false;
  // A search type that was chosen for the first time shows in the dialog.
  if (ShowFirstRunPrompts(host_, ini_) && !fill()) return false;
  host_.forms.ShowModal(dialog);
  run_.OptionsAccepted = dialog.Tag() != u"Cancel";
  dialog.Unload();
  return run_.OptionsAccepted;
}

void Connect::MarkPlaces() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  const word::RangePtr cursor = wordApp_->Selection()->Range()->Duplicate();
  cursor->Collapse(word::wdCollapseStart);
  document->Bookmarks()->Add(kReturnBookmark, cursor);
  run_.returnMarked = true;
  if (HasIndex(document)) {
    const word::RangePtr index = document->Bookmarks()->Item(kIndexBookmark)->Range()->Duplicate();
    index->Collapse(word::wdCollapseStart);
    index->Select();
  }
  document->Bookmarks()->Add(kIndexStartBookmark, wordApp_->Selection()->Range());
  run_.IndexStartMarked = true;
}

bool Connect::Search(frmKVX_COM& dialog) {
  // Without a search, too, the terms dialog and the clean-up after it need the companion.
  RequireTermMarker();
  const std::u16string searchType = ini_.ReadIniValue(kDefaultsSection, u"SearchType");
  if (searchType != u"SearchFlagged" && searchType != u"SearchInitCaps") return true;
  const bool quotedTerms = searchType == u"SearchFlagged";
  if (quotedTerms) {
    run_.ActiveIndexDocument = LookUpActiveDocument();
    run_.wordStateChanged = true;
  }
  const SearchResult result = quotedTerms ? SearchQuotedTerms(run_.ActiveIndexDocument, dialog)
                                          : SearchCappedTerms(run_.ActiveIndexDocument, dialog);
  if (result == SearchResult::kFailed) {
    host_.messages.Show(u"Cannot continue", u"Could not initialize", os::Icon::kCritical, os::Buttons::kOk);
  }
  if (result == SearchResult::kFailed || result == SearchResult::kStopQuietly) return false;
  if (quotedTerms) {
    PrepareForQuotedTerms();
  } else {
    PrepareForCappedTerms();
  }
  return true;
}

SearchResult Connect::SearchQuotedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog) {
  // The first list of a run is made without asking; a refresh asks.
  const DocumentCheck check =
      CheckDocumentBeforeSearch(document, host_.forms.WindowHandle(dialog), false, u"SearchFlagged", host_);
  if (check == DocumentCheck::kStop) return SearchResult::kStopQuietly;
  const QuoteCodes codes{ReadQuoteCode(ini_, u"OpenQuote", u"147"), ReadQuoteCode(ini_, u"CloseQuote", u"148")};
  const TermSearch search{wordApp_, document, *termMarker_, *progress_, dialog.SearchControls(), ProgressMode::kWindow};
  const QuotedSearch quoted{search, host_, ini_, dialog.Options(), SavedReplaceQuotes()};
  dialog.firstFillInProgress = true;
  FoundTerms terms(1);
  const SearchResult result = ::SearchQuotedTerms(quoted, codes, dialog.chkBold.Value() == 1, terms);
  FillFoundTerms(dialog.lstTermsInDoc, terms);
  dialog.firstFillInProgress = false;
  return result;
}

SearchResult Connect::SearchCappedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog) {
  const DocumentCheck check =
      CheckDocumentBeforeSearch(document, host_.forms.WindowHandle(dialog), true, u"SearchInitCaps", host_);
  if (check == DocumentCheck::kStop) return SearchResult::kStopQuietly;
  const TermSearch search{wordApp_, document, *termMarker_, *progress_, dialog.SearchControls(), ProgressMode::kWindow};
  dialog.firstFillInProgress = true;
  FoundTerms terms(1);
  const SearchResult result = ::SearchCappedTerms(search, host_, dialog.chkIgnoreNums.Value() == 1, terms);
  FillFoundTerms(dialog.lstTermsInDoc, terms);
  dialog.firstFillInProgress = false;
  // An error was shown, and what was found before it counts.
  return result == SearchResult::kStopQuietly ? result : SearchResult::kGoOn;
}

void Connect::PrepareForQuotedTerms() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  wordApp_->Options()->SetAllowFastSave(false);
  wordApp_->Selection()->Collapse(word::wdCollapseStart);
  const word::WindowPtr window = document->ActiveWindow();
  if (!HasIndex(document)) document->Bookmarks()->Add(kIndexStartBookmark, window->Selection()->Range());
  window->ActivePane()->View()->SetShowAll(false);
  run_.saved.SavedShowHiddenText = window->View()->ShowHiddenText();
  window->View()->SetShowHiddenText(false);
  StripEarlierMarking();
  wordApp_->ScreenRefresh();
}

void Connect::PrepareForCappedTerms() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  const word::OptionsPtr options = wordApp_->Options();
  ReadWordState();
  run_.wordStateChanged = true;
  options->SetCheckSpellingAsYouType(false);
  options->SetCheckGrammarAsYouType(false);
  document->SetShowGrammaticalErrors(false);
  document->SetShowSpellingErrors(false);
  const word::WindowPtr window = document->ActiveWindow();
  window->ActivePane()->View()->SetShowAll(false);
  window->View()->SetShowHiddenText(false);

  frmKVXProgressFormKVXPreparing preparing(host_.forms, [this] { StripEarlierMarking(); });
  ShowAtWork(preparing, u"Preparing document...");
}

void Connect::ShowAtWork(WorkProgressForm& form, std::u16string_view task) {
  form.Load();
  form.lblLabel1.SetCaption(u"Please wait");
  form.lblLabel2.SetCaption(task);
  form.lblLabel3.SetCaption(u"");
  form.lblProgBarCompleted.SetVisible(false);
  form.lblProgBarTotal.SetVisible(false);
  host_.forms.ShowModal(form);
  form.Unload();
}

void Connect::StripEarlierMarking() {
  wordApp_->SetScreenUpdating(false);
  termMarker_->RemoveIndexEntries(wordApp_, run_.ActiveIndexDocument, false);
  termMarker_->RemoveIndex(wordApp_, run_.ActiveIndexDocument, true);
  termMarker_->RemoveTermHighlighting(run_.ActiveIndexDocument);
  wordApp_->SetScreenUpdating(true);
}

std::u16string_view Connect::PrepareTermsDialog(frmKVX_COM& dialog) {
  const bool done = TrapErrors(host_.messages, u"Error setting list box widths", [&] {
    dialog.SetHorizontalExtent(dialog.lstTermsInDoc);
    dialog.SetHorizontalExtent(dialog.lstAddTerms);
  });
  return done ? u"Ready" : u"Cancel";
}

void Connect::Restore() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  const bool restored = engine_->RestoreWordState(wordApp_, document, run_.saved);
  run_.wordStateChanged = false;
  ResetDocView(document);
  wordApp_->Options()->SetPagination(true);

  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (HasIndex(document)) {
    bookmarks->Item(kIndexBookmark)->Select();
    wordApp_->Selection()->Collapse(word::wdCollapseStart);
  }
  if (run_.OptionsAccepted) DeleteBookmark(document, kIndexStartBookmark);
  if (HasIndex(document)) {
    const word::SelectionPtr selection = wordApp_->Selection();
    selection->GoTo({.What = word::wdGoToBookmark, .Name = std::u16string(kIndexBookmark)});
    selection->Collapse(word::wdCollapseStart);
    // The companion takes it away, unless an error kept it from that.
    if (!restored) DeleteBookmark(document, kReturnBookmark);
  } else {
    ReturnToMark(document);
  }
  RestoreView();
}

void Connect::LeaveEarly() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  if (!document) return;
  if (run_.wordStateChanged) progress_->CloseProgress();
  TrapErrors(host_.messages, kRunTitle, [&] {
    RestoreView();
    if (!wordApp_->ScreenUpdating()) wordApp_->SetScreenUpdating(true);
    wordApp_->ScreenRefresh();
  });
  TrapErrors(host_.messages, kRunTitle, [&] {
    // Those that an interrupted run left go too; they are no place to return to.
    DeleteBookmark(document, kIndexStartBookmark);
    if (!run_.returnMarked) DeleteBookmark(document, kReturnBookmark);
    ReturnToMark(document);
  });
  // Behind the cursor: the companion takes the mark to return to away where there is an index.
  if (run_.wordStateChanged) engine_->RestoreWordState(wordApp_, document, run_.saved);
}

void Connect::ResetDocView(const word::DocumentPtr& document) {
  TrapErrors(host_.messages, u"Reset doc view", [&] {
    document->ActiveWindow()->SetSplitVertical(0);
    if (!SetPrintView(document)) throw word::HostError(word::kCommandFailed, u"Command failed", "View.Type");
  });
  wordApp_->SetScreenUpdating(true);
  wordApp_->ScreenRefresh();
}

bool Connect::SetPrintView(const word::DocumentPtr& document) {
  return TrapErrors(host_.messages, u"Print view", [&] { TypedView(document)->SetType(word::wdPrintView); });
}

void Connect::RestoreView() {
  const word::DocumentPtr& document = run_.ActiveIndexDocument;
  // Formatting marks were switched off for the run only.
  const word::ViewPtr pane = document->ActiveWindow()->ActivePane()->View();
  if (run_.showAll && !pane->ShowAll()) pane->SetShowAll(true);
  RestoreDocViewType(document, run_.viewType);
}

void Connect::RestoreDocViewType(const word::DocumentPtr& document, int viewType) {
  TypedView(document)->SetType(viewType);
}
