#include "settings/modIniFile.h"

namespace {

/// The buffer that values are read into, its end mark included.
constexpr int kValueSize = 255;

}  // namespace

std::u16string modIniFile::ReadIniValue(std::u16string_view section, std::u16string_view key) const {
  if (!FileExists()) return u"Null";
  return profile_.Read(section, key, u"", kValueSize, IniFilePath);
}

bool modIniFile::WriteIniValue(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  return profile_.Write(section, key, value, IniFilePath);
}
