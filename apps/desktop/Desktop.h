#pragma once

#include <memory>
#include <string>
#include <vector>

#include "addin/Connect.h"
#include "apps/desktop/DesktopDocument.h"
#include "apps/desktop/DocumentPages.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/linux/IcuCharacters.h"
#include "hosts/linux/LinuxDesktop.h"
#include "hosts/linux/LinuxProfile.h"
#include "hosts/linux/LinuxServices.h"
#include "hosts/menus/MenuBars.h"
#include "hosts/qt/QtFileDialogs.h"
#include "hosts/qt/QtMessages.h"
#include "hosts/qt/document/DesktopProgram.h"
#include "hosts/qt/document/DocumentWindow.h"
#include "hosts/qt/forms/QtFormHost.h"

/// The desktop program: a word processor over one document, the add-in connected to it, and a window that shows both.
class Desktop : public qt::DesktopProgram {
 public:
  /// @param window outlives the program
  explicit Desktop(qt::DocumentWindow& window);
  ~Desktop() override;

  void Open(const std::string& path) override;
  qt::DocumentSource* Document() override { return pages_.get(); }
  std::string Path() const override;
  bool Modified() const override { return modified_; }
  bool ChangedOutside() const override { return file_ && file_->ChangedOutside(); }
  void Save() override;
  void SaveAs(const std::string& path) override;
  std::vector<std::string> Recent() const override;
  std::vector<Command> Tools() override;
  std::vector<Command> Help() override;

 private:
  std::vector<Command> Commands(const std::vector<std::shared_ptr<menus::Item>>& items);
  void Run(const std::function<void()>& command);
  void Remember(const std::string& path);
  void ReadPages();

  qt::QtFormHost forms_;
  qt::QtMessages messages_;
  qt::QtFileDialogs fileDialogs_;
  os::LinuxProfile profile_;
  os::LinuxFiles files_;
  os::LinuxFolders folders_;
  os::LinuxProcesses processes_;
  mutable os::LinuxUserSettings userSettings_;
  os::IcuCharacters characters_;
  os::LinuxShell shell_;
  os::LinuxHelp help_;
  std::unique_ptr<DesktopDocument> file_;
  docx::WordProcessor processor_;
  menus::MenuBars menus_;
  std::unique_ptr<DocumentPages> pages_;
  bool modified_{false};
  Host host_;
  Connect addIn_;
};
