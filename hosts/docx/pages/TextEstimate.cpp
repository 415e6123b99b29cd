#include "hosts/docx/pages/TextEstimate.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

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

ParagraphShape Estimate(const Formatting& formatting, XmlNode p, XmlNode run, double width) {
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

}  // namespace

int ParagraphShape::Lines(double characters) const { return static_cast<int>(std::ceil(characters / perLine)); }

ParagraphShape ParagraphShapes::Of(XmlNode p, XmlNode run, double width) {
  const XmlPart& part = formatting_->Part();
  const auto written = [&](XmlNode owner, Tag tag) {
    const XmlNode properties = part.Child(owner, tag);
    return properties ? properties.ContentText() : std::string_view();
  };
  const std::optional<std::string_view> ofParagraph = written(p, Tag::kPPr);
  const std::optional<std::string_view> ofRun = written(run, Tag::kRPr);
  // The same text says the same only where prefixes always mean the same.
  if (!ofParagraph || !ofRun || part.Scoped()) return Estimate(*formatting_, p, run, width);
  const auto [known, isNew] = known_.try_emplace({*ofParagraph, *ofRun, static_cast<bool>(run), width});
  if (isNew) known->second = Estimate(*formatting_, p, run, width);
  return known->second;
}

std::size_t ParagraphShapes::Hash::operator()(const Properties& properties) const {
  const std::hash<std::string_view> hash;
  return hash(properties.paragraph) ^ (hash(properties.run) * 3) ^ std::hash<double>()(properties.width);
}

}  // namespace docx
