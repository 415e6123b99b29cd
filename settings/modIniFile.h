#pragma once

#include <string>
#include <string_view>

#include "platform/os/Files.h"
#include "platform/os/Profile.h"

/// Reads and writes single keys of the settings file, kvx.ini. One object serves all who share a path.
class modIniFile {
 public:
  /// Both outlive the object.
  modIniFile(os::Profile& profile, os::Files& files) : profile_(profile), files_(files) {}
  modIniFile(const modIniFile&) = delete;
  modIniFile& operator=(const modIniFile&) = delete;

  /// The settings file's full path; empty before a run set it, and then no file exists.
  std::u16string IniFilePath;
  /// Set while option controls are filled by code: their click handlers then return at once.
  bool blnSuppressEvents{false};

  bool FileExists() const { return !IniFilePath.empty() && files_.FileExists(IniFilePath); }

  /// @return the value, cut to 254 characters; empty for a missing key or section; the word "Null" when there
  /// is no file
  std::u16string ReadIniValue(std::u16string_view section, std::u16string_view key) const;
  /// Makes the file and the section when they are missing.
  /// @return false when it could not be written
  bool WriteIniValue(std::u16string_view section, std::u16string_view key, std::u16string_view value);

 private:
  os::Profile& profile_;
  os::Files& files_;
};
