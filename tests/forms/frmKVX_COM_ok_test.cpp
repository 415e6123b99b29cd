#include "dialogs/frmKVX_COM.h"

#include <algorithm>

#include "tests/forms/Dialogs.h"

namespace {

using Texts = std::vector<std::u16string>;
using Calls = std::vector<std::string>;

class TermsDialogEnd : public Dialogs {
 protected:
  TermsDialogEnd() {
    word.stories = {{word::wdMainTextStory, u"The Buyer buys.\r", {}}};
    word.bookmarks[u"IndexBKStart"] = {0, 4, 4};
    word.bookmarks[u"ReturnHereBK"] = {0, 7, 7};
  }
  std::string Marked() const {
    for (const std::string& call : log.calls) {
      if (call.starts_with("BuildTermTable")) return call;
    }
    return "";
  }
};

TEST_F(TermsDialogEnd, OKIndexesTheSelectedTermsAndEndsHidden) {
  frmKVX_COM& dialog =
      StepsInTerms({u"Buyer", u"Seller"},
                   R"({"select":"lstTermsInDoc","items":["Seller"],"on":false},{"set":"txtAddTerm","to":"Closing"},
         {"click":"cmdAddTerm"},{"click":"cmdOK"})");
  EXPECT_EQ(Marked(), "BuildTermTable True Buyer Closing");
  EXPECT_FALSE(dialog.Visible());
  EXPECT_TRUE(dialog.Loaded());
  EXPECT_FALSE(dialog.cmdCancel.Enabled());
  EXPECT_EQ(word.bookmarks.count(u"IndexBKStart"), 0u);
  EXPECT_TRUE(word.screenUpdating);
}

TEST_F(TermsDialogEnd, OKMakesItsCallsInOrder) {
  profile[u"IndexAllCaps"] = u"False";
  files.files.insert(u"C:\\Data\\kvx.ini");
  profile[u"SearchType"] = u"SearchFlagged";
  profile[u"CaseSensitive"] = u"True";
  profile[u"Highlight"] = u"False";
  profile[u"IndexCols"] = u"3";
  profile[u"IndexSep"] = u"\"; {TAB}\"";
  profile[u"IncludeNotUsed"] = u"False";
  profile[u"IncludeNotFound"] = u"False";
  StepsInTerms({u"Buyer"}, R"({"click":"cmdOK"})");
  EXPECT_EQ(log.calls, (Calls{"Application.ScreenUpdating = True",
                              "Selection.HomeKey 6",
                              "Application.ScreenUpdating = False",
                              "BeginIndexing",
                              "BuildTermTable True Buyer",
                              "Window.View.ShowHiddenText = False",
                              "MarkTermInStory Buyer count 0 story 1 case True caps False IndexAll as \"\"",
                              "GetUnusedAndMissing Buyer=0",
                              "InsertIndex 3 \"; \t\"",
                              "Document.UndoClear",
                              "EndIndexing",
                              "Document.UndoClear",
                              "Application.ScreenRefresh",
                              "Application.ScreenUpdating = True",
                              "RemoveTermHighlighting",
                              "Document.UndoClear",
                              "Selection.GoTo 1 1 ",
                              "Application.ScreenUpdating = True",
                              "Application.ScreenRefresh",
                              "Bookmark.Delete IndexBKStart"}));
}

TEST_F(TermsDialogEnd, WithHighlightTheHighlightingStays) {
  StepsInTerms({u"Buyer"}, R"({"click":"cmdOK"})");
  EXPECT_FALSE(log.Contains("RemoveTermHighlighting"));
}

TEST_F(TermsDialogEnd, OKSavesTheOptionsEvenWhenThereIsNothingToIndex) {
  frmKVX_COM& dialog = StepsInTerms({}, R"({"set":"chkIgnoreNums","to":0},{"click":"cmdOK"},{"focus":"cmdOK"})");
  EXPECT_EQ(profile[u"IgnoreWordsWithNums"], u"False");
  EXPECT_EQ(log.calls.at(0), "Application.ScreenUpdating = True");
  EXPECT_EQ(Marked(), "");
  EXPECT_TRUE(shown.empty());
  EXPECT_TRUE(dialog.cmdCancel.Enabled());
}

TEST_F(TermsDialogEnd, TermsWithoutOneSelectedKeepTheDialogOpen) {
  frmKVX_COM& dialog =
      StepsInTerms({u"Buyer"}, R"({"click":"cmdDeselectAllTermsInDoc"},{"click":"cmdOK"},{"click":"cmdCancel"})",
                   R"({"message":"Nothing selected","press":"OK"})");
  EXPECT_EQ(shown.at(0).text, u"No terms were selected for indexing.");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kNone);
  EXPECT_EQ(Marked(), "");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
}

