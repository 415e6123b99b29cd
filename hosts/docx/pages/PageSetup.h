#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <optional>
#include <string>

#include "hosts/docx/xml/XmlPart.h"

namespace docx {

/// How a section begins.
enum class SectionStart { kNextPage, kContinuous, kNextColumn, kEvenPage, kOddPage };

/// A section's pages as its w:sectPr sets them up. Lengths in points; what is missing is as in Word's plain document,
/// what cannot be is brought to the next possible value.
struct PageSetup {
  SectionStart start{SectionStart::kNextPage};
  double paperWidth{612};
  double paperHeight{792};
  double columnWidth{468};  ///< of text; for columns of different width their average
  double textHeight{648};
  int columns{1};
  std::string numberFormat;    ///< the w:fmt of w:pgNumType; empty for none
  std::optional<int> restart;  ///< the number of the first page
};

/// @param sectPr may be empty
PageSetup ReadPageSetup(const XmlPart& part, XmlNode sectPr);

}  // namespace docx
