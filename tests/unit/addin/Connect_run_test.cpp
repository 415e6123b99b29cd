#include <gtest/gtest.h>

#include <optional>

#include "addin/Connect.h"
#include "addin/frmProgressForm.h"
#include "dialogs/frmKVX_COM.h"
#include "settings/Defaults.h"
#include "tests/fakes/FakeHost.h"

namespace {

using Calls = std::vector<std::string>;

/// An add-in whose search for capitalised words answers as a test says, where it says so.
class TestConnect : public Connect {
 public:
  using Connect::Connect;
  std::optional<SearchResult> cappedResult{SearchResult::kGoOn};

 protected:
  SearchResult SearchCappedTerms(const word::DocumentPtr& document, frmKVX_COM& dialog) override {
    if (!cappedResult) return Connect::SearchCappedTerms(document, dialog);
    dialog.lstTermsInDoc.AddItem(u"Seller");
    return *cappedResult;
  }
};

class IndexerRun : public testing::Test {
 protected:
  IndexerRun() {
    host.word.stories[0].text = u"The \u201CSeller\u201D sells to the \u201CBuyer\u201D.\r";
    host.word.selection = {0, 4, 9};
    host.word.paneViewType = word::wdWebView;
    host.onInsertIndex = [this](const word::DocumentPtr&) { host.word.bookmarks[u"DefinedTermsIndex"] = {0, 4, 6}; };
  }
  void Run() {
    connect.OnConnection(host.word.MakeApplication(), ConnectMode::kStartup);
    connect.OnStartupComplete();
    host.log.calls.clear();
    connect.ShowKVXForm();
  }
  void AcceptOptions() {
    host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdOK"); });
  }
  void CancelOptions() {
    host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  }
  void InTermsDialog(fakes::FakeFormHost::Script script) { host.forms.On("frmKVX_COM", std::move(script)); }
  void AcceptTerms() {
    InTermsDialog([](fakes::FormDriver& d) { d.Click("cmdOK"); });
  }
  void CancelTerms() {
    InTermsDialog([](fakes::FormDriver& d) { d.Click("cmdCancel"); });
  }
  /// A settings file that holds the defaults but for what was set.
  void Set(std::u16string_view key, std::u16string_view value) {
    for (const SettingDefault& setting : kSettingDefaults) {
      const bool isSet = host.profile.values.contains({u"Defaults", std::u16string(setting.key)});
      if (!isSet) host.profile.Write(u"Defaults", setting.key, setting.value, kIni);
    }
    host.profile.Write(u"Defaults", key, value, kIni);
  }
  void HaveIndexAt(fakes::Place place) { host.word.bookmarks[u"DefinedTermsIndex"] = place; }
  /// The index goes where no cursor and no bookmark of the run stands.
  void InsertIndexBehindTheCursor() {
    host.onInsertIndex = [this](const word::DocumentPtr&) { HaveIndexAt({0, 12, 14}); };
  }
  bool Has(std::u16string_view bookmark) { return host.word.bookmarks.count(std::u16string(bookmark)) != 0; }
  void ExpectOnlyTheIndexBookmark() {
    EXPECT_EQ(host.word.bookmarks.size(), 1u);
    EXPECT_TRUE(Has(u"DefinedTermsIndex"));
  }
  void ExpectCursorAt(word::Position start) {
    EXPECT_EQ(host.word.selection.start, start);
    EXPECT_EQ(host.word.selection.end, start);
  }
  /// The log from the first entry that equals this on.
  Calls From(std::string_view first) {
    return {std::find(host.log.calls.begin(), host.log.calls.end(), first), host.log.calls.end()};
  }
  Calls Without(const Calls& calls, std::string_view beginning) {
    Calls rest;
    for (const std::string& call : calls) {
      if (!call.starts_with(beginning)) rest.push_back(call);
    }
    return rest;
  }

  static constexpr std::u16string_view kIni = u"C:\\Data\\Brantholt\\Kelvarin\\kvx.ini";
  fakes::FakeHost host;
  TestConnect connect{host.Make()};
};

}  // namespace

