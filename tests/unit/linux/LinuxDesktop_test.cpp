#include "hosts/linux/LinuxDesktop.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "hosts/linux/Paths.h"
#include "tests/unit/linux/Environment.h"
#include "tests/unit/linux/TempFolder.h"

#include <chrono>
#include <thread>

namespace {

/// A program folder, and an xdg-open of the test's own that writes down what it is given.
class LinuxDesktop : public testing::Test {
 protected:
  LinuxDesktop() {
    std::filesystem::create_directories(folder / "bin");
    std::filesystem::create_directories(folder / "program/Kelvarin3Help");
    WriteBytes(folder / "bin/xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" > '" + Opened().string() + ".new'\nmv '" +
                                            Opened().string() + ".new' '" + Opened().string() + "'\n");
    chmod((folder / "bin/xdg-open").c_str(), 0755);
  }

  std::filesystem::path Opened() const { return folder / "opened"; }
  std::u16string Name(const std::string& name) const { return os::ToWindowsPath((folder / name).string()); }

  /// What xdg-open was given; it is started, and not waited for.
  std::string WaitForOpened() {
    for (int i = 0; i < 500 && !std::filesystem::exists(Opened()); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string what = ReadBytes(Opened());
    std::filesystem::remove(Opened());
    return what;
  }

  TempFolder folder;
  Environment path{"PATH", (folder / "bin").string() + ":/usr/bin:/bin"};
  os::LinuxShell shell{folder / "program"};
};

class Boxes : public os::Messages {
 public:
  os::Pressed Show(std::u16string_view, std::u16string_view text, os::Icon, os::Buttons) override {
    shown.emplace_back(text);
    return os::Pressed::kOk;
  }
  std::vector<std::u16string> shown;
};

TEST_F(LinuxDesktop, AShownKindOfFileInTheProgramsFolderIsOpened) {
  WriteBytes(folder / "program/kvxfaq.htm", "x");
  EXPECT_TRUE(shell.Open(u"Open", Name("program") + u"\\\\kvxfaq.htm", 0));
  EXPECT_EQ(WaitForOpened(), (folder / "program/kvxfaq.htm").string());
}

TEST_F(LinuxDesktop, NothingElseOfTheMachineIsOpened) {
  WriteBytes(folder / "outside.htm", "x");
  WriteBytes(folder / "program/run.sh", "x");
  std::filesystem::create_symlink(folder / "outside.htm", folder / "program/link.htm");
  for (const char* name : {"outside.htm", "program/../outside.htm", "program/run.sh", "program/link.htm", "program",
                           "program/missing.htm"}) {
    EXPECT_FALSE(shell.Open(u"open", Name(name), 0)) << name;
  }
  EXPECT_FALSE(shell.Open(u"open", u"", 0));
  EXPECT_FALSE(std::filesystem::exists(Opened()));
}

TEST_F(LinuxDesktop, OfAddressesOnlyPlainOnesOfPagesAreOpened) {
  EXPECT_TRUE(shell.Open(u"open", u"https://kelvarin.example/faq", 0));
  EXPECT_EQ(WaitForOpened(), "https://kelvarin.example/faq");
  for (const char16_t* address : {u"file:///etc/passwd", u"http://x", u"https://x y", u"https://x\n", u"-h"}) {
    EXPECT_FALSE(shell.Open(u"open", address, 0));
  }
}

TEST_F(LinuxDesktop, WithoutTheProgramThatOpensThingsNothingIsOpened) {
  const Environment none("PATH", "/nowhere");
  EXPECT_FALSE(shell.Open(u"open", u"https://kelvarin.example/faq", 0));
}

TEST_F(LinuxDesktop, HelpIsThePageOfTheTopicOrTheContents) {
  Boxes boxes;
  os::LinuxHelp help(shell, boxes);
  WriteBytes(folder / "program/Kelvarin3Help/index.html", "x");
  WriteBytes(folder / "program/Kelvarin3Help/topic7.html", "x");
  const std::u16string file = Name("program") + u"\\\\Kelvarin3Help.chm";
  help.Show(file, os::kHelpContext, 7, 0);
  EXPECT_EQ(WaitForOpened(), (folder / "program/Kelvarin3Help/topic7.html").string());
  help.Show(file, os::kHelpContents, 0, 0);
  EXPECT_EQ(WaitForOpened(), (folder / "program/Kelvarin3Help/index.html").string());
  help.Show(file, os::kHelpContext, 99, 0);
  EXPECT_EQ(WaitForOpened(), (folder / "program/Kelvarin3Help/index.html").string());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LinuxDesktop, MissingHelpIsReported) {
  Boxes boxes;
  os::LinuxHelp(shell, boxes).Show(Name("program") + u"\\Other.chm", os::kHelpContext, 7, 0);
  ASSERT_EQ(boxes.shown.size(), 1U);
  EXPECT_NE(boxes.shown[0].find(u"Other"), std::u16string::npos);
}

}  // namespace
