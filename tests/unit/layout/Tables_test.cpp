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

// Seen in a file of Word 2007.
TEST(LayoutTables, BeginAPageWithARowWhoseTextWantsThat) {
  const std::string row = Row(Cell(Lines("b", 1, "<w:pageBreakBefore/>")));
  Document first(Lines("a", 1) + Table(row));
  EXPECT_EQ(first.PageOf(u"b1"), 2);
  Document second(Lines("a", 1) + Table(Row(Cell(Lines("c", 1))) + row));
  EXPECT_EQ(second.PageOf(u"c1"), 1);
  EXPECT_EQ(second.PageOf(u"b1"), 2);
}

// Word 2010 writes these for each paragraph of a table that floats.
TEST(LayoutTables, HaveTheirLinesBelowEachOtherWhereTheirParagraphsNameTheFrameOfTheTable) {
  const std::string frame = "<w:framePr w:hSpace=\"141\" w:wrap=\"around\" w:vAnchor=\"page\" w:hAnchor=\"margin\"/>";
  Document document(Table(Row(Cell(Lines("b", kPerPage + 1, frame)))));
  EXPECT_EQ(document.PageOf(u"b18"), 1);
  EXPECT_EQ(document.PageOf(u"b19"), 2);
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
  for (int i = 1; i <= 31; ++i) rows += Row(Cell(Lines("r" + std::to_string(i) + "x", 1)));
  Document document(Table(rows) + Lines("a", 1));
  EXPECT_EQ(document.PageOf(u"r16x1"), 1);
  EXPECT_EQ(document.PageOf(u"r17x1"), 2);
  EXPECT_EQ(document.PageOf(u"r31x1"), 2);
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

// As in a file that Word saved: its page began with the row whose second cell asks to stay with the next one.
TEST(LayoutTables, KeepARowWithTheNextWhenOneOfItsCellsBeginsSo) {
  const std::string row = Row(Cell(Lines("b", 1)) + Cell(Lines("c", 1, "<w:keepNext/>")));
  const std::string next = Row(Cell(Lines("d", 1)) + Cell(Lines("e", 1)));
  Document document(Lines("a", kPerPage - 1) + Table(row + next, kTwoColumns));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
  // Further paragraphs of the cells do not count.
  const std::string later = Row(Cell(Lines("b", 1)) + Cell(Lines("c", 1) + Lines("k", 1, "<w:keepNext/>")));
  Document loose(Lines("a", kPerPage - 2) + Table(later + next, kTwoColumns));
  EXPECT_EQ(loose.PageOf(u"b1"), 1);
  EXPECT_EQ(loose.PageOf(u"d1"), 2);
}

// The same: a row of five lines that asks for the height of four begins the next page when there is room for three.
TEST(LayoutTables, BeginARowWhereTheHeightThatItAsksForHasRoom) {
  const std::string least = "<w:trHeight w:val=\"2880\"/>";
  Document document(Lines("a", kPerPage - 3) + Table(Row(Cell(Lines("b", 5)), least)));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
  Document room(Lines("a", kPerPage - 4) + Table(Row(Cell(Lines("b", 5)), least)));
  EXPECT_EQ(room.PageOf(u"b4"), 1);
  EXPECT_EQ(room.PageOf(u"b5"), 2);
}

TEST(LayoutTables, LetLowerMarginsHangOverThePagesEnd) {
  const std::string margin = "<w:tcMar><w:bottom w:w=\"300\" w:type=\"dxa\"/></w:tcMar>";
  const std::string cell = Cell(Lines("b", 2), margin);
  Document document(Lines("a", kPerPage - 2) + Table(Row(cell)) + Lines("c", 1));
  EXPECT_EQ(document.PageOf(u"b2"), 1);
  EXPECT_EQ(document.PageOf(u"c1"), 2);
  Document whole(Lines("a", kPerPage - 2) + Table(Row(cell, "<w:cantSplit/>")));
  EXPECT_EQ(whole.PageOf(u"b1"), 2);
}

// The way to have a table go on on a new page.
TEST(LayoutTables, BeginAPageWithARowThatWantsIt) {
  const std::string rows = Row(Cell(Lines("h", 1)), "<w:tblHeader/>") + Row(Cell(Lines("b", 1))) +
                           Row(Cell(Lines("c", 1, "<w:pageBreakBefore/>"))) + Row(Cell(Lines("d", kPerPage - 2))) +
                           Row(Cell(Lines("e", 1)));
  Document document(Table(rows));
  EXPECT_EQ(document.PageOf(u"b1"), 1);
  EXPECT_EQ(document.PageOf(u"c1"), 2);
  EXPECT_EQ(document.PageOf(u"d16"), 2) << "below the heading, which is repeated";
  EXPECT_EQ(document.PageOf(u"e1"), 3);
  // In a table in a cell it has no effect, nor has a break in the text of any cell.
  const std::string inner = Table(Row(Cell(Lines("i", 1, "<w:pageBreakBefore/>"))));
  Document nested(Lines("a", 1) + Table(Row(Cell(inner + laid::P("x" + paged::kBreak + "y")))));
  EXPECT_EQ(nested.Count(), 1);
}

TEST(LayoutTables, GiveTheMarksOfCellsNoRoomThatDoNotWantIt) {
  const auto second = [](const std::string& properties) {
    const std::string cell = Cell(laid::P("", laid::kTall), properties);
    return Document(Table(Row(cell)) + Lines("a", 1)).Lines().back().top;
  };
  EXPECT_DOUBLE_EQ(second(""), 1440 + 720);
  EXPECT_DOUBLE_EQ(second("<w:hideMark/>"), 1440);
}

// Up to Word 2010 the text of the first cell stands where the table's indent says, from then on the cell itself.
TEST(LayoutTables, AreIndentedByTheirTextUpToWord2010) {
  const auto left = [](int version) {
    Document document(Table(Row(Cell(Lines("a", 1)))));
    document.WithSettings(laid::Compatibility(version));
    const docx::layout::DocumentLayout layout(document.Parts());
    return layout.Cells().front().left;
  };
  EXPECT_DOUBLE_EQ(left(14), 1440 - 115);
  EXPECT_DOUBLE_EQ(left(15), 1440);
}

TEST(LayoutTables, HaveTheMarginsOfTheirCellsAroundTheText) {
  const std::string margins =
      "<w:tblCellMar><w:top w:w=\"100\" w:type=\"dxa\"/><w:left w:w=\"200\" w:type=\"dxa\"/><w:bottom w:w=\"300\" "
      "w:type=\"dxa\"/><w:right w:w=\"400\" w:type=\"dxa\"/></w:tblCellMar>";
  Document document("<w:tbl><w:tblPr>" + margins + "</w:tblPr><w:tblGrid><w:gridCol w:w=\"4000\"/></w:tblGrid>" +
                    Row(Cell(Lines("a", 1))) + "</w:tbl>" + Lines("b", 1));
  document.WithSettings(laid::Compatibility(15));
  const auto lines = document.Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_DOUBLE_EQ(lines[1].top, 1440 + 100);
  EXPECT_DOUBLE_EQ(lines[1].left, 1440 + 200);
  EXPECT_DOUBLE_EQ(lines[1].shown.width, 4000 - 600);
  EXPECT_DOUBLE_EQ(lines[2].top, 1440 + 100 + 720 + 300);
}

// What the file states is kept on both sides of each cell.
TEST(LayoutTables, KeepTheirCellsApartWhereTheySaySo) {
  const std::string apart = "<w:tblCellSpacing w:w=\"100\" w:type=\"dxa\"/>";
  const std::string rows =
      Row(Cell(Lines("b", 1)) + Cell(Lines("c", 1))) + Row(Cell(Lines("d", 1)) + Cell(Lines("e", 1)));
  Document document("<w:tbl><w:tblPr>" + apart + "</w:tblPr><w:tblGrid>" + kTwoColumns + "</w:tblGrid>" + rows +
                    "</w:tbl>" + Lines("f", 1));
  const auto lines = document.Lines();
  ASSERT_EQ(lines.size(), 7U);  // two of them rows
  EXPECT_DOUBLE_EQ(lines[1].top, 1440 + 200);
  EXPECT_DOUBLE_EQ(lines[4].top - lines[1].top, 720 + 200);
  EXPECT_DOUBLE_EQ(lines[6].top - lines[4].top, 720 + 200);
  EXPECT_DOUBLE_EQ(lines[2].left - lines[1].left, 4000 - 100);
}

}  // namespace
