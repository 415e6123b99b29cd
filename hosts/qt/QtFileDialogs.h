#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/os/FileDialogs.h"

namespace qt {

class QtFormHost;

/// Between the names of files that the system has, in Windows form, and those of the machine, in its own bytes.
struct FileNames {
  std::function<std::u16string(std::string_view)> toSystem;
  std::function<std::string(std::u16string_view)> toMachine;
};

/// Dialogs to choose a file, before the window that asks.
class QtFileDialogs : public os::FileDialogs {
 public:
  /// @param windows outlives this
  QtFileDialogs(const QtFormHost& windows, FileNames names) : windows_(windows), names_(std::move(names)) {}
  std::u16string Choose(const os::FileDialog& dialog) override;

 private:
  const QtFormHost& windows_;
  FileNames names_;
};

}  // namespace qt
