#include "settings/modGetCSIDLFolderPath.h"

std::u16string modGetCSIDLFolderPath::GetSettingsFolder(std::intptr_t owner, std::u16string_view subPath) {
  applicationData_ = folders_.SpecialFolder(os::kApplicationData, owner);
  settings_ = applicationData_ + u"\\" + std::u16string(subPath);
  if (!files_.FolderExists(settings_)) settings_ = MakeNestedFolder(subPath);
  if (settings_.empty() || settings_.back() != u'\\') settings_ += u'\\';
  return settings_;
}

std::u16string modGetCSIDLFolderPath::MakeNestedFolder(std::u16string_view subPath) {
  std::u16string folder = applicationData_;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = subPath.find(u'\\', start);
    folder += u'\\';
    folder += subPath.substr(start, end - start);
    if (!files_.FolderExists(folder)) files_.CreateFolder(folder);
    if (end == std::u16string_view::npos) return folder;
    start = end + 1;
  }
}
