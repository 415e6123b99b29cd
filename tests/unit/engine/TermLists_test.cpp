#include "engine/TermLists.h"

#include <gtest/gtest.h>

#include "platform/word/HostError.h"
#include "tests/fakes/FakeWord.h"

namespace {

using Calls = std::vector<std::string>;

class TermLists : public testing::Test {
 protected:
  TermLists() { word.stories[0].text = u"Index.Behind.\r"; }

  const std::u16string& Text() const { return word.stories[0].text; }
  std::u16string Covered(std::u16string_view bookmark) const {
    const fakes::Place& place = word.bookmarks.at(std::u16string(bookmark));
    return Text().substr(static_cast<std::size_t>(place.start), static_cast<std::size_t>(place.end - place.start));
  }

  fakes::CallLog log;
  fakes::FakeWord word{log};
};

TEST_F(TermLists, TheNotUsedListFollowsTheIndexUnderItsHeadingAndNote) {
  word.bookmarks[u"DefinedTermsIndex"] = {0, 0, 6};
  WriteNotUsedList(word.MakeDocument(), u"Buyer\r\nSeller");
  EXPECT_EQ(Text(),
            u"Index.\rDEFINED BUT NOT USED / USED ONLY ONCE (see Index above for page number)\r"
            u"Buyer\rSeller\r\rBehind.\r");
  EXPECT_EQ(Covered(u"DefinedTermsIndex"), u"Index.");
  EXPECT_EQ(Covered(u"DefinedTermsIndexNotUsedList"), Text().substr(0, Text().find(u"Behind")));
}

TEST_F(TermLists, AListIsWrittenAndFormattedStepByStep) {
  word.bookmarks[u"DefinedTermsIndexNotUsedList"] = {0, 0, 6};
  word.alignment = word::wdAlignParagraphCenter;
  WriteNotFoundList(word.MakeApplication(), word.MakeDocument(), u"Buyer");
  EXPECT_EQ(log.calls,
            (Calls{"Range.InsertParagraphBefore 1:6-6", "Range.Text = NOT FOUND", "ParagraphFormat.Alignment = 0",
                   "Font.Bold = -1", "Range.Text = \r\n", "ParagraphFormat.Alignment = 0", "Font.Bold = 0",
                   "Range.Text = Buyer\r\n\r\n", "ParagraphFormat.Alignment = 0", "ParagraphFormat.Alignment = 1",
                   "ParagraphFormat.Alignment = 0", "ParagraphFormat.SpaceBefore = 0", "ParagraphFormat.SpaceAfter = 0",
                   "Range.HighlightColorIndex = 0", "Font.Color = -16777216", "Range.Select 1:0-24",
                   "Bookmarks.Add DefinedTermsIndexNotFoundList 1:0-24"}));
}

TEST_F(TermLists, TheNotFoundListFollowsTheNotUsedList) {
  word.bookmarks[u"DefinedTermsIndex"] = {0, 0, 3};
  word.bookmarks[u"DefinedTermsIndexNotUsedList"] = {0, 0, 6};
  WriteNotFoundList(word.MakeApplication(), word.MakeDocument(), u"Buyer");
  EXPECT_EQ(Text(), u"Index.\rNOT FOUND\rBuyer\r\rBehind.\r");
}

TEST_F(TermLists, TheNotFoundListAloneStandsAtTheSelectionAndNotAtTheIndex) {
  word.bookmarks[u"DefinedTermsIndex"] = {0, 0, 3};
  word.selection = {0, 5, 6};
  WriteNotFoundList(word.MakeApplication(), word.MakeDocument(), u"Buyer");
  EXPECT_EQ(Text(), u"Index.\rNOT FOUND\rBuyer\r\rBehind.\r");
  EXPECT_EQ(word.selection.end, 24);
}

TEST_F(TermLists, WithoutAnIndexTheNotUsedListStandsAtTheSelection) {
  word.selection = {0, 6, 6};
  WriteNotUsedList(word.MakeDocument(), u"Buyer");
  EXPECT_TRUE(Text().starts_with(u"Index.\rDEFINED BUT NOT USED"));
  EXPECT_FALSE(log.CountBeginning("Range.Select") > 0);
}

TEST_F(TermLists, AnEmptyListStillHasItsHeadingAndItsBookmark) {
  word.selection = {0, 6, 6};
  WriteNotFoundList(word.MakeApplication(), word.MakeDocument(), u"");
  EXPECT_EQ(Text(), u"Index.\rNOT FOUND\r\r\rBehind.\r");
  EXPECT_EQ(Covered(u"DefinedTermsIndexNotFoundList"), u"Index.\rNOT FOUND\r\r\r");
}

TEST(TermListOrder, TermsAreInAscendingOrder) {
  EXPECT_EQ(SortTermList(u"b\r\nB\r\na\r\nA b\r\nA"), u"A\r\nA b\r\nB\r\na\r\nb");
  EXPECT_EQ(SortTermList(u"one"), u"one");
  EXPECT_EQ(SortTermList(u""), u"");
}

TEST_F(TermLists, AListThatCouldNotBeFinishedHasItsBookmarkToBeTakenAwayBy) {
  word.alignment = word::wdAlignParagraphCenter;
  word.selection = {0, 6, 6};
  WriteNotFoundList(word.MakeApplication(), word.MakeDocument(), u"Buyer");
  const Calls calls = log.calls;
  for (std::size_t failing = 1; failing < calls.size(); ++failing) {
    SCOPED_TRACE(calls[failing]);
    fakes::CallLog failingLog;
    failingLog.failAt = calls[failing];
    fakes::FakeWord other{failingLog};
    other.stories[0].text = u"Index.Behind.\r";
    other.alignment = word::wdAlignParagraphCenter;
    other.selection = {0, 6, 6};
    EXPECT_THROW(WriteNotFoundList(other.MakeApplication(), other.MakeDocument(), u"Buyer"), word::HostError);
    // A call that fails here fails again when it is what mends.
    if (calls[failing].starts_with("Bookmarks.Add") || calls[failing] == "ParagraphFormat.Alignment = 1") continue;
    const fakes::Place& place = other.bookmarks.at(u"DefinedTermsIndexNotFoundList");
    EXPECT_EQ(place.start, 6);
    EXPECT_EQ(other.stories[0].text.substr(static_cast<std::size_t>(place.end)), u"Behind.\r");
    EXPECT_EQ(other.alignment, word::wdAlignParagraphCenter);
  }
}

}  // namespace
