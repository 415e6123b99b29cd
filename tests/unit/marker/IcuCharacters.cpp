#include "IcuCharacters.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace {

icu::UnicodeString From(std::u16string_view text) {
  return icu::UnicodeString(text.data(), static_cast<int32_t>(text.size()));
}

std::u16string To(const icu::UnicodeString& text) {
  return std::u16string(text.getBuffer(), static_cast<std::size_t>(text.length()));
}

}  // namespace

std::u16string IcuCharacters::ToUpper(std::u16string_view text) {
  return To(From(text).toUpper(icu::Locale::getRoot()));
}

std::u16string IcuCharacters::ToLower(std::u16string_view text) {
  return To(From(text).toLower(icu::Locale::getRoot()));
}

char32_t IcuCharacters::Fold(char32_t character) {
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

bool IcuCharacters::IsWordCharacter(char32_t character) {
  constexpr uint32_t kWord = U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK;
  return (U_GET_GC_MASK(static_cast<UChar32>(character)) & kWord) != 0;
}
