#include "apps/kelvarin/PrivateFolder.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

#include "apps/kelvarin/Status.h"

namespace {

namespace fs = std::filesystem;

constexpr char kNamePattern[] = "kelvarin-XXXXXX";

fs::path Parent() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  return error ? fs::path("/tmp") : parent;
}

}  // namespace

PrivateFolder::PrivateFolder() {
  const fs::path parent = Parent();
  std::string name = (parent / kNamePattern).string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(kUnreadable, "no folder can be created in " + parent.string() + ": " + std::strerror(errno));
  }
  path_ = name;
}

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

void PrivateFolder::RemoveLeft(const fs::path& folder) {
  const std::string name = folder.filename().string();
  const std::string pattern = kNamePattern;
  const bool isOurs = folder.parent_path() == Parent() && name.size() == pattern.size() &&
                      name.starts_with(pattern.substr(0, pattern.find('X')));
  struct stat status {};
  // Whose name it is does not matter where the folder is another's, or is none.
  if (!isOurs || lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != geteuid()) return;
  std::error_code error;
  fs::remove_all(folder, error);
}
