#pragma once

#include <cstdint>
#include <string>

namespace os {

enum class FileDialogMode { kOpen, kSave };

/// Windows' numbers of what a file dialog is asked to do.
inline constexpr std::uint32_t kOverwritePrompt = 0x2;  ///< asks before an existing file is chosen for saving
inline constexpr std::uint32_t kHideReadOnly = 0x4;
inline constexpr std::uint32_t kNoChangeDir = 0x8;
inline constexpr std::uint32_t kPathMustExist = 0x800;
inline constexpr std::uint32_t kFileMustExist = 0x1000;
inline constexpr std::uint32_t kExplorer = 0x80000;

/// What a file dialog shows when it comes.
struct FileDialog {
  FileDialogMode mode{FileDialogMode::kOpen};
  std::intptr_t owner{0};        ///< a window's handle, 0: none
  std::u16string initialFolder;  ///< in Windows form; empty: the current one
  /// Descriptions and patterns in turn, joined by NUL: "Text file (.txt)", NUL, "*.txt".
  std::u16string filter;
  int filterIndex{1};  ///< the filter that is chosen, from 1
  std::uint32_t flags{0};
  std::u16string title;     ///< empty: the dialog's own, "Open" or "Save As"
  std::u16string fileName;  ///< proposed
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// @return the full path, in Windows form; empty when the user cancels
  virtual std::u16string Choose(const FileDialog& dialog) = 0;
};

}  // namespace os
