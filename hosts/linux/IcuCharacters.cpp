#include "hosts/linux/IcuCharacters.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace os {

namespace {

using Mapping = std::int32_t (*)(UChar*, std::int32_t, const UChar*, std::int32_t, const char*, UErrorCode*);

std::u16string Map(Mapping mapping, std::u16string_view text) {
  std::u16string mapped(text.size() + text.size() / 8 + 4, u'\0');
  while (true) {
    UErrorCode error = U_ZERO_ERROR;
    const std::int32_t length = mapping(mapped.data(), static_cast<std::int32_t>(mapped.size()), text.data(),
                                        static_cast<std::int32_t>(text.size()), "", &error);
    const bool fits = static_cast<std::size_t>(std::max(length, 0)) <= mapped.size();
    if (U_FAILURE(error) && error != U_BUFFER_OVERFLOW_ERROR) throw std::runtime_error(u_errorName(error));
    mapped.resize(static_cast<std::size_t>(length));
    if (fits) return mapped;
  }
}

}  // namespace

std::u16string IcuCharacters::ToUpper(std::u16string_view text) { return Map(&u_strToUpper, text); }

std::u16string IcuCharacters::ToLower(std::u16string_view text) { return Map(&u_strToLower, text); }

char32_t IcuCharacters::Fold(char32_t character) {
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

bool IcuCharacters::IsWordCharacter(char32_t character) {
  return (U_GET_GC_MASK(static_cast<UChar32>(character)) & (U_GC_L_MASK | U_GC_ND_MASK | U_GC_M_MASK)) != 0;
}

}  // namespace os
