#pragma once

#include <string>
#include <string_view>

namespace os {

/// Unicode's case and character classes, the same on every host. Several threads may ask at once.
class Characters {
 public:
  virtual ~Characters() = default;
  /// Full upper-case mapping without a language's special rules; the length may change.
  virtual std::u16string ToUpper(std::u16string_view text) = 0;
  virtual std::u16string ToLower(std::u16string_view text) = 0;
  /// Simple case folding of one character: two characters are equal without regard to case when their
  /// foldings are equal.
  virtual char32_t Fold(char32_t character) = 0;
  /// A letter, a digit, or a mark that combines with one.
  virtual bool IsWordCharacter(char32_t character) = 0;
};

}  // namespace os
