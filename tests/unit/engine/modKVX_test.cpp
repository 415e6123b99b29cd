#include "engine/modKVX.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "addin/clsProgForm.h"
#include "addin/frmProgressForm.h"
#include "platform/forms/Form.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"
#include "tests/fakes/TermListForm.h"

namespace {

using Calls = std::vector<std::string>;

/// Logs what the engine asks of the dialog.
class LoggingDialog : public IndexingDialog {
 public:
  explicit LoggingDialog(fakes::CallLog& log) : log_(log) {}
  void HideWhileIndexing() override { log_.Add("HideWhileIndexing"); }
  void IndexInsertOrUpdate(const word::ApplicationPtr&, const word::DocumentPtr&, bool updateOnly) override {
    log_.Add("IndexInsertOrUpdate " + fakes::Plain(updateOnly));
    if (onInsert) onInsert();
  }
  bool IncludesNotUsedList() const override { return includesNotUsed; }
  bool IncludesNotFoundList() const override { return includesNotFound; }
  void NotUsedList(const word::DocumentPtr&, std::u16string_view terms) override {
    log_.Add("NotUsedList " + Lines(terms));
  }
  void NotFoundList(const word::ApplicationPtr&, const word::DocumentPtr&, std::u16string_view terms) override {
    log_.Add("NotFoundList " + Lines(terms));
  }
  std::function<void()> onInsert;
  bool includesNotUsed{false};
  bool includesNotFound{false};

 private:
  static std::string Lines(std::u16string_view text) {
    std::string lines = fakes::Plain(text);
    for (std::size_t end = 0; (end = lines.find("\r\n", end)) != std::string::npos;) lines.replace(end, 2, "|");
    return lines;
  }

  fakes::CallLog& log_;
};

class Engine : public testing::Test {
 protected:
  Engine() {
    host.onRepaint = [this](forms::Form& form) {
      const auto* shown = dynamic_cast<const frmProgressForm*>(&form);
      if (shown == nullptr) return;
      progressLines.push_back(fakes::Plain(shown->Lines()[0]));
      steps.push_back({progressLines.back(), shown->Completed(), shown->Total()});
    };
  }
  bool Run(const std::vector<std::u16string>& chosen, const IndexingOptions& options = {}) {
    return engine.RunIndexing(word.MakeApplication(), word.MakeDocument(), chosen, dialog, options);
  }
  Calls Marks() const {
    Calls marks;
    for (const std::string& call : log.calls) {
      if (call.starts_with("MarkTermInStory")) marks.push_back(call);
    }
    return marks;
  }
  bool ProgressSaid(std::string_view part) const {
    return std::any_of(progressLines.begin(), progressLines.end(),
                       [&](const std::string& line) { return line.find(part) != std::string::npos; });
  }

  fakes::CallLog log;
  fakes::FakeMessages messages{log};
  fakes::FakeCharacters characters;
  fakes::FakeFormHost host{log};
  fakes::FakeWord word{log};
  fakes::FakeTermMarker marker{log};
  clsProgForm progress{host};
  LoggingDialog dialog{log};
  modKVX engine{marker, progress, characters, messages};
  std::vector<std::string> progressLines;
  /// What the progress says and how far, of how much, each time that it is drawn.
  std::vector<std::tuple<std::string, std::int32_t, std::int32_t>> steps;
};

}  // namespace

TEST_F(Engine, ARunMakesItsCallsInTheirOrder) {
  word.stories[0].text = u"The Seller sells.\r";
  word.selection = {0, 5, 9};
  marker.found = [](std::u16string_view, int) { return 2; };
  dialog.onInsert = [this] { word.bookmarks[u"DefinedTermsIndex"] = {0, 3, 8}; };
  ASSERT_TRUE(Run({u"Seller"}, {.matchCase = true, .indexCaps = false, .indexWhat = u"IndexAll"}));
  EXPECT_EQ(
      log.calls,
      (Calls{"Selection.HomeKey 6", "Application.ScreenUpdating = False", "HideWhileIndexing", "BeginIndexing",
             "BuildTermTable True Seller", "Window.View.ShowHiddenText = False", "show frmProgressForm",
             "MarkTermInStory Seller count 0 story 1 case True caps False IndexAll as \"\"", "hide frmProgressForm",
             "unload frmProgressForm", "GetUnusedAndMissing Seller=2", "IndexInsertOrUpdate False",
             "Selection.GoTo -1 0 DefinedTermsIndex", "Selection.Collapse start", "EndIndexing", "Document.UndoClear",
             "Application.ScreenRefresh", "Application.ScreenUpdating = True"}));
  EXPECT_EQ(word.selection.start, 3);
  EXPECT_EQ(word.selection.end, 3);
}

