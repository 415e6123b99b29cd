#include "hosts/docx/layout/Borders.h"

#include <algorithm>
#include <string_view>

#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/layout/Values.h"

namespace docx::layout {

namespace {

constexpr float kTwipsPerEighth = 20.0F / 8;
constexpr int kThinnest = 2;  // eighths of a point, as Word has it
constexpr int kThickest = 96;
constexpr int kWidestSpace = 31;  // points

void Fill(std::optional<BorderLine>& line, const std::optional<BorderLine>& base) {
  if (!line) line = base;
}

page::Stroke StrokeOf(std::string_view kind) {
  using page::Stroke;
  if (kind.empty() || kind == "nil" || kind == "none") return Stroke::kNone;
  if (kind == "dotted") return Stroke::kDotted;
  if (kind == "wave" || kind == "doubleWave") return Stroke::kWave;
  if (kind.starts_with("dash") || kind.starts_with("dot")) return Stroke::kDashed;
  if (kind == "double" || kind == "triple" || kind.starts_with("thinThick") || kind.starts_with("thickThin")) {
    return Stroke::kDouble;
  }
  return Stroke::kSolid;
}

std::optional<BorderLine> ReadLine(const XmlPart& part, XmlNode border) {
  if (!border) return {};
  BorderLine line;
  line.stroke = StrokeOf(ValueOf(part, border));
  line.width =
      static_cast<float>(std::clamp(NumberOf(part, border, "sz").value_or(4), kThinnest, kThickest)) * kTwipsPerEighth;
  line.space = static_cast<float>(std::clamp(NumberOf(part, border, "space").value_or(0), 0, kWidestSpace)) * 20;
  line.color = std::max(page::kBlack, ParseColor(part.Attribute(border, "color").Value()).value_or(page::kBlack));
  return line;
}

}  // namespace

void BoxBorders::Inherit(const BoxBorders& base) {
  Fill(top, base.top);
  Fill(left, base.left);
  Fill(bottom, base.bottom);
  Fill(right, base.right);
  Fill(insideAcross, base.insideAcross);
  Fill(insideDown, base.insideDown);
}

BoxBorders ReadBoxBorders(const XmlPart& part, XmlNode borders) {
  BoxBorders read;
  if (!borders) return read;
  const auto side = [&](const char* name) { return ReadLine(part, part.Child(borders, name)); };
  read.top = side("top");
  read.bottom = side("bottom");
  read.left = side("start");
  Fill(read.left, side("left"));
  read.right = side("end");
  Fill(read.right, side("right"));
  read.insideAcross = side("insideH");
  Fill(read.insideAcross, side("between"));
  read.insideDown = side("insideV");
  return read;
}

}  // namespace docx::layout
