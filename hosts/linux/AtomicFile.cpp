#include "hosts/linux/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <system_error>
#include <vector>

namespace os {

namespace {

std::string Reason(int code) { return std::generic_category().message(code); }

/// What a new file may not be allowed. umask() itself can only be read by changing it, for all threads.
mode_t ReadUmask() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    unsigned mask = 0;
    if (std::sscanf(line.c_str(), "Umask: %o", &mask) == 1) return static_cast<mode_t>(mask);
  }
  return 022;
}

std::string TemporaryPrefix(int process) { return ".kvx-" + std::to_string(process) + "-"; }

constexpr char kTemporarySuffix[] = ".tmp";

}  // namespace

AtomicFile::AtomicFile(const std::filesystem::path& target, Durability durability)
    : durability_(durability), target_(target) {
  std::error_code none;
  if (std::filesystem::is_symlink(target_, none)) {
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(target_, none);
    if (!none) target_ = resolved;
  }

  struct stat existing {};
  const bool exists = stat(target_.c_str(), &existing) == 0;
  if (exists && !S_ISREG(existing.st_mode)) throw FileError("cannot be written: it is not a file", EINVAL);
  if (IsReadOnly(target_)) throw FileError("cannot be written: it is read-only", EACCES);

  static std::atomic<unsigned> counter{0};
  do {
    temporary_ = target_;
    temporary_.replace_filename(TemporaryPrefix(getpid()) + std::to_string(++counter) + kTemporarySuffix);
    file_ = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  } while (file_ < 0 && errno == EEXIST);
  if (file_ < 0) {
    const int code = errno;
    throw FileError("cannot be written: " + Reason(code), code);
  }

  if (exists) {
    if (existing.st_uid != geteuid() || existing.st_gid != getegid()) {
      [[maybe_unused]] const int ignored = fchown(file_, existing.st_uid, existing.st_gid);
    }
    if (fchmod(file_, existing.st_mode & 07777) != 0) Fail(errno);
  } else if (fchmod(file_, 0666 & ~ReadUmask()) != 0) {
    Fail(errno);
  }
}

AtomicFile::~AtomicFile() { Abandon(); }

void AtomicFile::Write(std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = write(file_, bytes.data(), bytes.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      Fail(errno);
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
}

void AtomicFile::Commit() {
  if (durability_ == Durability::kMachine && fsync(file_) != 0) Fail(errno);
  const int closed = close(file_);
  file_ = -1;
  if (closed != 0) Fail(errno);
  if (rename(temporary_.c_str(), target_.c_str()) != 0) Fail(errno);
  temporary_.clear();
  if (durability_ == Durability::kProgram) return;

  // The name is safe only with its folder. Where a folder cannot be synced the file system does without.
  const std::filesystem::path folder = target_.parent_path().empty() ? "." : target_.parent_path();
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle >= 0) {
    fsync(handle);
    close(handle);
  }
}

void AtomicFile::Fail(int code) {
  Abandon();
  throw FileError("cannot be written: " + Reason(code), code);
}

void AtomicFile::Abandon() noexcept {
  if (file_ >= 0) close(file_);
  file_ = -1;
  if (!temporary_.empty()) unlink(temporary_.c_str());
  temporary_.clear();
}

void WriteFileAtomically(const std::filesystem::path& target, std::span<const std::byte> bytes, Durability durability) {
  AtomicFile file(target, durability);
  file.Write(bytes);
  file.Commit();
}

void SweepTemporaries(const std::filesystem::path& target, int process) noexcept try {
  const std::filesystem::path folder =
      std::filesystem::weakly_canonical(std::filesystem::absolute(target)).parent_path();
  std::vector<std::filesystem::path> left;
  for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(TemporaryPrefix(process)) && name.ends_with(kTemporarySuffix)) left.push_back(entry.path());
  }
  for (const std::filesystem::path& file : left) std::filesystem::remove(file);
} catch (const std::exception&) {
  // A folder that cannot be read now can be tidied by its owner.
}

bool IsReadOnly(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return false;
  return (status.st_mode & 0222) == 0 || access(file.c_str(), W_OK) != 0;
}

}  // namespace os
