#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

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

const std::string kDrawing = "http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing";

/// @param extent the attributes of its size
std::string Picture(const std::string& kind, const std::string& extent) {
  const std::string place =
      kind == "inline" ? ""
                       : "<wp:positionH relativeFrom=\"column\"><wp:posOffset>" + std::string(30, '9') +
                             "</wp:posOffset></wp:positionH><wp:positionV relativeFrom=\"page\"><wp:posOffset>-" +
                             std::string(30, '9') + "</wp:posOffset></wp:positionV>";
  return "<w:drawing><wp:" + kind + " xmlns:wp=\"" + kDrawing + "\">" + place + "<wp:extent " + extent + "/>" +
         "<wp:wrapSquare wrapText=\"bothSides\"/></wp:" + kind + "></w:drawing>";
}

/// All lines stand somewhere, and none of them is higher than the largest length.
void ExpectSane(Document& document) {
  EXPECT_GE(document.Count(), 1);
  const docx::layout::DocumentLayout layout(document.Parts());
  for (const auto& line : layout.Placed()) {
    EXPECT_TRUE(std::isfinite(line.top) && std::isfinite(line.left) && std::isfinite(line.height));
    EXPECT_GE(line.page, 1);
    EXPECT_LE(line.page, layout.PageCount());
    EXPECT_GE(line.height, 0);
    EXPECT_LE(std::abs(line.left), 1e6);
  }
  for (int page = 1; page <= std::min(layout.PageCount(), 20); ++page) {
    for (const page::Line& line : layout.Draw(page).lines) {
      EXPECT_TRUE(std::isfinite(line.baseline) && std::isfinite(line.area.x) && std::isfinite(line.area.width));
    }
    for (const page::Picture& picture : layout.Draw(page).pictures) {
      const page::Rect& area = picture.area;
      EXPECT_TRUE(std::isfinite(area.x) && std::isfinite(area.y) && std::isfinite(area.width + area.height));
    }
  }
}

TEST(HostileLayout, PicturesOfAnySizeEnd) {
  for (const char* kind : {"inline", "anchor"}) {
    for (const char* extent :
         {"cx=\"1000000000\" cy=\"1000000000\"", "cx=\"-1000000000\" cy=\"-1\"", "cx=\"0\" cy=\"0\"",
          "cx=\"NaN\" cy=\"inf\"", "cx=\"1e400\" cy=\"99999999999999999999999\""}) {
      Document document(P(Text("a") + Picture(kind, extent), kTall) + P(Text("b") + Picture(kind, extent)) +
                        Lines("c", 2));
      ExpectSane(document);
      EXPECT_LE(document.Count(), 5) << kind << ' ' << extent;
    }
  }
}

TEST(HostileLayout, FontsOfAnySizeEnd) {
  for (const char* size : {"99999999", "0", "-40", "2147483648", "1e9", "NaN"}) {
    const std::string run = "<w:rPr><w:sz w:val=\"" + std::string(size) + "\"/></w:rPr>";
    Document document("<w:p><w:pPr>" + run + "</w:pPr><w:r>" + run + Text("a b c") + "</w:r></w:p>" + Lines("d", 1));
    ExpectSane(document);
    EXPECT_LE(document.Count(), 10) << size;
  }
}

TEST(HostileLayout, NumbersThatAreNoneEnd) {
  for (const char* number : {"NaN", "inf", "-2147483649", "99999999999999999999", "1e308", "", "0x10", "12pt", "-5%"}) {
    const std::string n(number);
    const std::string paragraph = "<w:spacing w:before=\"" + n + "\" w:after=\"" + n + "\" w:line=\"" + n +
                                  "\" w:lineRule=\"exact\"/><w:ind w:left=\"" + n + "\" w:hanging=\"" + n + "\"/>";
    const std::string section = "<w:sectPr><w:pgSz w:w=\"" + n + "\" w:h=\"" + n + "\"/><w:pgMar w:top=\"" + n +
                                "\" w:header=\"" + n + "\"/><w:cols w:num=\"" + n + "\" w:space=\"" + n +
                                "\"/><w:docGrid w:type=\"lines\" w:linePitch=\"" + n + "\"/></w:sectPr>";
    const std::string grid = "<w:gridCol w:w=\"" + n + "\"/><w:gridCol w:w=\"" + n + "\"/>";
    const std::string row =
        Row(Cell(Lines("b", 1), "<w:tcW w:w=\"" + n + "\"/><w:gridSpan w:val=\"" + n + "\"/>") + Cell(Lines("c", 1)),
            "<w:trHeight w:val=\"" + n + "\"/><w:gridBefore w:val=\"" + n + "\"/>");
    Document document(P(Text("a"), paragraph) + Table(row, grid) + Lines("d", 3) + section);
    document.WithSettings("<w:defaultTabStop w:val=\"" + n + "\"/>");
    ExpectSane(document);
    EXPECT_LE(document.Count(), 60) << number;
  }
}

TEST(HostileLayout, TabsAtNegativePlacesAndWithoutDistanceEnd) {
  std::string stops;
  for (int i = 0; i < 100; ++i) stops += "<w:tab w:val=\"decimal\" w:pos=\"" + std::to_string(-31000 + i) + "\"/>";
  std::string content;
  for (int i = 0; i < 300; ++i) content += "<w:tab/>" + Text(i % 7 == 0 ? "x" : "");
  Document document(P(content, "<w:tabs>" + stops + "</w:tabs><w:ind w:left=\"-31000\" w:firstLine=\"-31000\"/>"));
  document.WithSettings("<w:defaultTabStop w:val=\"0\"/>");
  ExpectSane(document);
  EXPECT_LE(document.Count(), 20);
}