TEST_F(IndexerRun, WithoutADocumentOnlyAMessageIsShown) {
  host.word.hasDocument = false;
  host.messages.Expect(u"No document to index");
  Run();
  EXPECT_EQ(host.log.calls, Calls{"message No document to index"});
  EXPECT_EQ(host.messages.shown.at(0).text, u"At least 1 document needs to be open to run the indexer.");
  EXPECT_EQ(host.messages.shown.at(0).icon, os::Icon::kInformation);
}

TEST_F(IndexerRun, ACursorInATableIsRefused) {
  host.word.tables = 1;
  host.messages.Expect(u"Cannot continue - inside a table");
  Run();
  EXPECT_EQ(host.log.calls,
            (Calls{"message Cannot continue - inside a table", "Pane.View.Type = 6", "Application.ScreenRefresh"}));
  EXPECT_EQ(host.messages.shown.at(0).icon, os::Icon::kExclamation);
}

TEST_F(IndexerRun, ACursorOutsideTheMainTextIsRefused) {
  host.word.stories.push_back({word::wdFootnotesStory, u"Note.\r", {}});
  host.word.selection = {1, 0, 0};
  host.messages.Expect(u"Cannot continue");
  Run();
  EXPECT_EQ(host.messages.shown.at(0).text,
            u"Your defined terms index has to be in the main body of your document.  Please put your cursor where you "
            u"want the index to be inserted and try again.");
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(IndexerRun, WithAnIndexTheCursorMayStandInATableOrANote) {
  host.word.stories.push_back({word::wdFootnotesStory, u"Note.\r", {}});
  HaveIndexAt({0, 10, 12});
  host.word.tables = 1;
  host.word.selection = {1, 2, 2};
  InsertIndexBehindTheCursor();
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("Bookmarks.Add IndexBKStart 1:10-10"));
  EXPECT_EQ(host.log.CountBeginning("InsertIndex"), 1);
  EXPECT_EQ(host.word.selection.story, 0u);
  ExpectCursorAt(12);
}

TEST_F(IndexerRun, CancelledOptionsLeaveNoBookmarkAndTheCursorWhereItWas) {
  CancelOptions();
  Run();
  EXPECT_TRUE(host.word.bookmarks.empty());
  EXPECT_EQ(host.word.selection.start, 4);
  EXPECT_EQ(host.word.selection.end, 9);
  EXPECT_EQ(host.log.CountBeginning("Options."), 0);
  EXPECT_EQ(host.word.paneViewType, word::wdWebView);
  EXPECT_EQ(host.log.Count("unload frmKVXOptions"), 1);
}

TEST_F(IndexerRun, CancelledOptionsDoNotReturnToAMarkThatAnInterruptedRunLeft) {
  host.word.bookmarks[u"ReturnHereBK"] = {0, 1, 1};
  CancelOptions();
  Run();
  EXPECT_FALSE(Has(u"ReturnHereBK"));
  EXPECT_EQ(host.word.selection.start, 4);
}

TEST_F(IndexerRun, CancelledOptionsLeaveNoBookmarkOfAnInterruptedRun) {
  host.word.bookmarks[u"ReturnHereBK"] = {0, 1, 1};
  host.word.bookmarks[u"IndexBKStart"] = {0, 2, 2};
  CancelOptions();
  Run();
  EXPECT_TRUE(host.word.bookmarks.empty());
  EXPECT_EQ(host.word.selection.start, 4);
  EXPECT_EQ(host.word.selection.end, 9);
}

TEST_F(IndexerRun, ClosingTheOptionsByTheirCloseBoxCancels) {
  host.forms.On("frmKVXOptions", [](fakes::FormDriver& d) { EXPECT_TRUE(d.Form().UserClose()); });
  Run();
  EXPECT_TRUE(host.word.bookmarks.empty());
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
}

TEST_F(IndexerRun, TheSettingsFileIsLookedForWithTheDialogAsOwner) {
  CancelOptions();
  Run();
  EXPECT_EQ(host.folders.askedOwner, fakes::FakeFormHost::kWindow);
  EXPECT_EQ(host.profile.lastPath, u"C:\\Data\\Brantholt\\Kelvarin\\\\kvx.ini");
  EXPECT_EQ(host.profile.written.size(), 16u);
}

