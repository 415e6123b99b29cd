#include "platform/word/Replacing.h"

#include <gtest/gtest.h>

namespace {

TEST(CharactersMovedPast, CountsWhatTheFirstCharacterGoesPast) {
  EXPECT_EQ(word::CharactersMovedPast(u"\"the Bank", u"the \"Bank"), 4u);
  EXPECT_EQ(word::CharactersMovedPast(u"\"a", u"a\""), 1u);
}

TEST(CharactersMovedPast, KnowsACaretsCode) {
  EXPECT_EQ(word::CharactersMovedPast(u"\"the A^^B", u"the \"A^^B"), 4u);
  EXPECT_EQ(word::CharactersMovedPast(u"\"the^^B x", u"the^^B \"x"), 6u);
}

TEST(CharactersMovedPast, IsNothingForOtherReplacements) {
  const std::pair<std::u16string_view, std::u16string_view> others[] = {{u"\"the Bank", u"\"the Bank"},
                                                                        {u"\"the Bank", u"the \"Bonk"},
                                                                        {u"\"the Bank", u"the Bank"},
                                                                        {u"\"the Bank", u"the 'Bank"},
                                                                        {u"", u""},
                                                                        {u"a", u"a"},
                                                                        {u"\"the^pBank", u"the^p\"Bank"},
                                                                        {u"\"the Bank", u"the \"Bank and"},
                                                                        {u"abc", u""}};
  for (const auto& [searched, replacement] : others) {
    EXPECT_FALSE(word::CharactersMovedPast(searched, replacement).has_value());
  }
}

}  // namespace
