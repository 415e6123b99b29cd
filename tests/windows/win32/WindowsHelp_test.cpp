#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdlib>

#include "hosts/win32/Wide.h"
#include "hosts/win32/WindowsServices.h"
#include "platform/os/Help.h"
#include "tests/windows/Person.h"

namespace {

/// The help file in Windows' own viewer.
class WindowsHelp : public testing::Test {
 protected:
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  static void TearDownTestSuite() { CoUninitialize(); }

  WindowsHelp() {
    for (const char* letter = std::getenv("KVX_HELP"); *letter != '\0'; ++letter) {
      file_ += *letter == '/' ? u'\\' : static_cast<char16_t>(*letter);
    }
  }

  /// The caption of the viewer's window; empty when none came.
  std::wstring Viewer(int command, int topic, std::u16string_view name = u"Kelvarin3Help.chm") {
    win32::WindowsHelp help;
    // The separator is doubled where the file's name brings its own.
    help.Show(file_ + u"\\\\" + std::u16string(name), command, topic, 0);
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM value) {
          wchar_t kind[32] = {};
          GetClassNameW(window, kind, 32);
          if (std::wstring(kind) != L"HH Parent" || !IsWindowVisible(window)) return TRUE;
          *reinterpret_cast<HWND*>(value) = window;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found == nullptr ? std::wstring() : Person::TextOf(found);
  }

 private:
  std::u16string file_{u"Z:"};
};

TEST_F(WindowsHelp, ComesWithItsContents) { EXPECT_EQ(Viewer(os::kHelpContents, 0), L"Kelvarin help"); }

TEST_F(WindowsHelp, KnowsTheNumberOfEachTopic) {
  for (const int topic : {7, 11, 12, 13, 14, 15, 16, 17}) {
    EXPECT_EQ(Viewer(os::kHelpContext, topic), L"Kelvarin help") << topic;
  }
  EXPECT_EQ(Viewer(os::kHelpContext, 99), L"");
}

TEST_F(WindowsHelp, AMissingFileIsTheViewersToReport) {
  EXPECT_EQ(Viewer(os::kHelpContext, 7, u"None.chm"), L"");
  EXPECT_EQ(Viewer(os::kHelpContents, 0, u"None.chm"), L"");
}

TEST_F(WindowsHelp, GoesWhenTheAddInGoes) {
  EXPECT_EQ(Viewer(os::kHelpContents, 0), L"Kelvarin help");
  EXPECT_EQ(FindWindowW(L"HH Parent", nullptr), nullptr);
}

}  // namespace
