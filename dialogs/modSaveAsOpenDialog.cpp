#include "dialogs/modSaveAsOpenDialog.h"

namespace {

std::uint32_t FlagsOf(os::FileDialogMode mode) {
  const std::uint32_t both = os::kExplorer | os::kHideReadOnly | os::kNoChangeDir;
  // A folder that is missing is made when something is saved there, so it need not exist.
  return mode == os::FileDialogMode::kOpen ? both | os::kPathMustExist | os::kFileMustExist
                                           : both | os::kOverwritePrompt;
}

}  // namespace

std::u16string SaveAsOpenDialog(os::FileDialogs& dialogs, os::FileDialogMode mode,
                                const SaveAsOpenArguments& arguments) {
  os::FileDialog dialog;
  dialog.mode = mode;
  dialog.owner = arguments.owner.value_or(0);
  dialog.initialFolder = arguments.initialFolder.value_or(u"");
  dialog.filter = arguments.filter.value_or(u"");
  dialog.filterIndex = arguments.filterIndex.value_or(1);
  dialog.flags = arguments.flags.value_or(FlagsOf(mode));
  dialog.title = arguments.title.value_or(u"");
  dialog.fileName = arguments.fileName.value_or(u"");
  return dialogs.Choose(dialog);
}

std::u16string_view FileNameOf(std::u16string_view path) { return path.substr(path.rfind(u'\\') + 1); }

std::u16string_view FolderOf(std::u16string_view path) {
  const std::size_t separator = path.rfind(u'\\');
  return separator == std::u16string_view::npos ? std::u16string_view() : path.substr(0, separator);
}
