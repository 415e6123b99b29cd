#include "hosts/docx/styles/ParagraphProperties.h"

#include <cmath>
#include <string>

#include "hosts/docx/styles/PropertyContainer.h"

namespace docx {

namespace {

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
  if (formatting.InheritedParagraph(p).alignment == alignment) {
    pPr.Remove(pPr.Find("jc"));
  } else {
    part.SetAttribute(pPr.Ensure("jc"), "val", name);
  }
  part.Touch();
  return true;
}

bool SetSpaceBefore(const Formatting& formatting, XmlNode p, double points) {
  return SetSpace(formatting, p, points, kBefore);
}

bool SetSpaceAfter(const Formatting& formatting, XmlNode p, double points) {
  return SetSpace(formatting, p, points, kAfter);
}

}  // namespace docx
