#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "hosts/linux/LinuxServices.h"
#include "hosts/linux/Paths.h"
#include "platform/word/HostError.h"
#include "tests/unit/linux/TempFolder.h"

#include <functional>

namespace {

class LinuxFile : public testing::Test {
 protected:
  std::u16string Name(const std::string& name) const { return os::ToWindowsPath((folder / name).string()); }

  /// The number of the error that the work ends in; 0: none.
  static int ErrorOf(const std::function<void()>& work) {
    try {
      work();
    } catch (const word::HostError& error) {
      return error.Number();
    }
    return 0;
  }

  TempFolder folder;
  os::LinuxFiles files;
};

TEST_F(LinuxFile, OpeningForBinaryAccessMakesAMissingFileAndLeavesAnExistingOne) {
  files.OpenForBinary(Name("new"));
  EXPECT_TRUE(std::filesystem::exists(folder / "new"));
  WriteBytes(folder / "old", "content");
  files.OpenForBinary(Name("old"));
  EXPECT_EQ(ReadBytes(folder / "old"), "content");
}

TEST_F(LinuxFile, AFileWithoutWritePermissionCanBeOpened) {
  WriteBytes(folder / "old", "content");
  chmod((folder / "old").c_str(), 0444);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("old")); }), 0);
  EXPECT_EQ(ErrorOf([&] { files.OpenForOutput(Name("old")); }), word::kPathAccess);
}

TEST_F(LinuxFile, AMissingFolderAFolderAndADeviceCannotBeOpened) {
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("missing/file")); }), word::kPathNotFound);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("")); }), word::kPathAccess);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(u"\\dev\\null"); }), word::kPathAccess);
}

TEST_F(LinuxFile, ALockOfEitherKindIsSeen) {
  WriteBytes(folder / "file", "content");
  const int other = open((folder / "file").c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("file")); }), word::kPermissionDenied);
  ASSERT_EQ(flock(other, LOCK_UN), 0);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("file")); }), 0);

  struct flock whole {};
  whole.l_type = F_WRLCK;
  whole.l_whence = SEEK_SET;
  ASSERT_EQ(fcntl(other, F_OFD_SETLK, &whole), 0);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("file")); }), word::kPermissionDenied);
  close(other);
  EXPECT_EQ(ErrorOf([&] { files.OpenForBinary(Name("file")); }), 0);
}

TEST_F(LinuxFile, ReadingGivesTheBytes) {
  const std::string bytes = std::string("a\0b\r\n\xFF", 6) + std::string(100'000, 'x');
  WriteBytes(folder / "file", bytes);
  EXPECT_EQ(files.Read(Name("file")), bytes);
}

TEST_F(LinuxFile, ReadingTellsAMissingFileFromAMissingFolder) {
  EXPECT_EQ(ErrorOf([&] { files.Read(Name("missing")); }), word::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { files.Read(Name("missing/file")); }), word::kPathNotFound);
  EXPECT_EQ(ErrorOf([&] { files.Read(Name("")); }), word::kPathAccess);
}

TEST_F(LinuxFile, WhatIsWrittenTakesTheFilesPlaceWhenItIsClosed) {
  WriteBytes(folder / "file", "old");
  const auto file = files.OpenForOutput(Name("file"));
  file->Write("new ");
  file->Write("content");
  EXPECT_EQ(ReadBytes(folder / "file"), "old");
  file->Close();
  EXPECT_EQ(ReadBytes(folder / "file"), "new content");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
}

TEST_F(LinuxFile, WithoutClosingTheOldFileStays) {
  WriteBytes(folder / "file", "old");
  files.OpenForOutput(Name("file"))->Write("new");
  EXPECT_EQ(ReadBytes(folder / "file"), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
}

TEST_F(LinuxFile, OutputNeedsItsFolder) {
  EXPECT_EQ(ErrorOf([&] { files.OpenForOutput(Name("missing/file")); }), word::kPathNotFound);
}

}  // namespace
