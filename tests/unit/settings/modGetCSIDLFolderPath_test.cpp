#include "settings/modGetCSIDLFolderPath.h"

#include <gtest/gtest.h>

#include "settings/modKVXAppDocsSettingsSubPath.h"
#include "tests/fakes/FakeServices.h"

namespace {

class SettingsFolder : public testing::Test {
 protected:
  SettingsFolder() { files.folders.insert(u"C:\\Data"); }

  fakes::FakeFiles files;
  fakes::FakeFolders folders;
  modGetCSIDLFolderPath settingsFolder{folders, files};
};

}  // namespace

TEST_F(SettingsFolder, IsBelowTheApplicationDataFolderOfTheOwner) {
  EXPECT_EQ(settingsFolder.GetSettingsFolder(12, modKVXAppDocsSettingsSubPath), u"C:\\Data\\Brantholt\\Kelvarin\\");
  EXPECT_EQ(folders.askedFor, 26);
  EXPECT_EQ(folders.askedOwner, 12);
  EXPECT_EQ(settingsFolder.ApplicationDataFolder(), u"C:\\Data");
  EXPECT_EQ(settingsFolder.SettingsFolder(), u"C:\\Data\\Brantholt\\Kelvarin\\");
}

TEST_F(SettingsFolder, EveryMissingLevelIsMadeInOrder) {
  settingsFolder.GetSettingsFolder(0, modKVXAppDocsSettingsSubPath);
  EXPECT_EQ(files.created, (std::vector<std::u16string>{u"C:\\Data\\Brantholt", u"C:\\Data\\Brantholt\\Kelvarin"}));
}

TEST_F(SettingsFolder, OnlyTheMissingLevelIsMade) {
  files.folders.insert(u"C:\\Data\\Brantholt");
  settingsFolder.GetSettingsFolder(0, modKVXAppDocsSettingsSubPath);
  EXPECT_EQ(files.created, std::vector<std::u16string>{u"C:\\Data\\Brantholt\\Kelvarin"});
}

TEST_F(SettingsFolder, AnExistingFolderIsLeftAlone) {
  files.folders.insert(u"C:\\Data\\Brantholt\\Kelvarin");
  EXPECT_EQ(settingsFolder.GetSettingsFolder(0, modKVXAppDocsSettingsSubPath), u"C:\\Data\\Brantholt\\Kelvarin\\");
  EXPECT_TRUE(files.created.empty());
}

TEST_F(SettingsFolder, AFolderThatCannotBeMadeIsAnError) {
  files.folders.clear();
  EXPECT_THROW(settingsFolder.GetSettingsFolder(0, modKVXAppDocsSettingsSubPath), word::HostError);
}
