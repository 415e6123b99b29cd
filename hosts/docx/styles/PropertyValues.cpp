#include "hosts/docx/styles/PropertyValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/word/Constants.h"

namespace docx {

namespace {

// By WdColorIndex.
constexpr std::array<const char*, 17> kHighlights{
    "none",     "black",    "blue",      "cyan",        "green",   "magenta",    "red",      "yellow",   "white",
    "darkBlue", "darkCyan", "darkGreen", "darkMagenta", "darkRed", "darkYellow", "darkGray", "lightGray"};

struct NamedAlignment {
  const char* name;
  int alignment;
};

// The first name of a number is the one to write, but for strict documents.
constexpr std::array kAlignments{
    NamedAlignment{"left", word::wdAlignParagraphLeft},
    NamedAlignment{"center", word::wdAlignParagraphCenter},
    NamedAlignment{"right", word::wdAlignParagraphRight},
    NamedAlignment{"both", word::wdAlignParagraphJustify},
    NamedAlignment{"distribute", 4},
    NamedAlignment{"mediumKashida", 5},
    NamedAlignment{"highKashida", 7},
    NamedAlignment{"lowKashida", 8},
    NamedAlignment{"thaiDistribute", 9},
    NamedAlignment{"start", word::wdAlignParagraphLeft},
    NamedAlignment{"end", word::wdAlignParagraphRight},
    NamedAlignment{"numTab", word::wdAlignParagraphLeft},
};

struct MeasureUnit {
  std::string_view name;
  double points;
};

constexpr std::array kUnits{
    MeasureUnit{"pt", 1.0},         MeasureUnit{"in", 72.0}, MeasureUnit{"cm", 72.0 / 2.54},
    MeasureUnit{"mm", 72.0 / 25.4}, MeasureUnit{"pc", 12.0}, MeasureUnit{"pi", 12.0},
};

// Far beyond what Word takes, so that no arithmetic on a value overflows.
constexpr double kLargestMeasure = 1e6;

/// A plain number counts in the property's own unit; "12pt" is converted.
std::optional<int> ReadMeasure(XmlAttribute attribute, double perPoint) {
  const std::string_view text = attribute.Value();
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  if (error != std::errc()) return {};
  const std::string_view unit = text.substr(static_cast<std::size_t>(end - text.data()));
  if (!unit.empty()) {
    double points = 0;
    for (const MeasureUnit& known : kUnits) {
      if (known.name == unit) points = known.points;
    }
    if (points == 0) return {};
    number *= points * perPoint;
  }
  if (!(std::abs(number) <= kLargestMeasure)) return {};
  return static_cast<int>(std::lround(number));
}

std::optional<bool> ReadOnOff(XmlAttribute attribute) {
  if (!attribute) return {};
  const std::string_view text = attribute.Value();
  if (text == "0" || text == "false" || text == "off") return false;
  if (text == "1" || text == "true" || text == "on") return true;
  return {};
}

template <typename T>
void Fill(std::optional<T>& own, const std::optional<T>& base) {
  if (!own) own = base;
}

}  // namespace

void RunValues::Inherit(const RunValues& base) {
  Fill(bold, base.bold);
  Fill(hidden, base.hidden);
  Fill(specHidden, base.specHidden);
  Fill(highlight, base.highlight);
  Fill(color, base.color);
  Fill(size, base.size);
}

void SpacingValues::Inherit(const SpacingValues& base) {
  Fill(twips, base.twips);
  Fill(lines, base.lines);
  Fill(automatic, base.automatic);
}

void ParagraphValues::Inherit(const ParagraphValues& base) {
  Fill(alignment, base.alignment);
  before.Inherit(base.before);
  after.Inherit(base.after);
  Fill(line, base.line);
  Fill(lineIsAuto, base.lineIsAuto);
  Fill(pageBreakBefore, base.pageBreakBefore);
}

std::optional<bool> ReadOnOff(const XmlPart& part, XmlNode element) {
  if (!element) return {};
  const XmlAttribute value = part.Attribute(element, "val");
  return value ? ReadOnOff(value) : true;
}

std::optional<int> ReadHighlight(const XmlPart& part, XmlNode element) {
  const std::string_view text = part.Attribute(element, "val").Value();
  for (std::size_t i = 0; i < kHighlights.size(); ++i) {
    if (kHighlights[i] == text) return static_cast<int>(i);
  }
  return {};
}

std::optional<int> ReadColor(const XmlPart& part, XmlNode element) {
  const std::string_view text = part.Attribute(element, "val").Value();
  if (text == "auto") return word::wdColorAutomatic;
  if (text.size() != 6) return {};
  std::uint32_t rgb = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rgb, 16);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return static_cast<int>((rgb >> 16) | (rgb & 0xFF00) | ((rgb & 0xFF) << 16));
}