TEST_F(IndexerRun, CancelledOptionsOnAnIndexedDocumentLeaveTheCursorWhereItWas) {
  HaveIndexAt({0, 10, 12});
  CancelOptions();
  Run();
  EXPECT_EQ(host.word.selection.start, 4);
  EXPECT_EQ(host.word.selection.end, 9);
  ExpectOnlyTheIndexBookmark();
}

TEST_F(IndexerRun, SettingsThatCannotBeReadEndTheRunBeforeTheOptionsAreShown) {
  host.files.unreadable.insert(std::u16string(kIni));
  host.messages.Expect(u"Ini file problem");
  Run();
  EXPECT_EQ(host.messages.shown.at(0).text,
            u"There is a problem with the ini file. Please reinstall to try to fix the problem.");
  EXPECT_EQ(host.log.calls, (Calls{"message Ini file problem", "unload frmKVXOptions", "Pane.View.Type = 6",
                                   "Application.ScreenRefresh"}));
  EXPECT_TRUE(host.word.bookmarks.empty());
  EXPECT_EQ(host.word.selection.start, 4);
  EXPECT_EQ(host.word.selection.end, 9);
}

TEST_F(IndexerRun, SettingsThatCannotBeReadAnyMoreEndTheRunBeforeTheTermsDialogIsShown) {
  host.forms.On("frmKVXOptions", [this](fakes::FormDriver& d) {
    d.Click("cmdOK");
    host.files.unreadable.insert(std::u16string(kIni));
  });
  host.messages.Expect(u"Ini file problem");
  Run();
  EXPECT_EQ(From("message Ini file problem"),
            (Calls{"message Ini file problem", "Pane.View.Type = 6", "Application.ScreenRefresh"}));
  EXPECT_EQ(host.log.Count("unload frmKVXOptions"), 1);
  EXPECT_FALSE(host.log.Contains("show frmKVX_COM"));
  EXPECT_EQ(host.log.CountBeginning("Bookmark"), 0);
  EXPECT_EQ(host.word.selection.start, 4);
  EXPECT_EQ(host.word.selection.end, 9);
}

TEST_F(IndexerRun, AFolderThatCannotBeMadeEndsTheRun) {
  host.files.folders.clear();
  host.messages.Expect(u"Find and index");
  Run();
  EXPECT_EQ(host.messages.shown.at(0).text, u"Error: 76 Path not found");
  EXPECT_EQ(host.word.paneViewType, word::wdWebView);
}

