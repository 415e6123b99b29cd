#include "hosts/linux/Paths.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace os {

namespace {

constexpr char16_t kBackslashInName = 0xF05C;
constexpr UChar32 kLostByte = 0xDC00;

}  // namespace

std::string ToPosixPath(std::u16string_view windowsPath) {
  std::string path;
  const auto length = static_cast<std::int32_t>(windowsPath.size());
  for (std::int32_t i = 0; i < length;) {
    UChar32 c = 0;
    U16_NEXT(windowsPath.data(), i, length, c);
    if (c == u'\\' || c == u'/') {
      if (path.empty() || path.back() != '/') path += '/';
    } else if (c == kBackslashInName) {
      path += '\\';
    } else if (c >= kLostByte + 0x80 && c <= kLostByte + 0xFF) {
      path += static_cast<char>(c - kLostByte);
    } else {
      char bytes[U8_MAX_LENGTH];
      std::int32_t used = 0;
      U8_APPEND_UNSAFE(bytes, used, U_IS_SURROGATE(c) ? 0xFFFD : c);
      path.append(bytes, static_cast<std::size_t>(used));
    }
  }
  return path;
}

std::u16string ToWindowsPath(std::string_view posixPath) {
  std::u16string path;
  const auto length = static_cast<std::int32_t>(posixPath.size());
  for (std::int32_t i = 0; i < length;) {
    const std::int32_t start = i;
    UChar32 c = 0;
    U8_NEXT(posixPath.data(), i, length, c);
    if (c < 0) {
      // A broken sequence may be several bytes; each is kept by itself.
      for (std::int32_t k = start; k < i; ++k) {
        path += static_cast<char16_t>(kLostByte + static_cast<unsigned char>(posixPath[static_cast<std::size_t>(k)]));
      }
    } else if (c == '/') {
      if (path.empty() || path.back() != u'\\') path += u'\\';
    } else if (c == '\\') {
      path += kBackslashInName;
    } else if (U_IS_BMP(c)) {
      path += static_cast<char16_t>(c);
    } else {
      path += static_cast<char16_t>(U16_LEAD(c));
      path += static_cast<char16_t>(U16_TRAIL(c));
    }
  }
  return path;
}

std::string ProgramFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
}

}  // namespace os
