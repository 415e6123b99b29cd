#include "hosts/docx/styles/ParagraphProperties.h"

#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/docx/styles/Marks.h"
#include "hosts/docx/styles/PropertyContainer.h"

namespace docx {

namespace {

constexpr const char* kAlignment = "jc";

struct Side {
  const char* twips;
  const char* lines;
  const char* automatic;
  SpacingValues ParagraphValues::*values;
};

constexpr Side kBefore{"before", "beforeLines", "beforeAutospacing", &ParagraphValues::before};
constexpr Side kAfter{"after", "afterLines", "afterAutospacing", &ParagraphValues::after};

/// Switches an override off: without a word where nothing is inherited.
void SwitchOff(XmlPart& part, XmlNode spacing, const char* attribute, bool inherited) {
  if (inherited) {
    part.SetAttribute(spacing, attribute, "0");
  } else {
    part.RemoveAttribute(spacing, attribute);
  }
}

/// Whether taking the element out and putting its value in again would not give it back.
bool NeedsMark(const XmlPart& part, XmlNode jc, int inherited) {
  const std::string_view stated = part.Attribute(jc, "val").Value();
  const std::optional<int> alignment = ParseAlignment(stated);
  // What is put in stands right before an element, or last.
  const bool hasBlanksBehind = jc.NextSibling().Type() == XmlType::kText;
  return !alignment || hasBlanksBehind || *alignment == inherited || stated != AlignmentName(*alignment, part.Strict());
}

bool SetSpace(const Formatting& formatting, XmlNode p, double points, const Side& side) {
  const int twips = static_cast<int>(std::lround(points * 20));
  const SpacingValues inherited = formatting.InheritedParagraph(p).*side.values;
  SpacingValues now = formatting.DirectParagraph(p).*side.values;
  now.Inherit(inherited);
  if (now.twips == twips && !now.Overridden()) return false;

  XmlPart& part = formatting.Part();
  PropertyContainer pPr = PropertyContainer::OfParagraph(part, p);
  XmlNode spacing = pPr.Ensure("spacing");
  if (inherited.twips == twips) {
    part.RemoveAttribute(spacing, side.twips);
  } else {
    part.SetAttribute(spacing, side.twips, std::to_string(twips));
  }
  SwitchOff(part, spacing, side.lines, inherited.lines.value_or(0) != 0);
  SwitchOff(part, spacing, side.automatic, inherited.automatic.value_or(false));
  if (spacing.AttributeText().empty()) pPr.Remove(spacing);
  part.Touch();
  return true;
}

}  // namespace

bool SetAlignment(const Formatting& formatting, XmlNode p, int alignment) {
  XmlPart& part = formatting.Part();
  const char* name = AlignmentName(alignment, part.Strict());
  if (formatting.Alignment(p) == alignment) return false;
  PropertyContainer pPr = PropertyContainer::OfParagraph(part, p);
  const int inherited = *formatting.InheritedParagraph(p).alignment;
  const XmlNode existing = pPr.Find(kAlignment);
  XmlNode mark = FindMark(pPr.Node(), kAlignment);
  if (mark && ParseAlignment(MarkText(mark, kAlignment)).value_or(inherited) == alignment) {
    part.SetAttribute(existing, "val", MarkText(mark, kAlignment).c_str());
    mark.Parent().RemoveChild(mark);
  } else if (!mark && existing && NeedsMark(part, existing, inherited)) {
    const std::string stated(part.Attribute(existing, "val").Value());
    MakeMark(existing.Parent().InsertChildBefore(XmlType::kInstruction, existing),
             std::string(kAlignment) + " " + stated);
    part.SetAttribute(existing, "val", name);
  } else if (!mark && inherited == alignment) {
    pPr.Remove(existing);
  } else {
    part.SetAttribute(pPr.Ensure(kAlignment), "val", name);
  }
  part.Touch();
  return true;
}

void DropAlignmentMark(XmlNode pPr) {
  if (const XmlNode mark = FindMark(pPr, kAlignment)) pPr.RemoveChild(mark);
}

bool SetSpaceBefore(const Formatting& formatting, XmlNode p, double points) {
  return SetSpace(formatting, p, points, kBefore);
}

bool SetSpaceAfter(const Formatting& formatting, XmlNode p, double points) {
  return SetSpace(formatting, p, points, kAfter);
}

}  // namespace docx
