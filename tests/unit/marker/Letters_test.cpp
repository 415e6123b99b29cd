#include "marker/Letters.h"

#include "hosts/linux/IcuCharacters.h"

#include <gtest/gtest.h>

namespace marker {
namespace {

class LettersTest : public testing::Test {
 protected:
  os::IcuCharacters characters_;
  Letters letters_{characters_};
};

TEST_F(LettersTest, FoldingKeepsTheNumberOfCodeUnits) {
  const std::u16string text = u"Stra\u00DFe \u0130 \u1E9E \U00010400";
  EXPECT_EQ(letters_.Fold(text).size(), text.size());
}

TEST_F(LettersTest, FoldingReachesBeyondTheBasicPlane) {
  EXPECT_EQ(letters_.Fold(u"\U00010400"), letters_.Fold(u"\U00010428"));
}

TEST_F(LettersTest, FoldingMakesCurlyQuotationMarksStraightAndLeavesOthers) {
  EXPECT_EQ(letters_.Fold(u"\u2018\u2019\u201C\u201D"), u"''\"\"");
  const std::u16string others = u"\u201A\u201B\u201E\u201F\u00AB\u00BB\u2032`";
  EXPECT_EQ(letters_.Fold(others), others);
}

TEST_F(LettersTest, AnUnpairedSurrogateFoldsToItself) {
  const std::u16string lone(1, static_cast<char16_t>(0xD801));
  EXPECT_EQ(letters_.Fold(lone), lone);
}

TEST_F(LettersTest, ACharacterBeyondTheBasicPlaneIsSeenWhole) {
  EXPECT_TRUE(letters_.IsWordAt(u"\U00010400", 0));
  EXPECT_FALSE(letters_.IsWordAt(u"\U0001F600", 0));
}

TEST_F(LettersTest, NothingStandsBehindTheEnd) { EXPECT_FALSE(letters_.IsWordAt(u"a", 1)); }

}  // namespace
}  // namespace marker
