#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Document;
using laid::kPerPage;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Text;
using paged::Section;

namespace {

const std::string kTwo = "<w:cols w:num=\"2\" w:space=\"720\"/>";
const std::string kColumnBreak = "<w:br w:type=\"column\"/>";

std::string EndOf(const std::string& section) { return "<w:p><w:pPr>" + kTall + section + "</w:pPr></w:p>"; }

docx::layout::PageFiller::Placed LineOf(Document& document, std::size_t line) { return document.Lines().at(line); }

TEST(LayoutMargins, HaveTheGutterOnTheLeft) {
  Document document(Lines("a", 1) + Section("nextPage",
                                            "<w:pgMar w:top=\"1000\" w:bottom=\"1440\" w:left=\"1200\" "
                                            "w:right=\"1100\" w:gutter=\"300\"/>"));
  EXPECT_DOUBLE_EQ(LineOf(document, 0).top, 1000);
  EXPECT_DOUBLE_EQ(LineOf(document, 0).left, 1500);
  EXPECT_DOUBLE_EQ(LineOf(document, 0).shown.width, 12240 - 1500 - 1100);
}

TEST(LayoutColumns, HaveTheWidthsAndDistancesThatTheyState) {
  const std::string columns =
      "<w:cols w:num=\"2\" w:equalWidth=\"0\"><w:col w:w=\"3000\" w:space=\"500\"/><w:col w:w=\"5860\"/></w:cols>";
  Document document(Lines("a", kPerPage + 1) + Section("nextPage", columns));
  EXPECT_DOUBLE_EQ(LineOf(document, 0).left, 1440);
  EXPECT_DOUBLE_EQ(LineOf(document, kPerPage).left, 1440 + 3500);
  EXPECT_DOUBLE_EQ(LineOf(document, kPerPage).top, 1440);
}

TEST(LayoutColumns, BeginBehindABreak) {
  Document document(P(Text("a") + kColumnBreak, kTall) + Lines("b", 1) + Section("nextPage", kTwo));
  EXPECT_EQ(document.PageOf(u"b1"), 1);
  EXPECT_DOUBLE_EQ(LineOf(document, 1).left, 1440 + 4320 + 720);
  // Where there is only one column, or no further one, the next one is on the next page.
  Document single(P(Text("a") + kColumnBreak, kTall) + Lines("b", 1));
  EXPECT_EQ(single.PageOf(u"b1"), 2);
}

TEST(LayoutColumns, AreNotLevelledAtTheDocumentsEnd) {
  Document document(Lines("a", 6) + Section("nextPage", kTwo));
  EXPECT_DOUBLE_EQ(LineOf(document, 5).left, 1440);
}

TEST(LayoutColumns, StandBelowTheSectionBefore) {
  Document document(Lines("a", 4) + EndOf(Section("nextPage")) + Lines("b", 2 * (kPerPage - 5)) + Lines("c", 1) +
                    Section("continuous", kTwo));
  EXPECT_EQ(document.PageOf(u"b26"), 1);
  EXPECT_EQ(document.PageOf(u"c1"), 2);
}

TEST(LayoutSections, BeginOnEvenPages) {
  Document document(Lines("a", 1) + EndOf(Section("nextPage")) + Lines("b", 1) + EndOf(Section("evenPage")) +
                    Lines("c", 1) + Section("evenPage"));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
  EXPECT_EQ(document.PageOf(u"c1"), 4);
}

TEST(LayoutSections, BeginAPageWhenTheirPaperIsAnother) {
  const std::string wide = "<w:pgSz w:w=\"15840\" w:h=\"12240\"/>";
  Document document(Lines("a", 1) + EndOf(Section("nextPage")) + Lines("b", 1) + Section("continuous", wide));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
}

// Two inches of footer, a half from the edge, take two lines of the text.
TEST(LayoutFooters, PushTheTextUp) {
  Document document(Lines("a", kPerPage) +
                    "<w:sectPr><w:footerReference w:type=\"default\" w:id=\"rId1\"/></w:sectPr>");
  document.WithHeader(Lines("f", 3));
  EXPECT_EQ(document.PageOf(u"a16"), 1);
  EXPECT_EQ(document.PageOf(u"a17"), 2);
}

TEST(LayoutHeaders, AreThoseOfTheSectionBeforeWhereASectionHasNone) {
  const std::string header = "<w:headerReference w:type=\"default\" w:id=\"rId1\"/>";
  Document document(Lines("a", 1) + "<w:p><w:pPr><w:sectPr>" + header + "</w:sectPr></w:pPr></w:p>" +
                    Lines("b", kPerPage) + Section("nextPage"));
  document.WithHeader(Lines("h", 3));
  EXPECT_EQ(document.PageOf(u"b16"), 2);
  EXPECT_EQ(document.PageOf(u"b17"), 3);
}

}  // namespace
