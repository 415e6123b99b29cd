#include "hosts/docx/story/TextElement.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "hosts/docx/xml/Utf.h"

namespace docx {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr const char* kSpace = "xml:space";

bool Preserves(pugi::xml_node element) {
  for (; element; element = element.parent()) {
    if (const pugi::xml_attribute space = element.attribute(kSpace)) return std::strcmp(space.value(), "preserve") == 0;
  }
  return false;
}

bool HasBlankEdge(std::string_view text) {
  return !text.empty() &&
         (kBlanks.find(text.front()) != std::string_view::npos || kBlanks.find(text.back()) != std::string_view::npos);
}

bool IsText(pugi::xml_node node) { return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata; }

/// The characters that count, in UTF-8.
std::string RawText(pugi::xml_node element) {
  std::string text;
  for (const pugi::xml_node child : element.children()) {
    if (IsText(child)) text += child.value();
  }
  if (!HasBlankEdge(text) || Preserves(element)) return text;
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

void ReplaceText(pugi::xml_node element, std::string_view utf8) {
  pugi::xml_node text = element.first_child();
  while (text && !IsText(text)) text = text.next_sibling();
  if (!text) text = element.append_child(pugi::node_pcdata);
  text.set_value(utf8.data(), utf8.size());
  for (pugi::xml_node other = text.next_sibling(); other;) {
    const pugi::xml_node next = other.next_sibling();
    if (IsText(other)) element.remove_child(other);
    other = next;
  }
}

void Preserve(pugi::xml_node element) {
  pugi::xml_attribute space = element.attribute(kSpace);
  if (!space) space = element.append_attribute(kSpace);
  space.set_value("preserve");
}

// A text may say "preserve" without need. Divided, its parts say it where they need it; in front of the first stands an
// instruction with the length of the whole, and when the parts are joined to that length, the text says it again.
constexpr const char* kTarget = "kelvarin";
constexpr std::string_view kPreserve = "preserve ";

/// The instruction in front of a text; empty when there is none.
pugi::xml_node PreserveMark(pugi::xml_node element) {
  const pugi::xml_node mark = element.previous_sibling();
  const bool is = mark.type() == pugi::node_pi && std::strcmp(mark.name(), kTarget) == 0 &&
                  std::string_view(mark.value()).starts_with(kPreserve);
  return is ? mark : pugi::xml_node();
}

void PutPreserveMark(pugi::xml_node element, std::size_t bytes) {
  pugi::xml_node mark = element.parent().insert_child_before(pugi::node_pi, element);
  mark.set_name(kTarget);
  mark.set_value((std::string(kPreserve) + std::to_string(bytes)).c_str());
}

void PreserveWhereNeeded(pugi::xml_node element, std::string_view text) {
  element.remove_attribute(kSpace);
  if (HasBlankEdge(text)) Preserve(element);
}

}  // namespace

std::u16string TextOf(pugi::xml_node element) {
  const pugi::xml_node only = element.first_child();
  std::u16string text;
  if (only && !only.next_sibling() && IsText(only) && !HasBlankEdge(only.value())) {
    text = ToUtf16(only.value());
  } else {
    text = ToUtf16(RawText(element));
  }
  std::replace_if(
      text.begin(), text.end(), [](char16_t unit) { return unit < 32; }, u' ');
  return text;
}

void SetText(pugi::xml_node element, std::string_view utf8) {
  ReplaceText(element, utf8);
  if (HasBlankEdge(utf8)) Preserve(element);
}

pugi::xml_node DivideText(pugi::xml_node element, std::size_t units) {
  const std::string text = RawText(element);
  const std::size_t bytes = Utf8Prefix(text, units);
  if (element.attribute(kSpace) && !HasBlankEdge(text)) PutPreserveMark(element, text.size());
  pugi::xml_node second = element.parent().insert_child_after(element.name(), element);
  for (const pugi::xml_attribute attribute : element.attributes()) second.append_copy(attribute);
  const auto fill = [](pugi::xml_node part, std::string_view piece) {
    ReplaceText(part, piece);
    PreserveWhereNeeded(part, piece);
  };
  fill(element, std::string_view(text).substr(0, bytes));
  fill(second, std::string_view(text).substr(bytes));
  return second;
}

void JoinText(pugi::xml_node first, pugi::xml_node second) {
  const std::string text = RawText(first) + RawText(second);
  first.parent().remove_child(second);
  ReplaceText(first, text);
  PreserveWhereNeeded(first, text);
  const pugi::xml_node mark = PreserveMark(first);
  if (mark && mark.value() == std::string(kPreserve) + std::to_string(text.size())) {
    Preserve(first);
    first.parent().remove_child(mark);
  }
}

}  // namespace docx
