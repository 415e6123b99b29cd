#include "hosts/docx/pages/PageLabels.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/pages/PagedDocument.h"

using docx::FormatPageNumber;
using paged::Document;
using paged::kBreak;
using paged::P;
using paged::Section;
using paged::Text;

namespace {

std::vector<std::u16string> Labels(Document& document) {
  std::vector<std::u16string> labels;
  for (int page = 1; page <= document.Count(); ++page) labels.push_back(document.Pages().LabelOf(page));
  return labels;
}

std::string Numbers(const std::string& attributes) { return "<w:pgNumType " + attributes + "/>"; }

TEST(PageLabels, NumbersAreFormattedAsWordPrintsThem) {
  EXPECT_EQ(FormatPageNumber("decimal", 12), u"12");
  EXPECT_EQ(FormatPageNumber("", 12), u"12");
  EXPECT_EQ(FormatPageNumber("upperRoman", 1994), u"MCMXCIV");
  EXPECT_EQ(FormatPageNumber("lowerRoman", 48), u"xlviii");
  EXPECT_EQ(FormatPageNumber("upperLetter", 26), u"Z");
  EXPECT_EQ(FormatPageNumber("lowerLetter", 28), u"bb");
  EXPECT_EQ(FormatPageNumber("numberInDash", 3), u"- 3 -");
  EXPECT_EQ(FormatPageNumber("decimalZero", 7), u"07");
  EXPECT_EQ(FormatPageNumber("decimalZero", 17), u"17");
}

TEST(PageLabels, WhatAFormatCannotShowIsDecimal) {
  EXPECT_EQ(FormatPageNumber("ordinalText", 2), u"2");
  EXPECT_EQ(FormatPageNumber("lowerRoman", 0), u"0");
  EXPECT_EQ(FormatPageNumber("upperLetter", 0), u"0");
  EXPECT_EQ(FormatPageNumber("upperRoman", 2000000000), u"2000000000");
}

TEST(PageLabels, ASectionsFormatAndRestartHoldFromItsFirstPage) {
  Document document(P(Text("a") + kBreak + Text("b")) +
                    P(Text("c"), "<w:sectPr>" + Numbers("w:fmt=\"lowerRoman\"") + "</w:sectPr>") +
                    P(Text("d") + kBreak + Text("e")) + Section("nextPage", Numbers("w:start=\"1\"")));
  EXPECT_EQ(Labels(document), (std::vector<std::u16string>{u"i", u"ii", u"1", u"2"}));
}

TEST(PageLabels, ASectionWithoutRestartCountsOn) {
  Document document(P(Text("a"), "<w:sectPr>" + Numbers("w:start=\"5\"") + "</w:sectPr>") + P(Text("b")) +
                    Section("nextPage", Numbers("w:fmt=\"upperLetter\"")));
  EXPECT_EQ(Labels(document), (std::vector<std::u16string>{u"5", u"F"}));
}

TEST(PageLabels, APageIsNumberedByTheSectionItBeginsWith) {
  Document document(P(Text("a"), "<w:sectPr/>") + P(Text("b") + kBreak + Text("c")) +
                    Section("continuous", Numbers("w:fmt=\"upperRoman\"")));
  EXPECT_EQ(Labels(document), (std::vector<std::u16string>{u"1", u"II"}));
}

TEST(PageLabels, BlankPagesHaveNumbersToo) {
  Document document(P(Text("a"), "<w:sectPr/>") + P(Text("b")) + Section("oddPage"));
  EXPECT_EQ(Labels(document), (std::vector<std::u16string>{u"1", u"2", u"3"}));
}

TEST(PageLabels, AnOddStartBehindAnOddPageLeavesABlankPage) {
  Document document(P(Text("a"), "<w:sectPr/>") + P(Text("b")) + Section("oddPage", Numbers("w:start=\"1\"")));
  EXPECT_EQ(Labels(document), (std::vector<std::u16string>{u"1", u"2", u"1"}));
}

TEST(PageLabels, APageThatDoesNotExistHasItsPlainNumber) {
  Document document(P(Text("a")) + Section("nextPage", Numbers("w:fmt=\"upperRoman\"")));
  EXPECT_EQ(document.Pages().LabelOf(1), u"I");
  EXPECT_EQ(document.Pages().LabelOf(2), u"2");
  EXPECT_EQ(document.Pages().LabelOf(0), u"0");
}

}  // namespace
