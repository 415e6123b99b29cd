#include "hosts/docx/styles/RunProperties.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "hosts/docx/styles/Marks.h"
#include "hosts/docx/styles/PropertyContainer.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

constexpr char kHighlight[] = "highlight";

/// Leaves word that the element stands there although its value changes nothing.
void Remember(const XmlPart& part, XmlNode highlight) {
  std::string text = kHighlight;
  if (const XmlAttribute value = part.Attribute(highlight, "val")) text.append(" ").append(value.Value());
  MakeMark(highlight.Parent().InsertChildBefore(XmlType::kInstruction, highlight), text);
}

void Recall(XmlPart& part, XmlNode highlight, XmlNode mark) {
  if (mark.Value() == kHighlight) {
    part.RemoveAttribute(highlight, "val");
  } else {
    part.SetAttribute(highlight, "val", MarkText(mark, kHighlight));
  }
  mark.Parent().RemoveChild(mark);
}

std::size_t Count(const XmlAttributes& attributes) {
  std::size_t count = 0;
  for ([[maybe_unused]] const XmlAttribute& attribute : attributes) ++count;
  return count;
}

bool SameAttributes(XmlNode first, XmlNode second) {
  if (first.AttributeText() == second.AttributeText()) return true;
  if (Count(first.Attributes()) != Count(second.Attributes())) return false;
  for (const XmlAttribute& attribute : first.Attributes()) {
    const XmlAttribute other = second.Attribute(attribute.Name());
    if (!other || attribute.Value() != other.Value()) return false;
  }
  return true;
}

bool SameNode(XmlNode first, XmlNode second) {
  return first.Type() == second.Type() && first.Name() == second.Name() && first.Value() == second.Value() &&
         SameAttributes(first, second);
}

/// Whether two contents, as they are written, begin elements of the same names in the same order.
bool SameElements(std::string_view first, std::string_view second) {
  // The rest from the next name on; empty when there is none.
  const auto nextName = [](std::string_view rest) {
    do {
      rest.remove_prefix(std::min(rest.find('<'), rest.size() - 1) + 1);
    } while (rest.starts_with('/'));
    return rest;
  };
  const auto endsName = [](char c) { return c == ' ' || c == '>' || c == '/' || c == '\t' || c == '\n' || c == '\r'; };
  while (!first.empty() && !second.empty()) {
    first = nextName(first);
    second = nextName(second);
    std::size_t length = 0;
    const std::size_t most = std::min(first.size(), second.size());
    while (length < most && first[length] == second[length] && !endsName(first[length])) ++length;
    const bool same =
        length == most ? first.size() == second.size() : endsName(first[length]) && endsName(second[length]);
    if (!same) return false;
  }
  return first.empty() == second.empty();
}

}  // namespace

bool SetHighlight(const Formatting& formatting, XmlNode node, int colorIndex) {
  const char* name = HighlightName(colorIndex);
  if (formatting.Highlight(node) == colorIndex) return false;
  XmlPart& part = formatting.Part();
  const int inherited = formatting.InheritedHighlight(node);
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  const XmlNode mark = FindMark(rPr.Node(), kHighlight);
  const XmlNode existing = rPr.Find(kHighlight);
  if (colorIndex == inherited && mark) {
    Recall(part, existing, mark);
  } else if (colorIndex == inherited) {
    rPr.Remove(existing);
  } else {
    if (existing && !mark && ReadHighlight(part, existing).value_or(inherited) == inherited) Remember(part, existing);
    part.SetAttribute(rPr.Ensure(kHighlight), "val", name);
  }
  part.Touch();
  return true;
}

std::size_t Highlighter::Hash::operator()(const Edit& edit) const {
  return std::hash<std::string_view>()(edit.properties) ^
         static_cast<std::size_t>(edit.inherited * 64 + edit.colorIndex);
}

bool Highlighter::Set(XmlNode run, int colorIndex) {
  XmlPart& part = formatting_.Part();
  XmlNode rPr = part.Child(run, Tag::kRPr);
  const std::string_view content = rPr.ContentText().value_or(std::string_view());
  // The same text says the same only where prefixes always mean the same.
  if (content.empty() || part.Scoped()) return SetHighlight(formatting_, run, colorIndex);
  const Edit edit{content, formatting_.InheritedHighlight(run), colorIndex};
  const auto known = edited_.find(edit);
  if (known == edited_.end()) {
    const bool changed = SetHighlight(formatting_, run, colorIndex);
    // Properties that only were a highlight have gone.
    if (part.Child(run, Tag::kRPr) == rPr) edited_.emplace(edit, rPr.SettleContent());
    return changed;
  }
  if (known->second == content) return false;
  rPr.SetContentText(known->second);
  part.Touch();
  return true;
}

bool SetBold(const Formatting& formatting, XmlNode node, bool bold) {
  if ((formatting.Bold(node) != 0) == bold) return false;
  XmlPart& part = formatting.Part();
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  if (formatting.InheritedBold(node) == bold) {
    rPr.Remove(rPr.Find("b"));
  } else if (bold) {
    XmlNode b = rPr.Ensure("b");
    part.RemoveAttribute(b, "val");
  } else {
    part.SetAttribute(rPr.Ensure("b"), "val", "0");
  }
  part.Touch();
  return true;
}

bool SetColor(const Formatting& formatting, XmlNode node, int color) {
  if (formatting.Color(node) == color) return false;
  XmlPart& part = formatting.Part();
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  if (formatting.InheritedColor(node) == color) {
    rPr.Remove(rPr.Find("color"));
  } else {
    std::array<char, 8> text{"auto"};
    if (color != word::wdColorAutomatic) {
      const auto rgb = static_cast<unsigned>(color);
      std::snprintf(text.data(), text.size(), "%02X%02X%02X", rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF);
    }
    XmlNode element = rPr.Ensure("color");
    part.SetAttribute(element, "val", text.data());
    for (const char* theme : {"themeColor", "themeTint", "themeShade"}) part.RemoveAttribute(element, theme);
  }
  part.Touch();
  return true;
}

// Node by node in document order, without recursion.
bool SameTree(XmlNode first, XmlNode second) {
  const std::optional<std::string_view> content = first.ContentText();
  const std::optional<std::string_view> other = second.ContentText();
  if (content && content == other && SameNode(first, second)) return true;
  // Told without making nodes of them, as most that differ do.
  if (content && other && !SameElements(*content, *other)) return false;
  XmlNode a = first;
  XmlNode b = second;
  while (true) {
    if (!SameNode(a, b) || a.FirstChild().Empty() != b.FirstChild().Empty()) return false;
    if (a.FirstChild()) {
      a = a.FirstChild();
      b = b.FirstChild();
      continue;
    }
    while (a != first) {
      if (a.NextSibling().Empty() != b.NextSibling().Empty()) return false;
      if (a.NextSibling()) break;
      a = a.Parent();
      b = b.Parent();
    }
    if (a == first) return true;
    a = a.NextSibling();
    b = b.NextSibling();
  }
}

bool SameRunFormatting(const XmlPart& part, XmlNode first, XmlNode second) {
  if (!SameAttributes(first, second)) return false;
  const XmlNode a = part.Child(first, Tag::kRPr);
  const XmlNode b = part.Child(second, Tag::kRPr);
  if (!a || !b) return a.Empty() && b.Empty();
  return SameTree(a, b);
}

}  // namespace docx
