#pragma once

#include <memory>
#include <string>

#include "addin/Connect.h"
#include "apps/KVXDLLCOM/AddInServices.h"
#include "hosts/docx/WordProcessor.h"
#include "hosts/menus/MenuBars.h"

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
  AddInServices services_;
  win32::UnicodeCharacters characters_;
  std::unique_ptr<Connect> addIn_;
};
