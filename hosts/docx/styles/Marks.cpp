#include "hosts/docx/styles/Marks.h"

namespace docx {

namespace {

constexpr const char* kTarget = "kelvarin";

}  // namespace

XmlNode FindMark(XmlNode parent, std::string_view word) {
  for (const XmlNode child : parent.Children()) {
    if (child.Type() != XmlType::kInstruction || std::string_view(child.Name()) != kTarget) continue;
    const std::string_view text = child.Value();
    if (text.starts_with(word) && (text.size() == word.size() || text[word.size()] == ' ')) return child;
  }
  return {};
}

std::string MarkText(XmlNode mark, std::string_view word) {
  const std::string_view text = mark.Value();
  return text.size() > word.size() ? std::string(text.substr(word.size() + 1)) : std::string();
}

void MakeMark(XmlNode instruction, const std::string& text) {
  instruction.SetTarget(kTarget);
  instruction.SetValue(text.c_str());
}

}  // namespace docx
