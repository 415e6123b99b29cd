#include "hosts/linux/LinuxProfile.h"

#include "hosts/linux/AtomicFile.h"
#include "hosts/linux/IniText.h"
#include "hosts/linux/Paths.h"
#include "platform/AnsiText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <span>
#include <system_error>

namespace os {

namespace {

/// Nothing when there is no such file, or it cannot be read.
std::optional<std::string> ReadFile(const std::string& path) {
  std::error_code none;
  if (!std::filesystem::is_regular_file(path, none)) return std::nullopt;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return std::nullopt;
  std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
  if (stream.bad()) return std::nullopt;
  return bytes;
}

/// The functions take and give text of the ANSI code page.
std::u16string ThroughAnsi(std::u16string_view text) { return FromAnsi(ToAnsi(text)); }

}  // namespace

std::u16string LinuxProfile::Read(std::u16string_view section, std::u16string_view key,
                                  std::u16string_view defaultValue, int size, std::u16string_view path) {
  if (size <= 0) return {};
  std::optional<std::u16string> value;
  if (const auto bytes = ReadFile(ToPosixPath(path))) {
    value = IniText(*bytes).Find(ThroughAnsi(section), ThroughAnsi(key));
  }
  if (!value) {
    while (defaultValue.ends_with(u' ')) defaultValue.remove_suffix(1);
    value = defaultValue;
  }
  return ThroughAnsi(*value).substr(0, static_cast<std::size_t>(size) - 1);
}

bool LinuxProfile::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                         std::u16string_view path) {
  const std::string file = ToPosixPath(path);
  if (file.empty()) return false;
  std::error_code failure;
  const bool exists = std::filesystem::exists(file, failure);
  const auto before = exists ? ReadFile(file) : std::optional<std::string>("");
  if (failure || !before) return false;

  IniText text(*before);
  text.Set(ThroughAnsi(section), ThroughAnsi(key), ThroughAnsi(value));
  const std::string after = text.Bytes();
  if (exists && after == *before) return !IsReadOnly(file);
  try {
    WriteFileAtomically(file, std::as_bytes(std::span(after)), Durability::kProgram);
  } catch (const FileError&) {
    return false;
  }
  return true;
}

}  // namespace os
