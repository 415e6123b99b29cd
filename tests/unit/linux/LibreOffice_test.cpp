#include "hosts/linux/LibreOffice.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "tests/unit/linux/TempFolder.h"

namespace {

namespace fs = std::filesystem;

/// Programs that play LibreOffice: they get its arguments.
class LibreOffice : public testing::Test {
 protected:
  fs::path Program(const std::string& name, const std::string& script) {
    const fs::path program = folder_ / name;
    std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
    fs::permissions(program, fs::perms::owner_all);
    return program;
  }

  std::string Problem(const fs::path& program, std::chrono::milliseconds limit = std::chrono::seconds(30)) {
    try {
      return "made " + os::LibreOffice(program, folder_.Path(), limit).ToPdf();
    } catch (const os::LibreOfficeError& error) {
      return error.what();
    }
  }

  TempFolder folder_;
};

TEST_F(LibreOffice, ThePdfOfTheDocumentIsRead) {
  // The last argument is the document, the one before it the folder.
  const fs::path program =
      Program("soffice", "for last; do before=$folder; folder=$last; done; cat \"$folder\" > \"$before/document.pdf\"");
  const os::LibreOffice office(program, folder_.Path());
  std::ofstream(office.DocumentFile()) << "content";
  EXPECT_EQ(office.ToPdf(), "content");
}

TEST_F(LibreOffice, AProfileOfItsOwnIsUsed) {
  const fs::path program = Program("soffice", "echo \"$@\" > \"" + folder_.Path().string() + "/document.pdf\"");
  const std::string arguments = Problem(program);
  EXPECT_NE(arguments.find("-env:UserInstallation=file:///"), std::string::npos) << arguments;
  EXPECT_NE(arguments.find("/profile "), std::string::npos) << arguments;
  EXPECT_NE(arguments.find("ExportBookmarksToPDFDestination"), std::string::npos) << arguments;
}

TEST_F(LibreOffice, ItGetsNoneOfOurFiles) {
  constexpr int kFree = 50;  // beyond what a shell takes for itself
  const int ours = fcntl(STDERR_FILENO, F_DUPFD, kFree);
  ASSERT_GE(ours, kFree);
  const std::string file = "/proc/$$/fd/" + std::to_string(ours);
  const std::string pdf = " > \"" + (folder_ / "document.pdf").string() + "\"";
  EXPECT_EQ(
      Problem(Program("soffice", "if [ -e " + file + " ]; then echo has it" + pdf + "; else echo none" + pdf + "; fi")),
      "made none\n");
  close(ours);
}

TEST_F(LibreOffice, APdfOfAnEarlierRunIsNotTaken) {
  std::ofstream(folder_ / "document.pdf") << "old";
  EXPECT_EQ(Problem(Program("soffice", "exit 1")), "LibreOffice could not lay the document out.");
  EXPECT_EQ(Problem(folder_ / "missing"), "LibreOffice could not lay the document out.");
}

TEST_F(LibreOffice, ItIsEndedAfterTheTimeLimitWithAllThatItStarted) {
  const fs::path mark = folder_ / "alive";
  const fs::path program = Program("soffice", "(sleep 2; touch \"" + mark.string() + "\") & sleep 60");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Problem(program, std::chrono::milliseconds(1000)),
            "LibreOffice did not lay the document out within 1 seconds.");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
  sleep(2);
  EXPECT_FALSE(fs::exists(mark));
}

TEST_F(LibreOffice, ItIsFoundOnThePath) {
  const std::string before = std::getenv("PATH");
  const std::string folder = folder_.Path().string();
  setenv("PATH", ("/nowhere::" + folder).c_str(), 1);
  EXPECT_FALSE(os::LibreOffice::Find());
  std::ofstream(fs::path(folder) / "soffice") << "no program";
  EXPECT_FALSE(os::LibreOffice::Find());
  const fs::path program = Program("libreoffice", "");
  EXPECT_EQ(os::LibreOffice::Find(), program);
  setenv("PATH", before.c_str(), 1);
}

}  // namespace