TEST_F(TermsDialogEnd, ATermStillInTheBoxIsAddedOnYes) {
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, R"({"set":"txtAddTerm","to":"Closing Date"},{"click":"cmdOK"})",
                                    R"({"message":"Add term?","press":"Yes"})");
  EXPECT_EQ(shown.at(0).text, u"Do you want to add \"Closing Date\" to the list of terms for indexing?");
  EXPECT_EQ(shown.at(0).icon, os::Icon::kQuestion);
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*Closing Date"}));
  EXPECT_EQ(host->extents, (Extents{{"lstAddTerms", 120}}));
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"");
  EXPECT_EQ(Marked(), "BuildTermTable True Buyer Closing Date");
}

TEST_F(TermsDialogEnd, ATermStillInTheBoxStaysThereOnNo) {
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, R"({"set":"txtAddTerm","to":"Closing Date"},{"click":"cmdOK"})",
                                    R"({"message":"Add term?","press":"No"})");
  EXPECT_EQ(dialog.lstAddTerms.ListCount(), 0);
  EXPECT_EQ(dialog.txtAddTerm.Text(), u"Closing Date");
  EXPECT_EQ(Marked(), "BuildTermTable True Buyer");
}

TEST_F(TermsDialogEnd, OfEqualAddedTermsTheFirstIsSelectedByAddTerm) {
  Answer(R"({"form":"frmKVX_COM","do":[{"set":"txtAddTerm","to":"x"},{"click":"cmdOK"}]},
            {"message":"Add term?","press":"Yes"})");
  frmKVX_COM& dialog = MakeTerms();
  dialog.lstAddTerms.AddItem(u"x");
  ShowToItsEnd(dialog);
  EXPECT_EQ(Entries(dialog.lstAddTerms), (Texts{u"*x", u"x"}));
  EXPECT_EQ(Marked(), "BuildTermTable True x");
}

TEST_F(TermsDialogEnd, DisabledFullCapsAreNotIndexedThoughTicked) {
  StepsInTerms({u"Buyer"}, R"({"set":"chkCaseSensitive","to":0},{"click":"cmdOK"})");
  EXPECT_TRUE(log.Contains("MarkTermInStory Buyer count 0 story 1 case False caps False IndexAll as \"\""));
}

TEST_F(TermsDialogEnd, DefinitionsOnlyCountWhileTheOptionIsEnabled) {
  StepsInTerms({u"BUYER"}, R"({"tab":1},{"click":["optIndexWhat",1]},{"click":"cmdOK"})");
  EXPECT_TRUE(log.Contains("MarkTermInStory BUYER count 0 story 1 case True caps True IndexDefs as \"\""));
  StepsInTerms({u"BUYER"}, R"({"click":["optSearchType",1]},{"click":"cmdOK"})",
               R"({"message":"Refresh terms list","press":"OK"})");
  EXPECT_TRUE(log.Contains("MarkTermInStory BUYER count 0 story 1 case True caps True IndexAll as \"\""));
}

TEST_F(TermsDialogEnd, TheSeparatorMayBeASingleTabAndTheColumnsAreReadAsANumber) {
  StepsInTerms({u"Buyer"}, R"({"tab":1},{"set":"txtSep","to":""},{"set":"txtCols","to":"1"},{"click":"cmdOK"})");
  EXPECT_TRUE(log.Contains("InsertIndex 1 \"\t\""));
  StepsInTerms({u"Buyer"}, R"({"tab":1},{"set":"chkTabSep","to":0},{"set":"txtCols","to":""},{"click":"cmdOK"})");
  EXPECT_TRUE(log.Contains("InsertIndex 0 \"\""));
  StepsInTerms({u"Buyer"}, R"({"tab":1},{"set":"txtCols","to":" 3 "},{"click":"cmdOK"})");
  EXPECT_TRUE(log.Contains("InsertIndex 3 \"\""));
}

