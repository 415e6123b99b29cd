#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Cell;
using laid::Document;
using laid::kPerPage;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Paragraph;
using laid::Row;
using laid::Table;
using laid::Text;

namespace {

TEST(HostileLayout, ATableWiderThanThePageEnds) {
  const std::string column = "<w:gridCol w:w=\"31000\"/>";
  Document document(Table(Row(Cell(Lines("a", 1)) + Cell(Lines("b", 1))), column + column) + Lines("c", 1));
  EXPECT_EQ(document.Count(), 1);
}

TEST(HostileLayout, ATableOfNothingEnds) {
  Document document("<w:tbl/>" + Table("<w:tr/>") + Table(Row("<w:tc/>"), "<w:gridCol w:w=\"0\"/>") + Lines("c", 1));
  EXPECT_EQ(document.PageOf(u"c1"), 1);
}

TEST(HostileLayout, ARowHigherThanAPageEnds) {
  Document split(Table(Row(Cell(Lines("a", 3 * kPerPage)), "<w:cantSplit/>")));
  EXPECT_GE(split.Count(), 3);
  Document high(Table(Row(Cell(Lines("a", 1)), "<w:trHeight w:val=\"31000\" w:hRule=\"exact\"/>")) + Lines("b", 1));
  EXPECT_EQ(high.PageOf(u"b1"), 2);
}

TEST(HostileLayout, ALineHigherThanAPageEnds) {
  const std::string high = "<w:spacing w:line=\"31000\" w:lineRule=\"exact\"/>";
  Document document(P(Text("a"), high) + P(Text("b"), high) + Lines("c", 1));
  EXPECT_EQ(document.PageOf(u"a"), 1);
  EXPECT_EQ(document.PageOf(u"b"), 2);
  EXPECT_EQ(document.PageOf(u"c1"), 3);
}

TEST(HostileLayout, AParagraphLongerThanAPageThatWantsToStayWholeEnds) {
  Document document(Lines("a", 1) + Paragraph("b", 3 * kPerPage, "<w:keepLines/><w:keepNext/>"));
  EXPECT_GE(document.Count(), 4);
  EXPECT_LE(document.Count(), 5);
}

TEST(HostileLayout, AFootnoteLongerThanAPageEnds) {
  Document document(P(Text("r") + "<w:footnoteReference w:id=\"2\"/>", kTall) + Lines("a", 3));
  document.With("footnotes", "<w:footnote w:id=\"2\">" + Lines("n", 3 * kPerPage) + "</w:footnote>");
  EXPECT_EQ(document.PageOf(u"r"), 1);
  EXPECT_GE(document.Count(), 3);
  EXPECT_LE(document.Count(), 6);
}

TEST(HostileLayout, NegativeSpacesAndLinesEnd) {
  const std::string negative =
      "<w:spacing w:before=\"-5000\" w:after=\"-5000\" w:line=\"-300\" w:lineRule=\"exact\"/><w:ind w:left=\"-9000\" "
      "w:right=\"-9000\" w:firstLine=\"-20000\"/>";
  std::string blocks;
  for (int i = 0; i < 100; ++i) blocks += P(Text("some text"), negative);
  EXPECT_GE(Document(blocks).Count(), 1);
  const std::string squeezed = "<w:ind w:left=\"20000\" w:right=\"20000\"/>";
  EXPECT_GE(Document(P(Text("no room at all"), squeezed)).Count(), 1);
}

TEST(HostileLayout, TenThousandColumnsEnd) {
  const std::string columns = "<w:sectPr><w:cols w:num=\"10000\"/></w:sectPr>";
  EXPECT_GE(Document(Lines("a", 50) + columns).Count(), 1);
  std::string cells;
  std::string grid;
  for (int i = 0; i < 10000; ++i) {
    cells += Cell("<w:p/>", "<w:gridSpan w:val=\"10000\"/>");
    grid += "<w:gridCol w:w=\"1\"/>";
  }
  EXPECT_GE(Document(Table(Row(cells), grid) + Lines("b", 1)).Count(), 1);
}

TEST(HostileLayout, PaperWithoutSizeEnds) {
  const std::string none =
      "<w:sectPr><w:pgSz w:w=\"0\" w:h=\"0\"/><w:pgMar w:top=\"0\" w:bottom=\"0\" w:left=\"0\" "
      "w:right=\"0\"/></w:sectPr>";
  EXPECT_GE(Document(Lines("a", 50) + none).Count(), 1);
  const std::string margins =
      "<w:sectPr><w:pgMar w:top=\"20000\" w:bottom=\"20000\" w:left=\"20000\" w:right=\"20000\"/></w:sectPr>";
  Document document(Lines("a", 5) + Table(Row(Cell(Lines("b", 5)))) + Lines("c", 5) + margins);
  EXPECT_GE(document.Count(), 5);
}

TEST(HostileLayout, DeepNestingEnds) {
  std::string blocks = P(Text("deep"));
  for (int i = 0; i < 200; ++i) blocks = "<w:tbl><w:tr><w:tc>" + blocks + "<w:p/></w:tc></w:tr></w:tbl>";
  EXPECT_GE(Document(blocks + "<w:p/>").Count(), 1);
}

TEST(HostileLayout, BrokenFieldsAndListsEnd) {
  const std::string end = "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
  const std::string begin = "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>";
  const std::string list = "<w:numPr><w:ilvl w:val=\"77\"/><w:numId w:val=\"99\"/></w:numPr>";
  Document document("<w:p>" + end + end + "</w:p>" + P(Text("a"), list) + "<w:p>" + begin + "</w:p>");
  document.With("numbering", "<w:num w:numId=\"99\"><w:abstractNumId w:val=\"3\"/></w:num>");
  EXPECT_EQ(document.PageOf(u"a"), 1);
}

}  // namespace
