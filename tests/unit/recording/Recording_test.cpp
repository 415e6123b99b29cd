#include "hosts/recording/Recording.h"

#include <gtest/gtest.h>

#include "hosts/json/Json.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Options.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"
#include "platform/word/Window.h"
#include "tests/fakes/FakeTermMarker.h"
#include "tests/fakes/FakeWord.h"

#include <string>
#include <vector>

namespace recording {
namespace {

using Json = json::Value;

/// Writes down what it is told; can fail on a chosen member like a host that stopped working.
class Notes : public CallObserver {
 public:
  void BeforeCall(std::string_view member) override {
    members.emplace_back(member);
    if (member == failing) throw word::HostError(word::kCommandFailed, u"Command failed", member);
  }
  void WordPut(std::string_view member, const Json& value) override {
    told.push_back("put " + std::string(member) + " " + json::Written(value));
  }
  void WordCall(std::string_view member, const Json& value) override {
    told.push_back("call " + std::string(member) + " " + json::Written(value));
  }
  void Marker(std::string_view operation, const Json& arguments, const Json& result) override {
    told.push_back("marker " + std::string(operation) + " " + json::Written(arguments) + " " + json::Written(result));
  }

  std::vector<std::string> told;
  std::vector<std::string> members;
  std::string failing;
};

class Recording : public testing::Test {
 protected:
  word::ApplicationPtr Recorded() { return Record(fake.MakeApplication(), notes); }
  word::DocumentPtr Document() { return Recorded()->ActiveDocument(); }

