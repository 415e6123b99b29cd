#include "hosts/linux/LinuxDesktop.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "hosts/linux/Paths.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <thread>

namespace os {

namespace {

namespace fs = std::filesystem;

/// What is shown and never run.
constexpr std::array<std::string_view, 3> kShownKinds = {".htm", ".html", ".pdf"};

bool IsWebPage(std::u16string_view path) { return path.starts_with(u"https://"); }

/// Starts xdg-open and does not wait for it. @return false when there is no such program
bool OpenExternally(const std::string& what) {
  std::string program = "xdg-open";
  std::string argument = what;
  const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) return false;
  std::thread([child] { waitpid(child, nullptr, 0); }).detach();
  return true;
}

}  // namespace

bool LinuxShell::MayOpen(const fs::path& file) const {
  std::error_code failure;
  if (!fs::is_regular_file(file, failure)) return false;
  const fs::path real = fs::canonical(file, failure);
  if (failure) return false;
  const fs::path folder = fs::canonical(folder_, failure);
  if (failure) return false;
  const auto [end, inside] = std::mismatch(folder.begin(), folder.end(), real.begin(), real.end());
  return end == folder.end() &&
         std::find(kShownKinds.begin(), kShownKinds.end(), real.extension()) != kShownKinds.end();
}

bool LinuxShell::Open(std::u16string_view, std::u16string_view path, std::intptr_t) {
  if (IsWebPage(path)) {
    const bool plain = std::all_of(path.begin(), path.end(), [](char16_t unit) { return unit > u' ' && unit < 0x7F; });
    return plain && OpenExternally(std::string(path.begin(), path.end()));
  }
  const fs::path file = ToPosixPath(path);
  return MayOpen(file) && OpenExternally(file.string());
}

void LinuxHelp::Show(std::u16string_view file, int command, int data, std::intptr_t owner) {
  const fs::path pages = fs::path(ToPosixPath(file)).replace_extension();
  fs::path page = pages / ("topic" + std::to_string(data) + ".html");
  std::error_code failure;
  if (command != kHelpContext || !fs::exists(page, failure)) page = pages / "index.html";
  if (shell_.Open(u"open", ToWindowsPath(page.string()), owner)) return;
  messages_.Show(u"Help", u"The help page could not be opened:\r\n\r\n" + ToWindowsPath(page.string()),
                 Icon::kExclamation, Buttons::kOk);
}

}  // namespace os
