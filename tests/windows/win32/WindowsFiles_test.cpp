#include "hosts/win32/WindowsFiles.h"

#include <gtest/gtest.h>

#include "TempFolder.h"
#include "hosts/win32/Wide.h"
#include "platform/word/HostError.h"

namespace {

int ErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const word::HostError& error) {
    return error.Number();
  }
  return 0;
}

class WindowsFiles : public testing::Test {
 protected:
  void Write(const std::u16string& path, std::string_view bytes) {
    const std::unique_ptr<os::OutputFile> file = files.OpenForOutput(path);
    file->Write(bytes);
    file->Close();
  }

  TempFolder folder;
  win32::WindowsFiles files;
  win32::WindowsProfile profile;
};

TEST_F(WindowsFiles, AreWrittenWholeAndReadBack) {
  const std::u16string path = folder.File(u"terms.txt");
  EXPECT_FALSE(files.FileExists(path));
  Write(path, "one\r\n");
  Write(path, "two\r\n");
  EXPECT_TRUE(files.FileExists(path));
  EXPECT_EQ(files.Read(path), "two\r\n");
  EXPECT_EQ(files.Attributes(path) & os::kReadOnly, 0);
}

TEST_F(WindowsFiles, AreWhatTheyWereUntilTheNewOneIsClosed) {
  const std::u16string path = folder.File(u"terms.txt");
  Write(path, "old");
  {
    const std::unique_ptr<os::OutputFile> file = files.OpenForOutput(path);
    file->Write("new");
    EXPECT_EQ(files.Read(path), "old");
  }
  EXPECT_EQ(files.Read(path), "old");
}

TEST_F(WindowsFiles, RaiseVisualBasicsErrors) {
  EXPECT_EQ(ErrorOf([&] { files.Read(folder.File(u"none.txt")); }), word::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { files.Read(folder.File(u"none\\none.txt")); }), word::kPathNotFound);
  EXPECT_EQ(ErrorOf([&] { files.OpenForOutput(folder.File(u"none\\none.txt")); }), word::kPathNotFound);
  EXPECT_EQ(ErrorOf([&] { files.CreateFolder(folder.File(u"none\\none")); }), word::kPathNotFound);
  const std::u16string path = folder.File(u"kept.txt");
  Write(path, "x");
  SetFileAttributesW(win32::ToWide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(ErrorOf([&] { files.OpenForOutput(path); }), word::kPathAccess);
  EXPECT_EQ(files.Attributes(path) & os::kReadOnly, os::kReadOnly);
  files.OpenForBinary(path);
}

TEST_F(WindowsFiles, OpeningAMissingOneMakesItAndALockedOneIsRefused) {
  const std::u16string path = folder.File(u"document.docx");
  files.OpenForBinary(path);
  EXPECT_TRUE(files.FileExists(path));
  const HANDLE other = CreateFileW(win32::ToWide(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(path); }), word::kPermissionDenied);
  CloseHandle(other);
}

TEST_F(WindowsFiles, TheProfileKeepsWhatElseIsInItsFile) {
  const std::u16string path = folder.File(u"kvx.ini");
  EXPECT_EQ(profile.Read(u"Defaults", u"IndexSep", u"none", 255, path), u"none");
  EXPECT_TRUE(profile.Write(u"Defaults", u"IndexSep", u"\":  {TAB}\"", path));
  EXPECT_TRUE(profile.Write(u"Defaults", u"IndexCols", u"2", path));
  EXPECT_TRUE(profile.Write(u"defaults", u"INDEXCOLS", u"3", path));
  EXPECT_EQ(profile.Read(u"Defaults", u"IndexSep", u"", 255, path), u":  {TAB}");
  EXPECT_EQ(profile.Read(u"Defaults", u"IndexCols", u"", 255, path), u"3");
  EXPECT_NE(files.Read(path).find("IndexSep=\":  {TAB}\"\r\n"), std::string::npos);
  EXPECT_EQ(profile.Read(u"Defaults", u"IndexSep", u"", 4, path), u":  ");
}

TEST_F(WindowsFiles, TheProfileWritesTheBytesOfTheAnsiCodePage) {
  const std::u16string path = folder.File(u"kvx.ini");
  EXPECT_TRUE(profile.Write(u"Defaults", u"IndexSep", u"\u2013\u0416", path));
  EXPECT_NE(files.Read(path).find("IndexSep=\226?\r\n"), std::string::npos);
  EXPECT_EQ(profile.Read(u"Defaults", u"IndexSep", u"", 255, path), u"\u2013?");
}

TEST_F(WindowsFiles, ApplicationDataIsAFolderWithoutASeparatorAtItsEnd) {
  const std::u16string path = win32::WindowsFolders().SpecialFolder(os::kApplicationData, 0);
  EXPECT_TRUE(files.FolderExists(path));
  EXPECT_FALSE(path.ends_with(u'\\'));
}

}  // namespace
