#include "hosts/unattended/Text.h"

#include "hosts/recording/Values.h"

namespace unattended {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Takes one character off the front; the replacement character for a byte that begins none.
char32_t TakeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  std::size_t length = 1;
  char32_t character = lead;
  char32_t smallest = 0;
  if (lead >= 0xF0 && lead < 0xF8) {
    length = 4;
    character = lead & 0x07u;
    smallest = 0x10000;
  } else if (lead >= 0xE0 && lead < 0xF0) {
    length = 3;
    character = lead & 0x0Fu;
    smallest = 0x800;
  } else if (lead >= 0xC0 && lead < 0xE0) {
    length = 2;
    character = lead & 0x1Fu;
    smallest = 0x80;
  }
  bool valid = (lead < 0x80 || length > 1) && length <= text.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = (byte(i) & 0xC0u) == 0x80;
    character = (character << 6u) | (byte(i) & 0x3Fu);
  }
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (!valid || character < smallest || surrogate || character > 0x10FFFF) {
    text.remove_prefix(1);
    return kReplacement;
  }
  text.remove_prefix(length);
  return character;
}

}  // namespace

std::u16string FromUtf8(std::string_view text) {
  std::u16string result;
  result.reserve(text.size());
  while (!text.empty()) {
    char32_t character = TakeCharacter(text);
    if (character < 0x10000) {
      result += static_cast<char16_t>(character);
    } else {
      character -= 0x10000;
      result += static_cast<char16_t>(0xD800 + (character >> 10u));
      result += static_cast<char16_t>(0xDC00 + (character & 0x3FFu));
    }
  }
  return result;
}

std::string ToUtf8(std::u16string_view text) { return recording::Utf8(text); }

}  // namespace unattended
