#include "hosts/docx/fields/FieldCode.h"

#include <gtest/gtest.h>

#include "platform/word/Constants.h"

namespace docx {
namespace {

using Texts = std::vector<std::u16string>;

TEST(FieldCode, HasAKeywordArgumentsAndSwitches) {
  const FieldCode code = ParseFieldCode(u" hyperlink \"http://a b\" \\l \"place\" \\m \\o tip ");
  EXPECT_EQ(code.keyword, u"HYPERLINK");
  EXPECT_EQ(code.arguments, (Texts{u"http://a b"}));
  ASSERT_EQ(code.switches.size(), 3U);
  EXPECT_EQ(code.Text(u'l'), u"place");
  EXPECT_TRUE(code.Has(u'm'));
  EXPECT_FALSE(code.Switch(u'm')->argument);
  EXPECT_EQ(code.Text(u'o'), u"tip");
  EXPECT_FALSE(code.Has(u'x'));
}

TEST(FieldCode, KeepsEscapesInArgumentsAndResolvesThemInSwitches) {
  const FieldCode code = ParseFieldCode(uR"(XE "say \"no\"\: or \\" \t "See \"yes\"")");
  EXPECT_EQ(code.arguments, (Texts{uR"(say \"no\"\: or \\)"}));
  EXPECT_EQ(FieldText(code.arguments.front()), uR"(say "no": or \)");
  EXPECT_EQ(code.Text(u't'), u"See \"yes\"");
}

TEST(FieldCode, KeepsTabsAndBlanksInQuotes) {
  EXPECT_EQ(ParseFieldCode(u"INDEX \\e \":  \t\" \\f \"D\"").Text(u'e'), u":  \t");
}

TEST(FieldCode, ASwitchMayHoldItsArgumentDirectly) {
  const FieldCode code = ParseFieldCode(u"INDEX \\c2 \\f\"D\" \\r \\h A");
  EXPECT_EQ(code.Text(u'c'), u"2");
  EXPECT_EQ(code.Text(u'f'), u"D");
  EXPECT_TRUE(code.Has(u'r'));
  EXPECT_EQ(code.Text(u'h'), u"A");
}

TEST(FieldCode, SwitchesThatStandAloneLeaveTheNextWordAlone) {
  const FieldCode code = ParseFieldCode(u"XE \\b \"Buyer\" \\i");
  EXPECT_EQ(code.arguments, (Texts{u"Buyer"}));
  EXPECT_TRUE(code.Has(u'b'));
  EXPECT_TRUE(code.Has(u'i'));
}

TEST(FieldCode, TheLastOfEqualSwitchesCounts) { EXPECT_EQ(ParseFieldCode(u"INDEX \\f a \\F b").Text(u'f'), u"b"); }

TEST(FieldCode, CurlyQuotesEncloseToo) {
  EXPECT_EQ(ParseFieldCode(u"XE “two words”").arguments, (Texts{u"two words"}));
  EXPECT_EQ(ParseFieldCode(u"XE “two words\"").arguments, (Texts{u"two words"}));
  EXPECT_EQ(ParseFieldCode(u"XE \"the “Buyer”\"").arguments, (Texts{u"the “Buyer”"}));
}

TEST(FieldCode, TakesAnyGarbage) {
  EXPECT_EQ(ParseFieldCode(u"").keyword, u"");
  EXPECT_EQ(ParseFieldCode(u"  \t ").keyword, u"");
  EXPECT_EQ(ParseFieldCode(u"XE \"open").arguments, (Texts{u"open"}));
  EXPECT_EQ(ParseFieldCode(u"XE \"open\\").arguments, (Texts{u"open\\"}));
  EXPECT_EQ(ParseFieldCode(u"XE \"\"").arguments, (Texts{u""}));
  EXPECT_FALSE(ParseFieldCode(u"XE \"a\" \\t").Text(u't'));
  EXPECT_EQ(ParseFieldCode(u"XE \"a\" \\t \"").Text(u't'), u"");
  EXPECT_EQ(ParseFieldCode(u"\\f x").keyword, u"");
  EXPECT_EQ(ParseFieldCode(u"XE a\"b\"").arguments, (Texts{u"a", u"b"}));
}

TEST(FieldCode, HasWordsNumberForItsType) {
  EXPECT_EQ(FieldType(u" XE \"a\" "), word::wdFieldIndexEntry);
  EXPECT_EQ(FieldType(u"XE\"a\""), word::wdFieldIndexEntry);
  EXPECT_EQ(FieldType(u" index \\c 2"), word::wdFieldIndex);
  EXPECT_EQ(FieldType(u"TOC\\o"), 13);
  EXPECT_EQ(FieldType(u"PAGEREF _Toc1 \\h"), 37);
  EXPECT_EQ(FieldType(u"HYPERLINK \\l \"a\""), 88);
  EXPECT_EQ(FieldType(u" = 1 + 2"), 34);
  EXPECT_EQ(FieldType(u"=1+2"), 34);
  EXPECT_EQ(FieldType(u"INDEXES"), word::wdFieldEmpty);
  EXPECT_EQ(FieldType(u""), word::wdFieldEmpty);
}

}  // namespace
}  // namespace docx
