#pragma once

#include <functional>
#include <memory>
#include <string>

#include "hosts/win32/UnicodeCharacters.h"
#include "hosts/win32/WindowsFiles.h"
#include "hosts/win32/WindowsServices.h"
#include "hosts/win32/forms/WindowsFormHost.h"
#include "platform/Host.h"

/// All that the add-in needs of Windows.
class AddInServices {
 public:
  /// For as long as this object lives.
  /// @param addInFolder as in Host
  /// @param createTermMarker as in Host
  Host Services(std::u16string addInFolder, std::function<std::unique_ptr<TermMarker>()> createTermMarker);

 private:
  win32::WindowsFormHost forms_;
  win32::WindowsMessages messages_;
  win32::WindowsProfile profile_;
  win32::WindowsFiles files_;
  win32::WindowsFolders folders_;
  win32::UnicodeCharacters characters_;
  win32::WindowsProcesses processes_;
  win32::WindowsUserSettings userSettings_;
  win32::WindowsFileDialogs fileDialogs_;
  win32::WindowsShell shell_;
  win32::WindowsHelp help_;
};
