#pragma once

#include <string>
#include <string_view>

#include "hosts/linux/LinuxServices.h"

/// The files as a run finds them. The document's own has the attributes that the run's state says, whatever the input
/// has: the run works on a copy of its own.
class RunFiles : public os::LinuxFiles {
 public:
  /// @param path full, in Windows form
  void SetDocument(std::u16string_view path, int attributes) {
    document_ = path;
    attributes_ = attributes;
  }
  int Attributes(std::u16string_view path) override {
    return path == document_ ? attributes_ : LinuxFiles::Attributes(path);
  }

 private:
  std::u16string document_;
  int attributes_{0};
};
