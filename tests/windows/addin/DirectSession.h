#pragma once

#include <functional>
#include <string>

#include "addin/Connect.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/menus/MenuBars.h"
#include "hosts/win32/UnicodeCharacters.h"
#include "hosts/win32/WindowsFiles.h"
#include "hosts/win32/WindowsServices.h"
#include "hosts/win32/forms/WindowsFormHost.h"
#include "platform/Host.h"

/// The same add-in on the .docx host itself: no automation, no companion of its own library.
class DirectSession {
 public:
  explicit DirectSession(const std::string& sample);
  ~DirectSession();
  DirectSession(const DirectSession&) = delete;
  DirectSession& operator=(const DirectSession&) = delete;

  menus::MenuBars bars;
  docx::WordProcessor processor;
  Connect& AddIn() { return *addIn_; }

 private:
  class NoFile : public docx::DocumentFile {
   public:
    void Save(const Current&) override {}
    void SaveAs(std::u16string_view, const docx::Package&) override {}
  };

  NoFile file_;
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
  win32::WindowsLocale locale_;
  std::unique_ptr<Connect> addIn_;
};