TEST_F(IndexerRun, AWholeRunMakesItsCallsInTheirOrder) {
  AcceptOptions();
  AcceptTerms();
  host.found = [](std::u16string_view, int) { return 1; };
  Set(u"IndexAllCaps", u"False");
  Set(u"IncludeNotUsed", u"False");
  Set(u"IncludeNotFound", u"False");
  host.word.showAll = false;
  InsertIndexBehindTheCursor();
  Run();
  const Calls expected = {
      "show frmKVXOptions",
      "hide frmKVXOptions",
      "unload frmKVXOptions",
      "Bookmarks.Add ReturnHereBK 1:4-4",
      "Bookmarks.Add IndexBKStart 1:4-9",
      // The quotation marks are counted
      "show frmProgressForm",
      "Find.Text = ?",
      "Find.Text = ?",
      "hide frmProgressForm",
      "unload frmProgressForm",
      // The search for quoted terms
      "show frmProgressForm",
      "Options.AutoFormatAsYouTypeReplaceQuotes = False",
      "OptionChanged",
      "Find.Text = \"*\"",
      "AddTerm Seller",
      "Find.Text = \"*\"",
      "AddTerm Buyer",
      "Find.Text = \"*\"",
      "hide frmProgressForm",
      "unload frmProgressForm",
      // The document is prepared
      "Options.AllowFastSave = False",
      "Selection.Collapse start",
      "Bookmarks.Add IndexBKStart 1:4-4",
      "Pane.View.ShowAll = False",
      "Window.View.ShowHiddenText = False",
      "Application.ScreenUpdating = False",
      "RemoveIndexEntries False",
      "RemoveIndex True",
      "RemoveTermHighlighting",
      "Application.ScreenUpdating = True",
      "Application.ScreenRefresh",
      // The terms dialog, and the indexing inside it
      "show frmKVX_COM",
      "Application.ScreenUpdating = True",
      "Selection.HomeKey 6",
      "Application.ScreenUpdating = False",
      "hide frmKVX_COM",
      "BeginIndexing",
      "BuildTermTable True Buyer Seller",
      "Window.View.ShowHiddenText = False",
      "show frmProgressForm",
      "MarkTermInStory Buyer count 0 story 1 case True caps False IndexAll as \"\"",
      "MarkTermInStory Seller count 0 story 1 case True caps False IndexAll as \"\"",
      "hide frmProgressForm",
      "unload frmProgressForm",
      "GetUnusedAndMissing Buyer=1 Seller=1",
      "InsertIndex 2 \":  \t\"",
      "Document.UndoClear",
      "Selection.GoTo -1 0 DefinedTermsIndex",
      "Selection.Collapse start",
      "EndIndexing",
      "Document.UndoClear",
      "Application.ScreenRefresh",
      "Application.ScreenUpdating = True",
      "Application.ScreenUpdating = True",
      "Application.ScreenRefresh",
      "Bookmark.Delete IndexBKStart",
      "unload frmKVX_COM",
      // Word's state is put back
      "show frmKVXProgressFormKVXClose",
      "Options.AutoFormatAsYouTypeReplaceQuotes = True",
      "FinishDocument",
      "Bookmark.Delete ReturnHereBK",
      "Document.UndoClear",
      "Window.View.ShowHiddenText = True",
      "Options.CheckSpellingAsYouType = True",
      "Options.CheckGrammarAsYouType = True",
      "Document.ShowGrammaticalErrors = True",
      "Document.ShowSpellingErrors = True",
      "Window.SplitVertical = 0",
      "Pane.View.Type = 3",
      "Application.ScreenUpdating = True",
      "Application.ScreenRefresh",
      "Options.Pagination = True",
      "Bookmark.Select DefinedTermsIndex",
      "Selection.Collapse start",
      "Selection.GoTo -1 0 DefinedTermsIndex",
      "Selection.Collapse start",
      "Pane.View.Type = 6",
      "hide frmKVXProgressFormKVXClose",
      "unload frmKVXProgressFormKVXClose",
  };
  EXPECT_EQ(host.log.calls, expected);
  ExpectCursorAt(12);
}

TEST_F(IndexerRun, WithoutHighlightTheHighlightsAreTakenAwayAfterMarking) {
  Set(u"Highlight", u"False");
  AcceptOptions();
  AcceptTerms();
  Run();
  const Calls calls = From("EndIndexing");
  EXPECT_EQ(Calls(calls.begin(), calls.begin() + 9),
            (Calls{"EndIndexing", "Document.UndoClear", "Application.ScreenRefresh",
                   "Application.ScreenUpdating = True", "RemoveTermHighlighting", "Document.UndoClear",
                   "Selection.GoTo 1 1 ", "Application.ScreenUpdating = True", "Application.ScreenRefresh"}));
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, ACancelledRunRestoresTheStateAndTheCursor) {
  AcceptOptions();
  CancelTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("FinishDocument"));
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
  EXPECT_TRUE(host.word.replaceQuotes);
  EXPECT_TRUE(host.word.showHiddenText);
  EXPECT_TRUE(host.word.showAll);
  EXPECT_TRUE(host.word.pagination);
  EXPECT_EQ(host.word.paneViewType, word::wdWebView);
  EXPECT_EQ(host.log.CountBeginning("MarkTermInStory"), 0);
}

TEST_F(IndexerRun, ARunWhoseRestoringFailsLeavesNoBookmarkOfItsOwn) {
  host.log.failAt = "FinishDocument";
  host.messages.Expect(u"Error restoring options");
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(Has(u"DefinedTermsIndex"));
  EXPECT_FALSE(Has(u"ReturnHereBK"));
  EXPECT_FALSE(Has(u"IndexBKStart"));
}

TEST_F(IndexerRun, FastSaveStaysOff) {
  AcceptOptions();
  CancelTerms();
  Run();
  EXPECT_FALSE(host.word.allowFastSave);
}

