#include "platform/word/FindUnit.h"

#include "hosts/docx/find/FirstUnits.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(FindUnit, FindsAUnitAtEachPlaceFromEachPlace) {
  for (std::size_t size = 0; size < 100; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      std::u16string text(size, u'a');
      text[at] = u'b';
      for (std::size_t from = 0; from <= size; ++from) {
        const std::size_t found =
            word::FindUnit(std::u16string_view(text), from, [](char16_t unit) { return unit == u'b'; });
        ASSERT_EQ(found, from <= at ? at : size);
      }
    }
  }
}

TEST(FindUnit, PutsAnotherInThePlaceOfEachThatIsWantedBehindAPlace) {
  for (std::size_t size = 0; size < 60; ++size) {
    for (std::size_t from = 0; from <= size; ++from) {
      std::u16string text;
      std::u16string expected;
      for (std::size_t at = 0; at < size; ++at) {
        const bool wanted = at % 17 < 2 || at + 1 == size;
        text += wanted ? u'b' : u'a';
        expected += wanted && at >= from ? u'c' : text.back();
      }
      word::ReplaceUnits(
          text, from, [](char16_t unit) { return unit == u'b'; }, u'c');
      ASSERT_EQ(text, expected);
    }
  }
}

TEST(FindUnit, TellsBytesAboveAscii) {
  const std::string text = std::string(70, 'a') + "\xC3\xA4";
  EXPECT_EQ(
      word::FindUnit(std::string_view(text), 0, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }),
      70U);
}

TEST(FirstUnits, FindsWhatIsAskedFor) {
  const std::u16string text = std::u16string(40, u'x') + u"\u00E4\u201C" + std::u16string(40, u'y') + u"\u201D\"z";
  const auto find = [&text](auto may, std::size_t from) { return docx::FirstUnits(may).FindIn(text, from, may); };
  const auto curly = [](char16_t unit) { return unit == 0x201C || unit == 0x201D; };
  EXPECT_EQ(find(curly, 0), 41U);
  EXPECT_EQ(find(curly, 41), 41U);
  EXPECT_EQ(find(curly, 42), 82U);
  EXPECT_EQ(find(curly, 83), text.size());
  const auto any = [](char16_t unit) { return unit == u'"' || unit == 0x201C || unit == 0x201D; };
  EXPECT_EQ(find(any, 42), 82U);
  EXPECT_EQ(find(any, 83), 83U);
  const auto late = [](char16_t unit) { return unit >= u'y' && unit <= u'z'; };
  EXPECT_EQ(find(late, 0), 42U);
  EXPECT_EQ(find(late, 82), 84U);
  const auto none = [](char16_t) { return false; };
  EXPECT_EQ(find(none, 0), text.size());
}

}  // namespace
