#pragma once

#include <string>
#include <string_view>

/// Characters as Unicode has them, without a library: the same on every machine.
namespace unicode {

bool IsLetter(char32_t character);
bool IsMark(char32_t character);
bool IsDecimalDigit(char32_t character);
/// Letters of numbers, fractions and the like; no decimal digits.
bool IsOtherNumber(char32_t character);
/// Blanks of any width; no tabs and line ends.
bool IsBlank(char32_t character);

/// Simple mappings: one character to one.
char32_t UpperOf(char32_t character);
char32_t LowerOf(char32_t character);
/// Simple case folding, without the special rules of Turkic languages.
char32_t Fold(char32_t character);

/// Full mappings, without a language's rules; the length may change. A sigma at a word's end becomes the final one.
std::u16string ToUpper(std::u16string_view text);
std::u16string ToLower(std::u16string_view text);

/// A character of UTF-16 text and how many units it takes; half of a pair that is alone is itself.
struct CodePoint {
  char32_t value;
  std::size_t units;
};
/// @pre at < text.size()
CodePoint CodePointAt(std::u16string_view text, std::size_t at);
void Append(std::u16string& text, char32_t character);

}  // namespace unicode