TEST_F(TermsDialogEnd, UpdatingOnlyAsksTheCompanionToUpdate) {
  Answer("");
  frmKVX_COM& dialog = MakeTerms();
  dialog.IndexInsertOrUpdate(word.MakeApplication(), word.MakeDocument(), true);
  EXPECT_EQ(log.calls, (Calls{"UpdateIndex", "Document.UndoClear"}));
}

TEST_F(TermsDialogEnd, IndexBKStartStaysWhenTheOptionsWereNotConfirmed) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":"cmdOK"}]})");
  frmKVX_COM& dialog = MakeTerms({u"Buyer"});
  addIn->optionsAccepted = false;
  ShowToItsEnd(dialog);
  EXPECT_EQ(word.bookmarks.count(u"IndexBKStart"), 1u);
}

TEST_F(TermsDialogEnd, AnErrorBeforeTheDialogIsHiddenLeavesAWayOut) {
  log.failAt = "Selection.HomeKey 6";
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, R"({"click":"cmdOK"},{"click":"cmdCancel"})",
                                    R"({"message":"Error indexing document","press":"OK"})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
}

TEST_F(TermsDialogEnd, AFurtherErrorBehindItLeavesAWayOutToo) {
  log.failAt = "Selection.HomeKey 6";
  log.failOnceAt = "Selection.GoTo 1 1 ";
  frmKVX_COM& dialog = StepsInTerms(
      {u"Buyer"}, R"({"set":"chkHighlight","to":0},{"click":"cmdOK"},{"click":"cmdCancel"})",
      R"({"message":"Error indexing document","press":"OK"},{"message":"Error indexing terms","press":"OK"})");
  EXPECT_EQ(dialog.Tag(), u"Cancel");
}

TEST_F(TermsDialogEnd, AnErrorBeforeTheDialogIsHiddenKeepsThePlaceForAnotherOK) {
  log.failAt = "Selection.HomeKey 6";
  StepsInTerms({u"Buyer"}, R"({"click":"cmdOK"},{"click":"cmdCancel"})",
               R"({"message":"Error indexing document","press":"OK"})");
  const auto cancelled = std::find(log.calls.begin(), log.calls.end(), "Bookmark.Select ReturnHereBK");
  EXPECT_EQ(std::count(log.calls.begin(), cancelled, "Bookmark.Delete IndexBKStart"), 0);
  EXPECT_EQ(std::count(cancelled, log.calls.end(), "Bookmark.Delete IndexBKStart"), 1);
}

TEST_F(TermsDialogEnd, CancelPutsTheCursorBackAndDeletesTheRunsBookmarks) {
  frmKVX_COM& dialog = StepsInTerms({u"Buyer"}, R"({"click":"cmdCancel"})");
  EXPECT_EQ(log.calls,
            (Calls{"Bookmark.Select ReturnHereBK", "Bookmark.Delete ReturnHereBK", "Bookmark.Delete IndexBKStart"}));
  EXPECT_EQ(word.selection.start, 7);
  EXPECT_EQ(dialog.Tag(), u"Cancel");
  EXPECT_TRUE(profile.written.empty());
}

TEST_F(TermsDialogEnd, CancelLeavesABookmarkThatTheRunDidNotPlace) {
  Answer(R"({"form":"frmKVX_COM","do":[{"click":"cmdCancel"}]})");
  frmKVX_COM& dialog = MakeTerms();
  addIn->indexStartMarked = false;
  ShowToItsEnd(dialog);
  EXPECT_EQ(word.bookmarks.count(u"IndexBKStart"), 1u);
}

TEST_F(TermsDialogEnd, CancelIgnoresEveryFailureOfTheDocument) {
  log.failAt = "Bookmark.Select ReturnHereBK";
  frmKVX_COM& dialog = StepsInTerms({}, R"({"click":"cmdCancel"})");
  EXPECT_EQ(word.bookmarks.size(), 0u);
  EXPECT_EQ(dialog.Tag(), u"Cancel");

  log.failAt.clear();
  word.hasDocument = false;
  EXPECT_EQ(StepsInTerms({}, R"({"click":"cmdCancel"})").Tag(), u"Cancel");
}

}  // namespace