TEST_F(IndexerRun, WithASpecialPaneOpenTheWindowsViewIsTheOneThatComesBack) {
  host.word.splitSpecial = 7;
  host.word.windowViewType = word::wdOutlineView;
  AcceptOptions();
  CancelTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("Window.View.Type = 3"));
  EXPECT_EQ(host.word.windowViewType, word::wdOutlineView);
  EXPECT_EQ(host.log.CountBeginning("Pane.View.Type"), 0);
}

TEST_F(IndexerRun, AnUnknownSearchTypeShowsTheTermsDialogWithoutASearch) {
  Set(u"SearchType", u"Anything");
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    EXPECT_EQ(d.At<forms::ListBox>("lstTermsInDoc").ListCount(), 0);
    d.Click("cmdCancel");
  });
  Run();
  EXPECT_EQ(host.log.CountBeginning("Find."), 0);
  EXPECT_EQ(host.log.CountBeginning("RemoveIndex"), 0);
  EXPECT_TRUE(host.log.Contains("FinishDocument"));
}

TEST_F(IndexerRun, FoundTermsAreListedSortedAndSelected) {
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    auto& list = d.At<forms::ListBox>("lstTermsInDoc");
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(0), u"Buyer");
    EXPECT_EQ(list.List(1), u"Seller");
    EXPECT_EQ(list.SelCount(), 2);
    d.Click("cmdCancel");
  });
  Run();
}

TEST_F(IndexerRun, TheBoldSettingLimitsTheSearch) {
  Set(u"Bold", u"True");
  host.word.stories[0].bold = {{5, 11}};
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    ASSERT_EQ(d.At<forms::ListBox>("lstTermsInDoc").ListCount(), 1);
    EXPECT_EQ(d.At<forms::ListBox>("lstTermsInDoc").List(0), u"Seller");
    d.Click("cmdCancel");
  });
  Run();
}

