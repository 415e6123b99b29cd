#include "drafting/QuoteMarks.h"

#include <gtest/gtest.h>

using drafting::ClosingMark;
using drafting::WithoutPunctuation;

TEST(QuoteMarks, PunctuationInsideOfThemIsNoPartOfTheTerm) {
  EXPECT_EQ(WithoutPunctuation(u"Company,"), u"Company");
  EXPECT_EQ(WithoutPunctuation(u"Parties."), u"Parties");
  EXPECT_EQ(WithoutPunctuation(u"Acorn Inc.,"), u"Acorn Inc.");
  EXPECT_EQ(WithoutPunctuation(u"the U.S."), u"the U.S.");
  EXPECT_EQ(WithoutPunctuation(u"Buyer"), u"Buyer");
  EXPECT_EQ(WithoutPunctuation(u"."), u"");
}

TEST(QuoteMarks, TheClosingMarkMayStandBehindPunctuation) {
  EXPECT_EQ(ClosingMark(u"Buyer\u201D", 5), 5U);
  EXPECT_EQ(ClosingMark(u"Buyer,\u201D", 5), 6U);
  EXPECT_EQ(ClosingMark(u"Buyer, \u201D", 5), 8U) << "a blank parts them";
  EXPECT_EQ(ClosingMark(u"Buyer", 5), 5U);
}

TEST(QuoteMarks, TheClosingMarkMayStandBehindThatOfANote) {
  EXPECT_EQ(ClosingMark(u"Buyer\u0002\u201D", 5), 6U);
  EXPECT_EQ(ClosingMark(u"Buyer,\u0002\u0002\u201D", 5), 8U);
  EXPECT_EQ(ClosingMark(u"Buyer\u0002", 5), 6U);
}
