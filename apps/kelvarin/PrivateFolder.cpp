#include "apps/kelvarin/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <system_error>
#include <vector>

#include "apps/kelvarin/Status.h"

namespace {

namespace fs = std::filesystem;

constexpr char kNamePattern[] = "kelvarin-XXXXXX";

fs::path Parent() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  return error ? fs::path("/tmp") : parent;
}

/// Whether it is a folder of ours by its name and by who owns it.
bool IsOurs(const fs::path& folder, struct stat& status) {
  const std::string name = folder.filename().string();
  const std::string pattern = kNamePattern;
  const bool named = name.size() == pattern.size() && name.starts_with(pattern.substr(0, pattern.find('X')));
  // Whose name it is does not matter where the folder is another's, or is none.
  return named && lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid();
}

/// @return the handle that holds the lock; negative when it cannot be had
int Lock(const fs::path& folder) {
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (handle >= 0 && flock(handle, LOCK_EX | LOCK_NB) == 0) return handle;
  if (handle >= 0) close(handle);
  return -1;
}

void SweepLeft(const fs::path& parent) {
  // One that is younger may be about to be locked.
  constexpr std::time_t kYoung = 60;
  std::error_code error;
  std::vector<fs::path> left;
  for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error)) {
    struct stat status {};
    if (IsOurs(entry->path(), status) && std::time(nullptr) - status.st_mtime > kYoung) left.push_back(entry->path());
  }
  for (const fs::path& folder : left) {
    const int lock = Lock(folder);
    if (lock < 0) continue;
    fs::remove_all(folder, error);
    close(lock);
  }
}

}  // namespace

PrivateFolder::PrivateFolder() {
  const fs::path parent = Parent();
  static bool swept = false;
  if (!swept) SweepLeft(parent);
  swept = true;
  std::string name = (parent / kNamePattern).string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(kUnreadable, "no folder can be created in " + parent.string() + ": " + std::strerror(errno));
  }
  path_ = name;
  lock_ = Lock(path_);
}

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
  if (lock_ >= 0) close(lock_);
}

void PrivateFolder::RemoveLeft(const fs::path& folder) {
  struct stat status {};
  if (folder.parent_path() != Parent() || !IsOurs(folder, status)) return;
  std::error_code error;
  fs::remove_all(folder, error);
}
