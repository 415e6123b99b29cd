#include "apps/kelvarin/PrivateFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>

#include "apps/kelvarin/Status.h"

PrivateFolder::PrivateFolder() {
  std::error_code error;
  std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  if (error) parent = "/tmp";
  std::string name = (parent / "kelvarin-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw Failure(kUnreadable, "no folder can be created in " + parent.string() + ": " + std::strerror(errno));
  }
  path_ = name;
}

PrivateFolder::~PrivateFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}
