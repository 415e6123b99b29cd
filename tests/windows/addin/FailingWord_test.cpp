#include <gtest/gtest.h>

#include "AddInSession.h"
#include "Person.h"
#include "platform/word/Application.h"

namespace {

/// A Word of which one call fails, whichever it is.
class FailingWord : public testing::Test {
 protected:
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  static void TearDownTestSuite() { CoUninitialize(); }

  Registered addIn{AddInLibrary()};
  Registered companion{CompanionLibrary()};
  Person person;
};

TEST_F(FailingWord, EndsARemovalWithAMessageAndLeavesNothingBehind) {
  std::uint64_t calls = 0;
  std::uint64_t before = 0;
  {
    AddInSession word("mutual_nda.docx");
    word.Start();
    before = word.context->count;
    EXPECT_TRUE(word.Click(u"&Remove indexing"));
    calls = word.context->count - before;
  }
  ASSERT_GT(calls, 10u);
  person.Otherwise([](HWND window) { Person::Click(window, L"OK"); });
  for (std::uint64_t failing = 1; failing <= calls; failing += calls / 12 + 1) {
    AddInSession word("mutual_nda.docx");
    word.Start();
    word.context->failing = before + failing;
    const std::size_t seen = person.Seen().size();
    EXPECT_TRUE(word.Click(u"&Remove indexing"));
    EXPECT_EQ(person.Seen().size(), seen + 1) << failing;
    EXPECT_TRUE(person.Seen().back().ends_with(L"Error: 4198 This call was to fail.")) << failing;
    EXPECT_TRUE(word.processor.ScreenUpdating()) << failing;
  }
}

TEST_F(FailingWord, StaysWithoutTheMenuThatCouldNotBeMade) {
  person.Otherwise([](HWND window) { Person::Click(window, L"OK"); });
  AddInSession whole;
  const std::uint64_t calls = whole.context->count;
  ASSERT_GT(calls, 10u);
  for (std::uint64_t failing = 1; failing <= calls; failing += calls / 6 + 1) {
    const std::size_t seen = person.Seen().size();
    AddInSession word({}, 1, failing);
    EXPECT_EQ(person.Seen().size(), seen + 1) << failing;
    word.Start();
  }
}

}  // namespace
