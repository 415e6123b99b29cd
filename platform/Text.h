#pragma once

#include <string>
#include <string_view>

/// A number in decimal digits, behind "-" when it is negative.
inline std::u16string Decimal(long number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

/// A text without the blanks (U+0020, and no others) at its ends.
inline std::u16string_view TrimBlanks(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}