TEST_F(IndexerRun, AFailedSearchSaysSoRestoresAndReturnsTheCursor) {
  host.log.failAt = "AddTerm Seller";
  host.messages.Expect(u"Get list of terms failed");
  host.messages.Expect(u"Cannot continue");
  AcceptOptions();
  Run();
  EXPECT_EQ(host.messages.shown.at(1).text, u"Could not initialize");
  EXPECT_EQ(host.messages.shown.at(1).icon, os::Icon::kCritical);
  EXPECT_EQ(Without(From("message Cannot continue"), "unload"),
            (Calls{"message Cannot continue", "Pane.View.Type = 6", "Application.ScreenRefresh",
                   "Bookmark.Delete IndexBKStart", "Bookmark.Select ReturnHereBK", "Bookmark.Delete ReturnHereBK",
                   "Options.AutoFormatAsYouTypeReplaceQuotes = True", "FinishDocument", "Document.UndoClear",
                   "Window.View.ShowHiddenText = True", "Options.CheckSpellingAsYouType = True",
                   "Options.CheckGrammarAsYouType = True", "Document.ShowGrammaticalErrors = True",
                   "Document.ShowSpellingErrors = True"}));
  ExpectCursorAt(4);
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(IndexerRun, AFailedSearchOnAnIndexedDocumentReturnsTheCursor) {
  HaveIndexAt({0, 12, 14});
  host.log.failAt = "AddTerm Seller";
  host.messages.Expect(u"Get list of terms failed");
  host.messages.Expect(u"Cannot continue");
  AcceptOptions();
  Run();
  EXPECT_TRUE(host.log.Contains("FinishDocument"));
  ExpectCursorAt(4);
  ExpectOnlyTheIndexBookmark();
}

TEST_F(IndexerRun, AStoppedSearchOnAnIndexedDocumentReturnsTheCursor) {
  HaveIndexAt({0, 12, 14});
  host.word.stories[0].text = u"The \u201CSeller\u201D sells to the \u201CBuyer.\r";
  host.messages.Expect(u"Mis-matched double quotes", os::Pressed::kNo);
  host.messages.Expect(u"Mis-matched double quotes", os::Pressed::kNo);
  host.messages.Expect(u"Cannot index");
  AcceptOptions();
  Run();
  EXPECT_TRUE(host.log.Contains("FinishDocument"));
  ExpectCursorAt(4);
  ExpectOnlyTheIndexBookmark();
}

TEST_F(IndexerRun, AnErrorWhilePreparingIsShownAndEverythingPutBack) {
  host.log.failAt = "RemoveIndex True";
  host.messages.Expect(u"Find and index");
  AcceptOptions();
  Run();
  EXPECT_TRUE(host.word.screenUpdating);
  EXPECT_TRUE(host.word.replaceQuotes);
  EXPECT_TRUE(host.word.showHiddenText);
  EXPECT_TRUE(host.word.showAll);
  EXPECT_TRUE(host.word.bookmarks.empty());
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
}

TEST_F(IndexerRun, AnErrorInThePrintViewIsShownTwiceAndTheRunGoesOn) {
  host.log.failAt = "Pane.View.Type = 3";
  host.messages.Expect(u"Print view");
  host.messages.Expect(u"Reset doc view");
  AcceptOptions();
  CancelTerms();
  Run();
  EXPECT_TRUE(host.word.pagination);
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, AWindowWhoseSplitCannotBeTakenAwayIsShownAndTheRunGoesOn) {
  host.log.failAt = "Window.SplitVertical = 0";
  host.messages.Expect(u"Reset doc view");
  AcceptOptions();
  CancelTerms();
  Run();
  const Calls calls = From("message Reset doc view");
  ASSERT_GE(calls.size(), 4u);
  EXPECT_EQ(Calls(calls.begin(), calls.begin() + 4),
            (Calls{"message Reset doc view", "Application.ScreenUpdating = True", "Application.ScreenRefresh",
                   "Options.Pagination = True"}));
  EXPECT_FALSE(host.log.Contains("Pane.View.Type = 3"));
  EXPECT_EQ(host.word.paneViewType, word::wdWebView);
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, AListWhoseWidthCannotBeSetEndsWithoutTheTermsDialog) {
  host.forms.extentFails = true;
  host.messages.Expect(u"Error setting list box widths");
  AcceptOptions();
  Run();
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
  EXPECT_TRUE(host.log.Contains("FinishDocument"));
  EXPECT_EQ(host.log.Count("unload frmKVX_COM"), 1);
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(IndexerRun, ASecondRunStartsAfresh) {
  AcceptOptions();
  CancelTerms();
  Run();
  CancelOptions();
  host.log.calls.clear();
  connect.ShowKVXForm();
  EXPECT_EQ(host.log.CountBeginning("Options."), 0);
  EXPECT_EQ(host.log.CountBeginning("Bookmark"), 0);
}

TEST_F(IndexerRun, ForCapitalisedWordsProofingIsSwitchedOffAndBackOn) {
  Set(u"SearchType", u"SearchInitCaps");
  AcceptOptions();
  CancelTerms();
  Run();
  const Calls calls = From("Options.CheckSpellingAsYouType = False");
  ASSERT_GE(calls.size(), 14u);
  EXPECT_EQ(
      Calls(calls.begin(), calls.begin() + 14),
      (Calls{"Options.CheckSpellingAsYouType = False", "Options.CheckGrammarAsYouType = False",
             "Document.ShowGrammaticalErrors = False", "Document.ShowSpellingErrors = False",
             "Pane.View.ShowAll = False", "Window.View.ShowHiddenText = False", "show frmKVXProgressFormKVXPreparing",
             "Application.ScreenUpdating = False", "RemoveIndexEntries False", "RemoveIndex True",
             "RemoveTermHighlighting", "Application.ScreenUpdating = True", "hide frmKVXProgressFormKVXPreparing",
             "unload frmKVXProgressFormKVXPreparing"}));
  EXPECT_TRUE(host.word.checkSpelling);
  EXPECT_TRUE(host.word.checkGrammar);
  EXPECT_TRUE(host.word.showGrammaticalErrors);
  EXPECT_TRUE(host.word.showSpellingErrors);
  EXPECT_EQ(host.log.Count("OptionChanged"), 0);
}

TEST_F(IndexerRun, APendingTermThatIsRefusedStaysInTheBoxAndIsNotIndexed) {
  host.messages.Expect(u"Add term?", os::Pressed::kNo);
  AcceptOptions();
  InTermsDialog([this](fakes::FormDriver& d) {
    d.Type("txtAddTerm", u"Closing");
    d.Click("cmdOK");
    EXPECT_EQ(d.At<forms::TextBox>("txtAddTerm").Text(), u"Closing");
    EXPECT_EQ(d.At<forms::ListBox>("lstAddTerms").ListCount(), 0);
    EXPECT_TRUE(host.log.Contains("BuildTermTable True Buyer Seller"));
  });
  Run();
  EXPECT_EQ(host.messages.shown.at(0).text, u"Do you want to add \"Closing\" to the list of terms for indexing?");
  EXPECT_EQ(host.messages.shown.at(0).icon, os::Icon::kQuestion);
  EXPECT_EQ(host.messages.shown.at(0).buttons, os::Buttons::kYesNo);
}

TEST_F(IndexerRun, APendingTermThatIsAcceptedIsIndexedWithTheOthers) {
  host.messages.Expect(u"Add term?", os::Pressed::kYes);
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    d.Type("txtAddTerm", u"Closing");
    d.Click("cmdOK");
    EXPECT_EQ(d.At<forms::TextBox>("txtAddTerm").Text(), u"");
  });
  Run();
  EXPECT_TRUE(host.log.Contains("BuildTermTable True Buyer Seller Closing"));
}

