#include "discovery/CappedPhrases.h"

#include <gtest/gtest.h>

#include <numeric>

#include "discovery/LineText.h"
#include "tests/fakes/FakeServices.h"

namespace {

using Phrases = std::vector<std::u16string>;

class PhrasesOfWords : public testing::Test {
 protected:
  /// What a search for whole words with a capital finds.
  std::vector<CappedWord> Words(std::u16string_view text) {
    std::vector<CappedWord> words;
    for (std::size_t i = 0; i < text.size();) {
      if (!IsWordUnit(characters, text[i])) {
        ++i;
        continue;
      }
      const std::size_t begin = i;
      while (i < text.size() && IsWordUnit(characters, text[i])) ++i;
      if (text[begin] >= u'A' && text[begin] <= u'Z') words.push_back({begin, i});
    }
    return words;
  }
  /// The phrases of a story that pages cut into these texts.
  Phrases Of(const std::vector<std::u16string>& pages, bool ignoreNumbers = true) {
    Phrases found;
    CappedPhrases phrases(characters, ignoreNumbers, [&](std::u16string_view phrase) { found.emplace_back(phrase); });
    phrases.Learn(std::accumulate(pages.begin(), pages.end(), std::u16string()));
    for (const std::u16string& page : pages) phrases.Add(page, Words(page));
    phrases.EndStory();
    return found;
  }
  Phrases Of(const std::u16string& text, bool ignoreNumbers = true) {
    return Of(std::vector<std::u16string>{text}, ignoreNumbers);
  }

