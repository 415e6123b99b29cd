#pragma once

#include <algorithm>
#include <string>
#include <string_view>

/// Whether a code unit is a double quotation mark: straight, curly, low or an angle. Those are the kinds that come in
/// pairs around a term.
inline bool IsDoubleQuote(char16_t unit) {
  switch (unit) {
    case u'"':
    case u'\u201C':
    case u'\u201D':
    case u'\u201E':
    case u'\u201F':
    case u'\u00AB':
    case u'\u00BB':
      return true;
    default:
      return false;
  }
}

/// The straight quotation mark or apostrophe for a curly one, otherwise the character itself. As in a plain search,
/// the two are the same character where terms are compared; low marks and angles are characters of their own.
constexpr char32_t StraightQuote(char32_t character) {
  switch (character) {
    case U'\u2018':
    case U'\u2019':
      return U'\'';
    case U'\u201C':
    case U'\u201D':
      return U'"';
    default:
      return character;
  }
}

/// Whether two texts differ in the style of their quotation marks and apostrophes at most.
inline bool DifferInQuotesAtMost(std::u16string_view one, std::u16string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char16_t left, char16_t right) { return StraightQuote(left) == StraightQuote(right); });
}

/// A text with straight quotation marks and apostrophes for curly ones: the same for texts that differ in no more.
inline std::u16string WithStraightQuotes(std::u16string_view text) {
  std::u16string straight(text);
  for (char16_t& unit : straight) unit = static_cast<char16_t>(StraightQuote(unit));
  return straight;
}
