#include "marker/Entries.h"

#include <gtest/gtest.h>

#include <string>

namespace marker {
namespace {

TEST(EntryCode, NamesTheTermAndOurEntryType) {
  EXPECT_EQ(EntryCode(u"Lender", false), u"XE \"Lender\" \\f \"DefinedTermsIndex\"");
}

TEST(EntryCode, TellsADefinitionsPageByABoldNumber) {
  EXPECT_EQ(EntryCode(u"Lender", true), u"XE \"Lender\" \\f \"DefinedTermsIndex\" \\b");
}

TEST(EntryCode, EscapesWhatMeansSomethingInAnEntry) {
  EXPECT_EQ(EntryCode(u"a:b;c\"d\\e,f", false), u"XE \"a\\:b\\;c\\\"d\\\\e,f\" \\f \"DefinedTermsIndex\"");
}

TEST(EntryText, HasNoBreaksAndNoSpecialCharacters) {
  EXPECT_EQ(EntryText(u"Net\tIn\u00ADcome\rTax\u00A0Rate"), u"Net Income Tax Rate");
}

TEST(EntryText, IsCutWhereWordsOwnEntriesAre) {
  EXPECT_EQ(EntryText(std::u16string(300, u'x')).size(), 255U);
  const std::u16string pairs = std::u16string(254, u'x') + u"\U0001F600";
  EXPECT_EQ(EntryText(pairs).size(), 254U);
}

TEST(ParseFieldCode, GivesBackWhatAnEntrySays) {
  const FieldCode code = ParseFieldCode(u" " + EntryCode(u"a:b;c\"d\\e,f", true) + u" ");
  EXPECT_EQ(code.keyword, u"XE");
  EXPECT_EQ(code.text, u"a:b;c\"d\\e,f");
  EXPECT_TRUE(IsOurEntry(code));
}

TEST(ParseFieldCode, KnowsOnlyTheFullTypeAsOurs) {
  EXPECT_FALSE(IsOurEntry(ParseFieldCode(u" XE \"Lender\" \\f \"D\" ")));
  EXPECT_FALSE(IsOurEntry(ParseFieldCode(u" XE \"Lender\" ")));
  EXPECT_FALSE(IsOurEntry(ParseFieldCode(u" XE \"DefinedTermsIndex\" \\b ")));
  EXPECT_TRUE(IsOurEntry(ParseFieldCode(u" XE \"Lender\" \\b \\f \"DefinedTermsIndex\" ")));
}

TEST(ParseFieldCode, DoesNotTakeAnEntryForAnIndex) {
  EXPECT_FALSE(IsOurIndex(ParseFieldCode(u" XE \"INDEX\" \\f \"DefinedTermsIndex\" ")));
  EXPECT_TRUE(IsOurIndex(ParseFieldCode(u" INDEX \\f \"DefinedTermsIndex\" \\e \", \" ")));
  EXPECT_FALSE(IsOurIndex(ParseFieldCode(u" index \\f \"DefinedTermsIndex\" ")));
  EXPECT_FALSE(IsOurIndex(ParseFieldCode(u" INDEX \\c \"2\" ")));
}

TEST(ParseFieldCode, SurvivesCodesThatAreNone) {
  EXPECT_TRUE(ParseFieldCode(u"").keyword.empty());
  EXPECT_EQ(ParseFieldCode(u" XE \"open").text, u"open");
  EXPECT_EQ(ParseFieldCode(u" XE \"open\\").text, u"open\\");
}

TEST(IndexCode, LeavesTheColumnsOutWhenNoneAreWanted) {
  EXPECT_EQ(IndexCode(u":  \t", 0), u"INDEX \\f \"DefinedTermsIndex\" \\e \":  \t\"");
}

TEST(IndexCode, SaysTheColumns) {
  EXPECT_EQ(IndexCode(u", ", 2), u"INDEX \\f \"DefinedTermsIndex\" \\e \", \" \\c \"2\"");
}

TEST(IndexCode, KeepsTheTabOfASeparatorLongerThanWordKeeps) {
  EXPECT_EQ(IndexCode(u"abcdef\t", 0), u"INDEX \\f \"DefinedTermsIndex\" \\e \"abcd\t\"");
  EXPECT_EQ(IndexCode(u"abcd\t", 0), u"INDEX \\f \"DefinedTermsIndex\" \\e \"abcd\t\"");
  EXPECT_EQ(IndexCode(u"abcdef", 0), u"INDEX \\f \"DefinedTermsIndex\" \\e \"abcde\"");
}

TEST(IndexCode, EscapesQuotesAndBackslashesOfTheSeparator) {
  EXPECT_EQ(IndexCode(u"\"\\\t", 0), u"INDEX \\f \"DefinedTermsIndex\" \\e \"\\\"\\\\\t\"");
}

}  // namespace
}  // namespace marker
