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

  /// Takes away a folder that a program which was killed had as its private one; nothing where it does not look like
  /// one.
  static void RemoveLeft(const std::filesystem::path& folder);

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};
