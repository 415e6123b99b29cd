#include "dialogs/TermListFile.h"

#include <gtest/gtest.h>

namespace {

using Items = std::vector<std::u16string>;

TEST(TermListFile, AnItemEndsAtACommaOrAtTheEndOfALine) {
  EXPECT_EQ(ReadTermItems("Buyer\r\nSeller, Seller's Group\r\n"), (Items{u"Buyer", u"Seller", u"Seller's Group"}));
}

TEST(TermListFile, QuotesHoldCommasAndLineEndsTogetherAndAreNoPartOfTheItem) {
  EXPECT_EQ(ReadTermItems("\"Acme, Inc.\"\r\n\"two\r\nlines\"\r\nlast"),
            (Items{u"Acme, Inc.", u"two\r\nlines", u"last"}));
}

TEST(TermListFile, ADoubledQuoteIsNoQuoteInAnItem) { EXPECT_EQ(ReadTermItems("\"1,2\"\"X\""), (Items{u"1,2", u"X"})); }

TEST(TermListFile, AQuoteWithinAnItemIsACharacter) {
  EXPECT_EQ(ReadTermItems("the \"Buyer\"\r\n"), (Items{u"the \"Buyer\""}));
}

TEST(TermListFile, AQuoteWithoutItsFellowRunsToTheEnd) {
  EXPECT_EQ(ReadTermItems("a\r\n\"b\r\nc, d"), (Items{u"a", u"b\r\nc, d"}));
}

TEST(TermListFile, BlanksAroundAnItemAreDroppedAndTabsBeforeIt) {
  EXPECT_EQ(ReadTermItems(" \t Buyer  , \"  Seller \"  \r\n x\t"), (Items{u"Buyer", u"  Seller ", u"x\t"}));
}

TEST(TermListFile, EmptyLinesAndNeighbouringCommasAreEmptyItems) {
  EXPECT_EQ(ReadTermItems("a\r\n\r\nb,,c\r\n"), (Items{u"a", u"", u"b", u"", u"c"}));
}

TEST(TermListFile, TheLastLineNeedsNoEnd) { EXPECT_EQ(ReadTermItems("a\r\nb"), (Items{u"a", u"b"})); }

TEST(TermListFile, ACarriageReturnALineFeedOrBothEndALine) {
  EXPECT_EQ(ReadTermItems("a\rb\nc\r\nd"), (Items{u"a", u"b", u"c", u"d"}));
  EXPECT_EQ(ReadTermItems("\"Acme, Inc.\"\nBuyer , Seller\n\nlast\n"),
            (Items{u"Acme, Inc.", u"Buyer", u"Seller", u"", u"last"}));
  EXPECT_EQ(ReadTermItems("a\n\rb"), (Items{u"a", u"", u"b"}));
}

TEST(TermListFile, NothingBehindCtrlZCounts) { EXPECT_EQ(ReadTermItems("a\r\nb\x1A\r\nc"), (Items{u"a", u"b"})); }

TEST(TermListFile, AnEmptyFileHasNoItems) { EXPECT_EQ(ReadTermItems(""), Items{}); }

TEST(TermListFile, WordsForOtherKindsOfValuesAreText) {
  EXPECT_EQ(ReadTermItems("#TRUE#,#NULL#,1.5"), (Items{u"#TRUE#", u"#NULL#", u"1.5"}));
}

TEST(TermListFile, BytesAreCharactersOfTheCodePageAndTheUnassignedOnesToo) {
  EXPECT_EQ(ReadTermItems("\x93"
                          "Caf\xE9\x94 \x80\r\n\x81\x8D\x8F\x90\x9D\r\n"),
            (Items{u"\u201CCaf\u00E9\u201D \u20AC", u"\u0081\u008D\u008F\u0090\u009D"}));
}

TEST(TermListFile, ALineIsTheTermAsItStands) {
  EXPECT_EQ(TermLine(u"Acme, \"Inc.\""), "Acme, \"Inc.\"\r\n");
  EXPECT_EQ(TermLine(u""), "\r\n");
}

TEST(TermListFile, WhatTheCodePageLacksIsWrittenAsNearAsItCanBe) {
  EXPECT_EQ(TermLine(u"\u20ACuro \u0101 \u4E2D"), "\x80uro a ?\r\n");
}

TEST(TermListFile, ASavedTermWithACommaComesBackAsTwo) {
  EXPECT_EQ(ReadTermItems(TermLine(u"Loan, Term") + TermLine(u"Buyer")), (Items{u"Loan", u"Term", u"Buyer"}));
}

}  // namespace
