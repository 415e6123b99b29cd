#include "hosts/docx/xml/Utf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace docx {
namespace {

// Long stretches of ASCII are looked at in blocks, whatever stands behind them.
TEST(Utf, ACharacterIsReadAtEachPlaceOfATextOfEachLength) {
  for (std::size_t size = 0; size < 70; ++size) {
    for (std::size_t at = 0; at <= size; ++at) {
      const std::string utf8 = std::string(at, 'a') + "\xF0\x90\x90\x80\xC3\xA4" + std::string(size - at, 'b');
      const std::u16string utf16 = std::u16string(at, u'a') + u"\U00010400\u00E4" + std::u16string(size - at, u'b');
      std::u16string appended = u"x";
      AppendUtf16(utf8, appended);
      ASSERT_EQ(appended, u"x" + utf16);
      ASSERT_EQ(ToUtf8(utf16), utf8);
      for (std::size_t units = 0; units <= utf16.size(); ++units) {
        if (units == at + 1) continue;  // between the halves of a pair
        ASSERT_EQ(Utf8Prefix(utf8, units), ToUtf8(utf16.substr(0, units)).size());
      }
    }
  }
}

TEST(Utf, AsciiStaysWhatItIsAtEachLength) {
  for (std::size_t size = 0; size < 70; ++size) {
    const std::string utf8(size, '~');
    ASSERT_EQ(ToUtf16(utf8), std::u16string(size, u'~'));
    for (std::size_t units = 0; units <= size + 1; ++units) ASSERT_EQ(Utf8Prefix(utf8, units), std::min(units, size));
  }
}

}  // namespace
}  // namespace docx
