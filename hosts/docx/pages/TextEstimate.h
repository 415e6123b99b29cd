#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include "hosts/docx/styles/Formatting.h"

namespace docx {

/// How much room a paragraph takes, estimated from its formatting without any font. Lengths in points.
struct ParagraphShape {
  double before{0};
  double after{0};
  double lineHeight{12};
  double perLine{80};  ///< characters
  bool pageBreakBefore{false};

  /// Lines that so many characters fill; 0 for none.
  int Lines(double characters) const;
};

/// @param run the first run with text; empty when there is none
/// @param width of the column or cell
ParagraphShape ShapeOf(const Formatting& formatting, XmlNode p, XmlNode run, double width);

}  // namespace docx
