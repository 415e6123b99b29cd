#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "AddInSession.h"
#include "DirectSession.h"
#include "hosts/win32/Wide.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "tests/windows/Person.h"

namespace {

constexpr char kSample[] = "mutual_nda.docx";

/// Our entries in a part.
std::uint64_t EntriesIn(const std::string& xml) {
  std::uint64_t count = 0;
  for (std::size_t at = xml.find(" XE "); at != std::string::npos; at = xml.find(" XE ", at + 1)) ++count;
  return count;
}

/// Whole runs, with a new user's settings, who has the prompts of a first run.
class AddInRun : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    _putenv_s("SOURCE_DATE_EPOCH", "1700000000");
  }
  static void TearDownTestSuite() { CoUninitialize(); }
  void SetUp() override { DeleteFileW(SettingsFile().c_str()); }
  void TearDown() override { EXPECT_EQ(person.Waiting(), 0u); }

  static std::wstring SettingsFile() {
    win32::WindowsFolders folders;
    return win32::ToWide(folders.SpecialFolder(os::kApplicationData, 0)) + L"\\Brantholt\\Kelvarin\\kvx.ini";
  }

  void AnswerPrompts() {
    person.Expect(L"What kind of search do you usually do?", [](HWND window) { Person::Click(window, L"OK"); });
    person.Expect(L"Formatting defined terms", [](HWND window) { Person::Click(window, L"OK"); });
    person.Expect(L"Do you need help?", [](HWND window) { Person::Click(window, L"No thanks"); });
  }
  /// A person who takes what is offered, with the mouse.
  void AnswerWholeRun() {
    AnswerPrompts();
    person.Expect(L"Kelvarin", [](HWND window) { Person::Click(window, L"Search"); });
    person.Expect(L"Kelvarin", [](HWND window) { Person::Click(window, L"OK"); });
  }

  Registered addIn{AddInLibrary()};
  Registered companion{CompanionLibrary()};
  Person person;
};

class AddInRunOn : public AddInRun, public testing::WithParamInterface<const char*> {};

TEST_P(AddInRunOn, GivesTheDocumentThatTheDocxHostGives) {
  person.Otherwise(&Person::GoOn);
  std::map<std::string, std::string> expected;
  {
    DirectSession direct(GetParam());
    direct.AddIn().ShowKVXForm();
    expected = PartsOf(direct.processor);
    ASSERT_TRUE(direct.processor.Application()->ActiveDocument()->Bookmarks()->Exists(u"DefinedTermsIndex"));
  }
  const std::vector<std::wstring> windows = person.Seen();
  DeleteFileW(SettingsFile().c_str());
  AddInSession word(GetParam());
  word.Start();
  EXPECT_TRUE(word.Click(u"&Find and index"));
  EXPECT_EQ(word.Parts(), expected);
  EXPECT_EQ(std::vector<std::wstring>(person.Seen().begin() + static_cast<std::ptrdiff_t>(windows.size()),
                                      person.Seen().end()),
            windows);
  const std::uint64_t marked = EntriesIn(expected.at("word/document.xml"));
  // Calls are what a run in Word costs: four for an occurrence, beside those for each term and what does not depend on
  // the document's length.
  EXPECT_LT(word.context->count, 1300 + 5 * marked) << marked;
  std::cout << "  " << word.context->count << " calls into Word for " << marked << " occurrences in the main text\n";
  if (std::getenv("KVX_CALLS") == nullptr) return;
  for (const auto& [member, calls] : word.context->calls) {
    std::cout << "  " << calls << " " << std::string(member.begin(), member.end()) << "\n";
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, AddInRunOn,
                         testing::Values("mutual_nda.docx", "share_purchase_agreement.docx", "awkward_licence.docx",
                                         "awkward_licence_strict.docx"));

TEST_F(AddInRun, WithTheMouseAndTheKeyboardTakesWhatIsOffered) {
  AddInSession word(kSample);
  word.Start();
  AnswerPrompts();
  person.Expect(L"Kelvarin", [](HWND window) { Person::Press(window, VK_RETURN); });
  person.Expect(L"Kelvarin", [](HWND window) { Person::Click(window, L"OK"); });
  EXPECT_TRUE(word.Click(u"&Find and index"));
  EXPECT_TRUE(word.processor.Application()->ActiveDocument()->Bookmarks()->Exists(u"DefinedTermsIndex"));
}

TEST_F(AddInRun, RemovingGivesTheDocumentBackThatItBeganWith) {
  AddInSession word(kSample);
  word.Start();
  const auto before = word.Parts();
  AnswerWholeRun();
  EXPECT_TRUE(word.Click(u"&Find and index"));
  EXPECT_NE(word.Parts(), before);
  const std::uint64_t calls = word.context->count;
  EXPECT_TRUE(word.Click(u"&Remove indexing"));
  EXPECT_EQ(word.Parts().at("word/document.xml"), before.at("word/document.xml"));
  std::cout << "  " << word.context->count - calls << " calls into Word\n";
}

TEST_F(AddInRun, RemovingTheHighlightingLeavesTheEntries) {
  AddInSession word(kSample);
  word.Start();
  AnswerWholeRun();
  EXPECT_TRUE(word.Click(u"&Find and index"));
  const std::string indexed = word.Parts().at("word/document.xml");
  const std::uint64_t calls = word.context->count;
  person.Expect(L"Done", &Person::GoOn);
  EXPECT_TRUE(word.Click(u"Remove &highlighting only"));
  const std::string left = word.Parts().at("word/document.xml");
  EXPECT_NE(indexed.find("<w:highlight "), std::string::npos);
  EXPECT_EQ(left.find("<w:highlight "), std::string::npos);
  EXPECT_EQ(EntriesIn(left), EntriesIn(indexed));
  std::cout << "  " << word.context->count - calls << " calls into Word\n";
}

TEST_F(AddInRun, CancelledInItsFirstDialogChangesNothing) {
  AddInSession word(kSample);
  word.Start();
  const auto before = word.File();
  AnswerPrompts();
  person.Expect(L"Kelvarin", [](HWND window) { Person::Press(window, VK_ESCAPE); });
  EXPECT_TRUE(word.Click(u"&Find and index"));
  EXPECT_EQ(word.File(), before);
}

}  // namespace
