#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "hosts/unattended/DialogAnswers.h"
#include "hosts/unattended/Transcript.h"
#include "platform/os/FileDialogs.h"
#include "platform/os/Help.h"
#include "platform/os/Shell.h"

namespace unattended {

/// Between the machine's own spelling of paths, UTF-8, as answers and transcripts have it, and the system's, which is
/// Windows form.
struct PathNames {
  /// Makes the path a full one too.
  std::function<std::u16string(std::u16string_view)> toSystem;
  /// Keeps doubled separators.
  std::function<std::u16string(std::u16string_view)> toMachine;
};

/// Shows nothing and opens nothing: file dialogs are answered in a person's place, and all is written to the
/// transcript.
class UnattendedServices : public os::FileDialogs, public os::Shell, public os::Help {
 public:
  /// What is given outlives the object. @param transcript nullptr: none
  UnattendedServices(DialogAnswers& answers, Transcript* transcript, PathNames paths);

  std::u16string Choose(const os::FileDialog& dialog) override;
  bool Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) override;
  void Show(std::u16string_view file, int command, int data, std::intptr_t owner) override;

 private:
  DialogAnswers& answers_;
  Transcript* transcript_;
  PathNames paths_;
};

}  // namespace unattended
