#include "hosts/docx/find/FindCharacters.h"

namespace docx {

bool IsDoubleQuote(char32_t character) { return character == U'"' || character == U'\u201C' || character == U'\u201D'; }

bool IsSingleQuote(char32_t character) {
  return character == U'\'' || character == U'\u2018' || character == U'\u2019';
}

CodePoint CodePointAt(std::u16string_view text, std::size_t at) {
  const char16_t unit = text[at];
  const bool leads = (unit & 0xFC00) == 0xD800 && at + 1 < text.size();
  if (!leads || (text[at + 1] & 0xFC00) != 0xDC00) return {unit, 1};
  return {0x10000U + ((unit & 0x3FFU) << 10U) + (text[at + 1] & 0x3FFU), 2};
}

}  // namespace docx
