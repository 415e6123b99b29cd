#pragma once

#include <filesystem>
#include <string>

#include "platform/os/Help.h"
#include "platform/os/Messages.h"
#include "platform/os/Shell.h"

namespace os {

/// Has pages and documents opened by the program that the user chose for them, through xdg-open. It opens web pages,
/// and of files only those that belong to the program itself: in its folder, and of a kind that is only shown.
class LinuxShell : public Shell {
 public:
  /// @param folder the program's, with what it may open in it or below it
  explicit LinuxShell(std::filesystem::path folder) : folder_(std::move(folder)) {}
  bool Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) override;

 private:
  bool MayOpen(const std::filesystem::path& file) const;

  std::filesystem::path folder_;
};

/// Help as pages for a browser: beside a help file NAME.chm, or in its stead, a folder NAME with index.html and a page
/// topicN.html for each topic.
class LinuxHelp : public Help {
 public:
  /// Both outlive the object.
  LinuxHelp(Shell& shell, Messages& messages) : shell_(shell), messages_(messages) {}
  /// A topic without a page of its own shows the contents.
  void Show(std::u16string_view file, int command, int data, std::intptr_t owner) override;

 private:
  Shell& shell_;
  Messages& messages_;
};

}  // namespace os
