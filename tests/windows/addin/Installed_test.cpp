#include <gtest/gtest.h>

#include <cstdlib>

#include "AddInSession.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "tests/windows/Person.h"

namespace {

/// The folder that a library of this process was loaded from; empty when it is not there.
std::wstring FolderOf(const wchar_t* library) {
  const HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) return {};
  wchar_t file[MAX_PATH] = {};
  GetModuleFileNameW(module, file, MAX_PATH);
  const std::wstring path = file;
  return path.substr(0, path.rfind(L'\\'));
}

// For the test of the set-up, which installs first: KVX_INSTALLED is the folder with the libraries.
TEST(InstalledAddIn, IsLoadedByItsNameAndIndexesAContract) {
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  const std::string folder = std::getenv("KVX_INSTALLED");
  {
    Person person;
    person.Otherwise(&Person::GoOn);
    AddInSession word("mutual_nda.docx");
    word.Start();
    EXPECT_EQ(FolderOf(L"KVXDLLCOM.dll"), std::wstring(folder.begin(), folder.end()));
    EXPECT_EQ(FolderOf(L"TermMarker.dll"), std::wstring(folder.begin(), folder.end()));
    EXPECT_TRUE(word.Click(u"&Find and index"));
    EXPECT_TRUE(word.processor.Application()->ActiveDocument()->Bookmarks()->Exists(u"DefinedTermsIndex"));
    word.Shutdown();
  }
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(FolderOf(L"KVXDLLCOM.dll"), L"");
  EXPECT_EQ(FolderOf(L"TermMarker.dll"), L"");
  CoUninitialize();
}

}  // namespace
