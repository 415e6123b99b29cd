#include "apps/kelvarin/Printable.h"

#include <unicode/utf8.h>

#include <cstdint>
#include <cstdio>

namespace {

bool IsControl(UChar32 character) {
  constexpr UChar32 kFirstPrinted = 0x20;
  constexpr UChar32 kDelete = 0x7F;
  constexpr UChar32 kLastControl = 0x9F;
  if (character == '\n' || character == '\t') return false;
  return character < kFirstPrinted || (character >= kDelete && character <= kLastControl);
}

/// @param keep whether a character stays as it is
template <class Keep>
std::string Replaced(std::string_view text, Keep keep) {
  std::string replaced;
  replaced.reserve(text.size());
  const auto size = static_cast<std::int64_t>(text.size());
  for (std::int64_t index = 0; index < size;) {
    const std::int64_t begin = index;
    UChar32 character = 0;
    U8_NEXT(text.data(), index, size, character);
    const std::string_view bytes =
        text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(index - begin));
    char code[16];
    if (character < 0) {
      for (const char byte : bytes) {
        std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        replaced += code;
      }
    } else if (!keep(character)) {
      std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(character));
      replaced += code;
    } else {
      replaced += bytes;
    }
  }
  return replaced;
}

}  // namespace

std::string InUtf8(std::string_view text) {
  return Replaced(text, [](UChar32) { return true; });
}

std::string Printable(std::string_view text) {
  return Replaced(text, [](UChar32 character) { return !IsControl(character); });
}
