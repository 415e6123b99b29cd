#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "hosts/docx/layout/Content.h"
#include "hosts/docx/layout/Obstacles.h"

namespace docx::layout {

/// What a document's settings say about lines. Lengths in twips.
struct LineSettings {
  double defaultTab{720};
  double gridPitch{0};      ///< of a grid that lines snap to; 0 for none
  bool gridInCells{false};  ///< lines in tables snap to it, too
  bool inCell{false};
  bool markBehindBreak{false};  ///< the mark of a paragraph goes along behind a page break at its end
  bool breaksJustify{true};     ///< a line that ends with a line break is justified as others are
  bool hangingStop{true};       ///< a hanging indent is a tab stop of its own
  char16_t decimalPoint{u'.'};  ///< what decimal tabs align
  int compatibility{15};        ///< the version of Word, as it numbers itself: 12 for 2007, 15 from 2013 on

  bool operator==(const LineSettings&) const = default;
};

/// How far a line reaches, from its column's left edge.
struct LineReach {
  double right{0};   ///< of the text: before the indent
  double margin{0};  ///< of the column
};

/// What comes behind a line.
enum class BreakBehind : std::uint8_t { kNone, kPage, kColumn };

/// One line of a paragraph. Lengths in twips.
struct Line {
  double height{0};
  double baseline{0};  ///< from the line's top
  Position start{0};
  std::uint32_t from{0};  ///< of the paragraph's text
  std::uint32_t to{0};
  BreakBehind behind{BreakBehind::kNone};
  Position lastBreak{-1};           ///< where Word began a page, at the line's start or near it; -1 for nowhere
  std::vector<XmlNodeData*> notes;  ///< references to notes, in order
  // What it has of the column, where something stands in the way.
  double left{0};
  double width{0};
  double above{0};     ///< room that is left free above it
  bool beside{false};  ///< the next line is at the same height
};

/// How wide paragraphs can be, in twips.
struct LineWidths {
  double least{0};  ///< with a line behind each possible end
  double most{0};   ///< with lines behind breaks only
};

/// The lines of a paragraph that nothing stands in the way of, without what its place in the story makes of them.
/// Lengths in twips.
struct MadeLines {
  struct One {
    double height{0};
    double baseline{0};
    std::uint32_t from{0};
    std::uint32_t to{0};
    BreakBehind behind{BreakBehind::kNone};
  };
  double width{-1};  ///< of the room that they were made for; negative for none
  LineSettings settings;
  std::vector<One> lines;
  struct Measured {
    LineSettings settings;
    LineWidths widths;
  };
  std::optional<Measured> measured;
};

/// Divides a paragraph into lines. Lengths in twips.
class LineMaker {
 public:
  explicit LineMaker(const LineSettings& settings) : settings_(settings) {}

  LineSettings& Settings() { return settings_; }
  /// @param width of the column or cell @param lines gets at least one
  /// @param around what stands in the way; nullptr for nothing @param top of the paragraph, among them
  void Make(const Paragraph& paragraph, double width, std::vector<Line>& lines, const Obstacles* around = nullptr,
            double top = 0);
  /// The same from a unit of its text on, which begins a line. What is made is not kept.
  void MakeFrom(const Paragraph& paragraph, std::size_t from, double width, std::vector<Line>& lines,
                const Obstacles* around = nullptr, double top = 0);

  LineWidths WidthsOf(const Paragraph& paragraph);
  /// What units of the paragraph that was made last take side by side.
  double Width(const Paragraph& paragraph, std::size_t from, std::size_t to) const;

  // For those who draw lines.

  /// Finds out the width of each unit and what it is set in.
  void Measure(const Paragraph& paragraph);
  /// @pre the paragraph was measured last
  double UnitWidth(std::size_t unit) const { return units_[unit].width; }
  std::uint32_t PieceAt(std::size_t unit) const { return units_[unit].piece; }
  Script ScriptAt(std::size_t unit) const { return scripts_[unit]; }
  double WidthOf(std::u16string_view text, const TextStyle& style) const;
  /// Where the text of a first line begins: behind the paragraph's number.
  double LabelEnd(const Paragraph& paragraph, const LineReach& reach) const;
  /// The stop behind a place. @param stop gets what it is
  double NextTab(const Paragraph& paragraph, double x, const LineReach& reach, bool first, TabStop& stop) const;

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

  /// All but what Anchor does.
  void Divide(const Paragraph& paragraph, std::size_t from, double width, std::vector<Line>& lines,
              const Obstacles* around, double top);
  /// Finds out where lines from a unit of the paragraph on stand in the story, and what hangs on that.
  static void Anchor(const Paragraph& paragraph, std::size_t from, std::vector<Line>& lines);
  void MeasureText(const Paragraph& paragraph, const Piece& piece);
  void MeasureShaped(std::u16string_view text, const Piece& piece, Script script, std::size_t from);
  std::size_t FindEnd(const Paragraph& paragraph, std::size_t from, double start, LineReach reach, bool first);
  /// Of its first line, by its first character.
  double LikelyHeight(const Paragraph& paragraph) const;
  void SetHeight(const Paragraph& paragraph, bool first, Line& line) const;
  static void Include(Extent& extent, const TextStyle& style, Script script);

  LineSettings settings_;
  std::vector<Unit> units_;
  std::vector<std::uint8_t> breaks_;
  std::vector<Script> scripts_;
};

/// Which of its fonts Word sets a character in.
Script ScriptOf(char16_t c, const TextStyle& style);

}  // namespace docx::layout
