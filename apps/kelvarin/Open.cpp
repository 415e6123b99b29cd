#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "apps/kelvarin/Commands.h"
#include "apps/kelvarin/Messages.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/Paths.h"

int OpenDesktop(const Options& options) {
  // A program of its own, so that this one needs no windows.
  std::string program = os::ProgramFolder() + "/kelvarin-desktop";
  if (access(program.c_str(), X_OK) != 0) {
    Say("this build has no windows: it was built without Qt 6");
    return kStopped;
  }
  std::string file = options.inputs.empty() ? std::string() : options.inputs.front().file.string();
  char* arguments[] = {program.data(), file.empty() ? nullptr : file.data(), nullptr};
  execv(program.c_str(), arguments);
  Say(program + " cannot be started: " + std::strerror(errno));
  return kStopped;
}
