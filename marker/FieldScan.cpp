#include "marker/FieldScan.h"

#include "platform/word/Constants.h"
#include "platform/word/FindUnit.h"

#include <algorithm>

namespace marker {
namespace {

constexpr std::size_t kOpen = static_cast<std::size_t>(-1);

}  // namespace

std::vector<ScannedField> ScanFields(std::u16string_view text) {
  std::vector<ScannedField> fields;
  std::vector<ScannedField> open;
  // The three marks are neighbours.
  const auto isMark = [](char16_t unit) { return unit >= word::kFieldBegin && unit <= word::kFieldEnd; };
  for (std::size_t index = word::FindUnit(text, 0, isMark); index < text.size();
       index = word::FindUnit(text, index + 1, isMark)) {
    switch (text[index]) {
      case word::kFieldBegin:
        open.push_back({.begin = index, .separator = kOpen, .end = kOpen});
        break;
      case word::kFieldSeparator:
        if (!open.empty() && open.back().separator == kOpen) open.back().separator = index;
        break;
      case word::kFieldEnd:
        if (open.empty()) break;
        open.back().end = index;
        if (open.back().separator == kOpen) open.back().separator = index;
        fields.push_back(open.back());
        open.pop_back();
        break;
      default:
        break;
    }
  }
  for (ScannedField& field : open) {
    const std::size_t mark = text.find(word::kParagraphMark, field.begin);
    field.separator = field.begin;
    field.end = std::min(mark, text.size()) - 1;
    fields.push_back(field);
  }
  return fields;
}

}  // namespace marker
