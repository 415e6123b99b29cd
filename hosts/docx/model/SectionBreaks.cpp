#include "hosts/docx/model/SectionBreaks.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/docx/styles/PropertyValues.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

// Word's own page where a section states nothing: Letter with margins of an inch.
constexpr int kDefaultWidth = 12240;
constexpr int kDefaultMargin = 1440;
constexpr int kDefaultSpacing = 720;
constexpr int kMostColumns = 45;  // Word's limit

/// The section properties that follow an element in document order, its own included.
XmlNode NextSection(const XmlPart& part, XmlNode node) {
  while (node) {
    const Tag tag = part.TagOf(node);
    if (tag == Tag::kSectPr) return node;
    // Sections end in paragraphs of the body or of what wraps them, never in tables.
    if (tag != Tag::kR && tag != Tag::kTbl && node.FirstChild()) {
      node = node.FirstChild();
      continue;
    }
    while (node && !node.NextSibling()) node = node.Parent();
    node = node.NextSibling();
  }
  return {};
}

int Twips(const XmlPart& part, XmlNode node, const char* attribute, int missing) {
  return ReadTwips(part.Attribute(node, attribute)).value_or(missing);
}

/// Of columns that each have a width of their own.
std::optional<int> NarrowestColumn(const XmlPart& part, XmlNode columns) {
  const std::string_view equal = part.Attribute(columns, "equalWidth").Value();
  if (equal != "0" && equal != "false" && equal != "off") return {};
  std::optional<int> narrowest;
  for (const XmlNode column : columns.Children(part.Name("col"))) {
    const std::optional<int> width = ReadTwips(part.Attribute(column, "w"));
    if (width) narrowest = std::min(*width, narrowest.value_or(*width));
  }
  return narrowest;
}

void RemoveAll(XmlPart& part, XmlNode section, const char* local) {
  while (section.RemoveChild(part.Name(local))) {
  }
}

/// Puts a child where the order of a section's properties wants it.
XmlNode InsertOrdered(XmlPart& part, XmlNode section, const char* local) {
  static constexpr std::array<const char*, 21> kOrder{
      "headerReference", "footerReference", "footnotePr",    "endnotePr", "type",      "pgSz",     "pgMar",
      "paperSrc",        "pgBorders",       "lnNumType",     "pgNumType", "cols",      "formProt", "vAlign",
      "noEndnote",       "titlePg",         "textDirection", "bidi",      "rtlGutter", "docGrid",  "printerSettings"};
  const auto rank = [&](std::string_view name) {
    const auto found =
        std::find_if(kOrder.begin(), kOrder.end(), [&](const char* known) { return name == part.Name(known).text; });
    return found - kOrder.begin();
  };
  if (const XmlNode present = section.Child(part.Name(local))) return present;
  const auto own = rank(part.Name(local).text);
  for (XmlNode child : section.Children()) {
    if (child.Type() == XmlType::kElement && rank(child.Name()) > own) {
      return section.InsertChildBefore(part.Name(local), child);
    }
  }
  return section.AppendChild(part.Name(local));
}

/// A section that goes on in the middle of a page: header, footer and page numbers run on from the one before.
void MakeContinuous(XmlPart& part, XmlNode section) {
  for (const char* local : {"headerReference", "footerReference", "titlePg", "sectPrChange"}) {
    RemoveAll(part, section, local);
  }
  if (XmlNode numbers = section.Child(part.Name("pgNumType"))) {
    part.RemoveAttribute(numbers, "start");
    if (numbers.AttributeText().empty()) section.RemoveChild(numbers);
  }
  part.SetAttribute(InsertOrdered(part, section, "type"), "val", "continuous");
}

/// Makes a copy's page set-up one that the schema takes, as Word reads it anyway: what it asks for is there, and
/// measures are whole.
void CompletePageSetup(XmlPart& part, XmlNode section) {
  XmlNode margins = section.Child(part.Name("pgMar"));
  if (margins) {
    for (const char* local : {"top", "right", "bottom", "left"}) {
      if (!part.Attribute(margins, local)) part.SetAttribute(margins, local, "1440");
    }
    for (const char* local : {"header", "footer"}) {
      if (!part.Attribute(margins, local)) part.SetAttribute(margins, local, "720");
    }
    if (!part.Attribute(margins, "gutter")) part.SetAttribute(margins, "gutter", "0");
  }
  for (XmlNode node : {margins, section.Child(part.Name("pgSz"))}) {
    std::vector<std::pair<std::string, int>> whole;
    for (const XmlAttribute& attribute : node.Attributes()) {
      const std::string_view value = attribute.Value();
      // With a unit behind it a fraction is a measure.
      if (value.find('.') == std::string_view::npos || value.find_first_not_of("-.0123456789") < value.size()) continue;
      if (const std::optional<int> twips = ReadTwips(attribute)) whole.emplace_back(attribute.Name(), *twips);
    }
    for (const auto& [name, twips] : whole) node.SetAttribute(name, twips);
  }
}

