#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "AddInSession.h"
#include "hosts/win32/WindowsServices.h"
#include "tests/windows/Person.h"

namespace {

/// A process named like Word's program, as long as this object lives.
class WordProcess {
 public:
  WordProcess() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    file_ = std::wstring(folder) + L"WINWORD.EXE";
    const std::string sleeper = std::getenv("KVX_SLEEPER");
    CopyFileW((L"Z:" + std::wstring(sleeper.begin(), sleeper.end())).c_str(), file_.c_str(), FALSE);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    started_ = CreateProcessW(file_.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process_);
    EXPECT_TRUE(started_) << GetLastError();
    // It is counted once it has its modules.
    for (int i = 0; started_ && i < 500 && Running() == before_; ++i) Sleep(10);
  }
  ~WordProcess() {
    if (!started_) return;
    TerminateProcess(process_.hProcess, 0);
    WaitForSingleObject(process_.hProcess, 5000);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }
  WordProcess(const WordProcess&) = delete;
  WordProcess& operator=(const WordProcess&) = delete;

 private:
  static std::ptrdiff_t Running() {
    const std::vector<std::u16string> names = win32::WindowsProcesses().ModuleFileNames();
    return std::count_if(names.begin(), names.end(),
                         [](const std::u16string& name) { return name.ends_with(u"\\WINWORD.EXE"); });
  }

  std::ptrdiff_t before_{Running()};
  std::wstring file_;
  PROCESS_INFORMATION process_{};
  BOOL started_{FALSE};
};

class TwoWords : public testing::Test {
 protected:
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  static void TearDownTestSuite() { CoUninitialize(); }

  static std::u16string DisplayOnConnect() {
    return win32::WindowsUserSettings().Read(u"Settings", u"DisplayOnConnect", u"none");
  }
  static void Forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Kelvarin"); }

  Registered addIn{AddInLibrary()};
  Registered companion{CompanionLibrary()};
  Person person;
};

TEST_F(TwoWords, OneWordHasTheMenuAndKeepsWhetherItsDialogWasOpened) {
  Forget();
  const WordProcess only;
  AddInSession word;
  word.Start();
  EXPECT_EQ(word.bars.Tools().size(), 1u);
  word.Shutdown();
  EXPECT_TRUE(word.bars.Tools().empty());
  EXPECT_EQ(DisplayOnConnect(), u"0");
}

TEST_F(TwoWords, ClosingWordAfterTheTermsDialogWasOpenedKeepsThatAndTheNextTimeForgetsIt) {
  Forget();
  const WordProcess only;
  person.Otherwise(&Person::GoOn);
  {
    AddInSession word("mutual_nda.docx");
    word.Start();
    EXPECT_TRUE(word.Click(u"&Find and index"));
    word.Shutdown();
  }
  EXPECT_EQ(DisplayOnConnect(), u"1");
  AddInSession next;
  next.Start();
  EXPECT_EQ(next.bars.Tools().size(), 1u);
  next.Shutdown();
  EXPECT_EQ(DisplayOnConnect(), u"0");
}

TEST_F(TwoWords, TheSecondAddsNoMenuAndWritesNothing) {
  Forget();
  const WordProcess first;
  const WordProcess second;
  AddInSession word;
  word.Start();
  EXPECT_TRUE(word.bars.Tools().empty());
  word.Shutdown();
  EXPECT_EQ(DisplayOnConnect(), u"none");
}

TEST_F(TwoWords, ClosingTheSecondLeavesTheMenuThatTheFirstMade) {
  Forget();
  const WordProcess first;
  AddInSession word;
  word.Start();
  ASSERT_EQ(word.bars.Tools().size(), 1u);
  {
    const WordProcess second;
    word.Shutdown();
  }
  EXPECT_EQ(word.bars.Tools().size(), 1u);
  EXPECT_EQ(DisplayOnConnect(), u"none");
}

}  // namespace