TEST_F(Engine, WithoutAnIndexTheSelectionStaysAtTheStart) {
  word.stories[0].text = u"Text.\r";
  word.selection = {0, 4, 4};
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(log.CountBeginning("Selection.GoTo"), 0);
  EXPECT_EQ(word.selection.start, 0);
}

TEST_F(Engine, ADocumentWithoutNotesIsMarkedInItsMainTextOnly) {
  word.stories[0].text = u"The Seller sells.\r";
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(Marks().size(), 1u);
  EXPECT_TRUE(ProgressSaid("document"));
  EXPECT_FALSE(ProgressSaid("footnotes"));
  EXPECT_FALSE(ProgressSaid("endnotes"));
}

TEST_F(Engine, TextAndNotesAreMarkedAndCountsCarryFromStoryToStory) {
  word.stories = {{1, u"Seller\r", {}}, {2, u"Seller\r", {}}, {3, u"Seller\r", {}}};
  marker.found = [](std::u16string_view, int storyType) { return storyType; };
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(Marks(), (Calls{"MarkTermInStory Seller count 0 story 1 case False caps False IndexAll as \"\"",
                            "MarkTermInStory Seller count 1 story 2 case False caps False IndexAll as \"\"",
                            "MarkTermInStory Seller count 3 story 3 case False caps False IndexAll as \"\""}));
  EXPECT_TRUE(log.Contains("GetUnusedAndMissing Seller=6"));
  EXPECT_TRUE(ProgressSaid("Indexing footnotes:  Seller"));
  EXPECT_TRUE(ProgressSaid("Indexing endnotes:  Seller"));
}

TEST_F(Engine, TheProgressTellsEachTermAndItsNumberOfTheLastOnesInEachStory) {
  word.stories = {{1, u"Seller\r", {}}, {2, u"Seller\r", {}}};
  ASSERT_TRUE(Run({u"Seller", u"Buyer", u"Agent"}));
  EXPECT_EQ(steps, (decltype(steps){{"Indexing document", 0, 0},
                                    {"Indexing document:  Seller", 0, 2},
                                    {"Indexing document:  Buyer", 1, 2},
                                    {"Indexing document:  Agent", 2, 2},
                                    {"Indexing footnotes", 0, 0},
                                    {"Indexing footnotes:  Seller", 0, 2},
                                    {"Indexing footnotes:  Buyer", 1, 2},
                                    {"Indexing footnotes:  Agent", 2, 2}}));
}

TEST_F(Engine, EmptyStoriesAndOtherKindsAreSkipped) {
  word.stories = {{1, u"Seller\r", {}}, {2, u"\r", {}}, {4, u"Seller\r", {}}, {5, u"Seller\r", {}}, {7, u"x\r", {}}};
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(Marks().size(), 1u);
}

TEST_F(Engine, TheCapitalsFormIsIndexedUnderTheTermAndCountsOn) {
  word.stories[0].text = u"Seller SELLER\r";
  marker.found = [](std::u16string_view, int) { return 1; };
  ASSERT_TRUE(Run({u"Seller"}, {.matchCase = false, .indexCaps = true, .indexWhat = u"IndexDefs"}));
  EXPECT_EQ(Marks(), (Calls{"MarkTermInStory Seller count 0 story 1 case False caps True IndexDefs as \"\"",
                            "MarkTermInStory SELLER count 1 story 1 case True caps True IndexDefs as \"Seller\""}));
  EXPECT_TRUE(log.Contains("GetUnusedAndMissing Seller=2"));
}

TEST_F(Engine, ATermAlreadyInCapitalsIsSearchedOnce) {
  word.stories[0].text = u"NDA\r";
  ASSERT_TRUE(Run({u"NDA"}, {.matchCase = true, .indexCaps = true, .indexWhat = u"IndexAll"}));
  EXPECT_EQ(Marks().size(), 1u);
}

