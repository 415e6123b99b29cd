#pragma once

#include "hosts/docx/xml/XmlNode.h"

#include <array>
#include <vector>

#include "hosts/docx/pages/PageSetup.h"
#include "hosts/docx/xml/XmlPart.h"

namespace docx::layout {

struct Block;

/// Which header and footer a page has.
enum class PageSide : std::uint8_t { kDefault, kFirst, kEven };

/// The room on a section's pages. Lengths in twips.
struct SectionGeometry {
  PageSetup setup;
  double width{12240};
  double height{15840};
  double top{1440};  ///< negative when headers do not push the text
  double bottom{1440};
  double left{1440};
  double right{1440};
  double gutter{0};
  double header{720};  ///< distances from the paper's edges
  double footer{720};
  std::vector<double> columns;      ///< their widths; at least one
  std::vector<double> columnLefts;  ///< from the text's left edge
  bool columnRules{false};          ///< lines stand between columns
  bool titlePage{false};
  bool handsEndnotesOn{false};  ///< to the next section
  double gridPitch{0};
  double lowered{0};  ///< where text that does not fill its page stands: 0 above, 0.5 in the middle, 1 below
  /// By PageSide: what header and footer take, from their distance on.
  std::array<double, 3> headerHeights{};
  std::array<double, 3> footerHeights{};
  /// The same for what stands in them; nullptr for nothing.
  std::array<std::vector<Block>*, 3> headers{};
  std::array<std::vector<Block>*, 3> footers{};

  double TextWidth() const;
  /// From the paper's left edge. @param mirrored the page is one of the left-hand pages of a book
  double TextLeft(bool mirrored) const { return mirrored ? right : left + gutter; }
  /// From the paper's upper edge.
  double BodyTop(PageSide side) const;
  double BodyBottom(PageSide side) const;
};

/// @param sectPr may be empty
SectionGeometry ReadSectionGeometry(const XmlPart& part, XmlNode sectPr);

}  // namespace docx::layout
