#include "hosts/docx/styles/IndexStyles.h"

#include <string_view>
#include <vector>

#include "hosts/docx/styles/Marks.h"
#include "hosts/docx/styles/Styles.h"

namespace docx {

namespace {

constexpr std::string_view kAdded = "added";
constexpr int kDefaultSize = 20;  // half-points
constexpr int kSingleLine = 240;

pugi::xml_node AppendValue(XmlPart& part, pugi::xml_node parent, const char* local, const std::string& value) {
  pugi::xml_node child = parent.append_child(part.Name(local));
  part.SetAttribute(child, "val", value.c_str());
  return child;
}

/// Styles stand last in the part, behind the defaults and the latent styles.
pugi::xml_node AppendStyle(XmlPart& part) {
  pugi::xml_node last;
  for (const pugi::xml_node child : part.Root().children()) {
    if (child.type() == pugi::node_element) last = child;
  }
  const char* name = part.Name("style");
  return last ? part.Root().insert_child_after(name, last) : part.Root().append_child(name);
}

std::string FreeId(const Styles& styles, const std::string& wanted) {
  std::string id = wanted;
  for (int n = 2; styles.ById(id) != nullptr; ++n) id = wanted + "_" + std::to_string(n);
  return id;
}

/// Word writes a style as its difference from the one that it is based on.
void AppendSpacing(XmlPart& part, pugi::xml_node pPr, const ParagraphValues& normal) {
  const bool after = normal.after.twips.value_or(0) != 0;
  const bool line = normal.line.value_or(kSingleLine) != kSingleLine || !normal.lineIsAuto.value_or(true);
  if (!after && !line) return;
  pugi::xml_node spacing = pPr.append_child(part.Name("spacing"));
  if (after) part.SetAttribute(spacing, "after", "0");
  if (line) {
    part.SetAttribute(spacing, "line", std::to_string(kSingleLine).c_str());
    part.SetAttribute(spacing, "lineRule", "auto");
  }
}

}  // namespace

std::string NewStylesPart(bool strict) {
  const std::string uri = strict ? "http://purl.oclc.org/ooxml/wordprocessingml/main"
                                 : "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
  return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<?kelvarin added?><w:styles xmlns:w=\"" +
         uri +
         "\"><w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"><?kelvarin added?>"
         "<w:name w:val=\"Normal\"/><w:qFormat/></w:style></w:styles>";
}

std::string IndexStyleName(int level) {
  return level == kIndexHeadingLevel ? "index heading" : "index " + std::to_string(level);
}

std::string EnsureIndexStyle(XmlPart& part, int level) {
  const Styles styles(&part);
  const bool heading = level == kIndexHeadingLevel;
  const std::string name = IndexStyleName(level);
  const Style* existing = styles.ByName(name);
  if (existing != nullptr && existing->type == StyleType::kParagraph) return existing->id;

  const std::string id = FreeId(styles, heading ? "IndexHeading" : "Index" + std::to_string(level));
  pugi::xml_node style = AppendStyle(part);
  part.SetAttribute(style, "type", "paragraph");
  part.SetAttribute(style, "styleId", id.c_str());
  MakeMark(style.append_child(pugi::node_pi), std::string(kAdded));
  AppendValue(part, style, "name", name);

  const Style* normal = styles.Paragraph({});
  RunValues run = styles.RunDefaults();
  ParagraphValues paragraph = styles.ParagraphDefaults();
  if (normal != nullptr) {
    AppendValue(part, style, "basedOn", normal->id);
    const Style* next = heading ? styles.ByName(IndexStyleName(1)) : normal;
    if (next != nullptr) AppendValue(part, style, "next", next->id);
    run = normal->run;
    run.Inherit(styles.RunDefaults());
    paragraph = normal->paragraph;
    paragraph.Inherit(styles.ParagraphDefaults());
  }
  if (!heading) style.append_child(part.Name("autoRedefine"));
  AppendValue(part, style, "uiPriority", "99");
  style.append_child(part.Name("unhideWhenUsed"));
  part.Touch();
  if (heading) {
    pugi::xml_node rPr = style.append_child(part.Name("rPr"));
    for (const char* bold : {"b", "bCs"}) rPr.append_child(part.Name(bold));
    return id;
  }

  pugi::xml_node pPr = style.append_child(part.Name("pPr"));
  AppendSpacing(part, pPr, paragraph);
  const int step = run.size.value_or(kDefaultSize) * 10;
  pugi::xml_node indent = pPr.append_child(part.Name("ind"));
  part.SetAttribute(indent, part.Strict() ? "start" : "left", std::to_string(step * level).c_str());
  part.SetAttribute(indent, "hanging", std::to_string(step).c_str());
  return id;
}

RemovedIndexStyles RemoveAddedIndexStyles(XmlPart& part) {
  RemovedIndexStyles result;
  pugi::xml_node root = part.Root();
  std::vector<pugi::xml_node> added;
  for (const pugi::xml_node style : root.children(part.Name("style"))) {
    if (FindMark(style, kAdded)) added.push_back(style);
  }
  pugi::xml_node document = root.parent();
  const pugi::xml_node partMark = FindMark(document, kAdded);
  std::size_t elements = 0;
  for (const pugi::xml_node child : root.children()) elements += child.type() == pugi::node_element ? 1 : 0;
  result.wholePart = partMark && elements == added.size();
  result.changed = partMark || !added.empty();
  for (pugi::xml_node style : added) {
    const std::string_view isDefault = part.Attribute(style, "default").value();
    if (!result.wholePart && isDefault == "1") {
      style.remove_child(FindMark(style, kAdded));
    } else {
      root.remove_child(style);
    }
  }
  if (partMark && !result.wholePart) document.remove_child(partMark);
  if (result.changed) part.Touch();
  return result;
}

}  // namespace docx
