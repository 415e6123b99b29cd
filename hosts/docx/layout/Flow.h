#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/docx/layout/Content.h"
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
  std::unique_ptr<RowFlow> row;
  /// Rows that are repeated above this one where it begins a page, with their height.
  double headerHeight{0};
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
};

/// A row's cells, side by side.
struct RowFlow {
  std::vector<CellFlow> cells;
  /// Lines of vertically merged cells that come to stand beside this row and take no room of their own.
  std::vector<FlowItem> beside;
  double least{0};
  double border{0};
  bool exact{false};
  bool cannotSplit{false};

  double Height() const;
};

/// Settings of the document that decide about spaces.
struct FlowSettings {
  bool addSpaces{false};  ///< of the spaces between two paragraphs the sum counts, and not the larger one
};

/// Lays blocks one below the other, without regard to pages.
class FlowBuilder {
 public:
  FlowBuilder(LineMaker& lines, FlowSettings settings) : lines_(lines), settings_(settings) {}

  /// @param width of the column or cell
  Flow Build(const std::vector<Block>& blocks, double width, bool inCell = false);

 private:
  /// What the block before leaves for the next one to decide.
  struct Before {
    const Paragraph* paragraph{nullptr};
    double after{0};
    bool keepNext{false};
    BreakBefore breakBehind{BreakBefore::kNone};
  };

  void AddParagraph(const Paragraph& paragraph, const Paragraph* next, double width, bool inCell, Before& before,
                    Flow& flow);
  void AddTable(const Table& table, double width, Before& before, Flow& flow);
  std::unique_ptr<RowFlow> BuildRow(const Row& row, const std::vector<double>& columns, double border);

  LineMaker& lines_;
  FlowSettings settings_;
  std::vector<Line> made_;
};

/// The widths of a table's columns. @param width of the text around it
std::vector<double> ColumnWidths(const Table& table, double width);

}  // namespace docx::layout
