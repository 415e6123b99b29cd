#include "hosts/docx/layout/Values.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>

#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/layout/Fonts.h"
#include "hosts/docx/layout/ThemeFonts.h"
#include "hosts/docx/styles/PropertyValues.h"

namespace docx::layout {

namespace {

constexpr int kLargest = 31680;  // twips: Word's largest length

template <typename T>
void Fill(std::optional<T>& value, const std::optional<T>& base) {
  if (!value) value = base;
}

enum class CharacterProperty : std::uint8_t {
  kFonts,
  kToggle,
  kSize,
  kSizeComplex,
  kSpacing,
  kScale,
  kRaise,
  kKerning,
  kVertical,
  kComplex,
  kColor,
  kHighlight,
  kShading,
  kUnderline,
};

struct NamedProperty {
  CharacterProperty property;
  std::size_t toggle{0};
};

const std::unordered_map<std::string_view, NamedProperty>& CharacterProperties() {
  using P = CharacterProperty;
  static const std::unordered_map<std::string_view, NamedProperty> properties{
      {"rFonts", {P::kFonts}},
      {"b", {P::kToggle, CharacterValues::kBold}},
      {"i", {P::kToggle, CharacterValues::kItalic}},
      {"bCs", {P::kToggle, CharacterValues::kBoldComplex}},
      {"iCs", {P::kToggle, CharacterValues::kItalicComplex}},
      {"caps", {P::kToggle, CharacterValues::kCaps}},
      {"smallCaps", {P::kToggle, CharacterValues::kSmallCaps}},
      {"vanish", {P::kToggle, CharacterValues::kHidden}},
      {"strike", {P::kToggle, CharacterValues::kStrike}},
      {"dstrike", {P::kToggle, CharacterValues::kStrike}},
      {"color", {P::kColor}},
      {"highlight", {P::kHighlight}},
      {"shd", {P::kShading}},
      {"u", {P::kUnderline}},
      {"sz", {P::kSize}},
      {"szCs", {P::kSizeComplex}},
      {"spacing", {P::kSpacing}},
      {"w", {P::kScale}},
      {"position", {P::kRaise}},
      {"kern", {P::kKerning}},
      {"vertAlign", {P::kVertical}},
      {"cs", {P::kComplex}},
      {"rtl", {P::kComplex}},
  };
  return properties;
}

void ReadFonts(const XmlPart& part, XmlNode element, CharacterValues& values, FontLibrary& fonts,
               const ThemeFonts& theme) {
  struct Slot {
    const char* name;
    const char* theme;
  };
  constexpr std::array<Slot, 4> kSlots{
      {{"ascii", "asciiTheme"}, {"hAnsi", "hAnsiTheme"}, {"eastAsia", "eastAsiaTheme"}, {"cs", "cstheme"}}};
  for (std::size_t i = 0; i < kSlots.size(); ++i) {
    const std::string& themed = theme.Name(part.Attribute(element, kSlots[i].theme).Value());
    const std::string name(themed.empty() ? part.Attribute(element, kSlots[i].name).Value() : themed);
    if (!name.empty()) values.families[i] = fonts.Family(name);
  }
  if (const XmlAttribute hint = part.Attribute(element, "hint")) {
    values.eastAsiaHint = std::string_view(hint.Value()) == "eastAsia";
  }
}

std::optional<int> Clamped(std::optional<int> value, int least, int most) {
  if (value) *value = std::clamp(*value, least, most);
  return value;
}

/// What a border takes above or below the text.
int BorderRoom(const XmlPart& part, XmlNode border) {
  const std::string_view kind = ValueOf(part, border);
  if (kind.empty() || kind == "nil" || kind == "none") return 0;
  const int eighths = std::clamp(NumberOf(part, border, "sz").value_or(4), 2, 96);
  const int space = std::clamp(NumberOf(part, border, "space").value_or(0), 0, 31);
  const int lines = kind == "double" ? 3 : kind == "triple" ? 5 : 1;
  return eighths * 20 / 8 * lines + space * 20;
}

void ReadBorders(const XmlPart& part, XmlNode borders, ParagraphFormat& format) {
  format.borderTop = BorderRoom(part, part.Child(borders, "top"));
  format.borderBottom = BorderRoom(part, part.Child(borders, "bottom"));
  format.borderBetween = BorderRoom(part, part.Child(borders, "between"));
  std::string all;
  for (const XmlNode border : borders.Children()) {
    all += LocalName(border);
    for (const XmlAttribute& attribute : border.Attributes()) all.append("|").append(attribute.Value());
    all += ';';
  }
  format.borders = all;
  format.box = std::make_shared<BoxBorders>(ReadBoxBorders(part, borders));
}

char16_t LeaderOf(std::string_view name) {
  if (name == "dot") return u'.';
  if (name == "middleDot") return u'\u00B7';
  if (name == "hyphen") return u'-';
  return name == "underscore" || name == "heavy" ? u'_' : u'\0';
}

page::Stroke UnderlineOf(std::string_view kind) {
  using page::Stroke;
  if (kind.empty() || kind == "none") return Stroke::kNone;
  if (kind == "double") return Stroke::kDouble;
  if (kind.starts_with("wav")) return Stroke::kWave;
  if (kind.starts_with("dotted")) return Stroke::kDotted;
  return kind.starts_with("dash") || kind.starts_with("dot") ? Stroke::kDashed : Stroke::kSolid;
}

void ReadTabs(const XmlPart& part, XmlNode tabs, ParagraphFormat& format) {
  for (const XmlNode tab : tabs.Children(part.Name("tab"))) {
    const std::optional<int> position = TwipsOf(part, tab, "pos");
    if (!position) continue;
    const std::string_view kind = ValueOf(part, tab);
    TabStop stop;
    stop.position = *position;
    stop.kind = kind == "clear"                    ? TabKind::kClear
                : kind == "center"                 ? TabKind::kCenter
                : kind == "right" || kind == "end" ? TabKind::kRight
                : kind == "decimal"                ? TabKind::kDecimal
                : kind == "bar"                    ? TabKind::kBar
                                                   : TabKind::kLeft;
    stop.leader = LeaderOf(part.Attribute(tab, "leader").Value());
    format.tabs.push_back(stop);
  }
  std::stable_sort(format.tabs.begin(), format.tabs.end(),
                   [](const TabStop& a, const TabStop& b) { return a.position < b.position; });
}

void ReadIndents(const XmlPart& part, XmlNode indents, ParagraphFormat& format) {
  // Strict documents call the sides start and end.
  for (const char* side : {"start", "left"}) {
    if (const auto twips = TwipsOf(part, indents, side)) format.left = twips;
  }
  for (const char* side : {"end", "right"}) {
    if (const auto twips = TwipsOf(part, indents, side)) format.right = twips;
  }
  if (const auto twips = TwipsOf(part, indents, "firstLine")) format.firstLine = twips;
  if (const auto twips = TwipsOf(part, indents, "hanging")) format.firstLine = -*twips;
}

void ReadSpacing(const XmlPart& part, XmlNode spacing, ParagraphFormat& format) {
  const auto onOff = [&](const char* name) -> std::optional<bool> {
    const std::string_view text = part.Attribute(spacing, name).Value();
    if (text.empty()) return {};
    return text == "1" || text == "true" || text == "on";
  };
  format.before = Clamped(TwipsOf(part, spacing, "before"), 0, kLargest);
  format.after = Clamped(TwipsOf(part, spacing, "after"), 0, kLargest);
  format.beforeAuto = onOff("beforeAutospacing");
  format.afterAuto = onOff("afterAutospacing");
  format.beforeLines = NumberOf(part, spacing, "beforeLines");
  format.afterLines = NumberOf(part, spacing, "afterLines");
  format.line = Clamped(TwipsOf(part, spacing, "line"), -kLargest, kLargest);
  const std::string_view rule = part.Attribute(spacing, "lineRule").Value();
  if (rule == "auto") format.lineRule = LineRule::kAuto;
  if (rule == "exact") format.lineRule = LineRule::kExact;
  if (rule == "atLeast") format.lineRule = LineRule::kAtLeast;
  // A line height without its rule counts lines, whatever rule a base had.
  if (format.line && !format.lineRule) format.lineRule = LineRule::kAuto;
}

Alignment AlignmentOf(std::string_view name) {
  if (name == "center") return Alignment::kCenter;
  if (name == "right" || name == "end") return Alignment::kRight;
  if (name == "both" || name == "distribute" || name.ends_with("Kashida")) return Alignment::kBoth;
  return Alignment::kLeft;
}

}  // namespace

std::string_view LocalName(XmlNode node) {
  const std::string_view name = node.Name();
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

std::string_view ValueOf(const XmlPart& part, XmlNode element) { return part.Attribute(element, "val").Value(); }

std::optional<int> NumberOf(const XmlPart& part, XmlNode element, const char* attribute) {
  const std::string_view text = part.Attribute(element, attribute).Value();
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return {};
  return std::clamp(number, -1000000, 1000000);
}

std::optional<int> TwipsOf(const XmlPart& part, XmlNode element, const char* attribute) {
  return Clamped(ReadTwips(part.Attribute(element, attribute)), -kLargest, kLargest);
}

std::optional<bool> OnOffOf(const XmlPart& part, XmlNode element) {
  if (!element) return {};
  const std::string_view text = ValueOf(part, element);
  return text != "0" && text != "false" && text != "off";
}

void CharacterValues::Inherit(const CharacterValues& base) {
  for (std::size_t i = 0; i < families.size(); ++i) Fill(families[i], base.families[i]);
  for (std::size_t i = 0; i < toggles.size(); ++i) Fill(toggles[i], base.toggles[i]);
  Fill(size, base.size);
  Fill(sizeComplex, base.sizeComplex);
  Fill(spacing, base.spacing);
  Fill(scale, base.scale);
  Fill(raise, base.raise);
  Fill(kerning, base.kerning);
  Fill(vertical, base.vertical);
  Fill(complex, base.complex);
  Fill(eastAsiaHint, base.eastAsiaHint);
  Fill(color, base.color);
  Fill(highlight, base.highlight);
  Fill(shading, base.shading);
  Fill(underline, base.underline);
}

void ParagraphFormat::Inherit(const ParagraphFormat& base) {
  Fill(alignment, base.alignment);
  Fill(left, base.left);
  Fill(right, base.right);
  Fill(firstLine, base.firstLine);
  Fill(before, base.before);
  Fill(after, base.after);
  Fill(beforeAuto, base.beforeAuto);
  Fill(afterAuto, base.afterAuto);
  Fill(beforeLines, base.beforeLines);
  Fill(afterLines, base.afterLines);
  Fill(line, base.line);
  Fill(lineRule, base.lineRule);
  Fill(contextual, base.contextual);
  Fill(keepNext, base.keepNext);
  Fill(keepLines, base.keepLines);
  Fill(pageBreakBefore, base.pageBreakBefore);
  Fill(widowControl, base.widowControl);
  Fill(snapToGrid, base.snapToGrid);
  Fill(hangsPunctuation, base.hangsPunctuation);
  Fill(rightToLeft, base.rightToLeft);
  Fill(numberId, base.numberId);
  Fill(numberLevel, base.numberLevel);
  Fill(borderTop, base.borderTop);
  Fill(borderBottom, base.borderBottom);
  Fill(borderBetween, base.borderBetween);
  Fill(borders, base.borders);
  if (!box) box = base.box;
  Fill(shading, base.shading);
  if (base.tabs.empty()) return;
  // A stop here, a clearing one too, replaces that of the base at its place.
  const std::size_t own = tabs.size();
  for (const TabStop& stop : base.tabs) {
    const auto end = tabs.begin() + static_cast<std::ptrdiff_t>(own);
    if (std::none_of(tabs.begin(), end, [&](const TabStop& mine) { return mine.position == stop.position; })) {
      tabs.push_back(stop);
    }
  }
  std::stable_sort(tabs.begin(), tabs.end(),
                   [](const TabStop& a, const TabStop& b) { return a.position < b.position; });
}

CharacterValues ReadCharacterValues(const XmlPart& part, XmlNode rPr, FontLibrary& fonts, const ThemeFonts& theme) {
  CharacterValues values;
  for (const XmlNode child : rPr.Children()) {
    const auto found = CharacterProperties().find(LocalName(child));
    if (found == CharacterProperties().end()) continue;
    switch (found->second.property) {
      case CharacterProperty::kFonts:
        ReadFonts(part, child, values, fonts, theme);
        break;
      case CharacterProperty::kToggle:
        values.toggles[found->second.toggle] = OnOffOf(part, child);
        break;
      case CharacterProperty::kSize:
        values.size = Clamped(NumberOf(part, child), 2, 3276);
        break;
      case CharacterProperty::kSizeComplex:
        values.sizeComplex = Clamped(NumberOf(part, child), 2, 3276);
        break;
      case CharacterProperty::kSpacing:
        values.spacing = TwipsOf(part, child, "val");
        break;
      case CharacterProperty::kScale:
        values.scale = Clamped(NumberOf(part, child), 1, 600);
        break;
      case CharacterProperty::kRaise:
        values.raise = Clamped(NumberOf(part, child), -3168, 3168);
        break;
      case CharacterProperty::kKerning:
        values.kerning = NumberOf(part, child);
        break;
      case CharacterProperty::kVertical: {
        const std::string_view value = ValueOf(part, child);
        values.vertical = value == "superscript" ? 1 : value == "subscript" ? -1 : 0;
        break;
      }
      case CharacterProperty::kComplex:
        values.complex = OnOffOf(part, child);
        break;
      case CharacterProperty::kColor:
        values.color = ParseColor(ValueOf(part, child));
        break;
      case CharacterProperty::kHighlight:
        values.highlight = HighlightColor(part, child);
        break;
      case CharacterProperty::kShading:
        values.shading = ShadingColor(part, child);
        break;
      case CharacterProperty::kUnderline:
        values.underline = UnderlineOf(ValueOf(part, child));
        break;
    }
  }
  return values;
}

ParagraphFormat ReadParagraphFormat(const XmlPart& part, XmlNode pPr) {
  ParagraphFormat format;
  for (const XmlNode child : pPr.Children()) {
    const std::string_view name = LocalName(child);
    if (name == "jc") {
      format.alignment = AlignmentOf(ValueOf(part, child));
    } else if (name == "ind") {
      ReadIndents(part, child, format);
    } else if (name == "spacing") {
      ReadSpacing(part, child, format);
    } else if (name == "contextualSpacing") {
      format.contextual = OnOffOf(part, child);
    } else if (name == "keepNext") {
      format.keepNext = OnOffOf(part, child);
    } else if (name == "keepLines") {
      format.keepLines = OnOffOf(part, child);
    } else if (name == "pageBreakBefore") {
      format.pageBreakBefore = OnOffOf(part, child);
    } else if (name == "widowControl") {
      format.widowControl = OnOffOf(part, child);
    } else if (name == "snapToGrid") {
      format.snapToGrid = OnOffOf(part, child);
    } else if (name == "overflowPunct") {
      format.hangsPunctuation = OnOffOf(part, child);
    } else if (name == "bidi") {
      format.rightToLeft = OnOffOf(part, child);
    } else if (name == "numPr") {
      if (const auto id = part.Child(child, "numId")) format.numberId = std::string(ValueOf(part, id));
      format.numberLevel = NumberOf(part, part.Child(child, "ilvl"));
    } else if (name == "pBdr") {
      ReadBorders(part, child, format);
    } else if (name == "shd") {
      format.shading = ShadingColor(part, child);
    } else if (name == "tabs") {
      ReadTabs(part, child, format);
    }
  }
  return format;
}

}  // namespace docx::layout
