#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/layout/Drawn.h"

using laid::Document;
using laid::InParagraph;
using laid::Typed;

namespace {

constexpr double kColumn = 9360;
constexpr double kMargins = 230;  // twips: 115 on both sides of a cell
constexpr double kLetter = 120;

std::string Cell(const std::string& text, const std::string& properties = {}) {
  return laid::Cell(InParagraph(Typed(text)), properties);
}
std::string Table(const std::string& rows, const std::string& properties = {}, const std::string& grid = {}) {
  return "<w:tbl><w:tblPr>" + properties + "</w:tblPr><w:tblGrid>" + grid + "</w:tblGrid>" + rows + "</w:tbl>";
}
std::string Width(const std::string& name, int width, const std::string& type = "dxa") {
  return "<w:" + name + " w:w=\"" + std::to_string(width) + "\" w:type=\"" + type + "\"/>";
}
std::string Words(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += i == 0 ? "word" : " word";
  return text;
}

/// The widths of a table's cells, in the order of the rows.
std::vector<double> WidthsOf(const std::string& blocks) {
  Document document(blocks);
  std::vector<double> widths;
  const docx::layout::DocumentLayout layout(document.Parts());
  for (const auto& cell : layout.Cells()) widths.push_back(cell.width);
  return widths;
}

void ExpectWidths(const std::string& blocks, const std::vector<double>& expected) {
  const std::vector<double> widths = WidthsOf(blocks);
  ASSERT_EQ(widths.size(), expected.size());
  for (std::size_t i = 0; i < widths.size(); ++i) EXPECT_NEAR(widths[i], expected[i], 2) << "of cell " << i;
}

const std::string kGrid = "<w:gridCol w:w=\"2000\"/><w:gridCol w:w=\"3000\"/><w:gridCol w:w=\"1000\"/>";

// Word keeps in the grid what it last laid out, so what cells prefer does not count beside it.
TEST(LayoutColumnWidths, AreThoseOfTheGrid) {
  ExpectWidths(Table(laid::Row(Cell("a", Width("tcW", 500)) + Cell("b") + Cell("c")), {}, kGrid), {2000, 3000, 1000});
}

TEST(LayoutColumnWidths, AddUpInCellsThatSpanColumns) {
  ExpectWidths(Table(laid::Row(Cell("a", "<w:gridSpan w:val=\"2\"/>") + Cell("b")), {}, kGrid), {5000, 1000});
}

TEST(LayoutColumnWidths, BeginBehindTheColumnsThatARowLeavesOut) {
  Document document(Table(laid::Row(Cell("a"), "<w:gridBefore w:val=\"1\"/>"), {}, kGrid));
  const docx::layout::DocumentLayout layout(document.Parts());
  EXPECT_DOUBLE_EQ(layout.Cells().front().width, 3000);
  EXPECT_DOUBLE_EQ(layout.Cells().front().left, 1440 + 2000 - 115);
}

// The grid is of the last layout; a share of the text's width is still one where that has changed.
TEST(LayoutColumnWidths, KeepTheTablesShareOfTheText) {
  ExpectWidths(Table(laid::Row(Cell("a") + Cell("b") + Cell("c")), Width("tblW", 5000, "pct"), kGrid),
               {kColumn / 3, kColumn / 2, kColumn / 6});
}

TEST(LayoutColumnWidths, AreWhatTheCellsPreferWithoutAGrid) {
  ExpectWidths(Table(laid::Row(Cell("a", Width("tcW", 1500)) + Cell("b", Width("tcW", 2500)))), {1500, 2500});
  ExpectWidths(Table(laid::Row(Cell("a", Width("tcW", 1000, "pct")) + Cell("b", Width("tcW", 4000, "pct")))),
               {kColumn / 5, kColumn * 4 / 5});
}

TEST(LayoutColumnWidths, GrowWithTheirContentWithoutAnythingStated) {
  ExpectWidths(Table(laid::Row(Cell("abc") + Cell(Words(3)))), {3 * kLetter + kMargins, 14 * kLetter + kMargins});
}

TEST(LayoutColumnWidths, FillTheWidthThatTheTableStates) {
  const std::vector<double> widths = WidthsOf(Table(laid::Row(Cell("abc") + Cell(Words(3))), Width("tblW", 8000)));
  ASSERT_EQ(widths.size(), 2U);
  EXPECT_NEAR(widths[0] + widths[1], 8000, 1);
  EXPECT_GT(widths[1], 2 * widths[0]);
}

// Each has its longest word, and what is left goes by how much more each would like.
TEST(LayoutColumnWidths, DivideTheTextsWidthWhenTheirContentWantsMore) {
  const std::vector<double> widths = WidthsOf(Table(laid::Row(Cell("abc") + Cell(Words(30)) + Cell(Words(60)))));
  ASSERT_EQ(widths.size(), 3U);
  EXPECT_NEAR(widths[0], 3 * kLetter + kMargins, 2);
  EXPECT_NEAR(widths[0] + widths[1] + widths[2], kColumn, 2);
  EXPECT_GT(widths[2], 1.5 * widths[1]);
}

TEST(LayoutColumnWidths, AreEqualWhereTheLayoutIsFixed) {
  ExpectWidths(Table(laid::Row(Cell("abc") + Cell(Words(30))), "<w:tblLayout w:type=\"fixed\"/>"),
               {kColumn / 2, kColumn / 2});
}

TEST(LayoutColumnWidths, AreThoseOfTablesInTheirCells) {
  const std::string inner = Table(laid::Row(Cell("a") + Cell("b") + Cell("c")), {}, kGrid);
  const std::vector<double> widths = WidthsOf(Table(laid::Row(laid::Cell(inner + "<w:p/>") + Cell("abc"))));
  ASSERT_EQ(widths.size(), 5U);
  EXPECT_NEAR(widths[0], 6000 + kMargins, 2);
}

}  // namespace
