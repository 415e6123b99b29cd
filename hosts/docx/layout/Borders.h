#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <optional>

#include "hosts/docx/xml/XmlPart.h"
#include "platform/page/Display.h"

namespace docx::layout {

/// A border as it is drawn. Lengths in twips.
struct BorderLine {
  page::Stroke stroke{page::Stroke::kNone};
  float width{0};  ///< of one of its lines
  float space{0};  ///< to the text
  page::Color color{page::kBlack};

  bool operator==(const BorderLine&) const = default;
};

/// The borders of a paragraph, a table or a cell. What is left open is empty; one that says that there is none has no
/// stroke.
struct BoxBorders {
  std::optional<BorderLine> top;
  std::optional<BorderLine> left;
  std::optional<BorderLine> bottom;
  std::optional<BorderLine> right;
  std::optional<BorderLine> insideAcross;  ///< between rows, or paragraphs
  std::optional<BorderLine> insideDown;    ///< between columns

  /// Fills what is open.
  void Inherit(const BoxBorders& base);
  bool operator==(const BoxBorders&) const = default;
};

/// @param borders a w:pBdr, w:tblBorders or w:tcBorders; may be empty
BoxBorders ReadBoxBorders(const XmlPart& part, XmlNode borders);

}  // namespace docx::layout
