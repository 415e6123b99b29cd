#include <unicode/uchar.h>

#include "hosts/docx/find/FindCharacters.h"

namespace docx {

char32_t FoldCase(char32_t character) {
  if (character < 128) return character >= U'A' && character <= U'Z' ? character + 32 : character;
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

bool IsWordCharacter(char32_t character) {
  if (character < 128) {
    const char32_t letter = character | 32;
    return (letter >= U'a' && letter <= U'z') || (character >= U'0' && character <= U'9');
  }
  const auto point = static_cast<UChar32>(character);
  return u_isalnum(point) != 0 || (U_GET_GC_MASK(point) & (U_GC_M_MASK | U_GC_N_MASK)) != 0;
}

bool IsLetter(char32_t character) { return u_isalpha(static_cast<UChar32>(character)) != 0; }

bool IsDigit(char32_t character) { return u_isdigit(static_cast<UChar32>(character)) != 0; }

bool IsWhiteSpace(char32_t character) {
  return character == U'\t' || u_charType(static_cast<UChar32>(character)) == U_SPACE_SEPARATOR;
}

}  // namespace docx
