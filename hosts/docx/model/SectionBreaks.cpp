#include "hosts/docx/model/SectionBreaks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/word/Constants.h"

namespace docx {

namespace {

// Word's own page where a section states nothing: Letter with margins of an inch.
constexpr int kDefaultWidth = 12240;
constexpr int kDefaultMargin = 1440;
constexpr int kDefaultSpacing = 720;

/// The section properties that follow an element in document order, its own included.
pugi::xml_node NextSection(const XmlPart& part, pugi::xml_node node) {
  while (node) {
    const Tag tag = part.TagOf(node);
    if (tag == Tag::kSectPr) return node;
    // Sections end in paragraphs of the body or of what wraps them, never in tables.
    if (tag != Tag::kR && tag != Tag::kTbl && node.first_child()) {
      node = node.first_child();
      continue;
    }
    while (node && !node.next_sibling()) node = node.parent();
    node = node.next_sibling();
  }
  return {};
}

int Twips(const XmlPart& part, pugi::xml_node node, const char* attribute, int missing) {
  return part.Attribute(node, attribute).as_int(missing);
}

void RemoveAll(XmlPart& part, pugi::xml_node section, const char* local) {
  while (section.remove_child(part.Name(local))) {
  }
}

/// Puts a child where the order of a section's properties wants it.
pugi::xml_node InsertOrdered(XmlPart& part, pugi::xml_node section, const char* local) {
  static constexpr std::array<const char*, 21> kOrder{
      "headerReference", "footerReference", "footnotePr",    "endnotePr", "type",      "pgSz",     "pgMar",
      "paperSrc",        "pgBorders",       "lnNumType",     "pgNumType", "cols",      "formProt", "vAlign",
      "noEndnote",       "titlePg",         "textDirection", "bidi",      "rtlGutter", "docGrid",  "printerSettings"};
  const auto rank = [&](std::string_view name) {
    const auto found =
        std::find_if(kOrder.begin(), kOrder.end(), [&](const char* known) { return name == part.Name(known); });
    return found - kOrder.begin();
  };
  if (const pugi::xml_node present = section.child(part.Name(local))) return present;
  const auto own = rank(part.Name(local));
  for (pugi::xml_node child : section.children()) {
    if (child.type() == pugi::node_element && rank(child.name()) > own) {
      return section.insert_child_before(part.Name(local), child);
    }
  }
  return section.append_child(part.Name(local));
}

/// A section that goes on in the middle of a page: header, footer and page numbers run on from the one before.
void MakeContinuous(XmlPart& part, pugi::xml_node section) {
  for (const char* local : {"headerReference", "footerReference", "titlePg", "sectPrChange"}) {
    RemoveAll(part, section, local);
  }
  if (pugi::xml_node numbers = section.child(part.Name("pgNumType"))) {
    numbers.remove_attribute(part.Name("start"));
    if (!numbers.first_attribute()) section.remove_child(numbers);
  }
  part.SetAttribute(InsertOrdered(part, section, "type"), "val", "continuous");
}

/// Makes a copy's page set-up one that the schema takes, as Word reads it anyway: what it asks for is there, and
/// measures are whole.
void CompletePageSetup(XmlPart& part, pugi::xml_node section) {
  pugi::xml_node margins = section.child(part.Name("pgMar"));
  if (margins) {
    for (const char* local : {"top", "right", "bottom", "left"}) {
      if (!part.Attribute(margins, local)) part.SetAttribute(margins, local, "1440");
    }
    for (const char* local : {"header", "footer"}) {
      if (!part.Attribute(margins, local)) part.SetAttribute(margins, local, "720");
    }
    if (!part.Attribute(margins, "gutter")) part.SetAttribute(margins, "gutter", "0");
  }
  for (const pugi::xml_node node : {margins, section.child(part.Name("pgSz"))}) {
    for (pugi::xml_attribute attribute : node.attributes()) {
      if (std::strchr(attribute.value(), '.') != nullptr) attribute.set_value(std::lround(attribute.as_double()));
    }
  }
}

/// Where section properties belong among a paragraph's properties: in front of this, or at the end without it.
pugi::xml_node PropertyBehindSection(XmlPart& part, pugi::xml_node& properties, pugi::xml_node paragraph) {
  properties = part.Child(paragraph, Tag::kPPr);
  if (!properties) properties = paragraph.prepend_child(part.Name("pPr"));
  return properties.child(part.Name("pPrChange"));
}

pugi::xml_node CopyInto(XmlPart& part, pugi::xml_node paragraph, pugi::xml_node section) {
  pugi::xml_node properties;
  const pugi::xml_node behind = PropertyBehindSection(part, properties, paragraph);
  return behind ? properties.insert_copy_before(section, behind) : properties.append_copy(section);
}

void MoveInto(XmlPart& part, pugi::xml_node paragraph, pugi::xml_node section) {
  pugi::xml_node properties;
  const pugi::xml_node behind = PropertyBehindSection(part, properties, paragraph);
  if (behind) {
    properties.insert_move_before(section, behind);
  } else {
    properties.append_move(section);
  }
}

}  // namespace

pugi::xml_node SectionAt(const Story& main, Position position) {
  return NextSection(main.Part(), main.ParagraphAt(position));
}

ColumnMeasure MeasureColumns(const XmlPart& part, pugi::xml_node section) {
  const pugi::xml_node size = section.child(part.Name("pgSz"));
  const pugi::xml_node margins = section.child(part.Name("pgMar"));
  const pugi::xml_node columns = section.child(part.Name("cols"));
  ColumnMeasure measure;
  measure.textWidth = Twips(part, size, "w", kDefaultWidth) - Twips(part, margins, "left", kDefaultMargin) -
                      Twips(part, margins, "right", kDefaultMargin) - Twips(part, margins, "gutter", 0);
  measure.spacing = Twips(part, columns, "space", kDefaultSpacing);
  return measure;
}

void EncloseInSection(Story& main, Position firstMark, Position secondMark, int columns) {
  XmlPart& part = main.Part();
  pugi::xml_node around = SectionAt(main, secondMark);
  if (!around) {
    around = part.Child(part.Root(), Tag::kBody).append_child(part.Name("sectPr"));
    around.append_child(pugi::node_pi).set_name("kelvarin");
    around.first_child().set_value("added");
  }
  // The element itself goes to the stretch before, whose properties it holds; what goes on is a copy.
  const pugi::xml_node original = around;
  around = original.parent().insert_copy_after(original, original);
  MoveInto(part, main.ParagraphAt(firstMark), original);
  MakeContinuous(part, around);
  CompletePageSetup(part, around);
  pugi::xml_node own = CopyInto(part, main.ParagraphAt(secondMark), around);
  pugi::xml_node cols = InsertOrdered(part, own, "cols");
  while (cols.first_child()) cols.remove_child(cols.first_child());
  const std::string space = std::to_string(MeasureColumns(part, own).spacing);
  cols.remove_attribute(part.Name("equalWidth"));
  part.SetAttribute(cols, "num", std::to_string(columns).c_str());
  part.SetAttribute(cols, "space", space.c_str());
  main.SetMarkCharacter(firstMark, word::kPageBreak);
  main.SetMarkCharacter(secondMark, word::kPageBreak);
}

void OpenSection(Story& main, Position firstMark, Position end) {
  XmlPart& part = main.Part();
  pugi::xml_node kept = part.Child(part.Child(main.ParagraphAt(firstMark), Tag::kPPr), Tag::kSectPr);
  pugi::xml_node around = SectionAt(main, end);
  if (!kept || !around || kept == around) return;
  const bool added = kept.first_child().type() == pugi::node_pi;
  if (!added) around.parent().insert_move_before(kept, around);
  around.parent().remove_child(around);
  if (added) kept.parent().remove_child(kept);
  main.SetMarkCharacter(firstMark, word::kParagraphMark);
}

}  // namespace docx
