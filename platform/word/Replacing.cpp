#include "platform/word/Replacing.h"

#include <algorithm>
#include <string>

namespace word {

namespace {

/// Nothing for a text with another code than a caret's.
std::optional<std::u16string> WithoutCodes(std::u16string_view text) {
  std::u16string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'^' && ++i < text.size() && text[i] != u'^') return std::nullopt;
    result += i < text.size() ? text[i] : u'^';
  }
  return result;
}

}  // namespace

std::optional<std::size_t> CharactersMovedPast(std::u16string_view searched, std::u16string_view replacement) {
  const std::optional<std::u16string> before = WithoutCodes(searched);
  const std::optional<std::u16string> after = WithoutCodes(replacement);
  if (!before || !after || before->size() != after->size() || before->empty()) return std::nullopt;
  const auto moved = std::mismatch(before->begin() + 1, before->end(), after->begin());
  const auto past = moved.second - after->begin();
  if (past == 0 || *moved.second != before->front()) return std::nullopt;
  if (!std::equal(moved.first, before->end(), moved.second + 1)) return std::nullopt;
  return static_cast<std::size_t>(past);
}

}  // namespace word
