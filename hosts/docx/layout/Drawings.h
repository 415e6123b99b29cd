#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <vector>

#include "hosts/docx/layout/Content.h"

namespace docx::layout {

/// A picture, chart, shape or text box, and whether it stands in the line.
struct Drawing {
  bool inLine{true};
  Floating floating;
  XmlNode text;  ///< of a text box: what holds its blocks
  double sideInset{144};
  double topInset{72};
  bool outlined{false};
};

/// @param element a w:drawing, w:pict or w:object @return with the ids of relationships for the names of pictures
std::vector<Drawing> ReadDrawings(const XmlPart& part, XmlNode element);

}  // namespace docx::layout
