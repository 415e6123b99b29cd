#include "hosts/docx/layout/SectionGeometry.h"

#include <algorithm>
#include <cmath>

#include "hosts/docx/layout/Values.h"

namespace docx::layout {

namespace {

constexpr double kPerPoint = 20;
constexpr double kNarrowest = 20;

void ReadColumns(const XmlPart& part, XmlNode columns, int count, SectionGeometry& section) {
  const double width = section.TextWidth();
  const std::optional<bool> equal = [&]() -> std::optional<bool> {
    const std::string_view text = part.Attribute(columns, "equalWidth").Value();
    if (text.empty()) return {};
    return text == "1" || text == "true" || text == "on";
  }();
  std::vector<double>& widths = section.columns;
  double left = 0;
  if (!equal.value_or(true)) {
    for (const XmlNode column : columns.Children(part.Name("col"))) {
      if (static_cast<int>(widths.size()) >= count) break;
      widths.push_back(std::max(kNarrowest, static_cast<double>(TwipsOf(part, column, "w").value_or(0))));
      section.columnLefts.push_back(left);
      left += widths.back() + TwipsOf(part, column, "space").value_or(0);
    }
    if (!widths.empty()) return;
  }
  const double space = TwipsOf(part, columns, "space").value_or(720);
  widths.assign(static_cast<std::size_t>(count), std::max(kNarrowest, (width - (count - 1) * space) / count));
  for (const double column : widths) {
    section.columnLefts.push_back(left);
    left += column + space;
  }
}

}  // namespace

double SectionGeometry::TextWidth() const { return std::max(kNarrowest, width - left - right - gutter); }

double SectionGeometry::BodyTop(PageSide side) const {
  if (top < 0) return -top;
  const double taken = headerHeights[static_cast<std::size_t>(side)];
  return taken > 0 ? std::max(top, header + taken) : top;
}

double SectionGeometry::BodyBottom(PageSide side) const {
  if (bottom < 0) return height + bottom;
  const double taken = footerHeights[static_cast<std::size_t>(side)];
  return height - (taken > 0 ? std::max(bottom, footer + taken) : bottom);
}

SectionGeometry ReadSectionGeometry(const XmlPart& part, XmlNode sectPr) {
  SectionGeometry section;
  section.setup = ReadPageSetup(part, sectPr);
  section.width = section.setup.paperWidth * kPerPoint;
  section.height = section.setup.paperHeight * kPerPoint;
  const XmlNode margins = part.Child(sectPr, "pgMar");
  const auto length = [&](const char* name, double otherwise) {
    return static_cast<double>(TwipsOf(part, margins, name).value_or(static_cast<int>(otherwise)));
  };
  section.top = length("top", 1440);
  section.bottom = length("bottom", 1440);
  section.left = length("left", 1440);
  section.right = length("right", 1440);
  section.gutter = length("gutter", 0);
  section.header = std::max(0.0, length("header", 720));
  section.footer = std::max(0.0, length("footer", 720));
  const XmlNode columns = part.Child(sectPr, "cols");
  ReadColumns(part, columns, section.setup.columns, section);
  const std::string_view rules = part.Attribute(columns, "sep").Value();
  section.columnRules = rules == "1" || rules == "true" || rules == "on";
  const std::string_view upright = ValueOf(part, part.Child(sectPr, "vAlign"));
  section.lowered = upright == "center" ? 0.5 : upright == "bottom" ? 1 : 0;
  section.titlePage = OnOffOf(part, part.Child(sectPr, "titlePg")).value_or(false);
  section.handsEndnotesOn = OnOffOf(part, part.Child(sectPr, "noEndnote")).value_or(false);
  const XmlNode grid = part.Child(sectPr, "docGrid");
  const std::string_view type = part.Attribute(grid, "type").Value();
  if (type == "lines" || type == "linesAndChars" || type == "snapToChars") {
    section.gridPitch = std::max(0, TwipsOf(part, grid, "linePitch").value_or(0));
  }
  return section;
}

}  // namespace docx::layout
