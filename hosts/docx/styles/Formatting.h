#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <optional>

#include "hosts/docx/styles/PropertyValues.h"
#include "hosts/docx/styles/Styles.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// Formatting of one part's text as it shows: direct formatting, then the styles of character, paragraph and
/// table, then the document's defaults. What numbering adds is left out, and what table styles say of paragraphs.
///
/// Where characters are asked for, the node is a w:r, or a w:p for its paragraph mark.
class Formatting {
 public:
  /// Part and styles must outlive it; the styles may be read anew meanwhile.
  Formatting(XmlPart& part, const Styles& styles) : part_(part), styles_(styles) {}
  Formatting(const Formatting&) = delete;
  Formatting& operator=(const Formatting&) = delete;

  XmlPart& Part() const { return part_; }

  /// Word's -1 or 0. Bold for complex scripts is not looked at.
  int Bold(XmlNode node) const;
  /// What Bold would say without direct formatting.
  bool InheritedBold(XmlNode node) const;
  /// Whether any text could be hidden, by its formatting or a style.
  bool MayHide() const;
  /// Hidden text; for a paragraph mark also one that a style separator hides. A document in which nothing is hidden
  /// answers without looking at the node.
  bool Hidden(XmlNode node) const;
  /// A WdColorIndex; wdNoHighlight for none.
  int Highlight(XmlNode node) const;
  /// What Highlight would say without direct formatting.
  int InheritedHighlight(XmlNode node) const;
  /// A WdColor: red lowest, wdColorAutomatic for none. Of a theme colour, the value that the file has beside it.
  int Color(XmlNode node) const;
  int InheritedColor(XmlNode node) const;
  /// In points.
  double FontSize(XmlNode node) const;

  /// A WdParagraphAlignment.
  int Alignment(XmlNode p) const;
  /// In points. Spacing in lines and automatic spacing read as the points that the file has beside them.
  double SpaceBefore(XmlNode p) const;
  double SpaceAfter(XmlNode p) const;
  /// What the paragraph's own properties state, and what would hold without them; the latter leaves nothing open of
  /// alignment and spacing in twips.
  ParagraphValues DirectParagraph(XmlNode p) const;
  ParagraphValues InheritedParagraph(XmlNode p) const;

 private:
  bool InheritedToggle(XmlNode node, std::optional<bool> RunValues::*value) const;
  int InheritedValue(XmlNode node, std::optional<int> RunValues::*value, int otherwise) const;
  /// What the style of a paragraph's table, if it stands in any, says of a value of its characters there.
  template <typename T>
  std::optional<T> OfTable(XmlNode p, std::optional<T> RunValues::*value) const;
  XmlNode DirectRun(XmlNode node) const;
  XmlNode ParagraphOf(XmlNode node) const;
  const Style* ParagraphStyle(XmlNode p) const;
  const Style* CharacterStyle(XmlNode rPr) const;

  XmlPart& part_;
  const Styles& styles_;
};

}  // namespace docx
