#include "hosts/docx/xml/Utf.h"

#include <algorithm>
#include <cstddef>

#include "platform/word/FindUnit.h"

namespace docx {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsNotAscii(char byte) { return static_cast<unsigned char>(byte) >= 0x80; }

/// In blocks, of which compilers widen all at once.
void AppendAscii(std::string_view ascii, std::u16string& utf16) {
  constexpr std::size_t kBlock = 16;
  const std::size_t before = utf16.size();
  utf16.resize(before + ascii.size());
  char16_t* to = utf16.data() + before;
  const char* from = ascii.data();
  const char* const end = from + ascii.size();
  for (; end - from >= static_cast<std::ptrdiff_t>(kBlock); from += kBlock, to += kBlock) {
    for (std::size_t i = 0; i < kBlock; ++i) to[i] = static_cast<unsigned char>(from[i]);
  }
  std::copy(from, end, to);
}

/// Decodes one character and moves past it.
char32_t Decode(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at++);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  if (more == 0) return kReplacement;
  char32_t character = lead & (0x3Fu >> more);
  for (int i = 0; i < more; ++i) {
    if (at >= text.size() || (byte(at) & 0xC0) != 0x80) return kReplacement;
    character = (character << 6) | (byte(at++) & 0x3Fu);
  }
  return character > 0x10FFFF || (character >= 0xD800 && character < 0xE000) ? kReplacement : character;
}

}  // namespace

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string result;
  AppendUtf16(utf8, result);
  return result;
}

void AppendUtf16(std::string_view utf8, std::u16string& utf16) {
  const std::size_t ascii = word::FindUnit(utf8, 0, &IsNotAscii);
  AppendAscii(utf8.substr(0, ascii), utf16);
  if (ascii == utf8.size()) return;
  // No character takes more units than bytes.
  const std::size_t before = utf16.size();
  utf16.resize(before + utf8.size() - ascii);
  char16_t* next = utf16.data() + before;
  for (std::size_t at = ascii; at < utf8.size();) {
    if (const auto byte = static_cast<unsigned char>(utf8[at]); byte < 0x80) {
      *next++ = byte;
      ++at;
      continue;
    }
    const char32_t character = Decode(utf8, at);
    if (character < 0x10000) {
      *next++ = static_cast<char16_t>(character);
    } else {
      *next++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
      *next++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
  }
  utf16.resize(static_cast<std::size_t>(next - utf16.data()));
}

std::string ToUtf8(std::u16string_view utf16) {
  // No unit takes more than three bytes.
  const std::size_t ascii = word::FindUnit(utf16, 0, [](char16_t unit) { return unit >= 0x80; });
  std::string result(utf16.begin(), utf16.begin() + static_cast<std::ptrdiff_t>(ascii));
  if (ascii == utf16.size()) return result;
  result.resize(ascii + 3 * (utf16.size() - ascii));
  char* next = result.data() + ascii;
  const auto put = [&next](char32_t byte) { *next++ = static_cast<char>(byte); };
  for (std::size_t at = ascii; at < utf16.size(); ++at) {
    char32_t character = utf16[at];
    if (character >= 0xD800 && character < 0xE000) {
      const bool pair = character < 0xDC00 && at + 1 < utf16.size() && (utf16[at + 1] & 0xFC00) == 0xDC00;
      character = pair ? 0x10000 + ((character & 0x3FF) << 10) + (utf16[++at] & 0x3FFu) : kReplacement;
    }
    if (character < 0x80) {
      put(character);
    } else if (character < 0x800) {
      put(0xC0 | (character >> 6));
      put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
      put(0xE0 | (character >> 12));
      put(0x80 | ((character >> 6) & 0x3F));
      put(0x80 | (character & 0x3F));
    } else {
      put(0xF0 | (character >> 18));
      put(0x80 | ((character >> 12) & 0x3F));
      put(0x80 | ((character >> 6) & 0x3F));
      put(0x80 | (character & 0x3F));
    }
  }
  result.resize(static_cast<std::size_t>(next - result.data()));
  return result;
}

std::size_t Utf8Prefix(std::string_view utf8, std::size_t units) {
  const std::string_view asked = utf8.substr(0, units);
  std::size_t at = word::FindUnit(asked, 0, &IsNotAscii);
  for (std::size_t seen = at; seen < units && at < utf8.size();) {
    if (static_cast<unsigned char>(utf8[at]) < 0x80) {
      ++at;
      ++seen;
    } else {
      seen += Decode(utf8, at) < 0x10000 ? 1 : 2;
    }
  }
  return at;
}

}  // namespace docx
