#include "apps/kelvarin/PrivateSettings.h"

#include <fstream>
#include <system_error>

#include "apps/kelvarin/Output.h"
#include "apps/kelvarin/Status.h"
#include "hosts/linux/LinuxServices.h"
#include "hosts/linux/Paths.h"
#include "platform/os/Folders.h"
#include "settings/modKVXAppDocsSettingsSubPath.h"

namespace {

namespace fs = std::filesystem;

constexpr char kSettingsName[] = "kvx.ini";
constexpr char kUserValuesName[] = "kvxuser.ini";

fs::path SettingsFolderIn(const fs::path& applicationData) {
  return applicationData / os::ToPosixPath(modKVXAppDocsSettingsSubPath);
}

}  // namespace

fs::path PersonsApplicationData() {
  const std::u16string own = os::LinuxFolders().SpecialFolder(os::kApplicationData, 0);
  return own.empty() ? fs::path() : fs::path(os::ToPosixPath(own));
}

fs::path PersonsSettingsFile() {
  const fs::path own = PersonsApplicationData();
  return own.empty() ? own : SettingsFolderIn(own) / kSettingsName;
}

PrivateSettings::PrivateSettings(Source source) : source_(std::move(source)) {
  const fs::path own = PersonsApplicationData();
  if (source_.applicationData && *source_.applicationData != own && !source_.file) {
    applicationData_ = *source_.applicationData;
    return;
  }
  folder_.emplace();
  applicationData_ = folder_->Path() / "Application Data";
  std::error_code error;
  fs::create_directories(Folder(), error);
  if (error) throw Failure(kUnreadable, Folder().string() + " cannot be created: " + error.message());
  if (source_.file) {
    CopyIn(*source_.file, File());
    return;
  }
  if (own.empty()) return;
  const fs::path folder = SettingsFolderIn(own);
  CopyIn(folder / kSettingsName, File());
  CopyIn(folder / kUserValuesName, Folder() / kUserValuesName);
}

fs::path PrivateSettings::Folder() const { return SettingsFolderIn(applicationData_); }

fs::path PrivateSettings::File() const { return Folder() / kSettingsName; }

void PrivateSettings::CopyIn(const fs::path& from, const fs::path& to) const {
  std::error_code error;
  if (!fs::exists(from, error)) return;
  std::ofstream out(to, std::ios::binary);
  const std::string content = ReadFile(from);
  out.write(content.data(), static_cast<std::streamsize>(content.size()));
  out.close();
  if (!out) throw Failure(kUnreadable, to.string() + " cannot be written");
}

void PrivateSettings::WriteBack() const {
  if (!source_.file || !source_.writeBack) return;
  std::error_code error;
  if (!fs::exists(File(), error)) return;
  const std::string content = ReadFile(File());
  if (fs::exists(*source_.file, error) && ReadFile(*source_.file) == content) return;
  WriteText(content, *source_.file);
}
