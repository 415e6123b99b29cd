#include "hosts/linux/LinuxServices.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/linux/AtomicFile.h"
#include "hosts/linux/Paths.h"
#include "platform/word/HostError.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <system_error>

namespace os {

namespace {

/// Longer values than anything the system keeps.
constexpr int kUserValueSize = 1024;

[[noreturn]] void FailPathNotFound(std::string_view member) {
  throw word::HostError(word::kPathNotFound, u"Path not found", member);
}

/// Throws what the code says. @param code errno's value
[[noreturn]] void FailFile(int code, std::string_view member) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      throw word::HostError(word::kPathNotFound, u"Path not found", member);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      throw word::HostError(word::kDiskFull, u"Disk full", member);
    case EIO:
      throw word::HostError(word::kDeviceError, u"Device I/O error", member);
    case EAGAIN:
      throw word::HostError(word::kPermissionDenied, u"Permission denied", member);
    default:
      throw word::HostError(word::kPathAccess, u"Path/File access error", member);
  }
}

/// A descriptor that is closed with its owner. -1: none.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }

 private:
  int number_;
};

bool IsLockedByAnother(int file) {
  // Shared locks, so that several programs may look at the same time.
  if (flock(file, LOCK_SH | LOCK_NB) != 0) return errno == EWOULDBLOCK;
  struct flock whole {};
  whole.l_type = F_RDLCK;
  whole.l_whence = SEEK_SET;
  return fcntl(file, F_OFD_SETLK, &whole) != 0 && (errno == EAGAIN || errno == EACCES);
}

class LinuxOutputFile : public OutputFile {
 public:
  explicit LinuxOutputFile(const std::string& path) try : file_(path) {
  } catch (const FileError& error) {
    FailFile(error.Code(), "Files.OpenForOutput");
  }
  void Write(std::string_view bytes) override {
    try {
      file_.Write(std::as_bytes(std::span(bytes)));
    } catch (const FileError& error) {
      FailFile(error.Code(), "OutputFile.Write");
    }
  }
  void Close() override {
    try {
      file_.Commit();
    } catch (const FileError& error) {
      FailFile(error.Code(), "OutputFile.Close");
    }
  }

 private:
  AtomicFile file_;
};

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

int LinuxFiles::Attributes(std::u16string_view path) {
  if (!FileExists(path)) return -1;
  return IsReadOnly(ToPosixPath(path)) ? kReadOnly : kArchive;
}

void LinuxFiles::CreateFolder(std::u16string_view path) {
  if (mkdir(ToPosixPath(path).c_str(), 0777) != 0) FailPathNotFound("Files.CreateFolder");
}

void LinuxFiles::OpenForBinary(std::u16string_view path) {
  constexpr const char* kMember = "Files.OpenForBinary";
  const std::string name = ToPosixPath(path);
  // The superuser may open what has no write permission; it is read-only for everybody here.
  const bool readOnly = IsReadOnly(name);
  Descriptor file(open(name.c_str(), (readOnly ? O_RDONLY : O_RDWR | O_CREAT) | O_CLOEXEC | O_NONBLOCK, 0666));
  if (file.Number() < 0) FailFile(errno, kMember);
  struct stat status {};
  if (fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) FailFile(EACCES, kMember);
  if (IsLockedByAnother(file.Number())) FailFile(EAGAIN, kMember);
}

std::string LinuxFiles::Read(std::u16string_view path) {
  constexpr const char* kMember = "Files.Read";
  const std::string name = ToPosixPath(path);
  const Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file.Number() < 0) {
    if (errno == ENOENT && std::filesystem::is_directory(std::filesystem::path(name).parent_path())) {
      throw word::HostError(word::kFileNotFound, u"File not found", kMember);
    }
    FailFile(errno, kMember);
  }
  std::string bytes;
  std::array<char, 65536> piece;
  while (true) {
    const ssize_t count = read(file.Number(), piece.data(), piece.size());
    if (count == 0) return bytes;
    if (count > 0) {
      bytes.append(piece.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      FailFile(errno, kMember);
    }
  }
}

std::unique_ptr<OutputFile> LinuxFiles::OpenForOutput(std::u16string_view path) {
  return std::make_unique<LinuxOutputFile>(ToPosixPath(path));
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
