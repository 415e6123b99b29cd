#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace os {

/// Windows' numbers of the attributes that a file can have here.
inline constexpr int kReadOnly = 1;
inline constexpr int kArchive = 32;

/// A file that is written anew. Until Close the file is what it was before; without Close, what was written is
/// dropped.
class OutputFile {
 public:
  OutputFile() = default;
  virtual ~OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  /// @throws word::HostError kDiskFull, kDeviceError
  virtual void Write(std::string_view bytes) = 0;
  /// Last, once: what was written is the file's whole content. @throws word::HostError as Write; the file is then what
  /// it was before
  virtual void Close() = 0;
};

/// Files and folders. Paths are in Windows form ("\" between names); a host maps them to its own.
class Files {
 public:
  virtual ~Files() = default;
  virtual bool FileExists(std::u16string_view path) = 0;
  virtual bool FolderExists(std::u16string_view path) = 0;
  /// The sum of the file's attributes; -1 when there is no such file.
  virtual int Attributes(std::u16string_view path) = 0;
  /// Creates the last level. @throws word::HostError kPathNotFound
  virtual void CreateFolder(std::u16string_view path) = 0;
  /// Opens a file for reading and writing, or where that is refused for reading, and closes it again. A file that is
  /// missing is made, empty.
  /// @throws word::HostError kPathNotFound, kPathAccess, kPermissionDenied when another program has locked it
  virtual void OpenForBinary(std::u16string_view path) = 0;
  /// A file's bytes. @throws word::HostError kFileNotFound, kPathNotFound, kPathAccess, kDeviceError
  virtual std::string Read(std::u16string_view path) = 0;
  /// @throws word::HostError kPathNotFound, kPathAccess, kDiskFull
  virtual std::unique_ptr<OutputFile> OpenForOutput(std::u16string_view path) = 0;
};

}  // namespace os
