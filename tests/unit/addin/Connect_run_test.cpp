#include "tests/unit/addin/IndexerRun.h"

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
