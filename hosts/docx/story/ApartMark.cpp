#include "hosts/docx/story/ApartMark.h"

#include <cstring>

namespace docx {

namespace {

constexpr const char* kTarget = "kelvarin";
constexpr const char* kData = "apart";

}  // namespace

bool IsApartMark(pugi::xml_node node) {
  return node.type() == pugi::node_pi && std::strcmp(node.name(), kTarget) == 0 &&
         std::strcmp(node.value(), kData) == 0;
}

pugi::xml_node PutApartMark(pugi::xml_node run) {
  pugi::xml_node mark = run.parent().insert_child_after(pugi::node_pi, run);
  mark.set_name(kTarget);
  mark.set_value(kData);
  return mark;
}

}  // namespace docx
