#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/os/FileDialogs.h"

/// What a caller may say of a file dialog; what is absent has its default.
struct SaveAsOpenArguments {
  std::optional<std::intptr_t> owner{};           ///< none
  std::optional<std::u16string> initialFolder{};  ///< the current one
  std::optional<std::u16string> filter{};         ///< descriptions and patterns in turn, joined by NUL; all files
  std::optional<int> filterIndex{};               ///< 1
  std::optional<std::uint32_t> flags{};           ///< those that fit the mode
  std::optional<std::u16string> title{};          ///< the dialog's own
  std::optional<std::u16string> fileName{};       ///< none
};

/// Shows the platform's dialog to open or save a file.
/// @return the full path, or nothing when the user cancels
std::u16string SaveAsOpenDialog(os::FileDialogs& dialogs, os::FileDialogMode mode,
                                const SaveAsOpenArguments& arguments = {});

/// The text after the last "\".
std::u16string_view FileNameOf(std::u16string_view path);
/// The text before the last "\"; empty without one.
std::u16string_view FolderOf(std::u16string_view path);
