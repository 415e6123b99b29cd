#include "FakeDocument.h"

#include "hosts/linux/IcuCharacters.h"
#include "marker/MakeTermMarker.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Terms = std::vector<std::u16string>;

constexpr std::u16string_view kClauses =
    u"\u201CLender\u201D and \u201CBuyer\u201D: the BUYER pays the Lender, the Lender "
    u"the Buyer.\r";

/// A run, call by call.
class Entries : public testing::Test {
 protected:
  explicit Entries(EntryWriting writing) : marker_(MakeTermMarker(characters_, writing)) {}

  void Begin(const Terms& chosen, std::u16string_view text = kClauses) {
    document_ = std::make_shared<fake::Document>(std::u16string(text));
    marker_->BeginIndexing(document_);
    table_ = marker_->BuildTermTable({}, document_, chosen, true);
  }

  std::int32_t Mark(std::u16string_view term, std::u16string_view what = u"IndexAll",
                    std::u16string_view entryText = u"") {
    return marker_->MarkTermInStory(document_, document_->Story(), term, 0, 1, true, true, what, entryText);
  }

  void FollowAChange() {
    Begin({u"Lender", u"Buyer"}, u"Lender Buyer");
    EXPECT_EQ(Mark(u"Lender"), 1);
    document_->InsertAt(0, u"Buyer, ");
    EXPECT_EQ(Mark(u"Buyer"), 2);
    marker_->EndIndexing(document_);
    const auto entry = [](std::u16string_view text) {
      return u"\u0013 XE \"" + std::u16string(text) + u"\" \\f \"DefinedTermsIndex\" \u0015";
    };
    EXPECT_EQ(document_->Text(),
              u"Buyer" + entry(u"Buyer") + u", Lender" + entry(u"Lender") + u" Buyer" + entry(u"Buyer") + u"\r");
  }

  os::IcuCharacters characters_;
  std::unique_ptr<TermMarker> marker_;
  std::shared_ptr<fake::Document> document_;
  TermTable table_;
};

class EntriesByPosition : public Entries {
 protected:
  EntriesByPosition() : Entries(EntryWriting::kByPosition) {}
};

class EntriesByTerm : public Entries {
 protected:
  EntriesByTerm() : Entries(EntryWriting::kByTerm) {}
};

std::u16string MarkedText(EntryWriting writing, std::u16string_view what) {
  os::IcuCharacters characters;
  const auto marker = MakeTermMarker(characters, writing);
  const auto document = std::make_shared<fake::Document>(std::u16string(kClauses));
  marker->BeginIndexing(document);
  marker->BuildTermTable({}, document, {u"Buyer", u"Lender"}, true);
  const auto mark = [&](std::u16string_view text, std::u16string_view entryText) {
    marker->MarkTermInStory(document, document->Story(), text, 0, 1, true, true, what, entryText);
  };
  mark(u"Buyer", u"");
  mark(u"BUYER", u"Buyer");
  mark(u"Lender", u"");
  mark(u"LENDER", u"Lender");
  marker->EndIndexing(document);
  return document->Text();
}

TEST_F(EntriesByPosition, AreThoseThatAreWrittenByTerm) {
  for (const std::u16string_view what : {u"IndexAll", u"IndexDefs"}) {
    const std::u16string text = MarkedText(EntryWriting::kByPosition, what);
    EXPECT_EQ(text, MarkedText(EntryWriting::kByTerm, what));
    EXPECT_NE(text, kClauses);
  }
}

TEST_F(EntriesByPosition, AreCountedByTheCallAndThereWhenTheListsAreMade) {
  Begin({u"Buyer", u"Lender"});
  const std::u16string before = document_->Text();
  EXPECT_EQ(Mark(u"Lender"), 3);
  EXPECT_EQ(Mark(u"Buyer"), 2);
  EXPECT_EQ(document_->Text(), before);
  marker_->GetUnusedAndMissing(table_);
  EXPECT_EQ(document_->Story()->Fields()->Count(), 5);
}

TEST_F(EntriesByPosition, AreThereWhenTheIndexIsUpdated) {
  Begin({u"Lender"});
  Mark(u"Lender");
  marker_->UpdateIndex(document_);
  EXPECT_EQ(document_->Story()->Fields()->Count(), 3);
}

TEST_F(EntriesByPosition, FollowAChangeOfTheStoryDuringTheRun) { FollowAChange(); }

TEST_F(EntriesByTerm, FollowAChangeOfTheStoryDuringTheRun) { FollowAChange(); }

TEST_F(EntriesByTerm, CostFourCallsForEachOccurrenceWithItsHighlight) {
  const auto calls = [this](int repeats) {
    std::u16string text;
    for (int i = 0; i < repeats; ++i) text.append(u"the Lender pays the Buyer, ");
    Begin({u"Lender", u"Buyer"}, text);
    const int before = document_->AllCalls();
    EXPECT_EQ(Mark(u"Lender"), repeats);
    EXPECT_EQ(Mark(u"Buyer"), repeats);
    return document_->AllCalls() - before;
  };
  const int few = calls(10);
  EXPECT_EQ(calls(30) - few, 2 * 20 * 4);
}

TEST_F(EntriesByPosition, AreWrittenOnceThoughATermComesThatWasNotChosen) {
  Begin({u"Lender"});
  EXPECT_EQ(Mark(u"Lender"), 3);
  EXPECT_EQ(Mark(u"Buyer"), 2);
  marker_->EndIndexing(document_);
  EXPECT_EQ(document_->Story()->Fields()->Count(), 5);
}

}  // namespace
