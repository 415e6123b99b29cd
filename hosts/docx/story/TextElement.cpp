#include "hosts/docx/story/TextElement.h"

#include <algorithm>
#include <optional>
#include <string>

#include "hosts/docx/xml/Utf.h"

namespace docx {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kSpace = "xml:space";

bool Preserves(XmlNode element) {
  for (; element; element = element.Parent()) {
    if (const XmlAttribute space = element.Attribute(kSpace)) return space.Value() == "preserve";
  }
  return false;
}

bool HasBlankEdge(std::string_view text) {
  return !text.empty() &&
         (kBlanks.find(text.front()) != std::string_view::npos || kBlanks.find(text.back()) != std::string_view::npos);
}

bool IsText(XmlNode node) { return node.Type() == XmlType::kText || node.Type() == XmlType::kCData; }

/// All text in the element, blanks included.
std::string_view WholeText(XmlNode element, std::string& joined) {
  if (const std::optional<std::string_view> only = element.OnlyText()) return *only;
  for (const XmlNode child : element.Children()) {
    if (IsText(child)) joined += child.Value();
  }
  return joined;
}

/// The characters that count, in UTF-8. @param joined holds them where they do not stand together
std::string_view RawText(XmlNode element, std::string& joined) {
  const std::string_view text = WholeText(element, joined);
  if (!HasBlankEdge(text) || Preserves(element)) return text;
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

void ReplaceText(XmlNode element, std::string_view utf8) {
  if (element.OnlyText()) return element.SetOnlyText(utf8);
  XmlNode text = element.FirstChild();
  while (text && !IsText(text)) text = text.NextSibling();
  if (!text) text = element.AppendChild(XmlType::kText);
  text.SetValue(utf8);
  for (XmlNode other = text.NextSibling(); other;) {
    const XmlNode next = other.NextSibling();
    if (IsText(other)) element.RemoveChild(other);
    other = next;
  }
}

void Preserve(XmlNode element) { element.SetAttribute(kSpace, "preserve"); }

// A text may say "preserve" without need. Divided, its parts say it where they need it; in front of the first stands an
// instruction with the length of the whole, and when the parts are joined to that length, the text says it again.
constexpr std::string_view kTarget = "kelvarin";
constexpr std::string_view kPreserve = "preserve ";

/// The instruction in front of a text; empty when there is none.
XmlNode PreserveMark(XmlNode element) {
  const XmlNode mark = element.PreviousSibling();
  const bool is = mark.Type() == XmlType::kInstruction && mark.Name() == kTarget && mark.Value().starts_with(kPreserve);
  return is ? mark : XmlNode();
}

void PutPreserveMark(XmlNode element, std::size_t bytes) {
  XmlNode mark = element.Parent().InsertChildBefore(XmlType::kInstruction, element);
  mark.SetTarget(kTarget);
  mark.SetValue(std::string(kPreserve) + std::to_string(bytes));
}

void PreserveWhereNeeded(XmlNode element, std::string_view text) {
  if (HasBlankEdge(text)) {
    Preserve(element);
  } else {
    element.RemoveAttribute(kSpace);
  }
}

}  // namespace

std::u16string TextOf(XmlNode element) {
  std::string joined;
  std::u16string text = ToUtf16(RawText(element, joined));
  std::replace_if(
      text.begin(), text.end(), [](char16_t unit) { return unit < 32; }, u' ');
  return text;
}

void SetText(XmlNode element, std::string_view utf8) {
  ReplaceText(element, utf8);
  if (HasBlankEdge(utf8)) Preserve(element);
}

XmlNode DivideText(XmlNode element, std::size_t units) {
  std::string joined;
  const std::string_view text = RawText(element, joined);
  const std::size_t bytes = Utf8Prefix(text, units);
  if (element.Attribute(kSpace) && !HasBlankEdge(text)) PutPreserveMark(element, text.size());
  XmlNode second = element.Parent().InsertChildAfter(element.Entry(), element);
  second.CopyAttributes(element);
  const auto fill = [](XmlNode part, std::string_view piece) {
    ReplaceText(part, piece);
    PreserveWhereNeeded(part, piece);
  };
  fill(second, text.substr(bytes));
  fill(element, text.substr(0, bytes));
  return second;
}

void JoinText(XmlNode first, XmlNode second) {
  std::string joined;
  std::string text(RawText(first, joined));
  joined.clear();
  text += RawText(second, joined);
  first.Parent().RemoveChild(second);
  ReplaceText(first, text);
  PreserveWhereNeeded(first, text);
  const XmlNode mark = PreserveMark(first);
  if (mark && mark.Value() == std::string(kPreserve) + std::to_string(text.size())) {
    Preserve(first);
    first.Parent().RemoveChild(mark);
  }
}

}  // namespace docx
