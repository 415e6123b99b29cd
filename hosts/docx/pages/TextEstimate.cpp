#include "hosts/docx/pages/TextEstimate.h"

#include <algorithm>
#include <cmath>

namespace docx {

namespace {

// Of the font size, as they are on the average in running text of the usual fonts.
constexpr double kCharacterWidth = 0.48;
constexpr double kLineHeight = 1.18;

constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 400;
constexpr double kNarrowest = 20;  // points
constexpr double kTallest = 1584;  // points
constexpr double kAutoLine = 240;

}  // namespace

int ParagraphShape::Lines(double characters) const { return static_cast<int>(std::ceil(characters / perLine)); }

ParagraphShape ShapeOf(const Formatting& formatting, XmlNode p, XmlNode run, double width) {
  const XmlPart& part = formatting.Part();
  ParagraphValues values = formatting.DirectParagraph(p);
  values.Inherit(formatting.InheritedParagraph(p));
  const double size = std::clamp(formatting.FontSize(run ? run : p), kSmallestSize, kLargestSize);

  ParagraphShape shape;
  shape.pageBreakBefore = values.pageBreakBefore.value_or(false);
  shape.before = std::clamp(values.before.twips.value_or(0) / 20.0, 0.0, kTallest);
  shape.after = std::clamp(values.after.twips.value_or(0) / 20.0, 0.0, kTallest);
  shape.lineHeight = size * kLineHeight;
  if (values.line && *values.line > 0) {
    shape.lineHeight = values.lineIsAuto.value_or(true) ? shape.lineHeight * *values.line / kAutoLine
                                                        : std::max(size, *values.line / 20.0);
  }
  shape.lineHeight = std::clamp(shape.lineHeight, kSmallestSize, kTallest);

  // Strict documents call the sides start and end.
  const XmlNode indents = part.Child(part.Child(p, Tag::kPPr), "ind");
  for (const char* side : {"left", "start", "right", "end"}) {
    width -= std::max(0, ReadTwips(part.Attribute(indents, side)).value_or(0)) / 20.0;
  }
  shape.perLine = std::max(1.0, std::max(width, kNarrowest) / (size * kCharacterWidth));
  return shape;
}

}  // namespace docx
