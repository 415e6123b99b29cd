// A section, a key and a value in the first line, then any bytes as a profile file. They come back as they are, and
// what is written reads back.

#include "hosts/linux/IniText.h"
#include "platform/AnsiText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

/// Up to the separator; cut off from the text.
std::string_view Take(std::string_view& text, char separator) {
  const std::size_t end = text.find(separator);
  const std::string_view piece = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return piece;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  std::string_view line = Take(input, '\n');
  const std::u16string section = FromAnsi(Take(line, '|'));
  const std::u16string key = FromAnsi(Take(line, '|'));
  const std::u16string value = FromAnsi(line);

  os::IniText text(input);
  if (text.Bytes() != input) std::abort();
  text.Find(section, key);
  text.Set(section, key, value);

  // Names and values that break a line, or that mean something else in one, are the caller's fault.
  const bool plain =
      (section + key + value).find_first_not_of(u"abcdefghijklmnopqrstuvwxyz0123456789") == std::u16string::npos &&
      !key.empty();
  if (plain && os::IniText(text.Bytes()).Find(section, key) != value) std::abort();
  return 0;
}
