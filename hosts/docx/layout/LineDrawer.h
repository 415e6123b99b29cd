#pragma once

#include <cstdint>
#include <vector>

#include "hosts/docx/layout/Flow.h"
#include "hosts/docx/layout/ParagraphLines.h"
#include "platform/page/Display.h"

namespace docx::layout {

/// Says where the characters of lines stand that the layout has made: the same widths and stops, with what alignment,
/// justification and the direction of writing make of them.
class LineDrawer {
 public:
  LineDrawer(const LineSettings& settings, page::Display& into) : lines_(settings), settings_(settings), into_(into) {}

  /// Where a line stands on the page. Lengths in twips.
  struct Spot {
    double left{0};  ///< of the room of its paragraph
    double top{0};
    int story{0};                        ///< of page::Line
    page::Color ground{page::kNoColor};  ///< what is painted below it
  };
  void Draw(const ShownLine& shown, const Spot& spot);

 private:
  /// Units between two tabs.
  struct Segment {
    std::size_t from{0};
    std::size_t to{0};
    double x{0};
    double width{0};
    double stop{0};  ///< where the tab behind it ends
    char16_t leader{0};
    bool tab{false};  ///< a tab stands behind it
  };

  void Measure(const Paragraph& paragraph);
  void FindSegments(const ShownLine& shown, double start, const LineReach& reach);
  double SpreadOf(const ShownLine& shown, double room) const;
  void Place(const Paragraph& paragraph, double spread);
  void PlaceInOrder(std::size_t from, std::size_t to, double x, bool backwards);
  void Mirror(double left, double right);
  void AddLabel(const Paragraph& paragraph, double baseline, const Spot& spot, page::Line& line);
  void AddRuns(const ShownLine& shown, const Spot& spot, page::Line& line);
  void AddTab(const Segment& segment, const Piece& piece, const Spot& spot, page::Line& line);
  void AddRun(const Piece& piece, std::size_t from, std::size_t to, const Spot& spot, page::Line& line);
  void AddRule(const Piece& piece, std::size_t unit, const Spot& spot, const page::Line& line);
  page::Run Dress(const TextStyle& style, Script script, double size, const page::Line& line, const Spot& spot);
  std::uint32_t FaceOf(const TextStyle& style, Script script, double size);
  Position PositionAt(std::size_t unit) const;
  std::size_t VisibleEnd(std::size_t from, std::size_t to) const;

  LineMaker lines_;
  LineSettings settings_;
  page::Display& into_;
  const Paragraph* paragraph_{nullptr};
  std::vector<double> widths_;
  std::vector<double> lefts_;
  std::vector<std::uint8_t> backwards_;
  std::vector<Segment> segments_;
};

}  // namespace docx::layout
