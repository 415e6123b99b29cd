#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/os/Files.h"
#include "platform/os/Folders.h"
#include "platform/os/Processes.h"
#include "platform/os/Profile.h"
#include "platform/os/UserSettings.h"

namespace os {

class LinuxFiles : public Files {
 public:
  /// Anything but a folder, links followed.
  bool FileExists(std::u16string_view path) override;
  bool FolderExists(std::u16string_view path) override;
  /// Read-only alone for a file without write permission: there is no archive attribute to go with it.
  int Attributes(std::u16string_view path) override;
  void CreateFolder(std::u16string_view path) override;
  /// A lock that another program holds on the file, of either kind that Linux has, makes this fail.
  void OpenForBinary(std::u16string_view path) override;
  std::string Read(std::u16string_view path) override;
  /// A new content takes the file's place in one step.
  std::unique_ptr<OutputFile> OpenForOutput(std::u16string_view path) override;
};

/// Application Data is $XDG_CONFIG_HOME when that is an absolute path, else .config in the home folder. It is created
/// when it is missing, as Windows' own always exists. There are no other special folders.
class LinuxFolders : public Folders {
 public:
  LinuxFolders() = default;
  /// @param applicationData a folder in POSIX form that stands for Application Data instead
  explicit LinuxFolders(std::string applicationData) : applicationData_(std::move(applicationData)) {}
  std::u16string SpecialFolder(int folder, std::intptr_t owner) override;

 private:
  std::string applicationData_;
};

/// There is no Word on Linux: the document's host counts as one process of it, unless told otherwise.
class LinuxProcesses : public Processes {
 public:
  explicit LinuxProcesses(int wordProcesses = 1) : wordProcesses_(wordProcesses) {}
  std::vector<std::u16string> ModuleFileNames() override;

 private:
  int wordProcesses_;
};

/// Per-user values in a profile file of their own, "kvxuser.ini", beside the settings.
class LinuxUserSettings : public UserSettings {
 public:
  /// @param profile outlives the object
  /// @param folder in Windows form; created with the first value
  LinuxUserSettings(Profile& profile, std::u16string_view folder);
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue) override;
  /// @throws word::HostError kPathNotFound when the value cannot be kept
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override;

 private:
  Profile& profile_;
  std::u16string folder_;
  std::u16string file_;
};

}  // namespace os