TEST_F(IndexerRun, WithNothingSelectedTheTermsDialogStays) {
  host.messages.Expect(u"Nothing selected");
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    d.Click("cmdDeselectAllTermsInDoc");
    d.Click("cmdOK");
    EXPECT_TRUE(d.Form().Visible());
    d.Click("cmdCancel");
  });
  Run();
  EXPECT_EQ(host.messages.shown.at(0).text, u"No terms were selected for indexing.");
  EXPECT_EQ(host.messages.shown.at(0).buttons, os::Buttons::kOk);
  EXPECT_EQ(host.messages.shown.at(0).icon, os::Icon::kNone);
  EXPECT_EQ(host.log.Count("BeginIndexing"), 0);
}

TEST_F(IndexerRun, WithEmptyListsOKDoesNothing) {
  host.word.stories[0].text = u"No terms.\r";
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    d.Click("cmdOK");
    EXPECT_TRUE(d.Form().Visible());
    d.Click("cmdCancel");
  });
  Run();
  EXPECT_TRUE(host.messages.shown.empty());
  EXPECT_EQ(host.log.Count("BeginIndexing"), 0);
}

TEST_F(IndexerRun, FullCapsTickedButDisabledAreNotIndexed) {
  Set(u"CaseSensitive", u"False");
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_EQ(host.log.CountBeginning("MarkTermInStory"), 2);
  EXPECT_TRUE(host.log.Contains("MarkTermInStory Buyer count 0 story 1 case False caps False IndexAll as \"\""));
}

TEST_F(IndexerRun, FullCapsAreIndexedUnderTheTermInACaseSensitiveRun) {
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("MarkTermInStory BUYER count 0 story 1 case True caps True IndexAll as \"Buyer\""));
}

TEST_F(IndexerRun, DefinitionsOnlyReachTheMarking) {
  Set(u"IndexWhat", u"IndexDefs");
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("MarkTermInStory BUYER count 0 story 1 case True caps True IndexDefs as \"Buyer\""));
}

TEST_F(IndexerRun, OneColumnAndATabAloneReachTheIndex) {
  Set(u"IndexSep", u"\"{TAB}\"");
  host.profile[u"IndexCols"] = u"1";
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(host.log.Contains("InsertIndex 1 \"\t\""));
}

TEST_F(IndexerRun, OKInTheTermsDialogSavesItsOptions) {
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    EXPECT_TRUE(d.At<forms::TabStrip>("tbcTabs").UserSelectTab(1));
    d.Tick("chkIncludeNotFound", 0);
    d.Click("cmdOK");
  });
  Run();
  EXPECT_EQ(host.profile[u"IncludeNotFound"], u"False");
}

