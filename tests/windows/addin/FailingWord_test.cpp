#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <map>

#include "AddInSession.h"
#include "hosts/win32/Wide.h"
#include "hosts/win32/WindowsFiles.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "tests/windows/Person.h"

namespace {

/// One that a person picks, and what there is before it.
struct Command {
  const char* name;
  std::u16string_view caption;
  std::u16string_view searchType;
  bool indexed;
  /// Which calls fail, unless KVX_EVERY says otherwise: each so many'th.
  std::uint64_t every;
};

void PrintTo(const Command& command, std::ostream* out) { *out << command.name; }

/// What a command may change for its time only.
std::map<std::string, int> StateOf(const AddInSession& word) {
  const docx::OptionsState& options = word.processor.Options();
  const docx::WindowState& window = word.processor.Window();
  const word::ApplicationPtr application = word.processor.Application();
  const word::DocumentPtr document = application->ActiveDocument();
  return {
      {"ScreenUpdating", application->ScreenUpdating()},
      {"AutoFormatAsYouTypeReplaceQuotes", options.autoFormatAsYouTypeReplaceQuotes},
      {"AllowFastSave", options.allowFastSave},
      {"CheckSpellingAsYouType", options.checkSpellingAsYouType},
      {"CheckGrammarAsYouType", options.checkGrammarAsYouType},
      {"Pagination", options.pagination},
      {"View.Type", window.viewType},
      {"View.ShowHiddenText", window.showHiddenText},
      {"View.ShowAll", window.showAll},
      {"ShowGrammaticalErrors", document->ShowGrammaticalErrors()},
      {"ShowSpellingErrors", document->ShowSpellingErrors()},
      {"IndexBKStart", document->Bookmarks()->Exists(u"IndexBKStart")},
      {"ReturnHereBK", document->Bookmarks()->Exists(u"ReturnHereBK")},
  };
}

/// What is not as it was. @param interrupted putting options back ended with an error, which leaves them as they are
std::string Changed(const std::map<std::string, int>& now, const std::map<std::string, int>& before, bool interrupted) {
  static const std::vector<std::string> options = {"AutoFormatAsYouTypeReplaceQuotes",
                                                   "View.ShowHiddenText",
                                                   "CheckSpellingAsYouType",
                                                   "CheckGrammarAsYouType",
                                                   "ShowGrammaticalErrors",
                                                   "ShowSpellingErrors"};
  std::string names;
  for (const auto& [name, value] : before) {
    if (now.at(name) == value) continue;
    if (interrupted && std::find(options.begin(), options.end(), name) != options.end()) continue;
    names += name + " is " + std::to_string(now.at(name)) + "\n";
  }
  return names;
}

/// The names of parts that are not the same, and how the first of them begins to differ.
std::string Different(const std::map<std::string, std::string>& parts,
                      const std::map<std::string, std::string>& expected) {
  std::string names;
  for (const auto& [name, content] : expected) {
    const auto found = parts.find(name);
    if (found == parts.end()) {
      names += name + " is missing\n";
    } else if (found->second != content) {
      const auto at = std::mismatch(content.begin(), content.end(), found->second.begin(), found->second.end());
      names += name + ": " + found->second.substr(static_cast<std::size_t>(at.first - content.begin()), 160) + "\n";
    }
  }
  return names;
}

/// A Word of which one call fails, whichever it is.
class FailingWord : public testing::Test {
 protected:
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  static void TearDownTestSuite() { CoUninitialize(); }

  static std::u16string SettingsFile() {
    return win32::WindowsFolders().SpecialFolder(os::kApplicationData, 0) + u"\\Brantholt\\Kelvarin\\kvx.ini";
  }
  static void Set(std::u16string_view key, std::u16string_view value) {
    EXPECT_TRUE(win32::WindowsProfile().Write(u"Defaults", key, value, SettingsFile()));
  }

  /// A document that was indexed, with the settings of somebody who has seen the prompts of a first run.
  std::vector<std::byte> Indexed() {
    DeleteFileW(win32::ToWide(SettingsFile()).c_str());
    AddInSession word("mutual_nda.docx");
    word.Start();
    EXPECT_TRUE(word.Click(u"&Find and index"));
    for (const auto* prompt : {u"ShowFormatReminder", u"ShowSearchChooser", u"ShowHelp"}) Set(prompt, u"False");
    return word.File();
  }

  /// The error boxes, as "title: text".
  std::vector<std::wstring> Errors(std::size_t from) const {
    std::vector<std::wstring> errors;
    std::copy_if(person.Seen().begin() + static_cast<std::ptrdiff_t>(from), person.Seen().end(),
                 std::back_inserter(errors),
                 [](const std::wstring& text) { return text.find(L": Error: ") != text.npos; });
    return errors;
  }
  static std::string Narrow(const std::wstring& text) { return {text.begin(), text.end()}; }

