#include "platform/TermText.h"

#include "platform/word/Constants.h"

#include <algorithm>
#include <vector>

namespace {

std::u16string WithoutCodes(std::u16string_view text) {
  std::u16string shown;
  shown.reserve(text.size());
  std::vector<bool> inCode;
  for (const char16_t unit : text) {
    if (unit == word::kFieldBegin) {
      inCode.push_back(true);
    } else if (unit == word::kFieldSeparator) {
      if (!inCode.empty()) inCode.back() = false;
    } else if (unit == word::kFieldEnd && inCode.empty()) {
      // The text begins within that field's code.
      shown.clear();
    } else if (unit == word::kFieldEnd) {
      inCode.pop_back();
    } else if (std::find(inCode.begin(), inCode.end(), true) == inCode.end()) {
      shown.push_back(unit);
    }
  }
  return shown;
}

}  // namespace

std::u16string TermText(std::u16string_view quoted) {
  std::u16string term = WithoutCodes(quoted);
  const auto isPart = [](char16_t unit) { return unit != word::kNoteReference && unit != word::kCommentMark; };
  term.erase(std::find_if(term.rbegin(), term.rend(), isPart).base(), term.end());
  term.erase(term.begin(), std::find_if(term.begin(), term.end(), isPart));
  return term;
}
