#include "hosts/docx/styles/RunProperties.h"

#include <array>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

#include "hosts/docx/styles/Marks.h"
#include "hosts/docx/styles/PropertyContainer.h"
#include "platform/word/Constants.h"

namespace docx {

namespace {

constexpr const char* kHighlight = "highlight";

/// Leaves word that the element stands there although its value changes nothing.
void Remember(const XmlPart& part, pugi::xml_node highlight) {
  std::string text = kHighlight;
  if (const pugi::xml_attribute value = part.Attribute(highlight, "val")) text += std::string(" ") + value.value();
  MakeMark(highlight.parent().insert_child_before(pugi::node_pi, highlight), text);
}

void Recall(XmlPart& part, pugi::xml_node highlight, pugi::xml_node mark) {
  if (std::string_view(mark.value()) == kHighlight) {
    highlight.remove_attribute(part.Attribute(highlight, "val"));
  } else {
    part.SetAttribute(highlight, "val", MarkText(mark, kHighlight).c_str());
  }
  mark.parent().remove_child(mark);
}

bool SameAttributes(pugi::xml_node first, pugi::xml_node second) {
  const auto a = first.attributes();
  const auto b = second.attributes();
  if (std::distance(a.begin(), a.end()) != std::distance(b.begin(), b.end())) return false;
  for (const pugi::xml_attribute attribute : a) {
    const pugi::xml_attribute other = second.attribute(attribute.name());
    if (!other || std::string_view(attribute.value()) != other.value()) return false;
  }
  return true;
}

bool SameNode(pugi::xml_node first, pugi::xml_node second) {
  return first.type() == second.type() && std::string_view(first.name()) == second.name() &&
         std::string_view(first.value()) == second.value() && SameAttributes(first, second);
}

/// Node by node in document order, without recursion.
bool SameTree(pugi::xml_node first, pugi::xml_node second) {
  pugi::xml_node a = first;
  pugi::xml_node b = second;
  while (true) {
    if (!SameNode(a, b) || a.first_child().empty() != b.first_child().empty()) return false;
    if (a.first_child()) {
      a = a.first_child();
      b = b.first_child();
      continue;
    }
    while (a != first) {
      if (a.next_sibling().empty() != b.next_sibling().empty()) return false;
      if (a.next_sibling()) break;
      a = a.parent();
      b = b.parent();
    }
    if (a == first) return true;
    a = a.next_sibling();
    b = b.next_sibling();
  }
}

}  // namespace

bool SetHighlight(const Formatting& formatting, pugi::xml_node node, int colorIndex) {
  const char* name = HighlightName(colorIndex);
  if (formatting.Highlight(node) == colorIndex) return false;
  XmlPart& part = formatting.Part();
  const int inherited = formatting.InheritedHighlight(node);
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  const pugi::xml_node mark = FindMark(rPr.Node(), kHighlight);
  const pugi::xml_node existing = rPr.Find(kHighlight);
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

bool SetBold(const Formatting& formatting, pugi::xml_node node, bool bold) {
  if ((formatting.Bold(node) != 0) == bold) return false;
  XmlPart& part = formatting.Part();
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  if (formatting.InheritedRun(node).bold == bold) {
    rPr.Remove(rPr.Find("b"));
  } else if (bold) {
    pugi::xml_node b = rPr.Ensure("b");
    b.remove_attribute(part.Attribute(b, "val"));
  } else {
    part.SetAttribute(rPr.Ensure("b"), "val", "0");
  }
  part.Touch();
  return true;
}

bool SetColor(const Formatting& formatting, pugi::xml_node node, int color) {
  if (formatting.Color(node) == color) return false;
  XmlPart& part = formatting.Part();
  PropertyContainer rPr = PropertyContainer::OfRun(part, node);
  if (formatting.InheritedRun(node).color == color) {
    rPr.Remove(rPr.Find("color"));
  } else {
    std::array<char, 8> text{"auto"};
    if (color != word::wdColorAutomatic) {
      const auto rgb = static_cast<unsigned>(color);
      std::snprintf(text.data(), text.size(), "%02X%02X%02X", rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF);
    }
    pugi::xml_node element = rPr.Ensure("color");
    part.SetAttribute(element, "val", text.data());
    for (const char* theme : {"themeColor", "themeTint", "themeShade"}) {
      element.remove_attribute(part.Attribute(element, theme));
    }
  }
  part.Touch();
  return true;
}

bool SameRunFormatting(const XmlPart& part, pugi::xml_node first, pugi::xml_node second) {
  if (!SameAttributes(first, second)) return false;
  const pugi::xml_node a = part.Child(first, Tag::kRPr);
  const pugi::xml_node b = part.Child(second, Tag::kRPr);
  if (!a || !b) return a.empty() && b.empty();
  return SameTree(a, b);
}

}  // namespace docx