  Registered addIn{AddInLibrary()};
  Registered companion{CompanionLibrary()};
  Person person;
};

class FailingCommand : public FailingWord, public testing::WithParamInterface<Command> {
 protected:
  void SetUp() override {
    person.Otherwise([](HWND window) {
      Person::TextOf(window) == L"Update only?" ? Person::Click(window, L"Yes") : Person::GoOn(window);
    });
    indexed_ = Indexed();
    Set(u"SearchType", GetParam().searchType);
  }

  std::unique_ptr<docx::Package> Document() const {
    return GetParam().indexed ? docx::Package::Open(indexed_) : Sample("mutual_nda.docx");
  }

 private:
  std::vector<std::byte> indexed_;
};

TEST_P(FailingCommand, EndsWithAMessageAndLeavesWordAsItWas) {
  std::uint64_t before = 0;
  std::uint64_t calls = 0;
  std::map<std::string, int> state;
  std::map<std::string, std::string> cleaned;
  {
    AddInSession word(Document());
    word.Start();
    before = word.context->count;
    state = StateOf(word);
    EXPECT_TRUE(word.Click(GetParam().caption));
    calls = word.context->count - before;
    EXPECT_TRUE(Errors(0).empty());
    EXPECT_EQ(StateOf(word), state);
    EXPECT_TRUE(word.Click(u"&Remove indexing"));
    cleaned = word.Parts();
  }
  ASSERT_GT(calls, 5u);
  std::map<std::wstring, int> endings;
  const char* const step = std::getenv("KVX_EVERY");
  const std::uint64_t every = step != nullptr ? std::strtoull(step, nullptr, 10) : GetParam().every;
  std::uint64_t tried = 0;
  // At the end Word's state is put back: there each call fails.
  const std::uint64_t last = calls - 5;
  for (std::uint64_t failing = 1; failing <= calls;
       failing = failing < last ? std::min(failing + every, last) : failing + 1) {
    AddInSession word(Document());
    word.Start();
    word.context->failing = before + failing;
    const std::size_t seen = person.Seen().size();
    EXPECT_TRUE(word.Click(GetParam().caption));
    const std::string failed =
        std::to_string(failing) + " " + std::string(word.context->failed.begin(), word.context->failed.end());
    SCOPED_TRACE(failed);
    ++tried;
    const std::vector<std::wstring> errors = Errors(seen);
    ASSERT_FALSE(errors.empty());
    EXPECT_TRUE(errors.front().ends_with(L": Error: 4198 This call was to fail.")) << Narrow(errors.front());
    // The view's own message is followed by that of the step that it belongs to.
    const bool view = errors.front().starts_with(L"Print view: ");
    if (view) {
      EXPECT_EQ(errors.back(), L"Reset doc view: Error: 4198 Command failed");
    }
    EXPECT_EQ(errors.size(), view ? 2u : 1u) << Narrow(errors.back());
    ++endings[errors.front().substr(0, errors.front().find(L':'))];
    EXPECT_EQ(Changed(StateOf(word), state, errors.front().starts_with(L"Error restoring options: ")), "");
    // Whatever the document had become, it can be taken back.
    const std::size_t later = person.Seen().size();
    EXPECT_TRUE(word.Click(u"&Remove indexing"));
    EXPECT_TRUE(Errors(later).empty());
    EXPECT_EQ(Different(word.Parts(), cleaned), "");
  }
  std::cout << "  " << calls << " calls, " << tried << " of them failed in turn\n";
  for (const auto& [title, count] : endings) std::cout << "  " << count << " ended with \"" << Narrow(title) << "\"\n";
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, FailingCommand,
                         testing::Values(Command{"FindQuoted", u"&Find and index", u"SearchFlagged", false, 120},
                                         Command{"FindQuotedAgain", u"&Find and index", u"SearchFlagged", true, 400},
                                         Command{"FindCapitals", u"&Find and index", u"SearchInitCaps", false, 400},
                                         Command{"RemoveIndexing", u"&Remove indexing", u"SearchFlagged", true, 60},
                                         Command{"RemoveHighlighting", u"Remove &highlighting only", u"SearchFlagged",
                                                 true, 10},
                                         Command{"UpdateIndex", u"&Update index", u"SearchFlagged", true, 1}),
                         [](const testing::TestParamInfo<Command>& one) { return one.param.name; });

TEST_F(FailingWord, StaysWithoutTheMenuThatCouldNotBeMade) {
  person.Otherwise([](HWND window) { Person::Click(window, L"OK"); });
  AddInSession whole;
  const std::uint64_t calls = whole.context->count;
  ASSERT_GT(calls, 10u);
  for (std::uint64_t failing = 1; failing <= calls; ++failing) {
    const std::size_t seen = person.Seen().size();
    AddInSession word("", 1, failing);
    EXPECT_EQ(person.Seen().size(), seen + 1) << failing;
    word.Start();
  }
}

}  // namespace
