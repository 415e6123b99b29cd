#include "hosts/unicode/Unicode.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <array>
#include <functional>

namespace {

constexpr UChar32 kLast = 0x10FFFF;

using Mapping = std::int32_t (*)(UChar*, std::int32_t, const UChar*, std::int32_t, const char*, UErrorCode*);

std::u16string MappedByIcu(Mapping mapping, const std::u16string& text) {
  std::array<UChar, 128> mapped{};
  UErrorCode error = U_ZERO_ERROR;
  const int length =
      mapping(mapped.data(), static_cast<int>(mapped.size()), text.data(), static_cast<int>(text.size()), "", &error);
  return {mapped.data(), static_cast<std::size_t>(length)};
}

/// How many characters have another property than with ICU.
int Different(const std::function<bool(UChar32)>& same) {
  int different = 0;
  for (UChar32 c = 0; c <= kLast; ++c) {
    if (!U_IS_SURROGATE(c) && !same(c)) ++different;
  }
  return different;
}

bool IsIn(UChar32 c, std::uint32_t mask) { return (U_GET_GC_MASK(c) & mask) != 0; }

char32_t Point(UChar32 c) { return static_cast<char32_t>(c); }

TEST(UnicodeTables, HaveTheClassesOfIcu) {
  EXPECT_EQ(Different([](UChar32 c) { return unicode::IsLetter(Point(c)) == IsIn(c, U_GC_L_MASK); }), 0);
  EXPECT_EQ(Different([](UChar32 c) { return unicode::IsMark(Point(c)) == IsIn(c, U_GC_M_MASK); }), 0);
  EXPECT_EQ(Different([](UChar32 c) { return unicode::IsDecimalDigit(Point(c)) == IsIn(c, U_GC_ND_MASK); }), 0);
  EXPECT_EQ(
      Different([](UChar32 c) { return unicode::IsOtherNumber(Point(c)) == IsIn(c, U_GC_NL_MASK | U_GC_NO_MASK); }), 0);
  EXPECT_EQ(Different([](UChar32 c) { return unicode::IsBlank(Point(c)) == IsIn(c, U_GC_ZS_MASK); }), 0);
}

TEST(UnicodeTables, HaveTheSimpleMappingsOfIcu) {
  EXPECT_EQ(Different([](UChar32 c) { return unicode::UpperOf(Point(c)) == Point(u_toupper(c)); }), 0);
  EXPECT_EQ(Different([](UChar32 c) { return unicode::LowerOf(Point(c)) == Point(u_tolower(c)); }), 0);
  EXPECT_EQ(Different([](UChar32 c) { return unicode::Fold(Point(c)) == Point(u_foldCase(c, U_FOLD_CASE_DEFAULT)); }),
            0);
}

TEST(UnicodeTables, HaveTheFullMappingsOfIcu) {
  const auto text = [](UChar32 c) {
    std::u16string made;
    unicode::Append(made, Point(c));
    return made;
  };
  EXPECT_EQ(Different([&](UChar32 c) { return unicode::ToUpper(text(c)) == MappedByIcu(&u_strToUpper, text(c)); }), 0);
  EXPECT_EQ(Different([&](UChar32 c) { return unicode::ToLower(text(c)) == MappedByIcu(&u_strToLower, text(c)); }), 0);
}

TEST(UnicodeTables, EndAWordWithTheFinalSigma) {
  for (const std::u16string text :
       {u"\u039F\u0394\u039F\u03A3", u"\u03A3\u0391\u03A3 \u03A3", u"A\u03A3'", u"A.\u03A3B", u"\u03A3", u"1\u03A3"}) {
    EXPECT_EQ(unicode::ToLower(text), MappedByIcu(&u_strToLower, text));
  }
}

TEST(CodePoints, TakePairsTogetherAndHalvesAlone) {
  EXPECT_EQ(unicode::CodePointAt(u"\U0001F600", 0).value, U'\U0001F600');
  EXPECT_EQ(unicode::CodePointAt(u"\U0001F600", 0).units, 2u);
  const std::u16string half(1, static_cast<char16_t>(0xD83D));
  EXPECT_EQ(unicode::CodePointAt(half, 0).units, 1u);
}

}  // namespace
