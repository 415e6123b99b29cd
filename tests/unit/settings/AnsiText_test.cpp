#include "platform/AnsiText.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(AnsiText, EveryByteComesBackAsItWas) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
}

TEST(AnsiText, TheQuoteCodesStandForTheirCharacters) {
  EXPECT_EQ(CharFromAnsiCode(34), u'"');
  EXPECT_EQ(CharFromAnsiCode(132), u'\u201E');
  EXPECT_EQ(CharFromAnsiCode(147), u'\u201C');
  EXPECT_EQ(CharFromAnsiCode(148), u'\u201D');
  EXPECT_EQ(CharFromAnsiCode(171), u'\u00AB');
  EXPECT_EQ(CharFromAnsiCode(187), u'\u00BB');
}

TEST(AnsiText, ACodeOutsideTheCodePageIsRefused) {
  EXPECT_THROW(CharFromAnsiCode(-1), std::out_of_range);
  EXPECT_THROW(CharFromAnsiCode(256), std::out_of_range);
}

TEST(AnsiText, TheFiveUnassignedBytesBecomeControls) {
  EXPECT_EQ(FromAnsi("\x81\x8D\x8F\x90\x9D"), std::u16string(u"\u0081\u008D\u008F\u0090\u009D"));
}

TEST(AnsiText, HighCharactersHaveTheirOwnCodes) {
  EXPECT_EQ(ToAnsi(u"\u20AC\u201A\u0178\u017E\u00E9\u00FF"), "\x80\x82\x9F\x9E\xE9\xFF");
}

TEST(AnsiText, WhatTheCodePageLacksTakesItsBestFit) {
  EXPECT_EQ(ToAnsi(u"\u0101\u03B1\u2215\uFF02"), "aa/\"");
  EXPECT_EQ(ToAnsi(u"\u0100\u010F\u0110\u0111\u0142\u0151\u0159\u015F\u0173\u017C"),
            "Ad\xD0"
            "dlorsuz");
  EXPECT_EQ(ToAnsi(u"\uFF21\uFF5A\u2010\u2003\u2075\u2083"), "Az- 53");
}

TEST(AnsiText, WhatHasNoFitBecomesAQuestionMark) { EXPECT_EQ(ToAnsi(u"\u4E2D\u0416\u0080\u05D0\uFFFD"), "?????"); }

TEST(AnsiText, BothHalvesOfASurrogatePairBecomeQuestionMarks) { EXPECT_EQ(ToAnsi(u"a\U0001F600b"), "a??b"); }
