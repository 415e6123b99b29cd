#include "hosts/win32/WindowsFiles.h"

#include <windows.h>

#include <shlobj.h>

#include <algorithm>
#include <array>
#include <utility>

#include "hosts/win32/Wide.h"
#include "platform/AnsiText.h"
#include "platform/word/HostError.h"

namespace win32 {

namespace {

/// Throws what Windows' last error says.
[[noreturn]] void Fail(std::string_view member) {
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
      throw word::HostError(word::kFileNotFound, u"File not found", member);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      throw word::HostError(word::kPathNotFound, u"Path not found", member);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      throw word::HostError(word::kPermissionDenied, u"Permission denied", member);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      throw word::HostError(word::kDiskFull, u"Disk full", member);
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
      throw word::HostError(word::kDeviceError, u"Device I/O error", member);
    default:
      throw word::HostError(word::kPathAccess, u"Path/File access error", member);
  }
}

DWORD AttributesOf(std::u16string_view path) { return GetFileAttributesW(ToWide(path).c_str()); }

/// A handle that is closed with its owner.
class File {
 public:
  explicit File(HANDLE handle) : handle_(handle) {}
  ~File() { Close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  HANDLE Handle() const { return handle_; }
  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  void Take(HANDLE handle) {
    Close();
    handle_ = handle;
  }
  void Close() {
    if (IsOpen()) CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

 private:
  HANDLE handle_;
};

HANDLE Open(const std::wstring& path, DWORD access, DWORD sharing, DWORD creation) {
  return CreateFileW(path.c_str(), access, sharing, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// What is written stands beside the file until it is closed.
class WindowsOutputFile : public os::OutputFile {
 public:
  explicit WindowsOutputFile(std::u16string_view path) : path_(ToWide(path)), scratch_(path_ + L".kvxnew") {
    constexpr const char* kMember = "Files.OpenForOutput";
    // As opening the file itself would: a folder or a file that may not be written is refused now.
    const DWORD attributes = GetFileAttributesW(path_.c_str());
    const DWORD refused = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & refused) != 0) {
      SetLastError(ERROR_ACCESS_DENIED);
      Fail(kMember);
    }
    file_.Take(Open(scratch_, GENERIC_WRITE, 0, CREATE_ALWAYS));
    if (!file_.IsOpen()) Fail(kMember);
  }
  ~WindowsOutputFile() override {
    file_.Close();
    if (!done_) DeleteFileW(scratch_.c_str());
  }
  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD written = 0;
      const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30U));
      if (!WriteFile(file_.Handle(), bytes.data(), size, &written, nullptr)) Fail("OutputFile.Write");
      bytes.remove_prefix(written);
    }
  }
  void Close() override {
    constexpr const char* kMember = "OutputFile.Close";
    if (!FlushFileBuffers(file_.Handle())) Fail(kMember);
    file_.Close();
    if (!MoveFileExW(scratch_.c_str(), path_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
      Fail(kMember);
    done_ = true;
  }

 private:
  std::wstring path_;
  std::wstring scratch_;
  File file_{INVALID_HANDLE_VALUE};
  bool done_{false};
};

}  // namespace

bool WindowsFiles::FileExists(std::u16string_view path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WindowsFiles::FolderExists(std::u16string_view path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

int WindowsFiles::Attributes(std::u16string_view path) {
  return FileExists(path) ? static_cast<int>(AttributesOf(path) & (os::kReadOnly | os::kArchive)) : -1;
}

void WindowsFiles::CreateFolder(std::u16string_view path) {
  if (!CreateDirectoryW(ToWide(path).c_str(), nullptr)) {
    throw word::HostError(word::kPathNotFound, u"Path not found", "Files.CreateFolder");
  }
}

void WindowsFiles::OpenForBinary(std::u16string_view path) {
  constexpr const char* kMember = "Files.OpenForBinary";
  const std::wstring name = ToWide(path);
  const DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  if (File(Open(name, GENERIC_READ | GENERIC_WRITE, all, OPEN_ALWAYS)).IsOpen()) return;
  if (GetLastError() == ERROR_SHARING_VIOLATION) Fail(kMember);
  if (!File(Open(name, GENERIC_READ, all, OPEN_EXISTING)).IsOpen()) Fail(kMember);
}

std::string WindowsFiles::Read(std::u16string_view path) {
  constexpr const char* kMember = "Files.Read";
  const File file(Open(ToWide(path), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING));
  if (!file.IsOpen()) Fail(kMember);
  std::string bytes;
  std::array<char, 65536> piece;
  for (;;) {
    DWORD count = 0;
    if (!ReadFile(file.Handle(), piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr)) Fail(kMember);
    if (count == 0) return bytes;
    bytes.append(piece.data(), count);
  }
}

std::unique_ptr<os::OutputFile> WindowsFiles::OpenForOutput(std::u16string_view path) {
  return std::make_unique<WindowsOutputFile>(path);
}

// A folder's name may hold characters that the code page lacks, so the paths of the "A" functions would not do; they
// are called for the bytes alone.
std::u16string WindowsProfile::Read(std::u16string_view section, std::u16string_view key,
                                    std::u16string_view defaultValue, int size, std::u16string_view path) {
  std::wstring value(static_cast<std::size_t>(size), L'\0');
  const DWORD length =
      GetPrivateProfileStringW(ToWide(section).c_str(), ToWide(key).c_str(), ToWide(defaultValue).c_str(), value.data(),
                               static_cast<DWORD>(size), ToWide(path).c_str());
  value.resize(length);
  return FromWide(value);
}

bool WindowsProfile::Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                           std::u16string_view path) {
  return WritePrivateProfileStringW(ToWide(section).c_str(), ToWide(key).c_str(),
                                    ToWide(FromAnsi(ToAnsi(value))).c_str(), ToWide(path).c_str()) != FALSE;
}

std::u16string WindowsFolders::SpecialFolder(int folder, std::intptr_t owner) {
  PIDLIST_ABSOLUTE list = nullptr;
  if (FAILED(SHGetSpecialFolderLocation(reinterpret_cast<HWND>(owner), folder, &list))) return {};
  std::array<wchar_t, MAX_PATH> path{};
  const bool named = SHGetPathFromIDListW(list, path.data()) != FALSE;
  CoTaskMemFree(list);
  std::u16string name = named ? FromWide(path.data()) : std::u16string();
  while (name.size() > 3 && name.ends_with(u'\\')) name.pop_back();
  return name;
}

}  // namespace win32
