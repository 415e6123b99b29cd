#pragma once

#include <string>
#include <string_view>

namespace os {

/// Files and folders. Paths are in Windows form ("\" between names); a host maps them to its own.
class Files {
 public:
  virtual ~Files() = default;
  virtual bool FileExists(std::u16string_view path) = 0;
  virtual bool FolderExists(std::u16string_view path) = 0;
  /// Creates the last level. @throws word::HostError kPathNotFound
  virtual void CreateFolder(std::u16string_view path) = 0;
};

}  // namespace os
