#include "discovery/LineCapitals.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/FakeServices.h"

namespace {

class CapitalsOfALine : public testing::Test {
 protected:
  /// How the capital of the first such text in the line is used.
  CapitalUse Use(const std::u16string& line, std::u16string_view text) {
    const std::size_t at = line.find(text);
    EXPECT_NE(at, std::u16string::npos);
    return LineCapitals(line, characters).UseAt(at, at + text.size());
  }
  std::u16string Sentence(const std::u16string& line, std::u16string_view text) {
    return std::u16string(LineCapitals(line, characters).SentenceAt(line.find(text)));
  }

  fakes::FakeCharacters characters;
};

TEST_F(CapitalsOfALine, TheFirstWordBeginsTheSentence) {
  EXPECT_EQ(Use(u"Payment is due on the Closing Date.", u"Payment"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"Payment is due on the Closing Date.", u"Closing Date"), CapitalUse::kOfItsOwn);
}

TEST_F(CapitalsOfALine, SoDoesTheWordBehindASentenceOrClause) {
  EXPECT_EQ(Use(u"It is due. Payment shall be made.", u"Payment"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"as follows: Payment shall be made", u"Payment"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"it said \u201Cgo.\u201D Payment shall be made", u"Payment"), CapitalUse::kSentenceStart);
}

TEST_F(CapitalsOfALine, WhatIsLeftOutBeforeASentenceIsNoPartOfIt) {
  for (const char16_t mark : {u'\0', u'\1', u'\2'}) {
    const std::u16string line = std::u16string(1, mark) + u" Payment is due.";
    EXPECT_EQ(Use(line, u"Payment"), CapitalUse::kSentenceStart) << int{mark};
    EXPECT_EQ(Use(u"It is due." + line, u"Payment"), CapitalUse::kSentenceStart) << int{mark};
    EXPECT_EQ(Sentence(line, u"Payment"), u"Payment is due.") << int{mark};
  }
}

TEST_F(CapitalsOfALine, AnAbbreviationEndsNoSentence) {
  EXPECT_EQ(Use(u"he and J. Payment met Acme Inc. Payment and no. Payment", u"Payment"), CapitalUse::kOfItsOwn);
  EXPECT_EQ(Use(u"by Acme Inc. Payment is due", u"Payment"), CapitalUse::kOfItsOwn);
}

TEST_F(CapitalsOfALine, NumbersAndBulletsStandBeforeTheSentence) {
  for (const std::u16string label :
       {u"1. ", u"1.2 ", u"1.2.3. ", u"(a) ", u"a) ", u"iv. ", u"\u2022 ", u"- ", u"(1)(a) "}) {
    EXPECT_EQ(Use(label + u"Payment is due", u"Payment"), CapitalUse::kSentenceStart) << label.size();
  }
}

TEST_F(CapitalsOfALine, WhatStandsInQuotesIsCapitalisedForItsOwnSakeBehindBlanksAndAnArticleToo) {
  for (const std::u16string line :
       {u"\u201Cthe Purchase Price\u201D", u"\u00AB Purchase Price \u00BB", u"\"A Purchase Price\"",
        u"\u201EPurchase Price\u201C", u"\u00AB the Purchase Price \u00BB"}) {
    EXPECT_EQ(Use(line, u"Purchase Price"), CapitalUse::kOfItsOwn) << line.size();
  }
  EXPECT_EQ(Use(u"\u201EGo.\u201C The Payment is due", u"The"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"\u00ABGo\u00BB. Payment", u"Payment"), CapitalUse::kHeading);
}

TEST_F(CapitalsOfALine, AnItemOfAListBeginsLikeASentence) {
  EXPECT_EQ(Use(u"the Seller shall (a) Transfer the goods, and (ii) Pay", u"Transfer"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"the Seller shall (a) Transfer the goods, and (ii) Pay", u"Pay"), CapitalUse::kSentenceStart);
  EXPECT_EQ(Use(u"the Seller (for itself) Transfer the goods", u"Transfer"), CapitalUse::kOfItsOwn);
  EXPECT_EQ(Use(u"shall be: (A) a token", u"A"), CapitalUse::kSentenceStart);
}

TEST_F(CapitalsOfALine, ALineOfCapitalisedWordsIsAHeading) {
  EXPECT_EQ(Use(u"Limitation of Liability and Remedies", u"Liability"), CapitalUse::kHeading);
  EXPECT_EQ(Use(u"12.3 Governing Law", u"Governing Law"), CapitalUse::kHeading);
  EXPECT_EQ(Use(u"Limitation of liability", u"Limitation"), CapitalUse::kSentenceStart);
}

TEST_F(CapitalsOfALine, AHeadingMayRunIntoItsParagraph) {
  EXPECT_EQ(Use(u"9.1 Governing Law. The laws of Delaware apply.", u"Governing Law"), CapitalUse::kHeading);
  EXPECT_EQ(Use(u"9.1 Governing Law. The laws of Delaware apply.", u"Delaware"), CapitalUse::kOfItsOwn);
}

TEST_F(CapitalsOfALine, AStretchInCapitalsIsNoProofOfATerm) {
  const std::u16string line =
      u"The Services are provided \u201Cas is\u201D AND WITHOUT WARRANTY OF ANY KIND by the Provider.";
  EXPECT_EQ(Use(line, u"WARRANTY"), CapitalUse::kHeading);
  EXPECT_EQ(Use(line, u"Provider"), CapitalUse::kOfItsOwn);
  EXPECT_EQ(Use(u"disclosed to the RECEIVING PARTY by it", u"RECEIVING PARTY"), CapitalUse::kOfItsOwn);
  EXPECT_EQ(Use(u"listed on NYSE NASDAQ AMEX LSE today", u"NASDAQ"), CapitalUse::kOfItsOwn);
}

TEST_F(CapitalsOfALine, QuotationMarksMakeATerm) {
  EXPECT_EQ(Use(u"\u201CPayment\u201D means what is paid.", u"Payment"), CapitalUse::kOfItsOwn);
  EXPECT_EQ(Use(u"\u201CBusiness Day\u201D", u"Business Day"), CapitalUse::kOfItsOwn);
}

TEST_F(CapitalsOfALine, TheSentenceIsWhatStandsBetweenItsEnds) {
  const std::u16string line = u"1. It is so.  The Buyer shall: (a) pay; and (b) go! Then rest.";
  EXPECT_EQ(Sentence(line, u"Buyer"), u"The Buyer shall: (a) pay; and (b) go!");
  EXPECT_EQ(Sentence(line, u"rest"), u"Then rest.");
  EXPECT_EQ(Sentence(line, u"so"), u"It is so.");
}

}  // namespace
