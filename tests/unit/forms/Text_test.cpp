#include "hosts/unattended/Text.h"

#include <gtest/gtest.h>

namespace {

using unattended::FromUtf8;
using unattended::ToUtf8;

TEST(Utf8, TextComesBackAsItWas) {
  for (const std::u16string& text :
       {std::u16string(u""), std::u16string(u"Buyer"), std::u16string(u"\u201CFran\u00E7ais\u201D \U0001D11E")}) {
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  }
}

TEST(Utf8, WhatIsNoUtf8BecomesTheReplacementCharacter) {
  EXPECT_EQ(FromUtf8("a\xFFz"), u"a\uFFFDz");
  EXPECT_EQ(FromUtf8("a\xC3"), u"a\uFFFD");
  EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(FromUtf8("\xF5\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8, ALoneSurrogateBecomesTheReplacementCharacter) {
  EXPECT_EQ(ToUtf8(std::u16string(1, char16_t{0xD800})), "\xEF\xBF\xBD");
}

}  // namespace
