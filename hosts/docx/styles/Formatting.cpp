#include "hosts/docx/styles/Formatting.h"

#include <string_view>

#include "hosts/docx/styles/TablePlaces.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

const RunValues kNoRunValues;
const ParagraphValues kNoParagraphValues;

const RunValues& RunOf(const Style* style) { return style == nullptr ? kNoRunValues : style->run; }

}  // namespace

int Formatting::Bold(XmlNode node) const {
  const std::optional<bool> direct = ReadOnOff(part_, part_.Child(DirectRun(node), "b"));
  return (direct ? *direct : InheritedBold(node)) ? -1 : 0;
}

bool Formatting::InheritedBold(XmlNode node) const { return InheritedToggle(node, &RunValues::bold); }

bool Formatting::MayHide() const { return part_.Has("vanish") || part_.Has("specVanish") || styles_.AnyHidden(); }

bool Formatting::Hidden(XmlNode node) const {
  if (!MayHide()) return false;
  const XmlNode rPr = DirectRun(node);
  if (part_.Is(node, Tag::kP)) {
    const std::optional<bool> separator = ReadOnOff(part_, part_.Child(rPr, "specVanish"));
    const RunValues& style = RunOf(ParagraphStyle(node));
    const bool inherited = style.specHidden.value_or(styles_.RunDefaults().specHidden.value_or(false));
    if (separator.value_or(inherited)) return true;
  }
  const std::optional<bool> direct = ReadOnOff(part_, part_.Child(rPr, "vanish"));
  return direct ? *direct : InheritedToggle(node, &RunValues::hidden);
}

int Formatting::Highlight(XmlNode node) const {
  if (!part_.Has("highlight")) return InheritedHighlight(node);
  const XmlNode rPr = DirectRun(node);
  if (!rPr.MayHold("highlight")) return InheritedHighlight(node);
  const std::optional<int> direct = ReadHighlight(part_, part_.Child(rPr, "highlight"));
  return direct ? *direct : InheritedHighlight(node);
}

int Formatting::InheritedHighlight(XmlNode node) const {
  return styles_.AnyHighlight() ? InheritedValue(node, &RunValues::highlight, word::wdNoHighlight)
                                : word::wdNoHighlight;
}

int Formatting::Color(XmlNode node) const {
  const std::optional<int> direct = ReadColor(part_, part_.Child(DirectRun(node), "color"));
  return direct ? *direct : InheritedColor(node);
}

int Formatting::InheritedColor(XmlNode node) const {
  return InheritedValue(node, &RunValues::color, word::wdColorAutomatic);
}

double Formatting::FontSize(XmlNode node) const {
  constexpr int kPlainSize = 20;
  const std::optional<int> direct = ReadSize(part_, part_.Child(DirectRun(node), "sz"));
  return (direct ? *direct : InheritedValue(node, &RunValues::size, kPlainSize)) / 2.0;
}

// Toggle properties: the styles of table, paragraph and character cancel each other out, and the document's defaults
// win over them.
bool Formatting::InheritedToggle(XmlNode node, std::optional<bool> RunValues::*value) const {
  if ((styles_.RunDefaults().*value).value_or(false)) return true;
  const XmlNode p = ParagraphOf(node);
  const bool character = (RunOf(CharacterStyle(DirectRun(node))).*value).value_or(false);
  const bool paragraph = (RunOf(ParagraphStyle(p)).*value).value_or(false);
  return (character != paragraph) != OfTable(p, value).value_or(false);
}

int Formatting::InheritedValue(XmlNode node, std::optional<int> RunValues::*value, int otherwise) const {
  const XmlNode p = ParagraphOf(node);
  if (const std::optional<int> character = RunOf(CharacterStyle(DirectRun(node))).*value) return *character;
  if (const std::optional<int> paragraph = RunOf(ParagraphStyle(p)).*value) return *paragraph;
  if (const std::optional<int> table = OfTable(p, value)) return *table;
  return (styles_.RunDefaults().*value).value_or(otherwise);
}

template <typename T>
std::optional<T> Formatting::OfTable(XmlNode p, std::optional<T> RunValues::*value) const {
  if (!(styles_.InTables().*value)) return {};
  const XmlNode cell = CellAround(part_, p);
  if (!cell) return {};
  const XmlNode tblPr = part_.Child(TableAround(part_, cell), "tblPr");
  const Style* style = styles_.Table(part_.Attribute(part_.Child(tblPr, "tblStyle"), "val").Value());
  if (style == nullptr) return {};
  const auto ofPlace = [&](const std::string_view place) {
    const auto found = style->places.find(place);
    return found == style->places.end() ? std::optional<T>() : found->second.*value;
  };
  const bool bands = ofPlace("band1Horz") || ofPlace("band2Horz") || ofPlace("band1Vert") || ofPlace("band2Vert");
  const CellPlace place = PlaceOfCell(part_, cell, bands);
  for (const char* each : TablePlaces(ReadTableLook(part_, tblPr), place, style->rowBand, style->columnBand)) {
    if (const std::optional<T> stated = ofPlace(each)) return stated;
  }
  return style->run.*value;
}

int Formatting::Alignment(XmlNode p) const {
  return DirectParagraph(p).alignment.value_or(*InheritedParagraph(p).alignment);
}

double Formatting::SpaceBefore(XmlNode p) const {
  return DirectParagraph(p).before.twips.value_or(*InheritedParagraph(p).before.twips) / 20.0;
}

double Formatting::SpaceAfter(XmlNode p) const {
  return DirectParagraph(p).after.twips.value_or(*InheritedParagraph(p).after.twips) / 20.0;
}

ParagraphValues Formatting::DirectParagraph(XmlNode p) const {
  return ReadParagraphValues(part_, part_.Child(p, Tag::kPPr));
}

ParagraphValues Formatting::InheritedParagraph(XmlNode p) const {
  const Style* style = ParagraphStyle(p);
  ParagraphValues values = style == nullptr ? kNoParagraphValues : style->paragraph;
  values.Inherit(styles_.ParagraphDefaults());
  ParagraphValues none;
  none.alignment = word::wdAlignParagraphLeft;
  none.before.twips = 0;
  none.after.twips = 0;
  values.Inherit(none);
  return values;
}

XmlNode Formatting::DirectRun(XmlNode node) const {
  return part_.Child(part_.Is(node, Tag::kP) ? part_.Child(node, Tag::kPPr) : node, Tag::kRPr);
}

XmlNode Formatting::ParagraphOf(XmlNode node) const {
  while (node && !part_.Is(node, Tag::kP)) node = node.Parent();
  return node;
}

const Style* Formatting::ParagraphStyle(XmlNode p) const {
  return styles_.Paragraph(part_.Attribute(part_.Child(part_.Child(p, Tag::kPPr), "pStyle"), "val").Value());
}

const Style* Formatting::CharacterStyle(XmlNode rPr) const {
  return styles_.Character(part_.Attribute(part_.Child(rPr, "rStyle"), "val").Value());
}

}  // namespace docx