  fakes::CallLog log;
  fakes::FakeWord fake{log};
  Notes notes;
};

using Told = std::vector<std::string>;

TEST_F(Recording, PutsAreToldWithFlagsAsTrueAndFalse) {
  const word::ApplicationPtr application = Recorded();
  application->Options()->SetAllowFastSave(false);
  application->SetScreenUpdating(true);
  Document()->ActiveWindow()->ActivePane()->View()->SetType(word::wdPrintView);
  EXPECT_EQ(notes.told,
            (Told{"put Options.AllowFastSave false", "put Application.ScreenUpdating true", "put View.Type 3"}));
  EXPECT_FALSE(fake.allowFastSave);
  EXPECT_EQ(fake.paneViewType, word::wdPrintView);
}

TEST_F(Recording, GetsAreNotToldButPassTheHook) {
  EXPECT_EQ(Document()->Name(), u"contract.docx");
  EXPECT_TRUE(notes.told.empty());
  EXPECT_EQ(notes.members, (Told{"Application.ActiveDocument", "Document.Name"}));
}

TEST_F(Recording, CallsThatChangeSomethingAreToldUnderTheirTranscriptNames) {
  const word::DocumentPtr document = Document();
  document->UndoClear();
  Recorded()->ScreenRefresh();
  EXPECT_EQ(notes.told, (Told{"call UndoClear null", "call ScreenRefresh null"}));
  EXPECT_EQ(notes.members.back(), "Application.ScreenRefresh");
}

TEST_F(Recording, ABookmarkIsAddedOverTheInnerHostsOwnRange) {
  fake.stories = {{word::wdMainTextStory, u"Some text\r", {}}};
  fake.selection = {0, 5, 9};
  const word::ApplicationPtr application = Recorded();
  application->ActiveDocument()->Bookmarks()->Add(u"Here", application->Selection()->Range());
  ASSERT_EQ(notes.told.size(), 1U);
  EXPECT_EQ(notes.told[0], R"(call Bookmarks.Add {"name":"Here","range":{"story":1,"start":5,"end":9}})");
  EXPECT_EQ(fake.bookmarks.at(u"Here").start, 5);
}

TEST_F(Recording, DeletingABookmarkTellsItsName) {
  fake.bookmarks[u"Here"] = {0, 0, 0};
  Document()->Bookmarks()->Item(u"Here")->Delete();
  EXPECT_EQ(notes.told, (Told{"call Bookmark.Delete \"Here\""}));
  EXPECT_TRUE(fake.bookmarks.empty());
}

TEST_F(Recording, GoToTellsOnlyTheArgumentsThatAreGiven) {
  fake.bookmarks[u"Here"] = {0, 0, 0};
  const word::SelectionPtr selection = Recorded()->Selection();
  selection->GoTo({.What = word::wdGoToPage, .Which = word::wdGoToFirst});
  selection->GoTo({.What = word::wdGoToBookmark, .Name = u"Here"});
  EXPECT_EQ(notes.told,
            (Told{R"(call Selection.GoTo {"What":1,"Which":1})", R"(call Selection.GoTo {"What":-1,"Name":"Here"})"}));
}

TEST_F(Recording, AFailingHostIsPlayedBeforeTheCallIsMadeOrTold) {
  notes.failing = "Options.Pagination";
  const word::OptionsPtr options = Recorded()->Options();
  EXPECT_THROW(options->SetPagination(true), word::HostError);
  EXPECT_TRUE(notes.told.empty());
  EXPECT_FALSE(fake.pagination);
}

TEST_F(Recording, TheCompanionIsToldWithArgumentsAsTheyWereAndItsResult) {
  auto marker = Record(std::make_unique<fakes::FakeTermMarker>(log), notes);
  fake.stories = {{word::wdMainTextStory, u"The Buyer\r", {}}};
  const word::ApplicationPtr application = Recorded();
  const word::DocumentPtr document = application->ActiveDocument();
  const TermTable table = marker->BuildTermTable(application, document, {u"Buyer"}, true);
  ASSERT_EQ(table.size(), 1U);
  marker->MarkTermInStory(document, document->StoryRanges()->Item(1), u"Buyer", 2, 1, true, false, u"IndexAll", u"");
  marker->RemoveIndex(application, document, true);
  EXPECT_EQ(notes.told,
            (Told{R"(marker BuildTermTable ["Application","contract.docx",["Buyer"],true] [["Buyer",0]])",
                  R"(marker MarkTermInStory ["contract.docx",{"story":1,"start":0,"end":10},"Buyer",2,1,true,false,)"
                  R"("IndexAll",""] 2)",
                  R"(marker RemoveIndex ["Application","contract.docx",true] null)"}));
}

TEST_F(Recording, AFoundTermIsToldWithItsRangeAndTheBoundOfItsArray) {
  auto marker = Record(std::make_unique<fakes::FakeTermMarker>(log), notes);
  fake.stories = {{word::wdMainTextStory, u"The Buyer\r", {}}};
  const word::DocumentPtr document = Document();
  std::vector<std::u16string> terms{u""};
  for (const word::Position end : {3, 9}) {
    const word::RangePtr range = document->StoryRanges()->Item(1);
    range->SetEnd(end);
    notes.told.clear();
    marker->AddTerm(range, terms);
    const int bound = end == 3 ? 0 : 1;
    EXPECT_EQ(notes.told, (Told{"marker AddTerm [{\"story\":1,\"start\":0,\"end\":" + std::to_string(end) + "}," +
                                std::to_string(bound) + "] " + std::to_string(bound + 2)}));
  }
}

TEST_F(Recording, WhatTheCompanionDoesInsideIsNotTold) {
  auto inner = std::make_unique<fakes::FakeTermMarker>(log);
  inner->onInsertIndex = [](const word::DocumentPtr& document) { document->UndoClear(); };
  auto marker = Record(std::move(inner), notes);
  const word::ApplicationPtr application = Recorded();
  marker->InsertIndex(application, application->ActiveDocument(), 2, u":\t");
  EXPECT_EQ(notes.told, (Told{R"(marker InsertIndex ["Application","contract.docx",2,":\t"] null)"}));
  EXPECT_TRUE(log.Contains("Document.UndoClear"));
}

TEST_F(Recording, AnErrorOfTheCompanionIsToldAndPassesThrough) {
  log.failAt = "BeginIndexing";
  auto marker = Record(std::make_unique<fakes::FakeTermMarker>(log), notes);
  EXPECT_THROW(marker->BeginIndexing(Document()), word::HostError);
  EXPECT_EQ(notes.told, (Told{R"(marker BeginIndexing ["contract.docx"] )"
                              R"({"error":4605,"description":"This method or property is not available"})"}));
}

}  // namespace
}  // namespace recording
