#include "TermMarkerOnDocx.h"

#include "engine/TermLists.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

/// A run's two bookmarks in what an earlier run left, which goes.
class PlacesOfARun : public TermMarkerOnDocx {
 protected:
  void StandAt(word::Position position) {
    const word::DocumentPtr document = docx_->Document();
    for (const std::u16string_view name : {kReturnBookmark, kIndexStartBookmark}) {
      document->Bookmarks()->Add(name, document->Range(position, position));
    }
  }
  /// Somewhere in the middle of the first of these words that the document has.
  void StandIn(std::u16string_view words) {
    const std::size_t at = docx_->Text().find(words);
    ASSERT_NE(at, std::u16string::npos);
    StandAt(static_cast<word::Position>(at + words.size() / 2));
  }
  void ExpectBothAt(word::Position position) {
    const word::BookmarksPtr bookmarks = docx_->Document()->Bookmarks();
    for (const std::u16string_view name : {kReturnBookmark, kIndexStartBookmark}) {
      ASSERT_TRUE(bookmarks->Exists(name)) << std::string(name.begin(), name.end());
      EXPECT_EQ(bookmarks->Item(name)->Range()->Start(), position);
      EXPECT_EQ(bookmarks->Item(name)->Range()->End(), position);
    }
  }
};

TEST_F(PlacesOfARun, StayWhereAnEntryWasThatTheyStoodIn) {
  OpenParagraph(TextRun("The Lender pays."));
  Mark({u"Lender"});
  StandIn(Entry(u"Lender"));
  RemoveAll();
  EXPECT_EQ(docx_->Text(), u"The Lender pays.\r");
  ExpectBothAt(10);
}

TEST_F(PlacesOfARun, StayWhenMarkingBeginsOverAnEarlierMarking) {
  OpenParagraph(TextRun("The Lender pays."));
  Mark({u"Lender"});
  StandIn(Entry(u"Lender"));
  marker_->BeginIndexing(docx_->Document());
  ExpectBothAt(10);
}

TEST_F(PlacesOfARun, StayWhereAnIndexWasThatHasLostItsBookmark) {
  for (const std::u16string_view words : {u"INDEX", u"Lender: "}) {
    OpenParagraph(TextRun("The Lender pays."));
    Mark({u"Lender"});
    InsertIndexAt(docx_->Story()->End() - 1, 1);
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Item(kIndexBookmark)->Delete();
    StandIn(words);
    RemoveAll();
    EXPECT_EQ(docx_->Text(), u"The Lender pays.\r");
    ExpectBothAt(16);
    InsertIndexAt(16, 1);
  }
}

TEST_F(PlacesOfARun, StayWhereTheListsWereWhoseIndexHasGone) {
  for (const std::u16string_view words : {u"DEFINED BUT", u"Buyer\r", u"NOT FOUND", u"Gone\r"}) {
    OpenParagraph(TextRun("The Lender pays."));
    InsertIndexAt(16, 1);
    WriteNotUsedList(docx_->Document(), u"Buyer");
    WriteNotFoundList(docx_->Application(), docx_->Document(), u"Gone");
    docx_->Document()->Fields()->Item(1)->Delete();
    StandIn(words);
    RemoveAll();
    EXPECT_EQ(docx_->Text(), u"The Lender pays.\r");
    ExpectBothAt(16);
  }
}

TEST_F(PlacesOfARun, AreNotMadeWhereThereWereNone) {
  OpenParagraph(TextRun("The Lender pays."));
  Mark({u"Lender"});
  InsertIndexAt(16, 1);
  RemoveAll();
  EXPECT_EQ(docx_->Document()->Bookmarks()->Count(), 0);
}

}  // namespace
