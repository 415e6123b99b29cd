#include "hosts/com/FindText.h"

#include <gtest/gtest.h>

namespace {

TEST(PlainFindText, LeavesAStraightQuoteSinceWordFindsAllStylesByIt) {
  EXPECT_EQ(com::ForWord(u"\"the Buyer's\"", false), u"\"the Buyer's\"");
}

TEST(PlainFindText, WritesCurlyQuotesAsExactCodesOfFourDigits) {
  EXPECT_EQ(com::ForWord(u"\u201C5\u201D \u20185\u2019", false), u"^01475^0148 ^01455^0146");
}

TEST(PlainFindText, LeavesOtherQuotesAndCodes) {
  EXPECT_EQ(com::ForWord(u"\u201E^p^^\u00AB", false), u"\u201E^p^^\u00AB");
}

TEST(WildcardFindText, WritesAStraightQuoteAsTheSetOfAllStyles) {
  EXPECT_EQ(com::ForWord(u"\"*\"", true), u"[^034^0147^0148]*[^034^0147^0148]");
}

TEST(WildcardFindText, PutsAllStylesIntoASetThatHasAStraightQuote) {
  EXPECT_EQ(com::ForWord(u"[!\"a]\"", true), u"[!^034^0147^0148a][^034^0147^0148]");
}

TEST(WildcardFindText, LeavesAQuoteThatIsEscapedAndCurlyOnes) {
  EXPECT_EQ(com::ForWord(u"\\\"\u201C\\[\"", true), u"\\\"\u201C\\[[^034^0147^0148]");
}

}  // namespace
