#include "hosts/docx/layout/Drawings.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string>
#include <string_view>

namespace docx::layout {

namespace {

constexpr double kEmusPerTwip = 635;
constexpr double kTallest = 31680;  // twips

double Emus(XmlAttribute attribute) { return std::clamp(attribute.AsDouble() / kEmusPerTwip, -kTallest, kTallest); }

/// The number that an element holds; 0 for none.
double NumberIn(XmlNode element) { return std::strtod(std::string(element.OnlyText().value_or("")).c_str(), nullptr); }

XmlNode LocalChild(XmlNode parent, std::string_view local) {
  for (const XmlNode child : parent.Children()) {
    if (LocalName(child) == local) return child;
  }
  return {};
}

Drawing ReadDrawingMl(XmlNode frame, bool inLine) {
  Drawing drawing;
  drawing.inLine = inLine;
  Floating& floating = drawing.floating;
  const XmlNode extent = LocalChild(frame, "extent");
  const XmlNode effect = LocalChild(frame, "effectExtent");
  floating.width = Emus(extent.Attribute("cx")) + Emus(effect.Attribute("l")) + Emus(effect.Attribute("r"));
  floating.height = Emus(extent.Attribute("cy")) + Emus(effect.Attribute("t")) + Emus(effect.Attribute("b"));
  if (inLine) return drawing;
  using Wrap = Floating::Wrap;
  if (LocalChild(frame, "wrapTopAndBottom")) floating.wrap = Wrap::kTopAndBottom;
  for (const char* name : {"wrapSquare", "wrapTight", "wrapThrough"}) {
    if (LocalChild(frame, name)) floating.wrap = Wrap::kSquare;
  }
  const XmlNode vertical = LocalChild(frame, "positionV");
  const std::string_view from = vertical.Attribute("relativeFrom").Value();
  floating.withParagraph = from == "paragraph" || from == "line";
  const XmlNode offset = LocalChild(vertical, "posOffset");
  floating.offset = std::clamp(NumberIn(offset) / kEmusPerTwip, -kTallest, kTallest);
  floating.height += Emus(frame.Attribute("distT")) + Emus(frame.Attribute("distB"));
  return drawing;
}

/// A length in a VML style, in twips.
double StyleLength(std::string_view style, std::string_view name) {
  for (std::size_t at = 0; at < style.size();) {
    const std::size_t end = std::min(style.find(';', at), style.size());
    std::string_view entry = style.substr(at, end - at);
    while (!entry.empty() && entry.front() == ' ') entry.remove_prefix(1);
    const std::size_t colon = entry.find(':');
    if (colon != std::string_view::npos && entry.substr(0, colon) == name) {
      std::string_view value = entry.substr(colon + 1);
      double number = 0;
      const auto [last, error] = std::from_chars(value.data(), value.data() + value.size(), number);
      if (error != std::errc()) return 0;
      const std::string_view unit = value.substr(static_cast<std::size_t>(last - value.data()));
      const double points = unit == "in"   ? 72
                            : unit == "cm" ? 72 / 2.54
                            : unit == "mm" ? 72 / 25.4
                            : unit == "px" ? 0.75
                                           : 1;
      return std::clamp(number * points * 20, -kTallest, kTallest);
    }
    at = end + 1;
  }
  return 0;
}

void ReadVml(XmlNode element, std::vector<Drawing>& drawings) {
  for (const XmlNode shape : element.Children()) {
    const std::string_view style = shape.Attribute("style").Value();
    const std::string_view name = LocalName(shape);
    if (style.empty() || name == "shapetype") continue;
    Drawing drawing;
    drawing.inLine = style.find("position:absolute") == std::string_view::npos;
    drawing.floating.width = StyleLength(style, "width");
    drawing.floating.height = StyleLength(style, "height");
    drawing.floating.offset = StyleLength(style, "margin-top");
    const std::string_view type = LocalChild(shape, "wrap").Attribute("type").Value();
    using Wrap = Floating::Wrap;
    drawing.floating.wrap = type == "topAndBottom"                                     ? Wrap::kTopAndBottom
                            : type == "square" || type == "tight" || type == "through" ? Wrap::kSquare
                                                                                       : Wrap::kNone;
    drawings.push_back(drawing);
  }
}

}  // namespace

std::vector<Drawing> ReadDrawings(const XmlPart& part, XmlNode element) {
  std::vector<Drawing> drawings;
  if (!part.Is(element, Tag::kDrawing)) {
    ReadVml(element, drawings);
    return drawings;
  }
  for (const XmlNode child : element.Children()) {
    if (part.Is(child, Tag::kInline)) drawings.push_back(ReadDrawingMl(child, true));
    if (part.Is(child, Tag::kAnchor)) drawings.push_back(ReadDrawingMl(child, false));
  }
  return drawings;
}

}  // namespace docx::layout
