#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Cell;
using laid::Document;
using laid::kTall;
using laid::Lines;
using laid::Row;
using laid::Table;
using laid::Text;

namespace {

std::string Marked(const std::string& text, const std::string& mark) {
  return "<w:p><w:pPr>" + kTall + "<w:rPr>" + mark + "</w:rPr></w:pPr>" + laid::InRun(Text(text)) + "</w:p>";
}

std::size_t CountOf(const std::string& blocks) {
  Document document(blocks);
  std::size_t count = 0;
  for (const auto& line : document.Lines()) count += line.shown.paragraph != nullptr ? 1 : 0;
  return count;
}

const std::string kDeleted = "<w:del w:id=\"1\" w:author=\"a\"/>";

TEST(LayoutChanges, JoinAParagraphWithTheNextWhenItsMarkIsDeleted) {
  EXPECT_EQ(CountOf(Marked("a", "") + Marked("b", "")), 2U);
  EXPECT_EQ(CountOf(Marked("a", kDeleted) + Marked("b", "")), 1U);
  EXPECT_EQ(CountOf(Marked("a", "<w:ins w:id=\"1\" w:author=\"a\"/>") + Marked("b", "")), 2U);
}

TEST(LayoutChanges, JoinParagraphsWhoseMarkIsHiddenOrAStyleSeparator) {
  EXPECT_EQ(CountOf(Marked("a", "<w:vanish/>") + Marked("b", "")), 1U);
  EXPECT_EQ(CountOf(Marked("a", "<w:vanish/><w:specVanish/>") + Marked("b", "")), 1U);
}

TEST(LayoutChanges, ShowWhatWasMovedWhereItWentOnly) {
  const std::string words = Text(std::string(60, 'w') + " " + std::string(60, 'w'));
  const std::string moved = "<w:r>" + words + "</w:r>";
  EXPECT_EQ(CountOf("<w:p><w:moveFrom w:id=\"1\">" + moved + "</w:moveFrom></w:p>"), 1U);
  EXPECT_GT(CountOf("<w:p><w:moveTo w:id=\"1\">" + moved + "</w:moveTo></w:p>"), 1U);
}

TEST(LayoutChanges, LeaveDeletedRowsOut) {
  const std::string rows = Row(Cell(Lines("a", 1))) + Row(Cell(Lines("b", 3)), kDeleted) + Row(Cell(Lines("c", 1)));
  Document document(Table(rows) + Lines("d", 1));
  EXPECT_DOUBLE_EQ(document.Lines().back().top, 1440 + 2 * 720);
}

// The formats are those that stand now; the earlier ones are kept for whoever refuses the change.
TEST(LayoutChanges, ShowTheFormatsAsTheyAreNow) {
  Document document("<w:p><w:pPr>" + kTall +
                    "<w:pPrChange w:id=\"1\"><w:pPr><w:spacing w:line=\"300\" "
                    "w:lineRule=\"exact\"/></w:pPr></w:pPrChange></w:pPr>" +
                    laid::InRun(Text("x")) + "</w:p>");
  EXPECT_DOUBLE_EQ(document.Lines().front().height, 720);
}

}  // namespace
