#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <optional>
#include <string_view>

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// What one w:rPr states itself; what it leaves open is empty. A value that is not a legal one counts as left open.
struct RunValues {
  std::optional<bool> bold;
  std::optional<bool> hidden;      ///< w:vanish
  std::optional<bool> specHidden;  ///< w:specVanish, which means something for paragraph marks only
  std::optional<int> highlight;    ///< WdColorIndex
  std::optional<int> color;        ///< WdColor
  std::optional<int> size;         ///< half-points

  /// Fills what is open.
  void Inherit(const RunValues& base);
};

/// One side of a paragraph's spacing. Word lets w:beforeLines and w:beforeAutospacing override the twips, and writes
/// the twips beside them all the same.
struct SpacingValues {
  std::optional<int> twips;
  std::optional<int> lines;  ///< hundredths of a line
  std::optional<bool> automatic;

  void Inherit(const SpacingValues& base);
  bool Overridden() const { return automatic.value_or(false) || lines.value_or(0) != 0; }
};

/// The same for a w:pPr.
struct ParagraphValues {
  std::optional<int> alignment;  ///< WdParagraphAlignment
  SpacingValues before;
  SpacingValues after;
  std::optional<int> line;         ///< line spacing in 240ths of a line when automatic, in twips otherwise
  std::optional<bool> lineIsAuto;  ///< w:lineRule
  std::optional<bool> pageBreakBefore;

  void Inherit(const ParagraphValues& base);
};

/// @param rPr may be empty
RunValues ReadRunValues(const XmlPart& part, XmlNode rPr);
/// @param pPr may be empty
ParagraphValues ReadParagraphValues(const XmlPart& part, XmlNode pPr);

/// Readers of one property; empty for an empty node.
std::optional<bool> ReadOnOff(const XmlPart& part, XmlNode element);
std::optional<int> ReadHighlight(const XmlPart& part, XmlNode element);
std::optional<int> ReadColor(const XmlPart& part, XmlNode element);
/// In half points.
std::optional<int> ReadSize(const XmlPart& part, XmlNode element);
/// A length in twips, a plain number or one with its unit; empty for what is none.
std::optional<int> ReadTwips(XmlAttribute attribute);

/// The w:val of a highlight. @throws std::out_of_range unless 0 <= colorIndex <= 16
const char* HighlightName(int colorIndex);
bool IsAlignment(int number);
/// The WdParagraphAlignment that a w:val says; empty for one that says none.
std::optional<int> ParseAlignment(std::string_view value);
/// The w:val of a paragraph's alignment. @throws std::out_of_range for what is not a WdParagraphAlignment
const char* AlignmentName(int alignment, bool strict);

}  // namespace docx
