#include "hosts/linux/LinuxServices.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/linux/Paths.h"
#include "platform/word/HostError.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace os {

namespace {

/// Longer values than anything the system keeps.
constexpr int kUserValueSize = 1024;

[[noreturn]] void FailPathNotFound(std::string_view member) {
  throw word::HostError(word::kPathNotFound, u"Path not found", member);
}

std::string HomeFolder() {
  const char* const home = std::getenv("HOME");
  if (home != nullptr && home[0] == '/') return home;
  const passwd* const user = getpwuid(getuid());
  return user == nullptr || user->pw_dir == nullptr ? "" : user->pw_dir;
}

std::string ConfigFolder() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && config[0] == '/') return config;
  const std::string home = HomeFolder();
  return home.empty() ? home : home + "/.config";
}

}  // namespace

bool LinuxFiles::FileExists(std::u16string_view path) {
  std::error_code failure;
  const auto status = std::filesystem::status(ToPosixPath(path), failure);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

bool LinuxFiles::FolderExists(std::u16string_view path) {
  std::error_code failure;
  return std::filesystem::is_directory(ToPosixPath(path), failure);
}

void LinuxFiles::CreateFolder(std::u16string_view path) {
  if (mkdir(ToPosixPath(path).c_str(), 0777) != 0) FailPathNotFound("Files.CreateFolder");
}

std::u16string LinuxFolders::SpecialFolder(int folder, std::intptr_t /*owner*/) {
  if (folder != kApplicationData) return {};
  const std::string path = applicationData_.empty() ? ConfigFolder() : applicationData_;
  if (path.empty()) return {};
  // A failure shows when something is to be kept there.
  std::error_code failure;
  std::filesystem::create_directories(path, failure);
  std::u16string windowsPath = ToWindowsPath(path);
  if (windowsPath.size() > 1 && windowsPath.ends_with(u'\\')) windowsPath.pop_back();
  return windowsPath;
}

std::vector<std::u16string> LinuxProcesses::ModuleFileNames() {
  return std::vector<std::u16string>(static_cast<std::size_t>(wordProcesses_ > 0 ? wordProcesses_ : 0),
                                     u"C:\\Program Files\\Microsoft Office\\OFFICE12\\WINWORD.EXE");
}

LinuxUserSettings::LinuxUserSettings(Profile& profile, std::u16string_view folder)
    : profile_(profile), folder_(folder), file_(folder_ + u"\\kvxuser.ini") {}

std::u16string LinuxUserSettings::Read(std::u16string_view section, std::u16string_view key,
                                       std::u16string_view defaultValue) {
  return profile_.Read(section, key, defaultValue, kUserValueSize, file_);
}

void LinuxUserSettings::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  std::error_code failure;
  std::filesystem::create_directories(ToPosixPath(folder_), failure);
  if (!profile_.Write(section, key, value, file_)) FailPathNotFound("UserSettings.Write");
}

}  // namespace os