TEST_F(Engine, TheListsAreSortedAndWrittenBehindTheIndexWhenTheDialogAsksForThem) {
  marker.unusedAndMissing = {u"b\r\nB\r\na b\r\na", u"z\r\nZ"};
  dialog.includesNotUsed = true;
  dialog.includesNotFound = true;
  ASSERT_TRUE(Run({u"Seller"}));
  const auto at = [this](std::string_view call) {
    return std::find(log.calls.begin(), log.calls.end(), call) - log.calls.begin();
  };
  EXPECT_EQ(at("NotUsedList B|a|a b|b"), at("IndexInsertOrUpdate False") + 1);
  EXPECT_EQ(at("NotFoundList Z|z"), at("NotUsedList B|a|a b|b") + 1);
  EXPECT_LT(at("NotFoundList Z|z"), at("EndIndexing"));
}

TEST_F(Engine, ADialogMayAskForOneListOnly) {
  dialog.includesNotFound = true;
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(log.CountBeginning("NotUsedList"), 0);
  EXPECT_TRUE(log.Contains("NotFoundList "));
}

TEST_F(Engine, WhichListsAreWantedIsReadWhenTheIndexHasBeenInserted) {
  dialog.includesNotUsed = true;
  dialog.onInsert = [this] {
    dialog.includesNotUsed = false;
    dialog.includesNotFound = true;
  };
  ASSERT_TRUE(Run({u"Seller"}));
  EXPECT_EQ(log.CountBeginning("NotUsedList"), 0);
  EXPECT_EQ(log.CountBeginning("NotFoundList"), 1);
}

TEST_F(Engine, AnErrorIsShownAndClosesTheProgress) {
  word.stories[0].text = u"Seller\r";
  log.failAt = "MarkTermInStory Seller count 0 story 1 case False caps False IndexAll as \"\"";
  messages.Expect(u"Error indexing document");
  EXPECT_FALSE(Run({u"Seller"}));
  EXPECT_EQ(log.Count("unload frmProgressForm"), 1);
  EXPECT_FALSE(log.Contains("EndIndexing"));
}

TEST_F(Engine, RestoringPutsBackEverythingButFastSave) {
  word.allowFastSave = false;
  engine.RestoreWordState(word.MakeApplication(), word.MakeDocument(),
                          {.SavedReplaceQuotes = false,
                           .SavedAllowFastSave = true,
                           .SavedCheckSpelling = true,
                           .SavedCheckGrammar = false,
                           .SavedShowGrammarErrors = true,
                           .SavedShowSpellingErrors = false,
                           .SavedShowHiddenText = true});
  EXPECT_EQ(log.calls, (Calls{"Options.AutoFormatAsYouTypeReplaceQuotes = False", "FinishDocument",
                              "Document.UndoClear", "Window.View.ShowHiddenText = True",
                              "Options.CheckSpellingAsYouType = True", "Options.CheckGrammarAsYouType = False",
                              "Document.ShowGrammaticalErrors = True", "Document.ShowSpellingErrors = False"}));
  EXPECT_FALSE(word.allowFastSave);
}

TEST_F(Engine, RestoringEndsAtTheFirstStepThatFails) {
  log.failAt = "FinishDocument";
  messages.Expect(u"Error restoring options");
  EXPECT_FALSE(engine.RestoreWordState(word.MakeApplication(), word.MakeDocument(), {}));
  EXPECT_FALSE(word.replaceQuotes);
  EXPECT_TRUE(word.showHiddenText);
  EXPECT_TRUE(word.checkSpelling);
}

TEST_F(Engine, ChosenTermsAreTheSelectedOnesOfBothListsEachOnce) {
  fakes::TermListForm form(host);
  for (const char16_t* term : {u"Act", u"Buyer", u"Seller"}) form.lstTermsInDoc.AddItem(term);
  for (const char16_t* term : {u"Seller", u"Date", u"Closing"}) form.lstAddTerms.AddItem(term);
  form.lstTermsInDoc.SetSelected(0, true);
  form.lstTermsInDoc.SetSelected(2, true);
  form.lstAddTerms.SetSelected(0, true);
  form.lstAddTerms.SetSelected(2, true);
  EXPECT_EQ(ChosenTerms(form.lstTermsInDoc, form.lstAddTerms),
            (std::vector<std::u16string>{u"Act", u"Seller", u"Closing"}));
}
