#include "hosts/docx/pages/PageSetup.h"

#include "hosts/docx/styles/PropertyValues.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace docx {

namespace {

constexpr double kSmallest = 36;   // points
constexpr double kLargest = 1584;  // Word's largest paper
constexpr int kMostColumns = 45;   // Word's limit
constexpr int kLargestNumber = 32767;

/// In points.
double Length(const XmlPart& part, XmlNode node, const char* attribute, double otherwise) {
  const std::optional<int> twips = ReadTwips(part.Attribute(node, attribute));
  return twips ? std::clamp(*twips / 20.0, -kLargest, kLargest) : otherwise;
}

SectionStart StartOf(std::string_view type) {
  if (type == "continuous") return SectionStart::kContinuous;
  if (type == "nextColumn") return SectionStart::kNextColumn;
  if (type == "evenPage") return SectionStart::kEvenPage;
  if (type == "oddPage") return SectionStart::kOddPage;
  return SectionStart::kNextPage;
}

}  // namespace

PageSetup ReadPageSetup(const XmlPart& part, XmlNode sectPr) {
  PageSetup setup;
  setup.start = StartOf(part.Attribute(part.Child(sectPr, "type"), "val").Value());
  const XmlNode size = part.Child(sectPr, "pgSz");
  setup.paperWidth = std::max(kSmallest, Length(part, size, "w", setup.paperWidth));
  setup.paperHeight = std::max(kSmallest, Length(part, size, "h", setup.paperHeight));

  const XmlNode margins = part.Child(sectPr, "pgMar");
  // A negative margin above or below is one that headers and footers do not push.
  const double textWidth = setup.paperWidth - Length(part, margins, "left", 72) - Length(part, margins, "right", 72) -
                           Length(part, margins, "gutter", 0);
  setup.textHeight = std::max(kSmallest, setup.paperHeight - std::abs(Length(part, margins, "top", 72)) -
                                             std::abs(Length(part, margins, "bottom", 72)));

  const XmlNode columns = part.Child(sectPr, "cols");
  setup.columns = std::clamp(part.Attribute(columns, "num").AsInt(1), 1, kMostColumns);
  const double gaps = (setup.columns - 1) * Length(part, columns, "space", 36);
  setup.columnWidth = std::max(kSmallest, (textWidth - gaps) / setup.columns);

  const XmlNode numbers = part.Child(sectPr, "pgNumType");
  setup.numberFormat = part.Attribute(numbers, "fmt").Value();
  if (const XmlAttribute restart = part.Attribute(numbers, "start")) {
    setup.restart = std::clamp(restart.AsInt(1), 0, kLargestNumber);
  }
  return setup;
}

}  // namespace docx
