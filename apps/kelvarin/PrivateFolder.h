#pragma once

#include <filesystem>
#include <optional>

/// A new folder that nobody else can read, for one run; it goes with the object. While it exists it is locked, so that
/// one that a killed program left is known by its lock that is gone.
class PrivateFolder {
 public:
  /// The first of a program also takes away what killed ones left. @throws Failure kUnreadable
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
  /// Closed with the last process that has it. Negative: the file system has no locks.
  int lock_{-1};
};
