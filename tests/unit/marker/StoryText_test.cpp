#include "marker/StoryText.h"

#include "FakeDocument.h"

#include "marker/PlainText.h"
#include "platform/word/HostError.h"

#include <gtest/gtest.h>

#include <memory>

namespace marker {
namespace {

const std::u16string kBar(1, kBarrier);

std::u16string PlainOf(const std::shared_ptr<fake::Document>& document) {
  return StoryText(document, document->Story(), StoryText::Hidden::kLeftOut).Plain();
}

std::shared_ptr<fake::Document> Of(std::u16string_view text) { return std::make_shared<fake::Document>(text); }

TEST(StoryText, ReadsSpecialCharactersAsTheirPlainOnes) {
  EXPECT_EQ(PlainOf(Of(u"Net\u00A0In\u001Fcome\u0005\u001Etax")), u"Net Income-tax\r");
}

TEST(StoryText, LeavesOutAFieldWithoutResult) {
  EXPECT_EQ(PlainOf(Of(u"Stock \u0013 XE \"Stock\" \u0015Purchase")), u"Stock Purchase\r");
}

TEST(StoryText, ReadsAFieldWithAResultAsABarrier) {
  EXPECT_EQ(PlainOf(Of(u"a\u0013 REF x \u0014Lender\u0015b")), u"a" + kBar + u"b\r");
}

TEST(StoryText, ReadsNestedFieldsAsOneBarrier) {
  EXPECT_EQ(PlainOf(Of(u"a\u0013 TOC \u0014x\u0013 PAGEREF \u001412\u0015y\u0013 XE \"q\" \u0015z\u0015b")),
            u"a" + kBar + u"b\r");
}

TEST(StoryText, DoesNotTakeTheCodeOfAnUnclosedFieldForText) {
  EXPECT_EQ(PlainOf(Of(u"a \u0013 REF Lender\rb")), u"a " + kBar + u"\rb\r");
}

TEST(StoryText, LeavesOutWhatIsDeleted) {
  const auto document = Of(u"Lexxnder");
  document->Format(u"xx", [](fake::Character& one) { one.deleted = true; });
  EXPECT_EQ(PlainOf(document), u"Lender\r");
}

TEST(StoryText, LeavesOutHiddenText) {
  const auto document = Of(u"one hidden two");
  document->Format(u"hidden ", [](fake::Character& one) { one.hidden = true; });
  EXPECT_EQ(PlainOf(document), u"one two\r");
}

TEST(StoryText, KeepsTheMarksBetweenWordsOnBothSidesOfHiddenText) {
  const auto document = Of(u"Buyer\rhidden\rSeller");
  document->Format(u"\rhidden\r", [](fake::Character& one) { one.hidden = true; });
  EXPECT_EQ(PlainOf(document), u"Buyer\r\rSeller\r");
}

TEST(StoryText, KeepsTheMarksOfDeletedCells) {
  const auto document = Of(u"Buyer\agone\rSeller");
  document->Format(u"\agone\r", [](fake::Character& one) { one.deleted = true; });
  EXPECT_EQ(PlainOf(document), u"Buyer\aSeller\r");
}

TEST(StoryText, AsksOnceForAStoryWithoutHiddenText) {
  const auto document = Of(u"one two");
  PlainOf(document);
  EXPECT_EQ(document->Calls("Hidden"), 1);
}

TEST(StoryText, LeavesOutOurOwnIndexAndLists) {
  const auto document = Of(u"one\rLender\rtwo");
  document->SetBookmark(u"DefinedTermsIndexNotFoundList", 4, 11);
  EXPECT_EQ(PlainOf(document), u"one\r" + kBar + u"two\r");
}

TEST(StoryText, HasABarrierWhereTheIndexWillGo) {
  const auto document = Of(u"Stock Purchase");
  document->SetBookmark(u"IndexBKStart", 6, 6);
  const StoryText text(document, document->Story(), StoryText::Hidden::kLeftOut);
  EXPECT_EQ(text.Plain(), u"Stock " + kBar + u"Purchase\r");
  EXPECT_EQ(text.PositionOf(7), 6);
  EXPECT_EQ(text.PositionOf(14), 13);
}

TEST(StoryText, CountsACellMarkAsOnePosition) {
  const auto document = Of(u"a\u0007Lender\u0007\u0007b");
  const StoryText text(document, document->Story(), StoryText::Hidden::kLeftOut);
  EXPECT_EQ(text.Plain(), u"a\u0007Lender\u0007\u0007b\r");
  EXPECT_EQ(text.PositionOf(2), 2);
  EXPECT_EQ(text.PositionOf(10), 10);
}

TEST(StoryText, TellsThePositionsOfWhatStandsAroundAGap) {
  const auto document = Of(u"Stock \u0013 XE \"q\" \u0015Purchase");
  const StoryText text(document, document->Story(), StoryText::Hidden::kLeftOut);
  const std::vector<Stretch> stretches = text.Stretches(0, 14);
  ASSERT_EQ(stretches.size(), 2U);
  EXPECT_EQ(stretches[0].begin, 0);
  EXPECT_EQ(stretches[0].end, 6);
  EXPECT_EQ(stretches[1].begin, 16);
  EXPECT_EQ(stretches[1].end, 24);
  EXPECT_EQ(text.PlainAt(5), 5U);
  EXPECT_EQ(text.PlainAt(8), 6U);
  EXPECT_EQ(text.PlainAt(16), 6U);
  EXPECT_EQ(text.PlainAt(99), 15U);
}

TEST(StoryText, KnowsOurEntries) {
  const auto document = Of(u"a\u0013 XE \"q\" \u0015b\u0013 XE \"x\\:y\" \\f \"DefinedTermsIndex\" \u0015");
  const StoryText text(document, document->Story(), StoryText::Hidden::kKept);
  ASSERT_EQ(text.Entries().size(), 1U);
  EXPECT_EQ(text.Entries()[0].text, u"x:y");
  EXPECT_EQ(text.Entries()[0].begin, 12);
}

TEST(StoryText, RefusesAHostWhosePositionsDisagreeWithItsText) {
  EXPECT_THROW(PlainOf(Of(std::u16string(u"a").append(1, fake::kMute).append(u"b"))), word::HostError);
}

}  // namespace
}  // namespace marker
