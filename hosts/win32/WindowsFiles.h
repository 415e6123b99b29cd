#pragma once

#include "platform/os/Files.h"
#include "platform/os/Folders.h"
#include "platform/os/Profile.h"

namespace win32 {

class WindowsFiles : public os::Files {
 public:
  bool FileExists(std::u16string_view path) override;
  bool FolderExists(std::u16string_view path) override;
  int Attributes(std::u16string_view path) override;
  void CreateFolder(std::u16string_view path) override;
  void OpenForBinary(std::u16string_view path) override;
  std::string Read(std::u16string_view path) override;
  /// Written beside the file, and put in its place by Close.
  std::unique_ptr<os::OutputFile> OpenForOutput(std::u16string_view path) override;
};

/// The profile functions of Windows themselves, whose bytes are of the ANSI code page.
class WindowsProfile : public os::Profile {
 public:
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue, int size,
                      std::u16string_view path) override;
  bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
             std::u16string_view path) override;
};

class WindowsFolders : public os::Folders {
 public:
  std::u16string SpecialFolder(int folder, std::intptr_t owner) override;
};

}  // namespace win32
