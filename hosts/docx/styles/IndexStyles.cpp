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

XmlNode AppendValue(XmlPart& part, XmlNode parent, const char* local, const std::string& value) {
  XmlNode child = parent.AppendChild(part.Name(local));
  part.SetAttribute(child, "val", value.c_str());
  return child;
}

/// Styles stand last in the part, behind the defaults and the latent styles.
XmlNode AppendStyle(XmlPart& part) {
  XmlNode last;
  for (const XmlNode child : part.Root().Children()) {
    if (child.Type() == XmlType::kElement) last = child;
  }
  const XmlName& name = part.Name("style");
  return last ? part.Root().InsertChildAfter(name, last) : part.Root().AppendChild(name);
}

std::string FreeId(const Styles& styles, const std::string& wanted) {
  std::string id = wanted;
  for (int n = 2; styles.ById(id) != nullptr; ++n) id = wanted + "_" + std::to_string(n);
  return id;
}

/// Word writes a style as its difference from the one that it is based on.
void AppendSpacing(XmlPart& part, XmlNode pPr, const ParagraphValues& normal) {
  const bool after = normal.after.twips.value_or(0) != 0;
  const bool line = normal.line.value_or(kSingleLine) != kSingleLine || !normal.lineIsAuto.value_or(true);
  if (!after && !line) return;
  XmlNode spacing = pPr.AppendChild(part.Name("spacing"));
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
  XmlNode style = AppendStyle(part);
  part.SetAttribute(style, "type", "paragraph");
  part.SetAttribute(style, "styleId", id.c_str());
  MakeMark(style.AppendChild(XmlType::kInstruction), std::string(kAdded));
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
  if (!heading) style.AppendChild(part.Name("autoRedefine"));
  AppendValue(part, style, "uiPriority", "99");
  style.AppendChild(part.Name("unhideWhenUsed"));
  part.Touch();
  if (heading) {
    XmlNode rPr = style.AppendChild(part.Name("rPr"));
    for (const char* bold : {"b", "bCs"}) rPr.AppendChild(part.Name(bold));
    return id;
  }

  XmlNode pPr = style.AppendChild(part.Name("pPr"));
  AppendSpacing(part, pPr, paragraph);
  const int step = run.size.value_or(kDefaultSize) * 10;
  XmlNode indent = pPr.AppendChild(part.Name("ind"));
  part.SetAttribute(indent, part.Strict() ? "start" : "left", std::to_string(step * level).c_str());
  part.SetAttribute(indent, "hanging", std::to_string(step).c_str());
  return id;
}

RemovedIndexStyles RemoveAddedIndexStyles(XmlPart& part) {
  RemovedIndexStyles result;
  XmlNode root = part.Root();
  std::vector<XmlNode> added;
  for (const XmlNode style : root.Children(part.Name("style"))) {
    if (FindMark(style, kAdded)) added.push_back(style);
  }
  XmlNode document = root.Parent();
  const XmlNode partMark = FindMark(document, kAdded);
  std::size_t elements = 0;
  for (const XmlNode child : root.Children()) elements += child.Type() == XmlType::kElement ? 1 : 0;
  result.wholePart = partMark && elements == added.size();
  result.changed = partMark || !added.empty();
  for (XmlNode style : added) {
    const std::string_view isDefault = part.Attribute(style, "default").Value();
    if (!result.wholePart && isDefault == "1") {
      style.RemoveChild(FindMark(style, kAdded));
    } else {
      root.RemoveChild(style);
    }
  }
  if (partMark && !result.wholePart) document.RemoveChild(partMark);
  if (result.changed) part.Touch();
  return result;
}

}  // namespace docx
