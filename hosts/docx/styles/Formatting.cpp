#include "hosts/docx/styles/Formatting.h"

#include <string_view>

#include "platform/word/Constants.h"

namespace docx {

namespace {

const RunValues kNoRunValues;
const ParagraphValues kNoParagraphValues;

const RunValues& RunOf(const Style* style) { return style == nullptr ? kNoRunValues : style->run; }

/// Toggle properties: paragraph and character style cancel each other out, and the document's defaults win over both.
bool Toggle(std::optional<bool> defaults, std::optional<bool> paragraph, std::optional<bool> character) {
  return defaults.value_or(false) || paragraph.value_or(false) != character.value_or(false);
}

template <typename T>
T First(std::optional<T> a, std::optional<T> b, std::optional<T> c, T otherwise) {
  return a ? *a : b ? *b : c ? *c : otherwise;
}

}  // namespace

int Formatting::Bold(XmlNode node) const {
  const std::optional<bool> direct = ReadOnOff(part_, part_.Child(DirectRun(node), "b"));
  return (direct ? *direct : InheritedRun(node).bold) ? -1 : 0;
}

bool Formatting::MayHide() const { return part_.Has("vanish") || part_.Has("specVanish") || styles_.AnyHidden(); }

bool Formatting::Hidden(XmlNode node) const {
  if (!MayHide()) return false;
  const XmlNode rPr = DirectRun(node);
  if (part_.Is(node, Tag::kP)) {
    const std::optional<bool> separator = ReadOnOff(part_, part_.Child(rPr, "specVanish"));
    const RunValues& style = RunOf(ParagraphStyle(node));
    if (First(separator, style.specHidden, styles_.RunDefaults().specHidden, false)) return true;
  }
  const std::optional<bool> direct = ReadOnOff(part_, part_.Child(rPr, "vanish"));
  return direct ? *direct : InheritedRun(node).hidden;
}

int Formatting::Highlight(XmlNode node) const {
  if (!part_.Has("highlight")) return InheritedHighlight(node);
  const XmlNode rPr = DirectRun(node);
  if (!rPr.MayHold("highlight")) return InheritedHighlight(node);
  const std::optional<int> direct = ReadHighlight(part_, part_.Child(rPr, "highlight"));
  return direct ? *direct : InheritedHighlight(node);
}

int Formatting::InheritedHighlight(XmlNode node) const {
  return styles_.AnyHighlight() ? InheritedRun(node).highlight : word::wdNoHighlight;
}

int Formatting::Color(XmlNode node) const {
  const std::optional<int> direct = ReadColor(part_, part_.Child(DirectRun(node), "color"));
  return direct ? *direct : InheritedRun(node).color;
}

double Formatting::FontSize(XmlNode node) const {
  constexpr int kPlainSize = 20;
  const XmlNode rPr = DirectRun(node);
  const std::optional<int> direct = ReadSize(part_, part_.Child(rPr, "sz"));
  const int halfPoints =
      direct ? *direct
             : First<int>(RunOf(CharacterStyle(rPr)).size, RunOf(ParagraphStyle(ParagraphOf(node))).size,
                          styles_.RunDefaults().size, kPlainSize);
  return halfPoints / 2.0;
}

RunFormat Formatting::InheritedRun(XmlNode node) const {
  const RunValues& character = RunOf(CharacterStyle(DirectRun(node)));
  const RunValues& paragraph = RunOf(ParagraphStyle(ParagraphOf(node)));
  const RunValues& defaults = styles_.RunDefaults();
  RunFormat format;
  format.bold = Toggle(defaults.bold, paragraph.bold, character.bold);
  format.hidden = Toggle(defaults.hidden, paragraph.hidden, character.hidden);
  format.highlight = First<int>(character.highlight, paragraph.highlight, defaults.highlight, word::wdNoHighlight);
  format.color = First<int>(character.color, paragraph.color, defaults.color, word::wdColorAutomatic);
  return format;
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
