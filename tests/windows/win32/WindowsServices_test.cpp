#include "hosts/win32/WindowsServices.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "hosts/win32/UnicodeCharacters.h"

namespace {

TEST(WindowsProcesses, HaveThisProgramAmongThem) {
  const std::vector<std::u16string> names = win32::WindowsProcesses().ModuleFileNames();
  EXPECT_EQ(std::count_if(names.begin(), names.end(),
                          [](const std::u16string& name) { return name.ends_with(u"\\win32_tests.exe"); }),
            1);
}

TEST(WindowsUserSettings, AreKeptByTheirNames) {
  win32::WindowsUserSettings settings;
  EXPECT_EQ(settings.Read(u"Test", u"Key", u"default"), u"default");
  settings.Write(u"Test", u"Key", u"1 \u0416");
  EXPECT_EQ(settings.Read(u"Test", u"Key", u"default"), u"1 \u0416");
  RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Kelvarin\\Test");
}

TEST(WindowsShell, SaysWhenAFileIsMissing) {
  EXPECT_FALSE(win32::WindowsShell().Open(u"Open", u"C:\\no such file.pdf", 0));
}

TEST(UnicodeCharacters, KnowFullMappings) {
  win32::UnicodeCharacters characters;
  EXPECT_EQ(characters.ToUpper(u"Stra\u00DFe"), u"STRASSE");
  EXPECT_EQ(characters.ToLower(u"\u0130"), u"i\u0307");
  EXPECT_TRUE(characters.IsWordCharacter(U'\u0301'));
  EXPECT_FALSE(characters.IsWordCharacter(U'\u00B2'));
}

}  // namespace
