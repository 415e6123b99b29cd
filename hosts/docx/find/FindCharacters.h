#pragma once

#include <cstddef>
#include <string_view>

namespace docx {

/// Character classes of searches, after Unicode's properties.

/// Unicode's simple case folding: one character to one character, of the same length in UTF-16.
char32_t FoldCase(char32_t character);
/// Letters, digits and the marks combined with them; an apostrophe or a hyphen bounds a word.
bool IsWordCharacter(char32_t character);
bool IsLetter(char32_t character);
bool IsDigit(char32_t character);
/// Blanks of any width, breaking or not, and tabs; no paragraph marks or breaks.
bool IsWhiteSpace(char32_t character);
/// The straight double quote and the two curly ones.
bool IsDoubleQuote(char32_t character);
/// The straight single quote and the two curly ones.
bool IsSingleQuote(char32_t character);

/// A character of UTF-16 text: its code point and how many units it takes.
struct CodePoint {
  char32_t value{0};
  std::size_t units{1};
};
/// @pre at < text.size()
CodePoint CodePointAt(std::u16string_view text, std::size_t at);

}  // namespace docx
