#include "hosts/linux/LinuxServices.h"

#include <gtest/gtest.h>

#include "hosts/linux/LinuxProfile.h"
#include "hosts/linux/Paths.h"
#include "platform/word/HostError.h"
#include "tests/unit/linux/Environment.h"
#include "tests/unit/linux/TempFolder.h"

#include <string>
#include <vector>

namespace {

TEST(Files, TellFilesFromFolders) {
  const TempFolder folder;
  WriteBytes(folder / "file", "");
  os::LinuxFiles files;
  const std::u16string base = os::ToWindowsPath(folder.Path().string());
  EXPECT_TRUE(files.FolderExists(base));
  EXPECT_FALSE(files.FileExists(base));
  EXPECT_TRUE(files.FileExists(base + u"\\\\file"));
  EXPECT_FALSE(files.FolderExists(base + u"\\file"));
  EXPECT_FALSE(files.FileExists(base + u"\\missing"));
  EXPECT_FALSE(files.FileExists(u""));
}

TEST(Files, CreateOneLevelOfFoldersAtATime) {
  const TempFolder folder;
  os::LinuxFiles files;
  const std::u16string base = os::ToWindowsPath(folder.Path().string());
  files.CreateFolder(base + u"\\One");
  EXPECT_TRUE(std::filesystem::is_directory(folder / "One"));
  try {
    files.CreateFolder(base + u"\\Two\\Three");
    FAIL() << "no error";
  } catch (const word::HostError& error) {
    EXPECT_EQ(error.Number(), word::kPathNotFound);
  }
}

TEST(Folders, ApplicationDataIsTheConfigurationFolderOfTheEnvironment) {
  const TempFolder folder;
  const Environment config("XDG_CONFIG_HOME", (folder / "config/").string());
  EXPECT_EQ(os::LinuxFolders().SpecialFolder(os::kApplicationData, 0), os::ToWindowsPath((folder / "config").string()));
  EXPECT_TRUE(std::filesystem::is_directory(folder / "config"));
}

TEST(Folders, ApplicationDataIsElseInTheHomeFolder) {
  const TempFolder folder;
  const Environment home("HOME", folder.Path().string());
  {
    const Environment config("XDG_CONFIG_HOME", std::nullopt);
    EXPECT_EQ(os::LinuxFolders().SpecialFolder(os::kApplicationData, 0),
              os::ToWindowsPath((folder / ".config").string()));
  }
  const Environment relative("XDG_CONFIG_HOME", "relative");
  EXPECT_EQ(os::LinuxFolders().SpecialFolder(os::kApplicationData, 0),
            os::ToWindowsPath((folder / ".config").string()));
}

TEST(Folders, AnotherFolderMayStandForApplicationData) {
  const TempFolder folder;
  EXPECT_EQ(os::LinuxFolders((folder / "data").string()).SpecialFolder(os::kApplicationData, 0),
            os::ToWindowsPath((folder / "data").string()));
}

TEST(Folders, ThereAreNoOthers) { EXPECT_EQ(os::LinuxFolders().SpecialFolder(5, 0), u""); }

TEST(Processes, OneWordRunsUnlessToldOtherwise) {
  const std::vector<std::u16string> names = os::LinuxProcesses().ModuleFileNames();
  ASSERT_EQ(names.size(), 1U);
  EXPECT_TRUE(names[0].ends_with(u"\\WINWORD.EXE"));
  EXPECT_EQ(os::LinuxProcesses(2).ModuleFileNames().size(), 2U);
  EXPECT_TRUE(os::LinuxProcesses(0).ModuleFileNames().empty());
}

TEST(UserSettings, AreKeptInAFileOfTheirOwnBesideTheSettings) {
  const TempFolder folder;
  os::LinuxProfile profile;
  os::LinuxUserSettings settings(profile, os::ToWindowsPath((folder / "Maker/Product").string()));
  EXPECT_EQ(settings.Read(u"Settings", u"DisplayOnConnect", u"0"), u"0");
  EXPECT_TRUE(folder.Names().empty());
  settings.Write(u"Settings", u"DisplayOnConnect", u"1");
  EXPECT_EQ(settings.Read(u"Settings", u"DisplayOnConnect", u"0"), u"1");
  EXPECT_EQ(ReadBytes(folder / "Maker/Product/kvxuser.ini"), "[Settings]\r\nDisplayOnConnect=1\r\n");
}

TEST(UserSettings, TellWhenAValueCannotBeKept) {
  const TempFolder folder;
  WriteBytes(folder / "file", "");
  os::LinuxProfile profile;
  os::LinuxUserSettings settings(profile, os::ToWindowsPath((folder / "file").string()));
  EXPECT_THROW(settings.Write(u"Settings", u"DisplayOnConnect", u"1"), word::HostError);
}

}  // namespace
