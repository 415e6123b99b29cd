#pragma once

#include <pugixml.hpp>

#include <optional>

#include "hosts/docx/styles/PropertyValues.h"
#include "hosts/docx/styles/Styles.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// Formatting of characters as it shows.
struct RunFormat {
  bool bold{false};
  bool hidden{false};
  int highlight{0};  ///< WdColorIndex
  int color{0};      ///< WdColor
};

/// Formatting of one part's text as it shows: direct formatting, then styles, then the document's defaults. What table
/// styles and numbering add is left out, conditional formatting of tables included.
///
/// Where characters are asked for, the node is a w:r, or a w:p for its paragraph mark.
class Formatting {
 public:
  /// Part and styles must outlive it; the styles may be read anew meanwhile. The part must not get hidden text that it
  /// had none of when Hidden was first asked.
  Formatting(XmlPart& part, const Styles& styles) : part_(part), styles_(styles) {}
  Formatting(const Formatting&) = delete;
  Formatting& operator=(const Formatting&) = delete;

  XmlPart& Part() const { return part_; }

  /// Word's -1 or 0. Bold for complex scripts is not looked at.
  int Bold(pugi::xml_node node) const;
  /// Hidden text; for a paragraph mark also one that a style separator hides. A document in which nothing is hidden
  /// answers without looking at the node.
  bool Hidden(pugi::xml_node node) const;
  /// A WdColorIndex; wdNoHighlight for none.
  int Highlight(pugi::xml_node node) const;
  /// What Highlight would say without direct formatting.
  int InheritedHighlight(pugi::xml_node node) const;
  /// A WdColor: red lowest, wdColorAutomatic for none. Of a theme colour, the value that the file has beside it.
  int Color(pugi::xml_node node) const;
  /// In points.
  double FontSize(pugi::xml_node node) const;
  /// What the characters would show without direct formatting.
  RunFormat InheritedRun(pugi::xml_node node) const;

  /// A WdParagraphAlignment.
  int Alignment(pugi::xml_node p) const;
  /// In points. Spacing in lines and automatic spacing read as the points that the file has beside them.
  double SpaceBefore(pugi::xml_node p) const;
  double SpaceAfter(pugi::xml_node p) const;
  bool PageBreakBefore(pugi::xml_node p) const;
  /// What the paragraph's own properties state, and what would hold without them; the latter leaves nothing open of
  /// alignment and spacing in twips.
  ParagraphValues DirectParagraph(pugi::xml_node p) const;
  ParagraphValues InheritedParagraph(pugi::xml_node p) const;

 private:
  pugi::xml_node DirectRun(pugi::xml_node node) const;
  pugi::xml_node ParagraphOf(pugi::xml_node node) const;
  const Style* ParagraphStyle(pugi::xml_node p) const;
  const Style* CharacterStyle(pugi::xml_node rPr) const;
  bool PartHides() const;

  XmlPart& part_;
  const Styles& styles_;
  mutable std::optional<bool> partHides_;
};

}  // namespace docx
