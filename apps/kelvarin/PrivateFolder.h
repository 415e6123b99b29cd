#pragma once

#include <filesystem>
#include <optional>

/// A new folder that nobody else can read, for one run; it goes with the object.
class PrivateFolder {
 public:
  /// @throws Failure kUnreadable
  PrivateFolder();
  ~PrivateFolder();
  PrivateFolder(const PrivateFolder&) = delete;
  PrivateFolder& operator=(const PrivateFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};
