#include "hosts/docx/layout/StyleSheet.h"

#include <algorithm>
#include <cstdint>

#include "hosts/docx/layout/Colors.h"
#include "hosts/docx/layout/Fonts.h"

namespace docx::layout {

namespace {

/// The version of Word, as it numbers itself.
constexpr int kKeepsHanging = 15;

template <typename T>
void Fill(std::optional<T>& value, const std::optional<T>& base) {
  if (!value) value = base;
}

SheetStyle::Kind KindOf(std::string_view type) {
  if (type.empty() || type == "paragraph") return SheetStyle::Kind::kParagraph;
  if (type == "character") return SheetStyle::Kind::kCharacter;
  return type == "table" ? SheetStyle::Kind::kTable : SheetStyle::Kind::kOther;
}

/// @param node a w:style or a w:tblStylePr
TableValues ReadTableValues(const XmlPart& part, XmlNode node, FontLibrary& fonts, const ThemeFonts& theme) {
  TableValues values;
  values.run = ReadCharacterValues(part, part.Child(node, Tag::kRPr), fonts, theme);
  values.paragraph = ReadParagraphFormat(part, part.Child(node, Tag::kPPr));
  const XmlNode tblPr = part.Child(node, "tblPr");
  values.margins = ReadCellMargins(part, part.Child(part.Child(node, "tcPr"), "tcMar"));
  values.margins.Inherit(ReadCellMargins(part, part.Child(tblPr, "tblCellMar")));
  const XmlNode borders = part.Child(tblPr, "tblBorders");
  values.borderInside = BorderWidth(part, part.Child(borders, "insideH"));
  values.borderOutside = BorderWidth(part, part.Child(borders, "top"));
  const XmlNode tcPr = part.Child(node, "tcPr");
  values.cellBorders = ReadBoxBorders(part, part.Child(tcPr, "tcBorders"));
  values.shading = ShadingColor(part, part.Child(tcPr, "shd"));
  // What a part of the table says of its borders is said of the cells there.
  (LocalName(node) == "tblStylePr" ? values.cellBorders : values.tableBorders).Inherit(ReadBoxBorders(part, borders));
  return values;
}

}  // namespace

std::optional<int> BorderWidth(const XmlPart& part, XmlNode border) {
  if (!border) return {};
  const std::string_view kind = ValueOf(part, border);
  if (kind == "nil" || kind == "none") return 0;
  const int eighths = std::clamp(NumberOf(part, border, "sz").value_or(4), 2, 96);
  return eighths * 20 / 8 * (kind == "double" ? 3 : kind == "triple" ? 5 : 1);
}

CellMargins ReadCellMargins(const XmlPart& part, XmlNode margins) {
  CellMargins read;
  const auto side = [&](const char* name) { return TwipsOf(part, part.Child(margins, name), "w"); };
  read.top = side("top");
  read.bottom = side("bottom");
  read.left = side("start");
  Fill(read.left, side("left"));
  read.right = side("end");
  Fill(read.right, side("right"));
  return read;
}

void CellMargins::Inherit(const CellMargins& base) {
  Fill(top, base.top);
  Fill(left, base.left);
  Fill(bottom, base.bottom);
  Fill(right, base.right);
}

void TableValues::Inherit(const TableValues& base) {
  run.Inherit(base.run);
  paragraph.Inherit(base.paragraph);
  margins.Inherit(base.margins);
  Fill(borderInside, base.borderInside);
  Fill(borderOutside, base.borderOutside);
  tableBorders.Inherit(base.tableBorders);
  cellBorders.Inherit(base.cellBorders);
  Fill(shading, base.shading);
}

StyleSheet::StyleSheet(const XmlPart* part, const Numbering& numbering, FontLibrary& fonts, const ThemeFonts& theme,
                       int compatibility) {
  if (part == nullptr) return;
  const XmlNode defaults = part->Child(part->Root(), "docDefaults");
  runDefaults_ = ReadCharacterValues(*part, part->Child(part->Child(defaults, "rPrDefault"), Tag::kRPr), fonts, theme);
  paragraphDefaults_ = ReadParagraphFormat(*part, part->Child(part->Child(defaults, "pPrDefault"), Tag::kPPr));

  std::vector<std::string> basedOn;
  for (const XmlNode node : part->Root().Children(part->Name("style"))) {
    SheetStyle style;
    style.id = part->Attribute(node, "styleId").Value();
    style.name = FoldFontName(ValueOf(*part, part->Child(node, "name")));
    style.kind = KindOf(part->Attribute(node, "type").Value());
    if (style.kind == SheetStyle::Kind::kTable) {
      style.table = ReadTableValues(*part, node, fonts, theme);
      for (const XmlNode place : node.Children(part->Name("tblStylePr"))) {
        style.places[std::string(part->Attribute(place, "type").Value())] = ReadTableValues(*part, place, fonts, theme);
      }
      const XmlNode tblPr = part->Child(node, "tblPr");
      style.rowBand = std::max(1, NumberOf(*part, part->Child(tblPr, "tblStyleRowBandSize")).value_or(1));
      style.columnBand = std::max(1, NumberOf(*part, part->Child(tblPr, "tblStyleColBandSize")).value_or(1));
    } else {
      style.run = ReadCharacterValues(*part, part->Child(node, Tag::kRPr), fonts, theme);
      style.paragraph = ReadParagraphFormat(*part, part->Child(node, Tag::kPPr));
    }
    const std::size_t index = styles_.size();
    byId_.emplace(style.id, index);
    const std::string_view isDefault = part->Attribute(node, "default").Value();
    if (isDefault == "1" || isDefault == "true" || isDefault == "on") {
      if (style.kind == SheetStyle::Kind::kParagraph) defaultParagraph_ = index;
      if (style.kind == SheetStyle::Kind::kCharacter) defaultCharacter_ = index;
      if (style.kind == SheetStyle::Kind::kTable) defaultTable_ = index;
    }
    basedOn.emplace_back(ValueOf(*part, part->Child(node, "basedOn")));
    styles_.push_back(std::move(style));
  }
  Resolve(basedOn, numbering, compatibility);
}

void StyleSheet::Resolve(const std::vector<std::string>& basedOn, const Numbering& numbering, int compatibility) {
  enum class State : std::uint8_t { kOpen, kOnChain, kDone };
  std::vector<State> states(styles_.size(), State::kOpen);
  // A hostile file may have chains as long as it has styles, so the way up is a list and no recursion.
  std::vector<std::size_t> chain;
  for (std::size_t first = 0; first < styles_.size(); ++first) {
    const SheetStyle* base = nullptr;
    for (std::size_t at = first; states[at] != State::kDone;) {
      states[at] = State::kOnChain;
      chain.push_back(at);
      const auto found = byId_.find(basedOn[at]);
      base = found == byId_.end() ? nullptr : &styles_[found->second];
      if (base == nullptr || base->kind != styles_[at].kind || states[found->second] == State::kOnChain) {
        base = nullptr;
        break;
      }
      at = found->second;
    }
    for (; !chain.empty(); chain.pop_back()) {
      SheetStyle& style = styles_[chain.back()];
      // A list that a style states stands between the style itself and what it is based on.
      if (style.paragraph.numberId || style.paragraph.numberLevel) {
        std::optional<std::string> id = style.paragraph.numberId;
        if (!id && base != nullptr) id = base->paragraph.numberId;
        if (const Numbering::List* list = numbering.Find(id.value_or(""))) {
          const int level =
              Numbering::LevelOf(*list, style.id).value_or(std::clamp(style.paragraph.numberLevel.value_or(0), 0, 8));
          style.paragraph.numberLevel = level;
          ParagraphFormat ofLevel = list->levels[static_cast<std::size_t>(level)].paragraph;
          ofLevel.numberId.reset();
          ofLevel.numberLevel.reset();
          style.paragraph.Inherit(ofLevel);
        }
      }
      const bool unnumbers =
          style.paragraph.numberId && numbering.Find(*style.paragraph.numberId) == nullptr && base != nullptr;
      // Up to Word 2010 a style that takes the number of its base away takes the hanging indent along.
      if (unnumbers && compatibility < kKeepsHanging && !style.paragraph.firstLine) style.paragraph.firstLine = 0;
      if (base != nullptr) {
        style.run.Inherit(base->run);
        style.paragraph.Inherit(base->paragraph);
        style.table.Inherit(base->table);
        for (const auto& [place, values] : base->places) style.places[place].Inherit(values);
      }
      states[chain.back()] = State::kDone;
      base = &style;
    }
  }
}

const SheetStyle* StyleSheet::Find(std::string_view id, SheetStyle::Kind kind,
                                   const std::optional<std::size_t>& fallback) const {
  const auto found = byId_.find(id);
  if (found != byId_.end() && styles_[found->second].kind == kind) return &styles_[found->second];
  if (found == byId_.end() && !id.empty()) missing_.emplace(id);
  return Default(fallback);
}

const SheetStyle* StyleSheet::Default(const std::optional<std::size_t>& index) const {
  return index ? &styles_[*index] : nullptr;
}

bool StyleSheet::Extend(const StyleSheet& later) {
  const auto same = [](const SheetStyle* one, const SheetStyle* other) {
    return one == other || (one != nullptr && other != nullptr && *one == *other);
  };
  if (runDefaults_ != later.runDefaults_ || paragraphDefaults_ != later.paragraphDefaults_) return false;
  for (const auto member :
       {&StyleSheet::defaultParagraph_, &StyleSheet::defaultCharacter_, &StyleSheet::defaultTable_}) {
    if (!same(Default(this->*member), later.Default(later.*member))) return false;
  }
  for (const auto& [id, index] : byId_) {
    const auto found = later.byId_.find(id);
    if (found == later.byId_.end() || styles_[index] != later.styles_[found->second]) return false;
  }
  for (const auto& [id, index] : later.byId_) {
    if (missing_.contains(id)) return false;
  }
  for (const auto& [id, index] : later.byId_) {
    if (byId_.emplace(id, styles_.size()).second) styles_.push_back(later.styles_[index]);
  }
  return true;
}

const SheetStyle* StyleSheet::Paragraph(std::string_view id) const {
  return Find(id, SheetStyle::Kind::kParagraph, defaultParagraph_);
}

const SheetStyle* StyleSheet::Character(std::string_view id) const {
  return Find(id, SheetStyle::Kind::kCharacter, defaultCharacter_);
}

const SheetStyle* StyleSheet::Table(std::string_view id) const {
  return Find(id, SheetStyle::Kind::kTable, defaultTable_);
}

}  // namespace docx::layout
