#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/Paths.h"

namespace {

/// A program of its own, so that this one needs no windows.
std::string DesktopProgram() { return os::ProgramFolder() + "/kelvarin-desktop"; }

}  // namespace

bool HasDesktop() { return access(DesktopProgram().c_str(), X_OK) == 0; }

int OpenDesktop(const Options& options) {
  if (!HasDesktop()) {
    Say("this build has no windows: it was built without Qt 6");
    return kStopped;
  }
  std::string program = DesktopProgram();
  std::string file = options.inputs.empty() ? std::string() : options.inputs.front().file.string();
  char* arguments[] = {program.data(), file.empty() ? nullptr : file.data(), nullptr};
  execv(program.c_str(), arguments);
  Say(program + " cannot be started: " + std::strerror(errno));
  return kStopped;
}
