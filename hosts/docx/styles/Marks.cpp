#include "hosts/docx/styles/Marks.h"

namespace docx {

namespace {

constexpr const char* kTarget = "kelvarin";

}  // namespace

pugi::xml_node FindMark(pugi::xml_node parent, std::string_view word) {
  for (const pugi::xml_node child : parent.children()) {
    if (child.type() != pugi::node_pi || std::string_view(child.name()) != kTarget) continue;
    const std::string_view text = child.value();
    if (text.starts_with(word) && (text.size() == word.size() || text[word.size()] == ' ')) return child;
  }
  return {};
}

std::string MarkText(pugi::xml_node mark, std::string_view word) {
  const std::string_view text = mark.value();
  return text.size() > word.size() ? std::string(text.substr(word.size() + 1)) : std::string();
}

void MakeMark(pugi::xml_node instruction, const std::string& text) {
  instruction.set_name(kTarget);
  instruction.set_value(text.c_str());
}

}  // namespace docx