TEST(HostileLayout, AHeaderAndAFooterHigherThanThePageEnd) {
  const std::string references =
      "<w:headerReference w:type=\"default\" w:id=\"rId1\"/><w:footerReference w:type=\"default\" w:id=\"rId1\"/>";
  Document document(Lines("a", 5) + "<w:sectPr>" + references + "</w:sectPr>");
  document.WithHeader(Lines("h", 3 * kPerPage));
  // A line a page is the least that there can be.
  EXPECT_EQ(document.Count(), 5);
  EXPECT_EQ(document.PageOf(u"a5"), 5);
}

TEST(HostileLayout, FootnotesThatReferToFootnotesEnd) {
  const std::string reference = "<w:footnoteReference w:id=\"2\"/>";
  Document document(P(Text("r") + reference, kTall) + Lines("a", 3));
  document.With("footnotes", "<w:footnote w:id=\"2\">" + P(Text("n") + reference, kTall) +
                                 "</w:footnote><w:footnote w:id=\"3\">" + P(Text("m")) + "</w:footnote>");
  EXPECT_EQ(document.Count(), 1);
  EXPECT_EQ(document.PageOf(u"n", word::wdFootnotesStory), 1);
}

TEST(HostileLayout, ReferencesToTheSameNoteAndToNoneEnd) {
  std::string blocks;
  for (int i = 0; i < 200; ++i) blocks += P(Text("r") + "<w:footnoteReference w:id=\"2\"/>", kTall);
  blocks += P(Text("s") + "<w:footnoteReference w:id=\"77\"/><w:endnoteReference w:id=\"77\"/>", kTall);
  Document document(blocks);
  document.With("footnotes", "<w:footnote w:id=\"2\">" + Lines("n", 30) + "</w:footnote>");
  ExpectSane(document);
  EXPECT_LE(document.Count(), 600);
}

TEST(HostileLayout, CellsWithoutWidthEnd) {
  const std::string none = "<w:tcW w:w=\"0\" w:type=\"dxa\"/>";
  const std::string words = P(Text("some words that have no room"));
  Document stated(Table(Row(Cell(words, none) + Cell(words, none)), "<w:gridCol w:w=\"1\"/><w:gridCol w:w=\"1\"/>"));
  ExpectSane(stated);
  EXPECT_LE(stated.Count(), 3);
  Document open(Table(Row(Cell(words, none) + Cell(words, none)), "") + Lines("a", 1));
  ExpectSane(open);
  EXPECT_EQ(open.Count(), 1);
}

TEST(HostileLayout, WhatStandsBehindADamagedTableIsOnItsPage) {
  const std::string cell = Cell(Lines("c", 1));
  const std::string behind = Lines("a", kPerPage) + Lines("b", 1);
  for (const std::string& table :
       {Table(cell + cell), Table(Row(cell + Row(cell))), Table(Row(cell + Row("<w:tc/>") + cell)),
        Table(Row(Row(Row(cell)))), Table("<w:tc/>" + Row("<w:p/>") + Row(cell))}) {
    Document document(table + behind);
    ExpectSane(document);
    EXPECT_EQ(document.PageOf(u"c1"), 1) << table;
    EXPECT_EQ(document.PageOf(u"a1"), 1) << table;
    EXPECT_EQ(document.PageOf(u"b1"), 2) << table;
  }
}

TEST(HostileLayout, FiveHundredTablesInEachOtherEnd) {
  std::string blocks = Lines("deep", 1);
  for (int i = 0; i < 500; ++i) blocks = Table(Row(Cell(blocks + "<w:p/>") + Cell(Lines("x", 1))), "");
  Document document(blocks + Lines("a", 1));
  ExpectSane(document);
}

TEST(HostileLayout, ARowOfManyPagesBesideMergedCellsEnds) {
  const std::string begins = "<w:vMerge w:val=\"restart\"/>";
  const std::string grid = "<w:gridCol w:w=\"4000\"/><w:gridCol w:w=\"4000\"/>";
  std::string rows = Row(Cell(Lines("m", 5 * kPerPage), begins) + Cell(Lines("b", 1)), "<w:cantSplit/>");
  for (int i = 0; i < 50; ++i) {
    rows += Row(Cell("<w:p/>", "<w:vMerge/>") + Cell(Lines("c", 1, "<w:keepNext/><w:keepLines/>")), "<w:cantSplit/>");
  }
  Document document(Table(rows, grid));
  ExpectSane(document);
  EXPECT_LE(document.Count(), 60);
}

TEST(HostileLayout, AHeadingOfATableHigherThanThePageEnds) {
  std::string rows = Row(Cell(Lines("h", 2 * kPerPage)), "<w:tblHeader/>");
  for (int i = 0; i < 30; ++i) rows += Row(Cell(Lines("r", 1)));
  Document document(Table(rows));
  ExpectSane(document);
  EXPECT_LE(document.Count(), 40);
}

TEST(HostileLayout, AWordLongerThanAPageEnds) {
  Document document(P(Text(std::string(20000, 'w')), kTall + "<w:jc w:val=\"both\"/>"));
  ExpectSane(document);
  EXPECT_GT(document.Count(), 10);
  EXPECT_LT(document.Count(), 60);
}

TEST(HostileLayout, ABreakBehindEachCharacterEnds) {
  std::string content;
  for (int i = 0; i < 300; ++i) content += Text("x") + (i % 2 == 0 ? paged::kBreak : "<w:br w:type=\"column\"/>");
  Document document(P(content, kTall));
  EXPECT_EQ(document.Count(), 300);
}

}  // namespace
