#include "discovery/QuotedTerms.h"

#include <gtest/gtest.h>

#include "addin/clsProgForm.h"
#include "tests/fakes/FakeFormHost.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"
#include "tests/fakes/TermListForm.h"

namespace {

class QuotedTermsOfAStory : public testing::Test {
 protected:
  FoundTerms Find(std::u16string text, QuoteCodes codes = {}, bool bold = false, FoundTerms found = FoundTerms(1),
                  ProgressMode mode = ProgressMode::kStatusBar) {
    word.stories[0].text = std::move(text);
    const TermSearch search{word.MakeApplication(),
                            word.MakeDocument(),
                            marker,
                            progress,
                            {form.lstTermsInDoc, form.lblTermsInDoc, form.StatusBar1},
                            mode};
    return FindQuotedTerms(search, word.MakeStory(0), codes, bold, std::move(found));
  }

  fakes::CallLog log;
  fakes::FakeWord word{log};
  fakes::FakeTermMarker marker{log};
  fakes::FakeFormHost host{log};
  fakes::TermListForm form{host};
  clsProgForm progress{host};
};

}  // namespace

TEST_F(QuotedTermsOfAStory, AreTheTextsBetweenQuotesInTheirOrder) {
  EXPECT_EQ(Find(u"the \u201CSeller\u201D and the \"Buyer\" (\u201CParties\u201D)\r"),
            (FoundTerms{u"Seller", u"Buyer", u"Parties"}));
}

TEST_F(QuotedTermsOfAStory, WithoutQuotesNothingIsFound) { EXPECT_EQ(Find(u"no terms here\r"), FoundTerms{u""}); }

TEST_F(QuotedTermsOfAStory, ATermIsTakenOnceHoweverOftenItIsQuoted) {
  EXPECT_EQ(Find(u"\"Seller\" \"Seller\" \"Buyer\"\r"), (FoundTerms{u"Seller", u"Buyer"}));
}

TEST_F(QuotedTermsOfAStory, AnEmptyTextBetweenQuotesIsNeverStored) {
  EXPECT_EQ(Find(u"\"\" and \"Buyer\"\r"), FoundTerms{u"Buyer"});
  EXPECT_EQ(Find(u"\"Buyer\" \"\" \"Date\"\r", {}, false, {u"Seller"}), (FoundTerms{u"Seller", u"Buyer", u"Date"}));
  EXPECT_EQ(Find(u"\"\"\r"), FoundTerms{u""});
}

TEST_F(QuotedTermsOfAStory, TheCurlyPairIsSearchedAsStraightQuotes) {
  Find(u"\r");
  EXPECT_TRUE(log.Contains("Find.Text = \"*\""));
}

TEST_F(QuotedTermsOfAStory, AnOpenCurlyQuoteGoesWithAnyCloseQuote) {
  EXPECT_EQ(Find(u"\u201CSel\u201Dler\u00BB and \"Buyer\u00BB\r", {147, 187}), (FoundTerms{u"Sel\u201Dler", u"Buyer"}));
}

TEST_F(QuotedTermsOfAStory, QuoteConversionGoesOffBeforeTheSearchAndStaysOff) {
  Find(u"\"Seller\"\r");
  EXPECT_EQ(log.calls, (std::vector<std::string>{"Options.AutoFormatAsYouTypeReplaceQuotes = False", "OptionChanged",
                                                 "Find.Text = \"*\"", "AddTerm Seller", "Find.Text = \"*\""}));
  EXPECT_FALSE(word.replaceQuotes);
}

TEST_F(QuotedTermsOfAStory, QuoteConversionIsLeftAloneForOtherQuotes) {
  EXPECT_EQ(Find(u"\u00ABSeller\u00BB\r", {171, 187}), FoundTerms{u"Seller"});
  EXPECT_FALSE(log.Contains("OptionChanged"));
  EXPECT_TRUE(word.replaceQuotes);
}

TEST_F(QuotedTermsOfAStory, ABoldTermNeedsOnlyItsEndsInBold) {
  const std::u16string text = u"\"Closing Date\" \"Buyer\"\r";
  word.stories[0].bold = {{1, 4}, {9, 13}};
  EXPECT_EQ(Find(text, {}, true), FoundTerms{u"Closing Date"});
}

TEST_F(QuotedTermsOfAStory, ATermWhoseLastCharacterIsNotBoldIsRejected) {
  word.stories[0].bold = {{1, 12}};
  EXPECT_EQ(Find(u"\"Closing Date\"\r", {}, true), FoundTerms{u""});
}

TEST_F(QuotedTermsOfAStory, AreAddedBehindTheTermsOfEarlierStories) {
  EXPECT_EQ(Find(u"\"Buyer\"\r", {}, false, {u"Seller"}), (FoundTerms{u"Seller", u"Buyer"}));
  EXPECT_EQ(Find(u"\"Date\"\r", {}, false, {u"Seller", u"Buyer"}), (FoundTerms{u"Seller", u"Buyer", u"Date"}));
}

TEST_F(QuotedTermsOfAStory, ATermFoundEarlierEndsTheStorysContribution) {
  EXPECT_EQ(Find(u"\"One\" \"Two\" \"Seller\" \"Four\"\r", {}, false, {u"Seller"}),
            (FoundTerms{u"Seller", u"One", u"Two"}));
}

TEST_F(QuotedTermsOfAStory, TermsThatDifferInCaseAreTwo) {
  EXPECT_EQ(Find(u"\"seller\"\r", {}, false, {u"Seller"}), (FoundTerms{u"Seller", u"seller"}));
}

TEST_F(QuotedTermsOfAStory, AStoryWithoutTermsLeavesTheListAsItWas) {
  EXPECT_EQ(Find(u"nothing\r", {}, false, {u"Seller", u"Buyer"}), (FoundTerms{u"Seller", u"Buyer"}));
}

TEST_F(QuotedTermsOfAStory, TheListIsClearedFirst) {
  form.lstTermsInDoc.AddItem(u"old");
  Find(u"\r");
  EXPECT_EQ(form.lstTermsInDoc.ListCount(), 0);
}

TEST_F(QuotedTermsOfAStory, TheStatusBarIsEmptyAtTheEnd) {
  form.StatusBar1.SetSimpleText(u"something");
  Find(u"\"Seller\"\r");
  EXPECT_EQ(form.StatusBar1.SimpleText(), u"");
  EXPECT_EQ(log.CountBeginning("show"), 0);
}

TEST_F(QuotedTermsOfAStory, TheProgressWindowComesAndGoes) {
  Find(u"\"Seller\"\r", {}, false, FoundTerms(1), ProgressMode::kWindow);
  EXPECT_EQ(log.Count("show frmProgressForm"), 1);
  EXPECT_EQ(log.Count("unload frmProgressForm"), 1);
}

TEST_F(QuotedTermsOfAStory, ACodeThatIsNoneIsAnError) {
  EXPECT_THROW(Find(u"\"Seller\"\r", {999, 187}), std::out_of_range);
}
