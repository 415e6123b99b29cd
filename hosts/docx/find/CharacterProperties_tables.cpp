#include "hosts/docx/find/FindCharacters.h"
#include "hosts/unicode/Unicode.h"

namespace docx {

char32_t FoldCase(char32_t character) { return unicode::Fold(character); }

bool IsWordCharacter(char32_t character) {
  return unicode::IsLetter(character) || unicode::IsDecimalDigit(character) || unicode::IsOtherNumber(character) ||
         unicode::IsMark(character);
}

bool IsLetter(char32_t character) { return unicode::IsLetter(character); }

bool IsDigit(char32_t character) { return unicode::IsDecimalDigit(character); }

bool IsWhiteSpace(char32_t character) { return character == U'\t' || unicode::IsBlank(character); }

}  // namespace docx
