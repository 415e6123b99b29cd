#include "addin/frmProgressForm.h"
#include "tests/unit/addin/IndexerRun.h"

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
