#include "discovery/CappedCandidates.h"

#include <gtest/gtest.h>

#include "tests/fakes/FakeServices.h"

namespace {

class CandidateTests : public testing::Test {
 protected:
  FoundTerms Offered(const std::vector<std::u16string>& texts) {
    FoundTerms found(1);
    CappedCandidates candidates(characters, found);
    for (const std::u16string& text : texts) candidates.Offer(text);
    return found;
  }
  FoundTerms Stored(const std::vector<std::u16string>& texts, FoundTerms found = FoundTerms(1)) {
    CappedCandidates candidates(characters, found);
    for (const std::u16string& text : texts) candidates.Store(text);
    return found;
  }

  fakes::FakeCharacters characters;
};

const FoundTerms kNothing{u""};

TEST_F(CandidateTests, IgnoredWordsAreDroppedInAnyCase) {
  EXPECT_EQ(Offered({u"the", u"This", u"AND", u"For", u"iF", u"In", u"At", u"As"}), kNothing);
}

TEST_F(CandidateTests, ExcludedWordsAreDroppedAsTheyAreSpeltOnly) {
  EXPECT_EQ(Offered({u"a", u"between", u"of"}), kNothing);
  EXPECT_EQ(Offered({u"A", u"Between", u"Of"}), (FoundTerms{u"A", u"Between", u"Of"}));
}

TEST_F(CandidateTests, ACandidateNeedsALetterAndBeginsWithACapital) {
  EXPECT_EQ(Offered({u"12", u"", u"  ", u"buyer", u"1 Buyer", u"(Buyer)", u"\u00C9tat"}), kNothing);
  EXPECT_EQ(Offered({u"B2", u"Buyer"}), (FoundTerms{u"B2", u"Buyer"}));
}

TEST_F(CandidateTests, ACandidateHoldsNoTabBreakOrMark) {
  EXPECT_EQ(Offered({u"Bu\ryer", u"Bu\vyer", u"Bu\nyer", u"Bu\tyer", u"Bu\byer"}), kNothing);
}

TEST_F(CandidateTests, BlanksAroundACandidateDoNotCount) {
  EXPECT_EQ(Offered({u"  Buyer ", u"Buyer"}), FoundTerms{u"Buyer"});
}

TEST_F(CandidateTests, ACandidateIsKeptOnceInTheOrderOfComing) {
  EXPECT_EQ(Offered({u"Seller", u"Buyer", u"Seller", u"BUYER"}), (FoundTerms{u"Seller", u"Buyer", u"BUYER"}));
}

TEST_F(CandidateTests, TheFirstCandidateFillsTheEmptyElement) {
  EXPECT_EQ(Stored({u"Buyer"}), FoundTerms{u"Buyer"});
  EXPECT_EQ(Stored({u"Seller"}, {u"Buyer"}), (FoundTerms{u"Buyer", u"Seller"}));
  EXPECT_EQ(Stored({u"Seller"}, {u"Buyer", u""}), (FoundTerms{u"Buyer", u"Seller"}));
}

TEST_F(CandidateTests, AnOpeningBracketNeedsItsClosingOne) {
  EXPECT_EQ(Stored({u"Schedule (Part", u"Schedule [Part"}), kNothing);
  EXPECT_EQ(Stored({u"Schedule (Part)", u"Schedule [Part]"}), (FoundTerms{u"Schedule (Part)", u"Schedule [Part]"}));
}

TEST_F(CandidateTests, AClosingBracketNeedsNoOpeningOne) {
  EXPECT_EQ(Stored({u"Part)", u"Part]", u"Part)("}), (FoundTerms{u"Part)", u"Part]", u"Part)("}));
}

TEST_F(CandidateTests, ABracketOfTheOtherKindClosesNothing) {
  EXPECT_EQ(Stored({u"Schedule (Part]", u"Schedule [Part)"}), kNothing);
}

TEST_F(CandidateTests, ASeparatorIsNeverStored) {
  EXPECT_EQ(Stored({u"St. Ives", u"Buyer; Seller", u"Buyer:", u"Part;"}), kNothing);
  EXPECT_EQ(Stored({u"U.S.", u"Inc."}), (FoundTerms{u"U.S.", u"Inc."}))
      << "a full stop with no blank behind it is none";
}

TEST_F(CandidateTests, StoringComparesWithWhatTheArrayHoldsByCodeUnits) {
  EXPECT_EQ(Stored({u"Buyer", u"BUYER"}, {u"Buyer"}), (FoundTerms{u"Buyer", u"BUYER"}));
}

}  // namespace
