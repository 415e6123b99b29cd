#include "hosts/linux/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/unit/linux/TempFolder.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <set>
#include <span>
#include <string>

namespace {

std::span<const std::byte> Bytes(const std::string& text) { return std::as_bytes(std::span(text)); }

mode_t Mode(const std::filesystem::path& file) {
  struct stat status {};
  EXPECT_EQ(stat(file.c_str(), &status), 0);
  return status.st_mode & 07777;
}

/// Runs the work in a process of its own and tells how that ended.
int InChild(const std::function<int()>& work) {
  const pid_t child = fork();
  if (child == 0) _exit(work());
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

std::string WhyNot(const std::function<void()>& work) {
  try {
    work();
  } catch (const os::FileError& error) {
    return error.what();
  }
  return "no error";
}

TEST(AtomicFile, CreatesAFileThatIsNotThere) {
  const TempFolder folder;
  os::WriteFileAtomically(folder / "new", Bytes("content"));
  EXPECT_EQ(ReadBytes(folder / "new"), "content");
  EXPECT_EQ(folder.Names().size(), 1U);
}

TEST(AtomicFile, GivesANewFileThePermissionsThatTheUmaskLeaves) {
  const TempFolder folder;
  const int status = InChild([&] {
    umask(027);
    os::WriteFileAtomically(folder / "new", Bytes("content"));
    return 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Mode(folder / "new"), 0640U);
}

TEST(AtomicFile, KeepsThePermissionsOfTheFileItReplaces) {
  const TempFolder folder;
  WriteBytes(folder / "file", "old");
  chmod((folder / "file").c_str(), 0604);
  os::WriteFileAtomically(folder / "file", Bytes("new"));
  EXPECT_EQ(ReadBytes(folder / "file"), "new");
  EXPECT_EQ(Mode(folder / "file"), 0604U);
}

TEST(AtomicFile, LeavesTheOldFileUntilCommit) {
  const TempFolder folder;
  WriteBytes(folder / "file", "old");
  os::AtomicFile file(folder / "file");
  file.Write(Bytes("new"));
  EXPECT_EQ(ReadBytes(folder / "file"), "old");
  file.Commit();
  EXPECT_EQ(ReadBytes(folder / "file"), "new");
}

TEST(AtomicFile, LeavesNothingBehindWithoutCommit) {
  const TempFolder folder;
  {
    os::AtomicFile file(folder / "file");
    file.Write(Bytes("new"));
    EXPECT_EQ(folder.Names().size(), 1U);
  }
  EXPECT_TRUE(folder.Names().empty());
}

TEST(AtomicFile, ReplacesTheFileThatALinkPointsTo) {
  const TempFolder folder;
  WriteBytes(folder / "file", "old");
  std::filesystem::create_symlink("file", folder / "link");
  os::WriteFileAtomically(folder / "link", Bytes("new"));
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link"));
  EXPECT_EQ(ReadBytes(folder / "file"), "new");
}

TEST(AtomicFile, TellsWhyAFileCannotBeWritten) {
  const TempFolder folder;
  WriteBytes(folder / "read-only", "old");
  chmod((folder / "read-only").c_str(), 0444);
  EXPECT_EQ(WhyNot([&] { os::AtomicFile file(folder / "read-only"); }), "cannot be written: it is read-only");
  EXPECT_EQ(ReadBytes(folder / "read-only"), "old");
  EXPECT_EQ(WhyNot([&] { os::AtomicFile file(folder.Path()); }), "cannot be written: it is not a file");
  EXPECT_EQ(WhyNot([&] { os::AtomicFile file("/dev/null"); }), "cannot be written: it is not a file");
  EXPECT_EQ(WhyNot([&] { os::AtomicFile file(folder / "missing/file"); }),
            "cannot be written: No such file or directory");
}

// A size limit stops a write half way, as a full disk does.
TEST(AtomicFile, KeepsTheOldFileWhenThereIsNoRoomForTheNewOne) {
  const TempFolder folder;
  WriteBytes(folder / "file", "old");
  const int status = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{64 * 1024, 64 * 1024};
    setrlimit(RLIMIT_FSIZE, &limit);
    try {
      os::WriteFileAtomically(folder / "file", Bytes(std::string(256 * 1024, 'x')));
    } catch (const os::FileError& error) {
      return error.Code() == EFBIG && std::string(error.what()) == "cannot be written: File too large" ? 0 : 2;
    }
    return 1;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ReadBytes(folder / "file"), "old");
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"file"});
}

TEST(AtomicFile, IsTheOldOrTheWholeNewFileWheneverTheProgramIsKilled) {
  const TempFolder folder;
  const std::string one(200'000, '1');
  const std::string two(300'000, '2');
  WriteBytes(folder / "file", one);
  for (int round = 0; round < 20; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      while (true) {
        os::WriteFileAtomically(folder / "file", Bytes(two), os::Durability::kProgram);
        os::WriteFileAtomically(folder / "file", Bytes(one), os::Durability::kProgram);
      }
    }
    usleep(static_cast<useconds_t>(1000 + round * 137));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    const std::string content = ReadBytes(folder / "file");
    ASSERT_TRUE(content == one || content == two) << "round " << round << ", size " << content.size();
  }
}

TEST(AtomicFile, WhatAKilledProcessLeftIsTakenAwayAndNothingElse) {
  const TempFolder folder;
  WriteBytes(folder / "file", "old");
  const pid_t child = fork();
  if (child == 0) {
    os::AtomicFile file(folder / "file");
    file.Write(Bytes("half of the ne"));
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  const std::string others = ".kvx-" + std::to_string(child) + "0-1.tmp";
  WriteBytes(folder / others, "of another process");
  WriteBytes(folder / (".kvx-" + std::to_string(child) + "-notes"), "precious");
  os::SweepTemporaries(folder / "file", child);
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.insert(entry.path().filename().string());
  }
  EXPECT_EQ(names, (std::set<std::string>{"file", others, ".kvx-" + std::to_string(child) + "-notes"}));
  EXPECT_EQ(ReadBytes(folder / "file"), "old");
  os::SweepTemporaries(folder / "missing/file", child);
}

TEST(IsReadOnly, IsTrueOnlyOfAFileWithoutWritePermission) {
  const TempFolder folder;
  WriteBytes(folder / "file", "");
  EXPECT_FALSE(os::IsReadOnly(folder / "file"));
  EXPECT_FALSE(os::IsReadOnly(folder / "missing"));
  chmod((folder / "file").c_str(), 0444);
  EXPECT_TRUE(os::IsReadOnly(folder / "file"));
}

}  // namespace
