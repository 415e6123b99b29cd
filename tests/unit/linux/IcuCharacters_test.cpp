#include "hosts/linux/IcuCharacters.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

TEST(IcuCharacters, UpperCaseIsTheFullMapping) {
  os::IcuCharacters characters;
  EXPECT_EQ(characters.ToUpper(u"stra\u00DFe"), u"STRASSE");
  EXPECT_EQ(characters.ToUpper(u"\u0390"), u"\u0399\u0308\u0301");
  EXPECT_EQ(characters.ToUpper(std::u16string(1000, u'\u0390')).size(), 3000U);
  EXPECT_EQ(characters.ToUpper(u""), u"");
}

TEST(IcuCharacters, MappingsFollowNoLanguage) {
  os::IcuCharacters characters;
  EXPECT_EQ(characters.ToUpper(u"i"), u"I");
  EXPECT_EQ(characters.ToLower(u"I\u00C9"), u"i\u00E9");
}

TEST(IcuCharacters, FoldingIsOfOneCharacter) {
  os::IcuCharacters characters;
  EXPECT_EQ(characters.Fold(U'A'), U'a');
  EXPECT_EQ(characters.Fold(U'\u03C2'), U'\u03C3');
  EXPECT_EQ(characters.Fold(U'\u00DF'), U'\u00DF');
  EXPECT_EQ(characters.Fold(U'\U00010400'), U'\U00010428');
}

TEST(IcuCharacters, WordsAreLettersDigitsAndMarks) {
  os::IcuCharacters characters;
  for (const char32_t c : std::u32string_view(U"aZ\u00E9\u0436\u4E2D7\u0663\u0301\u0903\U00010400")) {
    EXPECT_TRUE(characters.IsWordCharacter(c)) << std::hex << static_cast<unsigned>(c);
  }
  for (const char32_t c : std::u32string_view(U" -_'\u2019\u00A0\u00AD\u201C\u00B2\u00BD\u2014$\r\a")) {
    EXPECT_FALSE(characters.IsWordCharacter(c)) << std::hex << static_cast<unsigned>(c);
  }
}

}  // namespace
