#include <gtest/gtest.h>

#include "addin/clsProgForm.h"
#include "engine/modKVX.h"
#include "platform/forms/Form.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"

namespace {

using Calls = std::vector<std::string>;

class Removal : public testing::Test {
 protected:
  Removal() {
    host.onRepaint = [this](forms::Form& form) {
      const auto* label = dynamic_cast<forms::Label*>(form.Find("lblLabel1"));
      if (label == nullptr) return;
      log.Add("progress " + fakes::Plain(form.Caption()) + ": " + fakes::Plain(label->Caption()));
    };
  }
  bool Remove(bool optionsAccepted = false) {
    return engine.RemoveIndexing(word.MakeApplication(), word.MakeDocument(), optionsAccepted);
  }
  /// @param then the title of the message that follows; empty: none does
  bool Update(os::Pressed pressed, const std::u16string& then = {}) {
    messages.Expect(u"Update only?", pressed);
    if (!then.empty()) messages.Expect(then);
    return modKVX::UpdateIndexField(word.MakeDocument(), messages);
  }
  /// A field whose code stands in a story of its own.
  void AddField(int type, std::u16string_view code) {
    word.fields.push_back({type, {word.stories.size(), 0, static_cast<word::Position>(code.size())}});
    word.stories.push_back({word::wdTextFrameStory, std::u16string(code), {}});
  }