std::optional<int> ReadSize(const XmlPart& part, XmlNode element) {
  return ReadMeasure(part.Attribute(element, "val"), 2);
}

std::optional<int> ReadTwips(XmlAttribute attribute) { return ReadMeasure(attribute, 20); }

RunValues ReadRunValues(const XmlPart& part, XmlNode rPr) {
  RunValues values;
  if (!rPr.FirstChild()) return values;
  values.bold = ReadOnOff(part, part.Child(rPr, "b"));
  values.hidden = ReadOnOff(part, part.Child(rPr, "vanish"));
  values.specHidden = ReadOnOff(part, part.Child(rPr, "specVanish"));
  values.highlight = ReadHighlight(part, part.Child(rPr, "highlight"));
  values.color = ReadColor(part, part.Child(rPr, "color"));
  values.size = ReadSize(part, part.Child(rPr, "sz"));
  return values;
}

ParagraphValues ReadParagraphValues(const XmlPart& part, XmlNode pPr) {
  ParagraphValues values;
  if (!pPr.FirstChild()) return values;
  values.alignment = ParseAlignment(part.Attribute(part.Child(pPr, "jc"), "val").Value());
  values.pageBreakBefore = ReadOnOff(part, part.Child(pPr, "pageBreakBefore"));
  const XmlNode spacing = part.Child(pPr, "spacing");
  values.before.twips = ReadMeasure(part.Attribute(spacing, "before"), 20);
  values.before.lines = ReadMeasure(part.Attribute(spacing, "beforeLines"), 0);
  values.before.automatic = ReadOnOff(part.Attribute(spacing, "beforeAutospacing"));
  values.after.twips = ReadMeasure(part.Attribute(spacing, "after"), 20);
  values.after.lines = ReadMeasure(part.Attribute(spacing, "afterLines"), 0);
  values.after.automatic = ReadOnOff(part.Attribute(spacing, "afterAutospacing"));
  values.line = ReadMeasure(part.Attribute(spacing, "line"), 20);
  if (const XmlAttribute rule = part.Attribute(spacing, "lineRule")) {
    values.lineIsAuto = std::string_view(rule.Value()) == "auto";
  }
  return values;
}

const char* HighlightName(int colorIndex) { return kHighlights.at(static_cast<std::size_t>(colorIndex)); }

bool IsAlignment(int number) {
  return std::any_of(kAlignments.begin(), kAlignments.end(),
                     [number](const NamedAlignment& known) { return known.alignment == number; });
}

std::optional<int> ParseAlignment(std::string_view value) {
  for (const NamedAlignment& known : kAlignments) {
    if (known.name == value) return known.alignment;
  }
  return {};
}

const char* AlignmentName(int alignment, bool strict) {
  if (strict && alignment == word::wdAlignParagraphLeft) return "start";
  if (strict && alignment == word::wdAlignParagraphRight) return "end";
  for (const NamedAlignment& known : kAlignments) {
    if (known.alignment == alignment) return known.name;
  }
  throw std::out_of_range("no paragraph alignment: " + std::to_string(alignment));
}

}  // namespace docx
