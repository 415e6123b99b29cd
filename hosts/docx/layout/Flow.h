#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/docx/layout/Content.h"
#include "hosts/docx/layout/Obstacles.h"
#include "hosts/docx/layout/ParagraphLines.h"

namespace docx::layout {

struct RowFlow;

/// How strongly something holds on to what comes before it.
enum class Hold : std::uint8_t {
  kNone,
  kNext,   ///< the paragraph before wants to stay with this one
  kLines,  ///< a paragraph that wants to stay whole
  kWidow,  ///< the first or last line would stand alone
};

enum class BreakBefore : std::uint8_t { kNone, kColumn, kPage };

/// A line of a paragraph for those who draw it. Lengths in twips.
struct ShownLine {
  const Paragraph* paragraph{nullptr};  ///< nullptr for what draws nothing
  std::uint32_t from{0};                ///< of the paragraph's text
  std::uint32_t to{0};
  float width{0};  ///< of the room that it is laid out in, indents and all
  float height{0};
  float baseline{0};   ///< from the line's top
  bool floats{false};  ///< the pictures of the paragraph that do not stand in lines hang on it
  bool letters{true};  ///< false for room that only such pictures take
};

/// One line or table row of a flow, from top to bottom. Lengths in twips.
struct FlowItem {
  double height{0};
  double before{0};     ///< space above, unless it begins a page or column
  double beforeTop{0};  ///< space above when it begins a page or column because something says so
  Hold hold{Hold::kNone};
  BreakBefore breakBefore{BreakBefore::kNone};
  Position position{0};    ///< negative for what goes on from the page before
  Position lastBreak{-1};  ///< where Word began a page, here or near; -1 for nowhere
  std::vector<XmlNodeData*> notes;
  ShownLine shown;
  double drop{0};   ///< how much further down it shows than it is placed
  double shift{0};  ///< the same to the right, from the flow's left edge
  std::unique_ptr<RowFlow> row;
  /// Rows that are repeated above this one where it begins a page: their height, how many there are, and how many items
  /// before this one the first of them is.
  double headerHeight{0};
  std::uint32_t headers{0};
  std::uint32_t headersBack{0};
  bool endnote{false};      ///< its position is one of the endnotes' story
  bool sectionMark{false};  ///< an empty paragraph that only ends a section
};

struct Flow {
  std::vector<FlowItem> items;
  double after{0};  ///< space that is wanted behind the last of them

  /// With the space above the first and behind the last.
  double Height() const;
};

struct CellFlow {
  Flow flow;
  std::size_t next{0};  ///< the first item that has not been placed
  double top{0};
  double bottom{0};
  const Cell* cell{nullptr};
  double left{0};  ///< of the cell's edge, from the table's
  double width{0};
  double textLeft{0};  ///< of its text, from the table's edge
};

/// A row's cells, side by side.
struct RowFlow {
  std::vector<CellFlow> cells;
  /// Lines of vertically merged cells that come to stand beside this row and take no room of their own.
  std::vector<FlowItem> beside;
  double least{0};
  double stated{0};  ///< of the height, what the row asks for; 0 for one that goes on from the page before
  double border{0};  ///< above, with the gap between cells
  double below{0};   ///< the same below
  double gapAbove{0};
  double gapBelow{0};
  bool exact{false};
  bool cannotSplit{false};
  const Table* table{nullptr};
  std::size_t number{0};  ///< in the table, from 0
  double left{0};         ///< of the table's edge, from the flow's

  double Height() const;
  /// How much of it may lie beyond the end of a page: nothing but lower margins, with all lines on the page.
  double Spare() const;

 private:
  double Reach(bool margins) const;
};

/// How far below the top of their paragraph pictures stand whose place is counted from the page.
using FloatDrops = std::unordered_map<const Floating*, double>;

/// Settings of the document that decide about spaces.
struct FlowSettings {
  bool addSpaces{false};  ///< of the spaces between two paragraphs the sum counts, and not the larger one
  const FloatDrops* drops{nullptr};
};

/// What is around a column, for what is placed by it. Lengths in twips.
struct Surroundings {
  double textLeft{0};   ///< from the paper's left edge
  double textWidth{0};  ///< 0 for a column that stands alone
  double paperWidth{0};
};

/// Lays blocks one below the other, without regard to pages.
class FlowBuilder {
 public:
  FlowBuilder(LineMaker& lines, FlowSettings settings) : lines_(lines), settings_(settings) {}

  /// For the columns to be built next.
  void SetSurroundings(const Surroundings& around) { around_ = around; }
  /// @param width of the column or cell
  Flow Build(const std::vector<Block>& blocks, double width, bool inCell = false);
  /// Ends a line before a unit of its paragraph's text, and makes the lines from there on anew.
  void Divide(std::vector<FlowItem>& items, std::size_t line, std::uint32_t unit);

 private:
  /// What the block before leaves for the next one to decide.
  struct Before {
    const Paragraph* paragraph{nullptr};
    double after{0};
    bool keepNext{false};
    double frameBottom{0};  ///< of the frame before, down from where the text goes on; 0 for none
    BreakBefore breakBehind{BreakBefore::kNone};
  };

  /// A column while it is built, from its upper left corner.
  struct Column {
    double bottom{0};  ///< of what it has
    Obstacles obstacles;
  };

  void Push(FlowItem item, Flow& flow);
  /// What the pictures of a paragraph leave no room for. @return whether there are any
  bool AddObstacles(const Paragraph& paragraph, double top, double width);
  void AddParagraph(const Paragraph& paragraph, const Paragraph* next, double width, bool inCell, Before& before,
                    Flow& flow);
  void AddFrame(const Paragraph& paragraph, double width, Before& before, Flow& flow);
  void AddTable(const Table& table, double width, bool inCell, Before& before, Flow& flow);
  /// @param all of the table's columns
  double TableLeft(const Table& table, double all, double width) const;
  /// The widths of a table's columns. @param width of the text around it
  std::vector<double> ColumnWidths(const Table& table, double width);
  /// What a cell's text needs, margins and all.
  LineWidths WidthsOf(const Cell& cell);
  /// A line, for spaces that are stated in lines.
  double LineUnit() const;
  std::unique_ptr<RowFlow> BuildRow(const Row& row, const std::vector<double>& edges);

  LineMaker& lines_;
  FlowSettings settings_;
  Surroundings around_;
  Column column_;
  std::vector<Line> made_;
};

/// Whether two paragraphs stand in one box when they are neighbours.
bool SameBorders(const Paragraph& a, const Paragraph& b);

}  // namespace docx::layout
