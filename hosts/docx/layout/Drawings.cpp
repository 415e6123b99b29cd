#include "hosts/docx/layout/Drawings.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

#include "hosts/docx/xml/Utf.h"
#include "hosts/docx/xml/XmlText.h"

namespace docx::layout {

namespace {

constexpr double kEmusPerTwip = 635;
constexpr double kTallest = 31680;    // twips
constexpr double kVmlDistance = 180;  // twips, where a shape does not state what it keeps free

double Emus(XmlAttribute attribute) { return std::clamp(attribute.AsDouble() / kEmusPerTwip, -kTallest, kTallest); }

XmlNode LocalChild(XmlNode parent, std::string_view local) {
  for (const XmlNode child : parent.Children()) {
    if (LocalName(child) == local) return child;
  }
  return {};
}

/// The first element below with a local name.
XmlNode Descendant(XmlNode parent, std::string_view local) {
  for (XmlNode node = parent.FirstChild(); node;) {
    if (LocalName(node) == local) return node;
    if (node.FirstChild()) {
      node = node.FirstChild();
      continue;
    }
    while (node != parent && !node.NextSibling()) node = node.Parent();
    if (node == parent) return {};
    node = node.NextSibling();
  }
  return {};
}

/// A relationship's id in an attribute of that local name.
std::string RelationshipIn(XmlNode element, std::string_view local) {
  for (const XmlAttribute& attribute : element.Attributes()) {
    const std::string_view name = attribute.Name();
    if (name.size() > local.size() && name.ends_with(local) && name[name.size() - local.size() - 1] == ':') {
      return std::string(attribute.Value());
    }
  }
  return {};
}

Floating::From FromOf(std::string_view name) {
  using From = Floating::From;
  if (name == "page") return From::kPaper;
  if (name.ends_with("argin")) return From::kMargin;
  return From::kText;
}

TextSides SidesOf(std::string_view name) {
  return name == "left"      ? TextSides::kLeft
         : name == "right"   ? TextSides::kRight
         : name == "largest" ? TextSides::kLarger
                             : TextSides::kBoth;
}

/// One direction of a place.
void ReadPlace(XmlNode position, Floating::From& from, double& offset, std::optional<double>& side) {
  from = FromOf(position.Attribute("relativeFrom").Value());
  if (const XmlNode align = LocalChild(position, "align")) {
    const std::string_view name = align.OnlyText().value_or("");
    side = name == "center" ? 0.5 : name == "right" || name == "bottom" || name == "outside" ? 1 : 0;
    return;
  }
  offset = std::clamp(NumberIn(LocalChild(position, "posOffset").OnlyText().value_or("")) / kEmusPerTwip, -kTallest,
                      kTallest);
}

/// @param usual for those of which the document says nothing
std::u16string Instead(XmlAttribute said, std::u16string_view usual) {
  std::u16string text = ToUtf16(said.Value());
  return text.empty() ? std::u16string(usual) : text;
}

/// What kind of thing a frame holds, for who cannot be shown it.
std::u16string_view KindOf(XmlNode frame) {
  const std::string_view kind = Descendant(frame, "graphicData").Attribute("uri").Value();
  if (kind.ends_with("/chart") || kind.ends_with("/chartex")) return u"Chart";
  if (kind.ends_with("/diagram")) return u"Diagram";
  return kind.ends_with("/picture") ? u"Picture" : u"";
}

/// @return empty when there is none, and when it has more points than anybody draws
std::vector<OutlinePoint> OutlineOf(XmlNode polygon) {
  constexpr double kWhole = 21600;
  constexpr double kFarthest = 10;
  constexpr std::size_t kMost = 1000;
  const auto share = [&](XmlAttribute number) { return std::clamp(number.AsDouble() / kWhole, -kFarthest, kFarthest); };
  std::vector<OutlinePoint> outline;
  if (!polygon) return outline;
  for (const XmlNode point : polygon.Children()) {
    if (!point.IsElement()) continue;
    outline.push_back({share(point.Attribute("x")), share(point.Attribute("y"))});
    if (outline.size() > kMost) return {};
  }
  return outline;
}

Drawing ReadDrawingMl(XmlNode frame, bool inLine) {
  Drawing drawing;
  drawing.inLine = inLine;
  Floating& floating = drawing.floating;
  floating.picture = RelationshipIn(Descendant(frame, "blip"), "embed");
  floating.instead = Instead(LocalChild(frame, "docPr").Attribute("descr"), KindOf(frame));
  drawing.text = Descendant(frame, "txbxContent");
  if (drawing.text) {
    const XmlNode body = Descendant(frame, "bodyPr");
    if (const XmlAttribute inset = body.Attribute("lIns")) drawing.sideInset = Emus(inset);
    if (const XmlAttribute inset = body.Attribute("tIns")) drawing.topInset = Emus(inset);
    drawing.outlined = static_cast<bool>(LocalChild(Descendant(Descendant(frame, "spPr"), "ln"), "solidFill"));
  }
  const XmlNode extent = LocalChild(frame, "extent");
  const XmlNode effect = LocalChild(frame, "effectExtent");
  floating.width = Emus(extent.Attribute("cx")) + Emus(effect.Attribute("l")) + Emus(effect.Attribute("r"));
  floating.height = Emus(extent.Attribute("cy")) + Emus(effect.Attribute("t")) + Emus(effect.Attribute("b"));
  floating.drawnWidth = Emus(extent.Attribute("cx"));
  floating.drawnHeight = Emus(extent.Attribute("cy"));
  if (inLine) return drawing;
  ReadPlace(LocalChild(frame, "positionH"), floating.across, floating.x, floating.sideAcross);
  ReadPlace(LocalChild(frame, "positionV"), floating.down, floating.y, floating.sideDown);
  using Wrap = Floating::Wrap;
  if (LocalChild(frame, "wrapTopAndBottom")) floating.wrap = Wrap::kTopAndBottom;
  for (const char* name : {"wrapSquare", "wrapTight", "wrapThrough"}) {
    const XmlNode wrap = LocalChild(frame, name);
    if (!wrap) continue;
    floating.wrap = Wrap::kSquare;
    floating.sides = SidesOf(wrap.Attribute("wrapText").Value());
    floating.outline = OutlineOf(LocalChild(wrap, "wrapPolygon"));
  }
  floating.marginTop = Emus(frame.Attribute("distT"));
  floating.marginLeft = Emus(frame.Attribute("distL"));
  floating.marginBottom = Emus(frame.Attribute("distB"));
  floating.marginRight = Emus(frame.Attribute("distR"));
  return drawing;
}

/// What an entry of a VML style says; empty when it is not there.
std::string_view StyleWord(std::string_view style, std::string_view name) {
  for (std::size_t at = 0; at < style.size();) {
    const std::size_t end = std::min(style.find(';', at), style.size());
    std::string_view entry = style.substr(at, end - at);
    while (!entry.empty() && entry.front() == ' ') entry.remove_prefix(1);
    const std::size_t colon = entry.find(':');
    if (colon != std::string_view::npos && entry.substr(0, colon) == name) return entry.substr(colon + 1);
    at = end + 1;
  }
  return {};
}

/// A length in a VML style, in twips.
double StyleLength(std::string_view style, std::string_view name) {
  const std::string_view value = StyleWord(style, name);
  double number = 0;
  const auto [last, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (error != std::errc() || !std::isfinite(number)) return 0;
  const std::string_view unit = value.substr(static_cast<std::size_t>(last - value.data()));
  const double points = unit == "in"   ? 72
                        : unit == "cm" ? 72 / 2.54
                        : unit == "mm" ? 72 / 25.4
                        : unit == "px" ? 0.75
                                       : 1;
  return std::clamp(number * points * 20, -kTallest, kTallest);
}

void ReadVmlPlace(std::string_view style, Floating& floating) {
  using From = Floating::From;
  const auto side = [](std::string_view name) -> std::optional<double> {
    if (name == "center") return 0.5;
    if (name == "right" || name == "bottom" || name == "outside") return 1;
    if (name == "left" || name == "top" || name == "inside") return 0;
    return {};
  };
  const auto from = [](std::string_view name) {
    return name == "page" ? From::kPaper : name == "margin" ? From::kMargin : From::kText;
  };
  floating.across = from(StyleWord(style, "mso-position-horizontal-relative"));
  floating.down = from(StyleWord(style, "mso-position-vertical-relative"));
  floating.sideAcross = side(StyleWord(style, "mso-position-horizontal"));
  floating.sideDown = side(StyleWord(style, "mso-position-vertical"));
  const auto margin = [&](const char* name, double otherwise) {
    return StyleWord(style, name).empty() ? otherwise : StyleLength(style, name);
  };
  floating.marginTop = margin("mso-wrap-distance-top", 0);
  floating.marginLeft = margin("mso-wrap-distance-left", kVmlDistance);
  floating.marginBottom = margin("mso-wrap-distance-bottom", 0);
  floating.marginRight = margin("mso-wrap-distance-right", kVmlDistance);
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
    const XmlNode image = LocalChild(shape, "imagedata");
    drawing.floating.picture = RelationshipIn(image, "id");
    const std::u16string_view kind = LocalName(element) == "object" ? u"Embedded object" : image ? u"Picture" : u"";
    drawing.floating.instead = Instead(shape.Attribute("alt"), kind);
    drawing.floating.drawnWidth = drawing.floating.width;
    drawing.floating.drawnHeight = drawing.floating.height;
    drawing.floating.x = StyleLength(style, "margin-left");
    drawing.floating.y = StyleLength(style, "margin-top");
    ReadVmlPlace(style, drawing.floating);
    drawing.text = Descendant(shape, "txbxContent");
    const std::string_view stroked = shape.Attribute("stroked").Value();
    drawing.outlined = stroked != "f" && stroked != "false";
    const XmlNode wrap = LocalChild(shape, "wrap");
    const std::string_view type = wrap.Attribute("type").Value();
    drawing.floating.sides = SidesOf(wrap.Attribute("side").Value());
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
