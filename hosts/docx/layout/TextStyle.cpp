#include "hosts/docx/layout/TextStyle.h"

#include <algorithm>

namespace docx::layout {

namespace {

constexpr double kPerHalfPoint = 10;  // twips
constexpr double kRaisedSize = 2.0 / 3;
constexpr double kSuperscriptLift = 0.33;  // of the size that the characters would have on the line
constexpr double kSubscriptLift = -0.14;

// What is written may differ from run to run where what it says does not.
constexpr std::size_t kMostKeys = 4096;
constexpr std::size_t kLongestKey = 1024;

const CharacterValues kNoCharacterValues;
const ParagraphFormat kNoFormat;

template <typename T>
void Default(std::optional<T>& value, T otherwise) {
  if (!value) value = std::move(otherwise);
}

/// What makes two w:rPr differ: their elements with all attributes.
void AppendKey(std::string& key, XmlNode rPr) {
  for (const XmlNode child : rPr.Children()) {
    key += child.Name();
    for (const XmlAttribute& attribute : child.Attributes()) {
      key += ' ';
      key += attribute.Name();
      key += '=';
      key += attribute.Value();
    }
    key += ';';
  }
}

void AppendKey(std::string& key, const void* pointer) {
  key.append(reinterpret_cast<const char*>(&pointer), sizeof pointer);
}

}  // namespace

const TableValues* Formats::CellValues(const SheetStyle& style, const std::vector<const char*>& places) {
  std::string key;
  AppendKey(key, &style);
  for (const char* place : places) key += place;
  const auto [known, isNew] = cellValues_.try_emplace(std::move(key));
  if (isNew) {
    for (const char* place : places) {
      const auto values = style.places.find(place);
      if (values != style.places.end()) known->second.Inherit(values->second);
    }
    known->second.Inherit(style.table);
  }
  return &known->second;
}

ParagraphLook Formats::Paragraph(const XmlPart& part, XmlNode pPr, const TableValues* table) const {
  ParagraphLook look;
  look.table = table;
  look.style = styles_.Paragraph(ValueOf(part, part.Child(pPr, "pStyle")));
  look.format = ReadParagraphFormat(part, pPr);
  const ParagraphFormat& ofStyle = look.style == nullptr ? kNoFormat : look.style->paragraph;
  const bool ownNumber = look.format.numberId.has_value() || look.format.numberLevel.has_value();
  std::optional<std::string> listId = look.format.numberId;
  if (!listId) listId = ofStyle.numberId;
  if (listId) look.list = numbering_.Find(*listId);
  if (look.list != nullptr) {
    look.level = std::clamp(look.format.numberLevel.value_or(ofStyle.numberLevel.value_or(0)), 0, 8);
    if (ownNumber) look.format.Inherit(look.list->levels[static_cast<std::size_t>(look.level)].paragraph);
  }
  ParagraphFormat inherited = ofStyle;
  if (ownNumber && look.list == nullptr && look.style != nullptr && ofStyle.numberId) {
    // A paragraph without the number of its style does not keep the style's indents.
    inherited.left.reset();
    inherited.firstLine.reset();
  }
  look.format.Inherit(inherited);
  if (table != nullptr) look.format.Inherit(table->paragraph);
  look.format.Inherit(styles_.ParagraphDefaults());

  ParagraphFormat& format = look.format;
  Default(format.alignment, Alignment::kLeft);
  Default(format.left, 0);
  Default(format.right, 0);
  Default(format.firstLine, 0);
  Default(format.before, 0);
  Default(format.after, 0);
  Default(format.beforeAuto, false);
  Default(format.afterAuto, false);
  Default(format.line, 240);
  Default(format.lineRule, LineRule::kAuto);
  Default(format.contextual, false);
  Default(format.keepNext, false);
  Default(format.keepLines, false);
  Default(format.pageBreakBefore, false);
  Default(format.widowControl, true);
  Default(format.snapToGrid, true);
  Default(format.hangsPunctuation, true);
  Default(format.rightToLeft, false);
  Default(format.borderTop, 0);
  Default(format.borderBottom, 0);
  Default(format.borderBetween, 0);
  Default(format.borders, std::string());
  std::erase_if(format.tabs, [](const TabStop& stop) { return stop.kind == TabKind::kClear; });
  return look;
}

const TextStyle& Formats::Text(const XmlPart& part, XmlNode rPr, const ParagraphLook& look) {
  const std::optional<std::string_view> content = rPr ? rPr.ContentText() : std::string_view();
  if (!content || content->size() > kLongestKey) return Find(part, rPr, look);
  key_.clear();
  AppendKey(key_, look.style);
  AppendKey(key_, look.table);
  AppendKey(key_, &part);
  key_ += *content;
  const auto known = written_.find(key_);
  if (known != written_.end()) return *known->second;
  const TextStyle& found = Find(part, rPr, look);
  if (written_.size() < kMostKeys) written_.emplace(key_, &found);
  return found;
}

const TextStyle& Formats::Find(const XmlPart& part, XmlNode rPr, const ParagraphLook& look) {
  std::string key;
  AppendKey(key, look.style);
  AppendKey(key, look.table);
  AppendKey(key, rPr);
  const TextStyle*& known = known_[key];
  if (known == nullptr) {
    const CharacterValues direct = ReadCharacterValues(part, rPr, fonts_, theme_);
    const SheetStyle* style = styles_.Character(ValueOf(part, part.Child(rPr, "rStyle")));
    known = &Keep(Settle(direct, style == nullptr ? kNoCharacterValues : style->run, look));
  }
  return *known;
}

const TextStyle& Formats::Label(const XmlPart& part, XmlNode markProperties, const ParagraphLook& look) {
  const NumberLevel& level = look.list->levels[static_cast<std::size_t>(look.level)];
  std::string key;
  AppendKey(key, look.style);
  AppendKey(key, look.table);
  AppendKey(key, &level);
  AppendKey(key, markProperties);
  const TextStyle*& known = known_[key];
  if (known == nullptr) {
    CharacterValues direct = level.run;
    direct.Inherit(ReadCharacterValues(part, markProperties, fonts_, theme_));
    const SheetStyle* style = styles_.Character(ValueOf(part, part.Child(markProperties, "rStyle")));
    known = &Keep(Settle(direct, style == nullptr ? kNoCharacterValues : style->run, look));
  }
  return *known;
}

const TextStyle& Formats::Keep(const TextStyle& style) {
  kept_.push_back(style);
  return kept_.back();
}

TextStyle Formats::Settle(const CharacterValues& direct, const CharacterValues& character, const ParagraphLook& look) {
  const CharacterValues& paragraph = look.style == nullptr ? kNoCharacterValues : look.style->run;
  const CharacterValues& table = look.table == nullptr ? kNoCharacterValues : look.table->run;
  const CharacterValues& defaults = styles_.RunDefaults();
  CharacterValues all = direct;
  all.Inherit(character);
  all.Inherit(paragraph);
  all.Inherit(table);
  all.Inherit(defaults);

  const auto toggled = [&](CharacterValues::Toggle toggle) {
    if (direct.toggles[toggle]) return *direct.toggles[toggle];
    // Styles of different kinds cancel each other out; the document's defaults win over them.
    const bool styles = character.toggles[toggle].value_or(false) != paragraph.toggles[toggle].value_or(false);
    return defaults.toggles[toggle].value_or(false) || styles != table.toggles[toggle].value_or(false);
  };
  const bool bold = toggled(CharacterValues::kBold);
  const bool italic = toggled(CharacterValues::kItalic);
  const bool boldComplex = toggled(CharacterValues::kBoldComplex);
  const bool italicComplex = toggled(CharacterValues::kItalicComplex);

  TextStyle style;
  const int plain = fonts_.Family("Times New Roman");
  for (std::size_t i = 0; i < style.fonts.size(); ++i) {
    const bool complex = static_cast<Script>(i) == Script::kComplex;
    style.fonts[i] =
        &fonts_.Get(all.families[i].value_or(plain), complex ? boldComplex : bold, complex ? italicComplex : italic);
  }
  style.size = all.size.value_or(20) * kPerHalfPoint;
  style.sizeComplex = all.sizeComplex.value_or(20) * kPerHalfPoint;
  style.kerned = all.kerning.value_or(0) > 0 && all.size.value_or(20) >= *all.kerning;
  if (all.vertical.value_or(0) != 0) {
    style.lift = style.size * (*all.vertical > 0 ? kSuperscriptLift : kSubscriptLift);
    style.size *= kRaisedSize;
    style.sizeComplex *= kRaisedSize;
  }
  style.spacing = all.spacing.value_or(0);
  style.scale = all.scale.value_or(100) / 100.0;
  style.raise = all.raise.value_or(0) * kPerHalfPoint;
  style.complex = all.complex.value_or(false);
  style.eastAsiaHint = all.eastAsiaHint.value_or(false);
  style.caps = toggled(CharacterValues::kCaps);
  style.smallCaps = toggled(CharacterValues::kSmallCaps);
  style.hidden = toggled(CharacterValues::kHidden);
  style.strike = toggled(CharacterValues::kStrike);
  style.underline = all.underline.value_or(page::Stroke::kNone);
  style.color = all.color.value_or(page::kNoColor);
  style.background = all.highlight.value_or(page::kNoColor);
  if (style.background == page::kNoColor) style.background = all.shading.value_or(page::kNoColor);
  return style;
}

}  // namespace docx::layout
