#include "hosts/docx/fields/IndexSyntax.h"

#include <gtest/gtest.h>

namespace docx {
namespace {

std::vector<std::pair<std::u16string, std::u16string>> Levels(std::u16string_view code) {
  std::vector<std::pair<std::u16string, std::u16string>> levels;
  for (const IndexLevel& level : ParseIndexEntry(code).levels) levels.emplace_back(level.text, level.key);
  return levels;
}

using Pairs = std::vector<std::pair<std::u16string, std::u16string>>;

TEST(IndexEntrySyntax, ColonsPartLevels) {
  EXPECT_EQ(Levels(u" XE \"Main:Sub : Third\" "), (Pairs{{u"Main", u"Main"}, {u"Sub", u"Sub"}, {u"Third", u"Third"}}));
  EXPECT_EQ(Levels(u"XE \"Main::\""), (Pairs{{u"Main", u"Main"}}));
  EXPECT_EQ(Levels(uR"(XE "Clause 1\: Price")"), (Pairs{{u"Clause 1: Price", u"Clause 1: Price"}}));
}

TEST(IndexEntrySyntax, TheLastSemicolonPartsTheSortKey) {
  EXPECT_EQ(Levels(u"XE \"St. John;Saint John\""), (Pairs{{u"St. John", u"Saint John"}}));
  EXPECT_EQ(Levels(u"XE \"a;b ; c:d\""), (Pairs{{u"a;b", u"c"}, {u"d", u"d"}}));
  EXPECT_EQ(Levels(uR"(XE "a\;b")"), (Pairs{{u"a;b", u"a;b"}}));
  EXPECT_EQ(Levels(u"XE \"a; \""), (Pairs{{u"a;", u"a;"}}));
}

TEST(IndexEntrySyntax, EscapedQuotesAndBackslashesAreText) {
  EXPECT_EQ(Levels(uR"(XE "the \"Buyer\" \\ co")"), (Pairs{{u"the \"Buyer\" \\ co", u"the \"Buyer\" \\ co"}}));
}

TEST(IndexEntrySyntax, AnEmptyEntryHasNoLevels) {
  EXPECT_TRUE(Levels(u"XE \"\"").empty());
  EXPECT_TRUE(Levels(u"XE").empty());
  EXPECT_TRUE(Levels(u"XE \" : \"").empty());
}

TEST(IndexEntrySyntax, LevelsEndAtTheNinth) { EXPECT_EQ(Levels(u"XE 1:2:3:4:5:6:7:8:9:10").size(), 9U); }

TEST(IndexEntrySyntax, ReadsTheSwitches) {
  const IndexMark mark =
      ParseIndexEntry(u"XE \"a\" \\b \\i \\f \"DefinedTermsIndex\" \\r place \\t \"See b\" \\t \"See c\"");
  EXPECT_TRUE(mark.bold);
  EXPECT_TRUE(mark.italic);
  EXPECT_EQ(mark.type, u'd');
  EXPECT_EQ(mark.rangeBookmark, u"place");
  EXPECT_EQ(mark.crossReferences, (std::vector<std::u16string>{u"See b", u"See c"}));
  EXPECT_EQ(ParseIndexEntry(u"XE a").type, kDefaultIndexType);
  EXPECT_EQ(ParseIndexEntry(u"XE a \\f \"\"").type, kDefaultIndexType);
}

TEST(IndexOptionsSyntax, HasWordsDefaults) {
  const IndexOptions options = ParseIndexOptions(u" INDEX ");
  EXPECT_EQ(options.columns, 0);
  EXPECT_EQ(options.entrySeparator, u", ");
  EXPECT_EQ(options.pageSeparator, u", ");
  EXPECT_EQ(options.rangeSeparator, u"–");
  EXPECT_EQ(options.sequenceSeparator, u"-");
  EXPECT_EQ(options.type, kDefaultIndexType);
  EXPECT_FALSE(options.heading);
  EXPECT_FALSE(options.referenceSeparator);
  EXPECT_FALSE(options.language);
  EXPECT_FALSE(options.runIn);
}

TEST(IndexOptionsSyntax, ReadsTheSwitches) {
  const IndexOptions options = ParseIndexOptions(
      u"INDEX \\b book \\c \"3\" \\d \".\" \\e \":  \t\" \\f \"DefinedTermsIndex\" \\g \" to \" \\h \"A\" \\k \"; \" "
      u"\\l \"/\" "
      u"\\p a--m \\r \\s chapter \\z \"1053\"");
  EXPECT_EQ(options.bookmark, u"book");
  EXPECT_EQ(options.columns, 3);
  EXPECT_EQ(options.sequenceSeparator, u".");
  EXPECT_EQ(options.entrySeparator, u":  \t");
  EXPECT_EQ(options.type, u'd');
  EXPECT_EQ(options.rangeSeparator, u" to ");
  EXPECT_EQ(options.heading, u"A");
  EXPECT_EQ(options.referenceSeparator, u"; ");
  EXPECT_EQ(options.pageSeparator, u"/");
  EXPECT_EQ(options.letters, u"a--m");
  EXPECT_TRUE(options.runIn);
  EXPECT_EQ(options.sequence, u"chapter");
  EXPECT_EQ(options.language, 1053);
}

TEST(IndexOptionsSyntax, CutsSeparatorsAtFiveCharacters) {
  const IndexOptions options = ParseIndexOptions(u"INDEX \\e \"12345\t\" \\l \"123456\" \\g \"123456\" \\d \"123456\"");
  EXPECT_EQ(options.entrySeparator, u"12345");
  EXPECT_EQ(options.pageSeparator, u"12345");
  EXPECT_EQ(options.rangeSeparator, u"12345");
  EXPECT_EQ(options.sequenceSeparator, u"12345");
}

TEST(IndexOptionsSyntax, KeepsColumnsWithinOneAndFour) {
  EXPECT_EQ(ParseIndexOptions(u"INDEX \\c 0").columns, 1);
  EXPECT_EQ(ParseIndexOptions(u"INDEX \\c 9").columns, 4);
  EXPECT_EQ(ParseIndexOptions(u"INDEX \\c many").columns, 0);
}

}  // namespace
}  // namespace docx
