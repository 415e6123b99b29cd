#include "hosts/win32/UnicodeCharacters.h"

#include "hosts/unicode/Unicode.h"

namespace win32 {

std::u16string UnicodeCharacters::ToUpper(std::u16string_view text) { return unicode::ToUpper(text); }

std::u16string UnicodeCharacters::ToLower(std::u16string_view text) { return unicode::ToLower(text); }

char32_t UnicodeCharacters::Fold(char32_t character) { return unicode::Fold(character); }

bool UnicodeCharacters::IsWordCharacter(char32_t character) {
  return unicode::IsLetter(character) || unicode::IsDecimalDigit(character) || unicode::IsMark(character);
}

}  // namespace win32
