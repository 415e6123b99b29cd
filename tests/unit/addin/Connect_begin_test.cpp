#include "tests/unit/addin/IndexerRun.h"

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