  fakes::FakeCharacters characters;
};

TEST_F(PhrasesOfWords, CapitalisedNeighboursAreOnePhrase) {
  EXPECT_EQ(Of(u"under the Stock Purchase Agreement, by its Chief Executive Officer\r"),
            (Phrases{u"Stock Purchase Agreement", u"Chief Executive Officer"}));
}

TEST_F(PhrasesOfWords, OfConnects) {
  EXPECT_EQ(Of(u"any Events of Default found by the Board of Directors\r"),
            (Phrases{u"Events of Default", u"Board of Directors"}));
  EXPECT_EQ(Of(u"CHANGE OF CONTROL and Change Of Control\r"), (Phrases{u"CHANGE OF CONTROL", u"Change Of Control"}));
}

TEST_F(PhrasesOfWords, InitialsInQuotesKeepTheirLastFullStop) {
  EXPECT_EQ(Of(u"the United States (\u201CU.S.\u201D)\r"), (Phrases{u"United States", u"U.S."}));
}

TEST_F(PhrasesOfWords, OfConnectsOnceInAPhrase) {
  EXPECT_EQ(Of(u"the Board of Directors of Seller\r"), (Phrases{u"Board of Directors", u"Seller"}));
}

TEST_F(PhrasesOfWords, OfDoesNotConnectToAReferenceOrToAnArticle) {
  EXPECT_EQ(Of(u"a Breach of Section 5.1 or the Board of the Company\r"),
            (Phrases{u"Breach", u"Section", u"Board", u"Company"}));
}

TEST_F(PhrasesOfWords, OtherSmallWordsDoNotConnect) {
  EXPECT_EQ(Of(u"the Buyer and Seller, Fees for Services, Notice to Company\r"),
            (Phrases{u"Buyer", u"Seller", u"Fees", u"Services", u"Notice", u"Company"}));
}

TEST_F(PhrasesOfWords, ASmallWordWithACapitalStandsAlone) {
  EXPECT_EQ(Of(u"The Seller pays. Each Party agrees. A Party who\r"),
            (Phrases{u"The", u"Seller", u"Each", u"Party", u"A", u"Party"}));
  EXPECT_EQ(Of(u"Don\u2019t Panic\r"), (Phrases{u"Don\u2019t", u"Panic"}));
}

TEST_F(PhrasesOfWords, ASingleLetterGoesOnAPhrase) {
  EXPECT_EQ(Of(u"the Series A Preferred Stock and Schedule I hereto\r"),
            (Phrases{u"Series A Preferred Stock", u"Schedule I"}));
}

TEST_F(PhrasesOfWords, NoPhraseCrossesASentenceEndOrPunctuation) {
  EXPECT_EQ(Of(u"to the Buyer. Seller pays; Company (Holding) and Parent, Subsidiary: Affiliate/Agent\r"),
            (Phrases{u"Buyer", u"Seller", u"Company", u"Holding", u"Parent", u"Subsidiary", u"Affiliate", u"Agent"}));
}

TEST_F(PhrasesOfWords, NoPhraseCrossesALineOrACell) {
  EXPECT_EQ(Of(u"Buyer\rSeller\vCompany\aParent\tAgent\fLender\xEOwner\r"),
            (Phrases{u"Buyer", u"Seller", u"Company", u"Parent", u"Agent", u"Lender", u"Owner"}));
}

TEST_F(PhrasesOfWords, WordsJoinOverAPageBoundary) {
  EXPECT_EQ(Of({u"under the Stock ", u"Purchase", u" Agreement of Buyer\rNext"}),
            (Phrases{u"Stock Purchase Agreement of Buyer", u"Next"}));
}

TEST_F(PhrasesOfWords, ThreeBlanksSetWordsApart) {
  EXPECT_EQ(Of(u"Buyer  Parent   Seller\r"), (Phrases{u"Buyer  Parent", u"Seller"}));
}

TEST_F(PhrasesOfWords, AHyphenatedWordIsOneWord) {
  EXPECT_EQ(Of(u"a Non-Disclosure Agreement, Non-disclosure Terms, Cash\u001EOut Price, pre-Closing Period\r"),
            (Phrases{u"Non-Disclosure Agreement", u"Non-disclosure Terms", u"Cash-Out Price", u"Closing Period"}));
}

TEST_F(PhrasesOfWords, TextIsGivenAsItReads) {
  EXPECT_EQ(Of(u"the Stock\u00A0Purchase Agree\u001Fment and Clo\u00ADsing\u0005 Date\r"),
            (Phrases{u"Stock Purchase Agreement", u"Closing Date"}));
}

TEST_F(PhrasesOfWords, APossessiveEndingEndsAPhrase) {
  EXPECT_EQ(Of(u"the Company\u2019s Board, the Investors' Shares, John O\u2019Brien\r"),
            (Phrases{u"Company", u"Board", u"Investors", u"Shares", u"John O\u2019Brien"}));
}

TEST_F(PhrasesOfWords, APossessiveEndingInCapitalsIsNoWord) {
  EXPECT_EQ(Of(u"THE BUYER\u2019S OBLIGATIONS, SELLER'S S CORPORATION STATUS and \u2018S Corporation\u2019\r"),
            (Phrases{u"THE", u"BUYER", u"OBLIGATIONS", u"SELLER", u"S CORPORATION STATUS", u"S Corporation"}));
  EXPECT_EQ(Of(Phrases{u"the BUYER\u2019", u"S OBLIGATIONS\r"}), (Phrases{u"BUYER", u"OBLIGATIONS"}));
}

TEST_F(PhrasesOfWords, InitialsAreOneWord) {
  EXPECT_EQ(Of(u"the U.S. Government, a Non-U.S. Member and C.F.R. rules\r"),
            (Phrases{u"U.S.", u"Government", u"Non-U.S.", u"Member", u"C.F.R."}));
}

TEST_F(PhrasesOfWords, APhraseInQuotesKeepsTheLastFullStopOfInitials) {
  EXPECT_EQ(Of(u"\u201CFiat S.p.A.\u201D and the \u201CBank of the U.S.,\u201D; Fiat S.p.A. pays the Bank of the U.S. "
               u"today\r"),
            (Phrases{u"Fiat S.p.A.", u"Bank of the U.S.", u"Fiat S.p.A.", u"Bank of the U.S."}));
  EXPECT_EQ(Of(u"\u201CPart B.\u201D, \u201CSchedule 2.1.\u201D, \u201CAnnex No.A.\u201D\r", false),
            (Phrases{u"Part B", u"Schedule 2.1", u"Annex No.A"}));
}

TEST_F(PhrasesOfWords, InitialsMayBeSmall) {
  EXPECT_EQ(Of(u"Fiat S.p.A. pays Enel S.r.l. of Rome; see Part B.see Schedule A.no\r"),
            (Phrases{u"Fiat S.p.A.", u"Enel S.r.l.", u"Rome", u"Part B", u"Schedule A"}));
}

TEST_F(PhrasesOfWords, AWordWithInitialsEndsAPhrase) {
  EXPECT_EQ(Of(u"a U.S. Bankruptcy Code, Form A.B. Smith, J.P.  Morgan Chase Bank, U.S. of America\r"),
            (Phrases{u"U.S.", u"Bankruptcy Code", u"Form A.B.", u"Smith", u"J.P.", u"Morgan Chase Bank", u"U.S.",
                     u"America"}));
  EXPECT_EQ(Of(u"\u201CU.S. Person\u201D, U.S. 5 Form, Act of U.S. Congress, U.S. & Sons, U.S.-Canada Treaty\r", false),
            (Phrases{u"U.S.", u"Person", u"U.S.", u"Form", u"Act of U.S.", u"Congress", u"U.S.", u"Sons", u"U.S.",
                     u"Canada Treaty"}));
}

TEST_F(PhrasesOfWords, AnAmpersandJoins) {
  EXPECT_EQ(Of(u"by Smith & Sons and R&D\r"), (Phrases{u"Smith & Sons", u"R&D"}));
}

TEST_F(PhrasesOfWords, WordsWithDigitsArePartOfNoPhrase) {
  EXPECT_EQ(Of(u"a B2B Agreement, the Series A1 Preferred Stock, Form 10-K, Schedule 1\r"),
            (Phrases{u"Agreement", u"Series", u"Preferred Stock", u"Form", u"Schedule"}));
}

TEST_F(PhrasesOfWords, WordsWithDigitsJoinWhereTheyAreNotIgnored) {
  EXPECT_EQ(Of(u"a B2B Agreement, Form 10-K Report, Schedule 1, Section 5.1\r", false),
            (Phrases{u"B2B Agreement", u"Form 10-K Report", u"Schedule 1", u"Section"}));
}

TEST_F(PhrasesOfWords, ATextInQuotesIsOnePhraseAsItStands) {
  EXPECT_EQ(
      Of(u"(the \u201CTerms and Conditions\u201D), \"Seller\u2019s Knowledge\", \u00ABNotice of default\u00BB, "
         u"\u201Cthe Change in Control Date,\u201D\r"),
      (Phrases{u"Terms and Conditions", u"Seller\u2019s Knowledge", u"Notice of default", u"Change in Control Date"}));
}

TEST_F(PhrasesOfWords, TheMarkOfANoteIsNoPartOfAQuotedPhrase) {
  EXPECT_EQ(Of(u"the \u201CBank\u0002\u201D and the \u201CTerms and Conditions,\u0002\u201D\r"),
            (Phrases{u"Bank", u"Terms and Conditions"}));
}

TEST_F(PhrasesOfWords, AQuotedPhraseIsKnownWhereverItStands) {
  EXPECT_EQ(
      Of(u"a Change in Control\r\u201CTerms and Conditions\u201D\rthe Terms and Conditions. Terms and conditions\r"
         u"\u201CChange in Control\u201D\r"),
      (Phrases{u"Change in Control", u"Terms and Conditions", u"Terms and Conditions", u"Terms",
               u"Change in Control"}));
}

TEST_F(PhrasesOfWords, QuotationMarksOfAnyStylePairUp) {
  for (const std::u16string quoted :
       {u"\u201ETerms and Conditions\u201C", u"\u201ETerms and Conditions\u201D", u"\u201DTerms and Conditions\u201D",
        u"\u00AB Terms and Conditions \u00BB", u"\u00AB\u00A0Terms and Conditions\u202F\u00BB",
        u"\u00BBTerms and Conditions\u00AB", u"\u201C the Terms and Conditions \u201D"}) {
    const auto line = std::u16string(u"die ").append(quoted).append(u" (\u201ESeller\u201C) Buyer, ").append(quoted);
    EXPECT_EQ(Of(line + u"\r"), (Phrases{u"Terms and Conditions", u"Seller", u"Buyer", u"Terms and Conditions"}));
  }
}

TEST_F(PhrasesOfWords, WhatStandsBetweenTwoQuotedTextsIsNoQuotedText) {
  EXPECT_EQ(
      Of(u"\u201EBuyer\u201C And then \u201ESeller\u201C, \"Agent\" Or also \"Lender\", \u201E(a)\u201C Deed and such "
         u"\u201EPart\u201C\r"),
      (Phrases{u"Buyer", u"And", u"Seller", u"Agent", u"Or", u"Lender", u"Deed", u"Part"}));
}

TEST_F(PhrasesOfWords, AQuotedPhraseIsKnownByTheSpellingInQuotesWhateverItsApostrophe) {
  EXPECT_EQ(Of(u"\u201CSeller\u2019s Knowledge\u201D and \"O'Brien Shares\"\r"
               u"to Seller's Knowledge, the O\u2019Brien Shares, Seller\u2019s Counsel\r"),
            (Phrases{u"Seller\u2019s Knowledge", u"O'Brien Shares", u"Seller\u2019s Knowledge", u"O'Brien Shares",
                     u"Seller", u"Counsel"}));
}

TEST_F(PhrasesOfWords, AKnownPhraseJoinsWhatFollowsItLikeAWord) {
  EXPECT_EQ(Of(u"\u201CPurchase Price\u201D and \u201CChange in Control\u201D\r"
               u"the Purchase Price Adjustment, a Change in Control Payment Date and the Purchase Price & Costs\r"),
            (Phrases{u"Purchase Price", u"Change in Control", u"Purchase Price Adjustment",
                     u"Change in Control Payment Date", u"Purchase Price & Costs"}));
  EXPECT_EQ(Of(u"\u201CSeller\u2019s Knowledge\u201D or Seller's Knowledge Group\r"),
            (Phrases{u"Seller\u2019s Knowledge", u"Seller\u2019s Knowledge Group"}));
}

TEST_F(PhrasesOfWords, NothingThatEndsAPhraseJoinsAKnownPhrase) {
  EXPECT_EQ(
      Of(u"\u201CPurchase Price\u201D\rthe Purchase Price. Buyer, the Purchase Price The Seller, the Purchase Price of "
         u"Shares, the Purchase Price \u201CAdjustment\u201D\r"),
      (Phrases{u"Purchase Price", u"Purchase Price", u"Buyer", u"Purchase Price", u"The", u"Seller", u"Purchase Price",
               u"Shares", u"Purchase Price", u"Adjustment"}));
}

TEST_F(PhrasesOfWords, AQuotedSentenceIsNoPhrase) {
  EXPECT_EQ(Of(u"\u201CPay Buyer. Then go.\u201D and \u201CBuyer: the Parent\u201D\r"),
            (Phrases{u"Pay Buyer", u"Then", u"Buyer", u"Parent"}));
  EXPECT_EQ(Of(u"\u201COne two three four five six seven eight nine ten eleven Buyer\u201D\r"),
            (Phrases{u"One", u"Buyer"}));
}

TEST_F(PhrasesOfWords, AQuotedTextThatOpensABracketOnlyIsTakenApart) {
  EXPECT_EQ(Of(u"\u201CSchedule (Part\u201D, \u201CAnnex [Rule\u201D, \u201CForm (Two]\u201D\r"),
            (Phrases{u"Schedule", u"Part", u"Annex", u"Rule", u"Form", u"Two"}));
  EXPECT_EQ(Of(u"\u201CSchedule (Part)\u201D, \u201CPart)\u201D, \u201CB] Rule\u201D\r"),
            (Phrases{u"Schedule (Part)", u"Part)", u"B] Rule"}));
}

TEST_F(PhrasesOfWords, AQuotedPhraseWithADigitIsTakenApart) {
  EXPECT_EQ(Of(u"\u201CCredit Tier 1 Fees\u201D\r"), (Phrases{u"Credit Tier", u"Fees"}));
  EXPECT_EQ(Of(u"\u201CCredit Tier 1 Fees\u201D\r", false), (Phrases{u"Credit Tier 1 Fees"}));
}

TEST_F(PhrasesOfWords, QuotesThatDoNotPairUpHurtNothing) {
  EXPECT_EQ(Of(u"\u201CBuyer and \u201CSeller\u201D Parent\u201D\r"), (Phrases{u"Buyer", u"Seller", u"Parent"}));
}

TEST_F(PhrasesOfWords, AWordOfAPhraseInQuotesDoesNotJoinTheOneBefore) {
  EXPECT_EQ(Of(u"Acme Limited \u201CSeller\u201D\r"), (Phrases{u"Acme Limited", u"Seller"}));
}

}  // namespace
