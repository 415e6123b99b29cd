#include "hosts/linux/LibreOffice.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace os {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFilter =
    "pdf:writer_pdf_Export:{\"ExportBookmarksToPDFDestination\":{\"type\":\"boolean\",\"value\":\"true\"}}";

/// As a file: URL has it.
std::string Url(const fs::path& path) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/-._~";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char character : fs::absolute(path).string()) {
    if (kPlain.find(character) != std::string_view::npos) {
      url += character;
      continue;
    }
    const auto byte = static_cast<unsigned char>(character);
    url += '%';
    url += kDigits[byte / 16];
    url += kDigits[byte % 16];
  }
  return url;
}

/// The program gets a process group of its own, so that what it starts can be ended with it, and none of our files. It
/// does not outlive us.
[[noreturn]] void Become(char* const* arguments) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int nothing = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
  close_range(STDERR_FILENO + 1, ~0U, 0);
  execv(arguments[0], arguments);
  _exit(127);
}

/// @return whether the program ended by itself in time
bool RunFor(const std::vector<std::string>& command, std::chrono::milliseconds limit) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t process = fork();
  if (process < 0) throw LibreOfficeError(std::string("LibreOffice cannot be started: ") + std::strerror(errno) + ".");
  if (process == 0) Become(arguments.data());
  setpgid(process, process);
  const auto end = std::chrono::steady_clock::now() + limit;
  constexpr std::chrono::milliseconds kPause{20};
  int status = 0;
  pid_t ended = 0;
  while ((ended = waitpid(process, &status, WNOHANG)) == 0 && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kPause);
  }
  // What it may have left behind goes too.
  kill(-process, SIGKILL);
  while (ended == 0 && waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return ended != 0;
}

/// A document that nobody trusts makes LibreOffice fetch nothing and run nothing.
constexpr char kProfile[] = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema">
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="BlockUntrustedRefererLinks" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="DisableMacrosExecution" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="DisableActiveContent" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Security/Scripting"><prop oor:name="MacroSecurityLevel" oor:op="fuse"><value>3</value></prop></item>
<item oor:path="/org.openoffice.Office.Writer/Content/Update"><prop oor:name="Link" oor:op="fuse"><value>0</value></prop></item>
</oor:items>
)xml";

void WriteProfile(const fs::path& profile) {
  std::error_code error;
  fs::create_directories(profile / "user", error);
  std::ofstream out(profile / "user" / "registrymodifications.xcu", std::ios::binary);
  out << kProfile;
  out.close();
  // Without it the document would be read with a person's trust.
  if (!out) throw LibreOfficeError("A profile for LibreOffice cannot be written.");
}

}  // namespace

std::optional<fs::path> LibreOffice::Find() {
  const char* const folders = std::getenv("PATH");
  if (folders == nullptr) return {};
  for (const char* name : {"soffice", "libreoffice"}) {
    std::istringstream rest(folders);
    for (std::string folder; std::getline(rest, folder, ':');) {
      const fs::path program = fs::path(folder) / name;
      std::error_code error;
      if (!folder.empty() && fs::is_regular_file(program, error) && access(program.c_str(), X_OK) == 0) return program;
    }
  }
  return {};
}

LibreOffice::LibreOffice(fs::path program, fs::path folder, std::chrono::milliseconds timeLimit)
    : program_(fs::absolute(program)), folder_(std::move(folder)), timeLimit_(timeLimit) {}

std::string LibreOffice::ToPdf() const {
  const fs::path pdf = folder_ / "document.pdf";
  std::error_code error;
  fs::remove(pdf, error);
  WriteProfile(folder_ / "profile");
  const bool inTime =
      RunFor({program_.string(), "--headless", "--norestore", "-env:UserInstallation=" + Url(folder_ / "profile"),
              "--convert-to", kFilter, "--outdir", folder_.string(), DocumentFile().string()},
             timeLimit_);
  if (!inTime) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(timeLimit_).count();
    throw LibreOfficeError("LibreOffice did not lay the document out within " + std::to_string(seconds) + " seconds.");
  }
  std::ifstream in(pdf, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (bytes.empty()) throw LibreOfficeError("LibreOffice could not lay the document out.");
  return bytes;
}

}  // namespace os
