#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/word/Types.h"

namespace page {

// What a page shows and where. Lengths are points, from the paper's upper left corner to the right and down.

/// Red, green and blue, a byte each, red the highest.
using Color = std::int32_t;
inline constexpr Color kBlack = 0;
inline constexpr Color kNoColor = -1;

struct Rect {
  double x{0};
  double y{0};
  double width{0};
  double height{0};

  double Right() const { return x + width; }
  double Bottom() const { return y + height; }
};

enum class Stroke : std::uint8_t { kNone, kSolid, kDouble, kDotted, kDashed, kWave };

/// A font as it is drawn: one that is installed, where there is any.
struct Face {
  std::string family;
  double size{0};
  double stretch{1};  ///< times the font's own widths
  bool bold{false};
  bool italic{false};

  bool operator==(const Face&) const = default;
};

/// Characters of a line that show in one way and run in one direction.
struct Run {
  word::Position position{0};  ///< of the first unit; each next one is one further
  bool solid{false};           ///< all units are one position, such as a note's number of two digits
  bool places{true};           ///< false for what is in no story: the number of a paragraph
  bool rightToLeft{false};
  std::u16string text;       ///< as shown: capitals where the format asks for them
  std::vector<float> edges;  ///< where each unit begins, and the end of the last; one more than units
  double baseline{0};
  std::uint32_t face{0};  ///< in Display::faces
  Color color{kBlack};
  Color background{kNoColor};
  Stroke underline{Stroke::kNone};
  bool strike{false};
  bool shaped{false};  ///< letters that join or change their order: its units cannot be drawn one by one
  char16_t leader{0};  ///< what fills a tab; 0 for nothing
};

/// Which way a line runs.
enum class Turn : std::uint8_t { kNone, kUp, kDown };

/// One line of a paragraph. All lengths of one that runs up or down are those of its own sheet: its upper left corner
/// lies at the origin, and it is turned about it.
struct Line {
  int story{0};             ///< a WdStoryType; 0 for what no cursor comes to: headers, repeated headings
  word::Position start{0};  ///< before the first unit
  word::Position end{0};    ///< where the next line starts; behind the last of a paragraph, before its mark
  bool endsParagraph{false};
  Rect area;  ///< from the indent to the other one
  double baseline{0};
  std::vector<Run> runs;  ///< in the order of the text
  Turn turn{Turn::kNone};
  double originX{0};
  double originY{0};

  /// Where on the page a stretch of the line's sheet lies.
  Rect OnPage(const Rect& own) const {
    if (turn == Turn::kUp) return {originX + own.y, originY - own.Right(), own.height, own.width};
    if (turn == Turn::kDown) return {originX - own.Bottom(), originY + own.x, own.height, own.width};
    return own;
  }
};

struct Fill {
  Rect area;
  Color color{kNoColor};
};

/// A straight line.
struct Rule {
  double x{0};
  double y{0};
  double toX{0};
  double toY{0};
  double width{0.5};
  Color color{kBlack};
  Stroke stroke{Stroke::kSolid};
};

struct Picture {
  Rect area;
  std::string name;        ///< to ask for its bytes with; empty for what cannot be drawn and shows as a box
  std::u16string instead;  ///< what stands in the box of what cannot be drawn
};

/// All of a page. Fills lie below everything, rules and pictures over them, text on top.
struct Display {
  double width{612};
  double height{792};
  std::vector<Face> faces;
  std::vector<Fill> fills;
  std::vector<Rule> rules;
  std::vector<Picture> pictures;
  std::vector<Line> lines;  ///< in reading order: body, notes, then what no cursor comes to
};

}  // namespace page