TEST_F(IndexerRun, AnErrorWhileMarkingIsShownAndTheRunStillRestores) {
  Set(u"IndexAllCaps", u"False");
  host.log.failAt = "MarkTermInStory Buyer count 0 story 1 case True caps False IndexAll as \"\"";
  host.messages.Expect(u"Error indexing document");
  AcceptOptions();
  AcceptTerms();
  Run();
  EXPECT_TRUE(host.word.screenUpdating);
  EXPECT_TRUE(host.word.replaceQuotes);
  EXPECT_TRUE(host.word.showHiddenText);
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, AQuietStopOfTheSearchShowsNothing) {
  Set(u"SearchType", u"SearchInitCaps");
  connect.cappedResult = SearchResult::kStopQuietly;
  AcceptOptions();
  Run();
  EXPECT_TRUE(host.messages.shown.empty());
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, WithoutLeaveToSaveTheSearchForCapitalisedWordsStopsQuietly) {
  Set(u"SearchType", u"SearchInitCaps");
  connect.cappedResult.reset();
  AcceptOptions();
  host.messages.Expect(u"Save document", os::Pressed::kCancel);
  Run();
  EXPECT_EQ(host.messages.shown.size(), 1u);
  EXPECT_FALSE(host.log.Contains("Document.Save"));
  EXPECT_TRUE(host.word.bookmarks.empty());
}

TEST_F(IndexerRun, AFailedSearchForCapitalisedWordsGoesOnWithWhatWasFound) {
  Set(u"SearchType", u"SearchInitCaps");
  connect.cappedResult.reset();
  host.word.stories[0] = {word::wdMainTextStory, u"a Seller\ra Buyer\ra Parent\r", {}, {9, 17}};
  host.forms.onRepaint = [this](forms::Form& painted) {
    const auto* shown = dynamic_cast<const frmProgressForm*>(&painted);
    if (shown != nullptr && shown->Lines()[0] == u"Searching page:  3") host.word.findFails = true;
  };
  host.messages.Expect(u"Save document");
  host.messages.Expect(u"Build capped terms array failed");
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    auto& list = d.At<forms::ListBox>("lstTermsInDoc");
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(0), u"Seller");
    EXPECT_EQ(list.List(1), u"Buyer");
    EXPECT_EQ(list.SelCount(), 2);
    EXPECT_TRUE(d.At<forms::Label>("lblTermsInDoc").Caption().starts_with(u"The following capitalized words"));
    d.Click("cmdOK");
  });
  Run();
  EXPECT_TRUE(host.log.Contains("BuildTermTable True Seller Buyer"));
  EXPECT_EQ(host.log.CountBeginning("InsertIndex"), 1);
}

TEST_F(IndexerRun, AFailedSearchForCapitalisedWordsThatFoundNothingShowsNoTerms) {
  Set(u"SearchType", u"SearchInitCaps");
  connect.cappedResult.reset();
  host.word.findFails = true;
  host.messages.Expect(u"Save document");
  host.messages.Expect(u"Build capped terms array failed");
  AcceptOptions();
  InTermsDialog([](fakes::FormDriver& d) {
    EXPECT_EQ(d.At<forms::ListBox>("lstTermsInDoc").ListCount(), 0);
    EXPECT_TRUE(d.At<forms::Label>("lblTermsInDoc").Caption().starts_with(u"No defined terms were found"));
    d.Click("cmdCancel");
  });
  Run();
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 1);
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, QuotesThatDoNotPairUpStopTheRunQuietly) {
  host.word.stories[0].text = u"The \u201CSeller\u201D sells to the \u201CBuyer.\r";
  AcceptOptions();
  host.messages.Expect(u"Mis-matched double quotes", os::Pressed::kNo);
  host.messages.Expect(u"Mis-matched double quotes", os::Pressed::kNo);
  host.messages.Expect(u"Cannot index");
  Run();
  EXPECT_EQ(host.log.Count("show frmKVX_COM"), 0);
  EXPECT_TRUE(host.word.bookmarks.empty());
  ExpectCursorAt(4);
}

TEST_F(IndexerRun, AnErrorBehindTheCloseFormIsShownAndTheFormGoes) {
  AcceptOptions();
  CancelTerms();
  host.log.failAt = "Options.Pagination = True";
  host.messages.Expect(u"Find and index");
  Run();
  EXPECT_EQ(host.log.Count("unload frmKVXProgressFormKVXClose"), 1);
  EXPECT_TRUE(host.word.bookmarks.empty());
}
