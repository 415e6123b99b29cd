#include "hosts/docx/story/ApartMark.h"

#include <string_view>

namespace docx {

namespace {

constexpr std::string_view kTarget = "kelvarin";
constexpr std::string_view kData = "apart";

}  // namespace

bool IsApartMark(XmlNode node) {
  return node.Type() == XmlType::kInstruction && node.Name() == kTarget && node.Value() == kData;
}

XmlNode PutApartMark(XmlNode run) {
  XmlNode mark = run.Parent().InsertChildAfter(XmlType::kInstruction, run);
  mark.SetTarget(kTarget);
  mark.SetValue(kData);
  return mark;
}

}  // namespace docx
