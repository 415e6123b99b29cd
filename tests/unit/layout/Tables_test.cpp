#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Cell;
using laid::Document;
using laid::kPerPage;
using laid::Lines;
using laid::Paragraph;
using laid::Row;
using laid::Table;

namespace {

const std::string kTwoColumns = "<w:gridCol w:w=\"4000\"/><w:gridCol w:w=\"4000\"/>";

TEST(LayoutTables, DivideARowBetweenPages) {
  Document document(Lines("a", kPerPage - 2) + Table(Row(Cell(Lines("b", 4)))));
  EXPECT_EQ(document.PageOf(u"b2"), 1);
  EXPECT_EQ(document.PageOf(u"b3"), 2);
}

TEST(LayoutTables, KeepARowWholeThatWantsIt) {
  Document document(Lines("a", kPerPage - 2) + Table(Row(Cell(Lines("b", 4)), "<w:cantSplit/>")));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
}

TEST(LayoutTables, DivideEachCellForItself) {
  Document document(Lines("a", kPerPage - 2) +
                    Table(Row(Cell(Lines("b", 4)) + Cell(Lines("c", 3))) + Row(Cell(Lines("d", 1))), kTwoColumns));
  EXPECT_EQ(document.PageOf(u"b3"), 2);
  EXPECT_EQ(document.PageOf(u"c2"), 1);
  EXPECT_EQ(document.PageOf(u"c3"), 2);
  EXPECT_EQ(document.PageOf(u"d1"), 2);
}

TEST(LayoutTables, TakeTheHighestCellForTheRow) {
  Document document(Table(Row(Cell(Lines("b", 4)) + Cell(Lines("c", 10))), kTwoColumns) + Lines("a", 9));
  EXPECT_EQ(document.PageOf(u"a8"), 1);
  EXPECT_EQ(document.PageOf(u"a9"), 2);
}

TEST(LayoutTables, TakeTheHeightThatARowStates) {
  const std::string least = "<w:trHeight w:val=\"7200\"/>";
  Document document(Table(Row(Cell(Lines("b", 1)), least)) + Lines("a", 9));
  EXPECT_EQ(document.PageOf(u"a8"), 1);
  EXPECT_EQ(document.PageOf(u"a9"), 2);
  const std::string exact = "<w:trHeight w:val=\"720\" w:hRule=\"exact\"/>";
  Document clipped(Table(Row(Cell(Lines("b", 5)), exact)) + Lines("a", kPerPage - 1));
  EXPECT_EQ(clipped.Count(), 1);
}

TEST(LayoutTables, RepeatTheirHeadings) {
  std::string rows = Row(Cell(Lines("h", 2)), "<w:tblHeader/>");
  for (int i = 1; i <= 32; ++i) rows += Row(Cell(Lines("r" + std::to_string(i) + "x", 1)));
  Document document(Table(rows));
  EXPECT_EQ(document.PageOf(u"r16x1"), 1);
  EXPECT_EQ(document.PageOf(u"r17x1"), 2);
  EXPECT_EQ(document.PageOf(u"r32x1"), 2);
  EXPECT_EQ(document.Count(), 2);
}

TEST(LayoutTables, GiveAMergedCellTheRoomOfAllItsRows) {
  const std::string begins = "<w:vMerge w:val=\"restart\"/>";
  const std::string goesOn = "<w:vMerge/>";
  Document document(
      Table(Row(Cell(Lines("m", 4), begins) + Cell(Lines("b", 2))) + Row(Cell("<w:p/>", goesOn) + Cell(Lines("c", 2))),
            kTwoColumns) +
      Lines("a", kPerPage - 4));
  EXPECT_EQ(document.Count(), 1);
}

TEST(LayoutTables, BeginTheTextOfARowsCellsAtOneHeight) {
  const std::string margin = "<w:tcMar><w:top w:w=\"300\" w:type=\"dxa\"/></w:tcMar>";
  Document document(Table(Row(Cell(Lines("b", 1), margin) + Cell(Lines("c", 1))), kTwoColumns));
  const auto lines = document.Lines();
  EXPECT_DOUBLE_EQ(lines[1].top, 1740);
  EXPECT_DOUBLE_EQ(lines[2].top, 1740);
}

TEST(LayoutTables, DivideTablesInTables) {
  const std::string inner = Table(Row(Cell(Lines("i", 3))) + Row(Cell(Lines("j", 3)))) + laid::P("", laid::kTall);
  Document document(Lines("a", kPerPage - 4) + Table(Row(Cell(inner))));
  EXPECT_EQ(document.PageOf(u"i3"), 1);
  EXPECT_EQ(document.PageOf(u"j3"), 2);
}

// Word keeps in the grid what it last laid out; files of other origin may only have preferred widths.
TEST(LayoutTables, TakeColumnWidthsFromTheCellsWithoutAGrid) {
  const std::string narrow = "<w:tcW w:w=\"1500\" w:type=\"dxa\"/>";
  const std::string text = laid::P(laid::Text("some words that need more than one line here"));
  Document document("<w:tbl><w:tblPr/>" + Row(Cell(text, narrow)) + "</w:tbl>");
  EXPECT_GT(document.Lines().size(), 3U);
}

}  // namespace
