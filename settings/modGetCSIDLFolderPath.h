#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/os/Files.h"
#include "platform/os/Folders.h"

/// Finds, and where needed makes, the folder of the settings below the user's Application Data folder.
class modGetCSIDLFolderPath {
 public:
  /// Both outlive the object.
  modGetCSIDLFolderPath(os::Folders& folders, os::Files& files) : folders_(folders), files_(files) {}
  modGetCSIDLFolderPath(const modGetCSIDLFolderPath&) = delete;
  modGetCSIDLFolderPath& operator=(const modGetCSIDLFolderPath&) = delete;

  /// @param owner a window's handle, or 0
  /// @param subPath names joined by "\", without one at its ends
  /// @return the folder, with "\" at its end
  /// @throws word::HostError when a missing level cannot be made
  std::u16string GetSettingsFolder(std::intptr_t owner, std::u16string_view subPath);

  /// Makes the missing levels of a path below the Application Data folder.
  /// @return the last level, without "\" at its end
  std::u16string MakeNestedFolder(std::u16string_view subPath);

  /// What GetSettingsFolder found last, without "\" at its end; empty when the system could not tell.
  const std::u16string& ApplicationDataFolder() const { return applicationData_; }
  /// What GetSettingsFolder returned last.
  const std::u16string& SettingsFolder() const { return settings_; }

 private:
  os::Folders& folders_;
  os::Files& files_;
  std::u16string applicationData_;
  std::u16string settings_;
};