  fakes::CallLog log;
  fakes::FakeMessages messages{log};
  fakes::FakeCharacters characters;
  fakes::FakeFormHost host{log};
  fakes::FakeWord word{log};
  fakes::FakeTermMarker marker{log};
  clsProgForm progress{host};
  modKVX engine{marker, progress, characters, messages};
};

TEST_F(Removal, IndexingIsRemovedStepByStep) {
  EXPECT_TRUE(Remove());
  EXPECT_EQ(log.calls,
            (Calls{"Application.ScreenUpdating = False", "show frmProgressForm",
                   "progress Please wait: Removing index entries", "RemoveIndexEntries False", "Document.UndoClear",
                   "progress Please wait: Removing index", "RemoveIndex True", "Document.UndoClear",
                   "progress Please wait: Removing highlighting from indexed terms", "RemoveTermHighlighting",
                   "Document.UndoClear", "Selection.GoTo 1 1 ", "hide frmProgressForm", "unload frmProgressForm",
                   "Application.ScreenUpdating = True", "Application.ScreenRefresh", "Selection.GoTo 1 1 "}));
}

TEST_F(Removal, TheBookmarkOfThePageStartGoesWithAMessage) {
  word.bookmarks[u"IndexPageStart"] = {0, 0, 0};
  EXPECT_TRUE(Remove());
  EXPECT_TRUE(log.Contains("progress Please wait: Finishing"));
  EXPECT_TRUE(log.Contains("Bookmark.Delete IndexPageStart"));
}

TEST_F(Removal, TheIndexStartGoesOnlyWhenARunMadeIt) {
  word.bookmarks[u"IndexBKStart"] = {0, 0, 0};
  EXPECT_TRUE(Remove(false));
  EXPECT_EQ(word.bookmarks.count(u"IndexBKStart"), 1u);
  EXPECT_TRUE(Remove(true));
  EXPECT_EQ(word.bookmarks.count(u"IndexBKStart"), 0u);
}

TEST_F(Removal, ScreenUpdatingThatCouldNotBePutBackIsTriedOnceMore) {
  log.failOnceAt = "Application.ScreenUpdating = True";
  messages.Expect(u"Error removing indexing");
  EXPECT_TRUE(Remove());
  EXPECT_TRUE(word.screenUpdating);
}

TEST_F(Removal, ScreenUpdatingThatWasOffStaysOffWithoutARefresh) {
  word.screenUpdating = false;
  EXPECT_TRUE(Remove());
  EXPECT_FALSE(word.screenUpdating);
  EXPECT_FALSE(log.Contains("Application.ScreenRefresh"));
}

TEST_F(Removal, AnErrorIsShownAndScreenAndProgressArePutBack) {
  log.failAt = "RemoveIndex True";
  messages.Expect(u"Error removing indexing");
  EXPECT_FALSE(Remove());
  EXPECT_TRUE(log.Contains("RemoveIndexEntries False"));
  EXPECT_FALSE(log.Contains("RemoveTermHighlighting"));
  EXPECT_TRUE(log.Contains("unload frmProgressForm"));
  EXPECT_TRUE(word.screenUpdating);
}

TEST_F(Removal, HighlightingAloneIsRemovedAndSaidSo) {
  messages.Expect(u"Done");
  EXPECT_TRUE(engine.RemoveHighlighting(word.MakeApplication(), word.MakeDocument()));
  EXPECT_EQ(log.calls,
            (Calls{"Application.ScreenUpdating = False", "show frmProgressForm",
                   "progress Please wait: Removing highlighting from indexed terms", "RemoveTermHighlighting",
                   "Document.UndoClear", "hide frmProgressForm", "unload frmProgressForm", "Selection.GoTo 1 1 ",
                   "message Done", "Application.ScreenUpdating = True", "Application.ScreenRefresh"}));
}

TEST_F(Removal, AnErrorWhileHighlightingIsRemovedIsShown) {
  log.failAt = "RemoveTermHighlighting";
  messages.Expect(u"Error removing highlighting");
  EXPECT_FALSE(engine.RemoveHighlighting(word.MakeApplication(), word.MakeDocument()));
  EXPECT_TRUE(word.screenUpdating);
}

TEST_F(Removal, UpdatingAsksFirstAndNoChangesNothing) {
  AddField(word::wdFieldIndex, u" INDEX \\f \"DefinedTermsIndex\" ");
  EXPECT_TRUE(Update(os::Pressed::kNo));
  EXPECT_EQ(log.CountBeginning("Field.Update"), 0);
  EXPECT_EQ(messages.shown.at(0).text,
            u"Click Yes if you want to update your existing defined terms index without adding additional terms to "
            u"it.\r\n\r\nIf you want to add terms to your defined terms index click No and re-index the "
            u"document.\r\n\r\nIf you're unsure about whether your list of terms to be indexed has changed, it "
            u"might be better to re-index the document.\r\n\r\nNote:  Defined But Not Used and Not Found lists "
            u"will not be updated.  Please re-index to update them.");
}

TEST_F(Removal, OnlyTheFirstIndexOfTermsIsUpdated) {
  AddField(word::wdFieldIndex, u" INDEX \\c \"2\" ");
  AddField(word::wdFieldIndex, u" INDEX \\f \"DefinedTermsIndex\" ");
  AddField(word::wdFieldIndex, u" INDEX \\f \"DefinedTermsIndex\" ");
  EXPECT_TRUE(Update(os::Pressed::kYes, u"Done"));
  EXPECT_EQ(log.CountBeginning("Field.Update"), 1);
  EXPECT_TRUE(log.Contains("Field.Update 2"));
}

TEST_F(Removal, AFieldThatSaysIndexInSmallLettersAndAnEntryForATermInCapitalsAreNoIndex) {
  AddField(word::wdFieldIndex, u" index \\f \"DefinedTermsIndex\" ");
  AddField(word::wdFieldIndexEntry, u" XE \"INDEX\" \\f \"DefinedTermsIndex\" ");
  AddField(word::wdFieldIndex, u" INDEX \\f \"definedtermsindex\" ");
  EXPECT_TRUE(Update(os::Pressed::kYes, u"No defined terms index found"));
  EXPECT_EQ(log.CountBeginning("Field.Update"), 0);
  EXPECT_EQ(messages.shown.back().text, u"No defined terms index found.  Please re-run Kelvarin to create one.");
  EXPECT_EQ(messages.shown.back().icon, os::Icon::kExclamation);
}

TEST_F(Removal, AnErrorWhileUpdatingIsShown) {
  AddField(word::wdFieldIndex, u" INDEX \\f \"DefinedTermsIndex\" ");
  log.failAt = "Field.Update 1";
  EXPECT_FALSE(Update(os::Pressed::kYes, u"Error updating index"));
}

}  // namespace
