#pragma once

#include <cstdint>
#include <vector>

#include "hosts/docx/layout/Content.h"

namespace docx::layout {

/// What a document's settings say about lines. Lengths in twips.
struct LineSettings {
  double defaultTab{720};
  double gridPitch{0};    ///< of a grid that lines snap to; 0 for none
  int compatibility{15};  ///< the version of Word, as it numbers itself: 12 for 2007, 15 from 2013 on
};

/// What comes behind a line.
enum class BreakBehind : std::uint8_t { kNone, kPage, kColumn };

/// One line of a paragraph.
struct Line {
  double height{0};
  Position start{0};
  BreakBehind behind{BreakBehind::kNone};
  Position lastBreak{-1};           ///< where Word began a page, at the line's start or near it; -1 for nowhere
  std::vector<XmlNodeData*> notes;  ///< references to notes, in order
};

/// Divides a paragraph into lines.
class LineMaker {
 public:
  explicit LineMaker(const LineSettings& settings) : settings_(settings) {}

  LineSettings& Settings() { return settings_; }
  /// @param width of the column or cell @param lines gets at least one
  void Make(const Paragraph& paragraph, double width, std::vector<Line>& lines);

 private:
  /// A unit of the text with what the layout needs of it.
  struct Unit {
    float width{0};
    std::uint32_t piece{0};
  };
  struct Extent {
    double ascent{0};
    double descent{0};
  };

  void Measure(const Paragraph& paragraph);
  void MeasureText(const Paragraph& paragraph, const Piece& piece);
  void MeasureShaped(std::u16string_view text, const Piece& piece, Script script, std::size_t from);
  std::size_t FindEnd(const Paragraph& paragraph, std::size_t from, double start, double right, bool first);
  double NextTab(const Paragraph& paragraph, double x, double right, bool first, TabKind& kind) const;
  double LabelEnd(const Paragraph& paragraph, double right);
  double WidthOf(std::u16string_view text, const TextStyle& style);
  double HeightOf(const Paragraph& paragraph, std::size_t from, std::size_t to, bool first, bool last);
  static void Include(Extent& extent, const TextStyle& style, Script script);

  LineSettings settings_;
  std::vector<Unit> units_;
  std::vector<std::uint8_t> breaks_;
  std::vector<Script> scripts_;
};

/// Which of its fonts Word sets a character in.
Script ScriptOf(char16_t c, const TextStyle& style);

}  // namespace docx::layout
