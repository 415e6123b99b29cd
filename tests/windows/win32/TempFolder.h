#pragma once

#include <windows.h>

#include <string>

/// A folder for one test, which goes with all files in it.
class TempFolder {
 public:
  TempFolder() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    // A name outside every code page.
    path_ = std::wstring(folder) + L"kvx \u0416 " + std::to_wstring(GetCurrentProcessId());
    CreateDirectoryW(path_.c_str(), nullptr);
  }
  ~TempFolder() {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((path_ + L"\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
      do {
        const std::wstring file = path_ + L"\\" + found.cFileName;
        SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (!DeleteFileW(file.c_str())) RemoveDirectoryW(file.c_str());
      } while (FindNextFileW(search, &found));
      FindClose(search);
    }
    RemoveDirectoryW(path_.c_str());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::u16string File(std::u16string_view name) const {
    return std::u16string(path_.begin(), path_.end()) + u"\\" + std::u16string(name);
  }

 private:
  std::wstring path_;
};
