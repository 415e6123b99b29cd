#include <gtest/gtest.h>

#include "AddInSession.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "tests/windows/Person.h"

namespace {

/// A Word that finds the add-in and its companion registered.
class AddIn : public testing::Test {
 protected:
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  static void TearDownTestSuite() { CoUninitialize(); }
  void TearDown() override { EXPECT_EQ(person.Waiting(), 0u); }

  Registered addIn{AddInLibrary()};
  Registered companion{CompanionLibrary()};
  Person person;
};

std::vector<std::u16string> Captions(const std::vector<std::shared_ptr<menus::Item>>& items) {
  std::vector<std::u16string> captions;
  for (const auto& item : items) captions.push_back(item->caption);
  return captions;
}

TEST_F(AddIn, PutsItsMenuUnderToolsAndTakesItAway) {
  AddInSession word;
  word.Start();
  ASSERT_EQ(word.bars.Tools().size(), 1u);
  EXPECT_EQ(word.bars.Tools()[0]->tag, u"KVXMenu");
  EXPECT_TRUE(word.bars.Tools()[0]->temporary);
  EXPECT_EQ(Captions(word.bars.Tools()[0]->items),
            (std::vector<std::u16string>{u"&Find and index", u"&Remove indexing", u"Remove &highlighting only",
                                         u"&Update index"}));
  word.Shutdown();
  EXPECT_TRUE(word.bars.Tools().empty());
}

TEST_F(AddIn, AddsNoMenuWhenWordIsDrivenFromOutside) {
  AddInSession word("", 2);
  word.Start();
  EXPECT_TRUE(word.bars.Tools().empty());
}

TEST_F(AddIn, TakesTheAcceleratorOfWordsListOfAddIns) {
  AddInSession word("", 2);
  word.bars.AddBuiltIn({.id = 3754, .caption = u"&COM Add-Ins..."});
  EXPECT_EQ(Captions(word.bars.Tools()), std::vector<std::u16string>{u"&COM Add-Ins..."});
  word.Connect();
  EXPECT_EQ(Captions(word.bars.Tools()), (std::vector<std::u16string>{u"COM Add-Ins...", u"&Kelvarin"}));
}

TEST_F(AddIn, PutsWordsListOfAddInsUnderToolsWhereItIsMissing) {
  AddInSession word("", 2);
  word.bars.AddElsewhere({.id = 3754, .caption = u"COM Add-Ins..."});
  word.Connect();
  ASSERT_EQ(word.bars.Tools().size(), 2u);
  EXPECT_EQ(word.bars.Tools().back()->id, 3754);
}

TEST_F(AddIn, SaysThatThereIsNoDocumentToIndex) {
  AddInSession word;
  word.Start();
  person.Expect(L"No document to index", [](HWND window) { Person::Click(window, L"OK"); });
  EXPECT_TRUE(word.Click(u"&Find and index"));
  ASSERT_EQ(person.Seen().size(), 1u);
  EXPECT_EQ(person.Seen()[0], L"No document to index: At least 1 document needs to be open to run the indexer.");
}

TEST_F(AddIn, CommandsWithoutADocumentDoNothing) {
  AddInSession word;
  word.Start();
  for (const auto* caption : {u"&Remove indexing", u"Remove &highlighting only", u"&Update index"}) {
    EXPECT_TRUE(word.Click(caption));
  }
  EXPECT_TRUE(person.Seen().empty());
}

TEST_F(AddIn, MakesItsCompanionLaterWhereStartUpWasNotTold) {
  AddInSession word("mutual_nda.docx", 0);
  person.Expect(L"Done", [](HWND window) { Person::Click(window, L"OK"); });
  EXPECT_TRUE(word.Click(u"Remove &highlighting only"));
}

}  // namespace