/// Where section properties belong among a paragraph's properties: in front of this, or at the end without it.
XmlNode PropertyBehindSection(XmlPart& part, XmlNode& properties, XmlNode paragraph) {
  properties = part.Child(paragraph, Tag::kPPr);
  if (!properties) properties = paragraph.PrependChild(part.Name("pPr"));
  return properties.Child(part.Name("pPrChange"));
}

XmlNode CopyInto(XmlPart& part, XmlNode paragraph, XmlNode section) {
  XmlNode properties;
  const XmlNode behind = PropertyBehindSection(part, properties, paragraph);
  return behind ? properties.InsertCopyBefore(section, behind) : properties.AppendCopy(section);
}

void MoveInto(XmlPart& part, XmlNode paragraph, XmlNode section) {
  XmlNode properties;
  const XmlNode behind = PropertyBehindSection(part, properties, paragraph);
  if (behind) {
    properties.InsertMoveBefore(section, behind);
  } else {
    properties.AppendMove(section);
  }
}

/// Notes what a section was. Headers and footers cannot be noted: they go on from the section before.
void NoteChange(XmlPart& part, XmlNode section, XmlNode original, const RevisionStamp& stamp) {
  XmlNode change = section.AppendChild(part.Name("sectPrChange"));
  Stamp(part, change, stamp);
  XmlNode was = change.AppendCopy(original);
  for (const char* local : {"headerReference", "footerReference", "sectPrChange"}) {
    RemoveAll(part, was, local);
  }
  if (const XmlNode mark = was.FirstChild(); mark.Type() == XmlType::kInstruction) was.RemoveChild(mark);
  CompletePageSetup(part, was);
}

}  // namespace

XmlNode SectionAt(const Story& main, Position position) { return NextSection(main.Part(), main.ParagraphAt(position)); }

int ColumnWidth(const XmlPart& part, XmlNode section) {
  const XmlNode size = section.Child(part.Name("pgSz"));
  const XmlNode margins = section.Child(part.Name("pgMar"));
  const XmlNode columns = section.Child(part.Name("cols"));
  if (const std::optional<int> narrowest = NarrowestColumn(part, columns)) return *narrowest;
  const int text = Twips(part, size, "w", kDefaultWidth) - Twips(part, margins, "left", kDefaultMargin) -
                   Twips(part, margins, "right", kDefaultMargin) - Twips(part, margins, "gutter", 0);
  const int count = std::clamp(part.Attribute(columns, "num").AsInt(1), 1, kMostColumns);
  return (text - (count - 1) * Twips(part, columns, "space", kDefaultSpacing)) / count;
}

void EncloseInSection(Story& main, Position firstMark, Position secondMark, int columns, const Tracking* tracked) {
  XmlPart& part = main.Part();
  XmlNode around = SectionAt(main, secondMark);
  if (!around) {
    around = part.Child(part.Root(), Tag::kBody).AppendChild(part.Name("sectPr"));
    around.AppendChild(XmlType::kInstruction).SetTarget("kelvarin");
    around.FirstChild().SetValue("added");
  }
  // The element itself goes to the stretch before, whose properties it holds; what goes on is a copy.
  const XmlNode original = around;
  around = original.Parent().InsertCopyAfter(original, original);
  MoveInto(part, main.ParagraphAt(firstMark), original);
  MakeContinuous(part, around);
  CompletePageSetup(part, around);
  XmlNode own = CopyInto(part, main.ParagraphAt(secondMark), around);
  XmlNode cols = InsertOrdered(part, own, "cols");
  while (cols.FirstChild()) cols.RemoveChild(cols.FirstChild());
  const std::string space = std::to_string(Twips(part, cols, "space", kDefaultSpacing));
  part.RemoveAttribute(cols, "equalWidth");
  part.SetAttribute(cols, "num", std::to_string(columns).c_str());
  part.SetAttribute(cols, "space", space.c_str());
  if (tracked != nullptr) NoteChange(part, around, original, tracked->Next());
  main.SetMarkCharacter(firstMark, word::kPageBreak);
  main.SetMarkCharacter(secondMark, word::kPageBreak);
}

void OpenSection(Story& main, Position firstMark, Position end) {
  XmlPart& part = main.Part();
  XmlNode kept = part.Child(part.Child(main.ParagraphAt(firstMark), Tag::kPPr), Tag::kSectPr);
  XmlNode around = SectionAt(main, end);
  if (!kept || !around || kept == around) return;
  const bool added = kept.FirstChild().Type() == XmlType::kInstruction;
  if (!added) around.Parent().InsertMoveBefore(kept, around);
  around.Parent().RemoveChild(around);
  if (added) kept.Parent().RemoveChild(kept);
  main.SetMarkCharacter(firstMark, word::kParagraphMark);
}

}  // namespace docx
