#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/docx/layout/Borders.h"
#include "hosts/docx/xml/XmlPart.h"
#include "platform/page/Display.h"

namespace docx::layout {

class FontLibrary;
class ThemeFonts;

/// Which of a run's fonts a character is set in.
enum class Script : std::uint8_t { kAscii, kHighAnsi, kEastAsia, kComplex };

/// What one w:rPr says of how characters show; what it leaves open is empty.
struct CharacterValues {
  enum Toggle : std::uint8_t { kBold, kItalic, kBoldComplex, kItalicComplex, kCaps, kSmallCaps, kHidden, kStrike };
  static constexpr std::size_t kToggles = 8;

  std::array<std::optional<int>, 4> families;  ///< by Script; numbers of the font library
  std::array<std::optional<bool>, kToggles> toggles;
  std::optional<int> size;         ///< half-points
  std::optional<int> sizeComplex;  ///< half-points
  std::optional<int> spacing;      ///< twips behind every character
  std::optional<int> scale;        ///< per cent of the width
  std::optional<int> raise;        ///< half-points
  std::optional<int> kerning;      ///< half-points from which on pairs are kerned; 0 for never
  std::optional<int> vertical;     ///< 0 on the line, 1 superscript, -1 subscript
  std::optional<bool> complex;     ///< the complex script's font and size count
  std::optional<bool> eastAsiaHint;
  std::optional<page::Color> color;  ///< page::kNoColor for the one that fits the background
  std::optional<page::Color> highlight;
  std::optional<page::Color> shading;
  std::optional<page::Stroke> underline;

  /// Fills what is open.
  void Inherit(const CharacterValues& base);
  bool operator==(const CharacterValues&) const = default;
};

enum class Alignment : std::uint8_t { kLeft, kCenter, kRight, kBoth };
enum class LineRule : std::uint8_t { kAuto, kAtLeast, kExact };
enum class TabKind : std::uint8_t { kLeft, kCenter, kRight, kDecimal, kBar, kClear };

struct TabStop {
  int position{0};  ///< twips from the text's edge, indents left out
  TabKind kind{TabKind::kLeft};
  char16_t leader{0};  ///< what fills the room before it; 0 for nothing

  bool operator==(const TabStop&) const = default;
};

/// Borders that many have; equal when they look so.
struct SharedBorders : std::shared_ptr<const BoxBorders> {
  using std::shared_ptr<const BoxBorders>::shared_ptr;

  bool operator==(std::nullptr_t) const { return get() == nullptr; }
  bool operator==(const SharedBorders& other) const {
    return get() == other.get() || (get() != nullptr && other.get() != nullptr && *get() == *other.get());
  }
};

/// The same for a w:pPr. Lengths in twips.
struct ParagraphFormat {
  std::optional<Alignment> alignment;
  std::optional<int> left;
  std::optional<int> right;
  std::optional<int> firstLine;  ///< negative for a hanging indent
  std::optional<int> before;
  std::optional<int> after;
  std::optional<bool> beforeAuto;
  std::optional<bool> afterAuto;
  std::optional<int> beforeLines;  ///< hundredths of a line
  std::optional<int> afterLines;
  std::optional<int> line;  ///< 240ths of a line for LineRule::kAuto
  std::optional<LineRule> lineRule;
  std::optional<bool> contextual;
  std::optional<bool> keepNext;
  std::optional<bool> keepLines;
  std::optional<bool> pageBreakBefore;
  std::optional<bool> widowControl;
  std::optional<bool> snapToGrid;
  std::optional<bool> hangsPunctuation;  ///< commas and full stops of eastern Asia stand beyond the end of a line
  std::optional<bool> rightToLeft;
  std::optional<std::string> numberId;
  std::optional<int> numberLevel;
  std::optional<int> borderTop;  ///< what the border and its distance take; 0 for none
  std::optional<int> borderBottom;
  std::optional<int> borderBetween;
  std::optional<std::string> borders;  ///< tells paragraphs with other borders
  SharedBorders box;                   ///< the same to be drawn; nullptr for none
  std::optional<page::Color> shading;
  std::vector<TabStop> tabs;  ///< in order; kClear takes one of the base away

  void Inherit(const ParagraphFormat& base);
  bool operator==(const ParagraphFormat&) const = default;
};

/// @param rPr may be empty
CharacterValues ReadCharacterValues(const XmlPart& part, XmlNode rPr, FontLibrary& fonts, const ThemeFonts& theme);
/// @param pPr may be empty
ParagraphFormat ReadParagraphFormat(const XmlPart& part, XmlNode pPr);

/// A length that an element states in an attribute, in twips; empty for none.
std::optional<int> TwipsOf(const XmlPart& part, XmlNode element, const char* attribute);
/// Whether an element is there and does not say no; empty when it is not there.
std::optional<bool> OnOffOf(const XmlPart& part, XmlNode element);
/// The name without its prefix.
std::string_view LocalName(XmlNode node);
std::string_view ValueOf(const XmlPart& part, XmlNode element);
std::optional<int> NumberOf(const XmlPart& part, XmlNode element, const char* attribute = "val");

}  // namespace docx::layout
