#include "discovery/CappedTerms.h"

#include <gtest/gtest.h>

#include "addin/clsProgForm.h"
#include "addin/frmProgressForm.h"
#include "discovery/CappedSearch.h"
#include "discovery/StoryPages.h"
#include "tests/fakes/FakeHost.h"
#include "tests/fakes/TermListForm.h"

namespace {

class CappedTermsOfADocument : public testing::Test {
 protected:
  void SetUp() override {
    host.forms.onRepaint = [this](forms::Form& painted) {
      const auto* shown = dynamic_cast<const frmProgressForm*>(&painted);
      if (shown == nullptr) return;
      steps.push_back(shown->Lines()[0]);
      if (onStep) onStep(painted);
    };
  }
  FoundTerms Search(bool ignoreNumbers = true) {
    FoundTerms found(1);
    const TermSearch search{host.word.MakeApplication(),
                            host.word.MakeDocument(),
                            marker,
                            progress,
                            {form.lstTermsInDoc, form.lblTermsInDoc, form.StatusBar1},
                            ProgressMode::kWindow};
    result = SearchCappedTerms(search, host.Make(), ignoreNumbers, found);
    return found;
  }
  std::u16string& Text() { return host.word.stories[0].text; }

  fakes::FakeHost host;
  fakes::FakeTermMarker marker{host.log};
  fakes::TermListForm form{host.forms};
  clsProgForm progress{host.forms};
  std::vector<std::u16string> steps;
  std::function<void(forms::Form&)> onStep;
  SearchResult result{SearchResult::kFailed};
};

TEST_F(CappedTermsOfADocument, AreSortedAndEachIsThereOnce) {
  Text() = u"The Seller and the Buyer sign the Share Purchase Agreement. The Seller pays.\r";
  EXPECT_EQ(Search(), (FoundTerms{u"Buyer", u"Seller", u"Share Purchase Agreement"}));
  EXPECT_EQ(result, SearchResult::kGoOn);
}

TEST_F(CappedTermsOfADocument, IgnoredWordsAloneYieldNothing) {
  Text() = u"The end. This is. And so. For now. If not. In time. At once. As is.\r";
  EXPECT_EQ(Search(), FoundTerms{u""});
  EXPECT_EQ(result, SearchResult::kGoOn);
  EXPECT_TRUE(form.lblTermsInDoc.Caption().starts_with(u"No defined terms were found in this document.  "));
}

TEST_F(CappedTermsOfADocument, TheLabelSaysWhatWasSearchedFor) {
  Text() = u"a Seller\r";
  Search();
  EXPECT_EQ(
      form.lblTermsInDoc.Caption(),
      u"The following capitalized words and phrases were found in your document.  Sentences Select which terms you "
      u"want to index.  You can specify additional terms for indexing in the 'Add terms for indexing' section below.");
}

TEST_F(CappedTermsOfADocument, OnlyMainTextFootnotesAndEndnotesAreSearched) {
  host.word.stories = {{word::wdMainTextStory, u"a Main\r", {}, {}},
                       {word::wdFootnotesStory, u"a Foot\r", {}, {}},
                       {word::wdEndnotesStory, u"an End\r", {}, {}},
                       {word::wdCommentsStory, u"a Comment\r", {}, {}},
                       {word::wdTextFrameStory, u"a Frame\r", {}, {}}};
  EXPECT_EQ(Search(), (FoundTerms{u"End", u"Foot", u"Main"}));
}

TEST_F(CappedTermsOfADocument, EachPageOfEachStoryIsTold) {
  host.word.stories = {{word::wdMainTextStory, u"a Buyer\ra Seller\r", {}, {8}},
                       {word::wdFootnotesStory, u"Agents pay\r", {}, {0}},
                       {word::wdEndnotesStory, u"an End\r", {}, {}}};
  Search();
  EXPECT_EQ(steps, (std::vector<std::u16string>{u"Searching page:  1", u"Processing main document page 1",
                                                u"Searching page:  2", u"Processing main document page 2",
                                                u"Searching page:  2", u"Processing footnotes page 2",
                                                u"Searching page:  1", u"Processing endnotes page 1"}));
}

TEST_F(CappedTermsOfADocument, APhraseIsFoundOverAPageBoundary) {
  host.word.stories = {{word::wdMainTextStory, u"the Stock Purchase Agreement ends\r", {}, {10, 19}}};
  EXPECT_EQ(Search(), FoundTerms{u"Stock Purchase Agreement"});
}

TEST_F(CappedTermsOfADocument, AWordThatAPageCutsIsFoundWhole) {
  host.word.stories = {{word::wdMainTextStory, u"the Agreement ends Here\r", {}, {8, 21}}};
  EXPECT_EQ(Search(), (FoundTerms{u"Agreement", u"Here"}));
}

TEST_F(CappedTermsOfADocument, APageThatIsOneWordIsSearched) {
  host.word.stories = {{word::wdMainTextStory, u"a\fBuyer\fb\r", {}, {2, 7}}};
  EXPECT_EQ(Search(), FoundTerms{u"Buyer"});
}

TEST_F(CappedTermsOfADocument, TextOfAnEarlierIndexAndItsListsIsNoCandidate) {
  Text() = u"a Buyer\rIndexed Term\rUnused Term\rMissing Term\ra Seller\r";
  host.word.bookmarks = {{u"DefinedTermsIndex", {0, 8, 21}},
                         {u"DefinedTermsIndexNotUsedList", {0, 21, 33}},
                         {u"DefinedTermsIndexNotFoundList", {0, 33, 46}}};
  EXPECT_EQ(Search(), (FoundTerms{u"Buyer", u"Seller"}));
}

TEST_F(CappedTermsOfADocument, APhraseInQuotesIsKnownInTheStoriesBeforeIt) {
  host.word.stories = {{word::wdMainTextStory, u"a Change in Control\r", {}, {}},
                       {word::wdFootnotesStory, u"\u201CChange in Control\u201D\r", {}, {}}};
  EXPECT_EQ(Search(), FoundTerms{u"Change in Control"});
}

TEST_F(CappedTermsOfADocument, QuotesInAnEarlierIndexAndItsListsAreNotLearnt) {
  Text() = u"Buyer of us\r\u201CBuyer of us\u201D\ra \u201CSeller of it\u201D\r\u201CBuyer of us\u201D\rSeller of it\r";
  host.word.bookmarks = {{u"DefinedTermsIndexNotUsedList", {0, 43, 57}}, {u"DefinedTermsIndex", {0, 12, 26}}};
  EXPECT_EQ(Search(), (FoundTerms{u"Buyer", u"Seller of it"}));
}

TEST_F(CappedTermsOfADocument, TheSearchIsSetUpForEachPage) {
  host.word.stories = {{word::wdMainTextStory, u"a Buyer\ra Seller\r", {}, {8}}};
  Search();
  EXPECT_EQ(host.log.Count("Find.Text = <[A-Z]*>"), 2);
}

TEST_F(CappedTermsOfADocument, TheSearchRunsBehindAModalFormOfItsOwn) {
  Text() = u"a Buyer\r";
  Search();
  EXPECT_EQ(host.log.Count("show frmKVXProgressFormGetCappedList"), 1);
  EXPECT_EQ(host.log.Count("unload frmKVXProgressFormGetCappedList"), 1);
  EXPECT_EQ(progress.Current(), nullptr);
}

TEST_F(CappedTermsOfADocument, ClosingTheFormStopsTheSearchQuietly) {
  host.word.stories = {{word::wdMainTextStory, u"a Buyer\ra Seller\r", {}, {8}}};
  onStep = [](forms::Form& shown) { shown.UserClose(); };
  Search();
  EXPECT_EQ(result, SearchResult::kStopQuietly);
  EXPECT_EQ(host.log.Count("Find.Text = <[A-Z]*>"), 1);
  EXPECT_EQ(form.lblTermsInDoc.Caption(), u"");
  EXPECT_EQ(host.log.CountBeginning("message"), 0);
}

TEST_F(CappedTermsOfADocument, HelpOpensWhileTheSearchGoesOn) {
  host.word.stories = {{word::wdMainTextStory, u"a Buyer\ra Seller\r", {}, {8}}};
  onStep = [this](forms::Form& shown) {
    if (steps.size() == 1) shown.UserHelp(*shown.Find("lblLabel1"));
  };
  EXPECT_EQ(Search(), (FoundTerms{u"Buyer", u"Seller"}));
  ASSERT_EQ(host.help.shown.size(), 1u);
  EXPECT_EQ(host.help.shown[0].data, 11);
}

TEST_F(CappedTermsOfADocument, AnErrorIsShownAndWhatWasFoundUntilThenIsKept) {
  host.messages.Expect(u"Build capped terms array failed");
  host.word.stories = {{word::wdMainTextStory, u"a Seller\ra Buyer\ra Parent\r", {}, {9, 17}}};
  onStep = [this](forms::Form&) { host.word.findFails = steps.back() == u"Searching page:  3"; };
  EXPECT_EQ(Search(), (FoundTerms{u"Seller", u"Buyer"}));
  EXPECT_EQ(result, SearchResult::kFailed);
  EXPECT_EQ(host.log.CountBeginning("message Build capped terms array failed"), 1);
  EXPECT_EQ(progress.Current(), nullptr);
}

TEST_F(CappedTermsOfADocument, PagesFollowEachOtherWithoutGapOrOverlap) {
  host.word.stories = {{word::wdMainTextStory, std::u16string(5000, u' ') + u"\r", {}, {10, 11, 3000, 4999}}};
  StoryPages pages(host.word.MakeStory(0));
  std::vector<std::pair<int, word::Position>> ends;
  word::Position behind = 0;
  while (pages.Next()) {
    EXPECT_EQ(pages.Start(), behind);
    behind = pages.End();
    ends.emplace_back(pages.Number(), behind);
  }
  EXPECT_EQ(ends, (std::vector<std::pair<int, word::Position>>{{1, 10}, {2, 11}, {3, 3000}, {4, 4999}, {5, 5001}}));
}

}  // namespace
