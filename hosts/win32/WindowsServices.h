#pragma once

#include "platform/os/FileDialogs.h"
#include "platform/os/Help.h"
#include "platform/os/Messages.h"
#include "platform/os/Processes.h"
#include "platform/os/Shell.h"
#include "platform/os/UserSettings.h"

namespace win32 {

/// Boxes stand before the window of this program that is in front.
class WindowsMessages : public os::Messages {
 public:
  os::Pressed Show(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons) override;
};

class WindowsProcesses : public os::Processes {
 public:
  std::vector<std::u16string> ModuleFileNames() override;
};

/// HKEY_CURRENT_USER\Software\Kelvarin, a key for each section.
class WindowsUserSettings : public os::UserSettings {
 public:
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue) override;
  /// @throws word::HostError kPathAccess when the value cannot be kept
  void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) override;
};

class WindowsFileDialogs : public os::FileDialogs {
 public:
  std::u16string Choose(const os::FileDialog& dialog) override;
};

class WindowsShell : public os::Shell {
 public:
  bool Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) override;
};

/// Windows' own viewer, loaded when it is first needed. Its windows are closed with this object, since they belong to
/// the library that called.
class WindowsHelp : public os::Help {
 public:
  ~WindowsHelp() override;
  void Show(std::u16string_view file, int command, int data, std::intptr_t owner) override;

 private:
  void* viewer_{nullptr};
};

}  // namespace win32
