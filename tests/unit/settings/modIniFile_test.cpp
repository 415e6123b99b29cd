#include "settings/modIniFile.h"

#include <gtest/gtest.h>

#include "settings/Defaults.h"
#include "tests/fakes/FakeServices.h"

namespace {

class IniFile : public testing::Test {
 protected:
  IniFile() { ini.IniFilePath = u"C:\\Data\\Brantholt\\Kelvarin\\\\kvx.ini"; }

  fakes::FakeFiles files;
  fakes::FakeProfile profile{files};
  modIniFile ini{profile, files};
};

}  // namespace

TEST_F(IniFile, EveryKeyReadsNullWithoutAFile) {
  EXPECT_FALSE(ini.FileExists());
  EXPECT_EQ(ini.ReadIniValue(u"Defaults", u"SearchType"), u"Null");
}

TEST_F(IniFile, NothingIsReadBeforeThePathIsKnown) {
  ini.IniFilePath.clear();
  files.files.insert(u"");
  EXPECT_EQ(ini.ReadIniValue(u"Defaults", u"SearchType"), u"Null");
}

TEST_F(IniFile, AMissingKeyReadsEmpty) {
  ASSERT_TRUE(ini.WriteIniValue(u"Defaults", u"Bold", u"True"));
  EXPECT_EQ(ini.ReadIniValue(u"Defaults", u"SearchType"), u"");
  EXPECT_EQ(ini.ReadIniValue(u"Elsewhere", u"Bold"), u"");
}

TEST_F(IniFile, WritingMakesTheFileAtThePathWithBothSeparators) {
  EXPECT_TRUE(ini.WriteIniValue(u"Defaults", u"Bold", u"True"));
  EXPECT_EQ(profile.lastPath, u"C:\\Data\\Brantholt\\Kelvarin\\\\kvx.ini");
  EXPECT_TRUE(ini.FileExists());
  EXPECT_EQ(ini.ReadIniValue(u"Defaults", u"Bold"), u"True");
}

TEST_F(IniFile, AFailedWriteIsReported) {
  profile.failing.insert(u"Bold");
  EXPECT_FALSE(ini.WriteIniValue(u"Defaults", u"Bold", u"True"));
}

TEST_F(IniFile, AValueIsCutTo254Characters) {
  ini.WriteIniValue(u"Defaults", u"IndexSep", std::u16string(300, u'x'));
  EXPECT_EQ(ini.ReadIniValue(u"Defaults", u"IndexSep"), std::u16string(254, u'x'));
}

TEST(SettingDefaults, TheSeparatorIsKeptBetweenQuotes) {
  EXPECT_EQ(kSettingDefaults[9].key, u"IndexSep");
  EXPECT_EQ(kSettingDefaults[9].value, u"\":  {TAB}\"");
}
