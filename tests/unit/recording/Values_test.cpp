#include "hosts/recording/Values.h"
#include "hosts/json/Json.h"

#include <gtest/gtest.h>

namespace recording {
namespace {

TEST(RecordedValues, TextsAreUtf8) {
  EXPECT_EQ(Utf8(u"a\u00e9\u20ac\U0001d4de"), "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x93\x9E");
}

TEST(RecordedValues, ALoneSurrogateBecomesTheReplacementCharacter) {
  const std::u16string lone{u'a', char16_t{0xD835}, u'b', char16_t{0xDCDE}};
  EXPECT_EQ(Utf8(lone),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(RecordedValues, ATableIsAListOfTermsWithTheirCounts) {
  EXPECT_EQ(json::Written(ToValue(TermTable{{u"Buyer", 3}, {u"Seller", 0}})), R"([["Buyer",3],["Seller",0]])");
  EXPECT_EQ(json::Written(ToValue(TermTable{})), "[]");
}

TEST(RecordedValues, MissingObjectsAreNull) {
  EXPECT_TRUE(ToValue(word::RangePtr()).is_null());
  EXPECT_TRUE(ToValue(word::DocumentPtr()).is_null());
  EXPECT_TRUE(ToValue(word::ApplicationPtr()).is_null());
}

}  // namespace
}  // namespace recording
