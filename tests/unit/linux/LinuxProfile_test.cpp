#include "hosts/linux/LinuxProfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/linux/Paths.h"
#include "tests/unit/linux/TempFolder.h"

#include <string>

namespace {

class Profile : public testing::Test {
 protected:
  std::u16string Path(const std::string& name) const { return os::ToWindowsPath((folder_ / name).string()); }

  TempFolder folder_;
  os::LinuxProfile profile_;
};

TEST_F(Profile, ReadsWhatItWrote) {
  EXPECT_TRUE(profile_.Write(u"Defaults", u"IndexSep", u"\":  {TAB}\"", Path("kvx.ini")));
  EXPECT_TRUE(profile_.Write(u"Defaults", u"Bold", u"True", Path("kvx.ini")));
  EXPECT_EQ(ReadBytes(folder_ / "kvx.ini"), "[Defaults]\r\nIndexSep=\":  {TAB}\"\r\nBold=True\r\n");
  EXPECT_EQ(profile_.Read(u"Defaults", u"IndexSep", u"", 255, Path("kvx.ini")), u":  {TAB}");
}

TEST_F(Profile, AcceptsADoubledSeparatorBeforeTheFileName) {
  const std::u16string path = os::ToWindowsPath(folder_.Path().string()) + u"\\\\kvx.ini";
  EXPECT_TRUE(profile_.Write(u"Defaults", u"Bold", u"True", path));
  EXPECT_EQ(profile_.Read(u"Defaults", u"Bold", u"", 255, path), u"True");
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"kvx.ini"});
}

TEST_F(Profile, GivesTheDefaultWithoutItsTrailingBlanksWhenThereIsNoFileAndMakesNone) {
  EXPECT_EQ(profile_.Read(u"Defaults", u"Bold", u" none  ", 255, Path("kvx.ini")), u" none");
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(Profile, GivesAnEmptyValueAndNotTheDefault) {
  WriteBytes(folder_ / "kvx.ini", "[Defaults]\r\nBold=\r\n");
  EXPECT_EQ(profile_.Read(u"Defaults", u"Bold", u"default", 255, Path("kvx.ini")), u"");
}

TEST_F(Profile, CutsAValueToTheBufferLessOne) {
  WriteBytes(folder_ / "kvx.ini", "[Defaults]\r\nKey=" + std::string(300, 'x') + "\r\n");
  EXPECT_EQ(profile_.Read(u"Defaults", u"Key", u"", 255, Path("kvx.ini")), std::u16string(254, u'x'));
  EXPECT_EQ(profile_.Read(u"Defaults", u"Key", u"", 1, Path("kvx.ini")), u"");
  EXPECT_EQ(profile_.Read(u"Defaults", u"Key", u"", 0, Path("kvx.ini")), u"");
  EXPECT_EQ(profile_.Read(u"Defaults", u"Missing", u"default", 4, Path("kvx.ini")), u"def");
}

TEST_F(Profile, GivesWhatTheCodePageHoldsOfAUtf16File) {
  using namespace std::string_literals;
  WriteBytes(folder_ / "kvx.ini", "\xFF\xFE[\0D\0]\0\n\0K\0=\0\x01\x01\x00\x4E"s);
  EXPECT_EQ(profile_.Read(u"D", u"K", u"", 255, Path("kvx.ini")), u"a?");
}

TEST_F(Profile, LeavesTheFileAloneThatHasTheValueAlready) {
  EXPECT_TRUE(profile_.Write(u"Defaults", u"Bold", u"True", Path("kvx.ini")));
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat((folder_ / "kvx.ini").c_str(), &before), 0);
  EXPECT_TRUE(profile_.Write(u"Defaults", u"Bold", u"True", Path("kvx.ini")));
  ASSERT_EQ(stat((folder_ / "kvx.ini").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(Profile, FailsWhereThereIsNoFolder) {
  EXPECT_FALSE(profile_.Write(u"Defaults", u"Bold", u"True", Path("missing/kvx.ini")));
  EXPECT_FALSE(profile_.Write(u"Defaults", u"Bold", u"True", u""));
}

TEST_F(Profile, FailsOnAReadOnlyFileEvenWhenTheValueIsTheSame) {
  WriteBytes(folder_ / "kvx.ini", "[Defaults]\r\nBold=True\r\n");
  chmod((folder_ / "kvx.ini").c_str(), 0444);
  EXPECT_FALSE(profile_.Write(u"Defaults", u"Bold", u"False", Path("kvx.ini")));
  EXPECT_FALSE(profile_.Write(u"Defaults", u"Bold", u"True", Path("kvx.ini")));
  EXPECT_EQ(ReadBytes(folder_ / "kvx.ini"), "[Defaults]\r\nBold=True\r\n");
}

TEST_F(Profile, FailsWhenAFolderHasTheFilesName) {
  std::filesystem::create_directory(folder_ / "kvx.ini");
  EXPECT_FALSE(profile_.Write(u"Defaults", u"Bold", u"True", Path("kvx.ini")));
  EXPECT_EQ(profile_.Read(u"Defaults", u"Bold", u"default", 255, Path("kvx.ini")), u"default");
}

}  // namespace
