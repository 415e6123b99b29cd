#include <gtest/gtest.h>

#include <string>

#include "tests/unit/layout/Drawn.h"

using laid::Document;
using laid::Drawn;
using laid::InParagraph;
using laid::kCharacter;
using laid::kLeft;
using laid::kNear;
using laid::kRight;
using laid::kTypedTab;
using laid::Typed;

namespace {

std::string Stop(const std::string& kind, int position) {
  return "<w:tab w:val=\"" + kind + "\" w:pos=\"" + std::to_string(position) + "\"/>";
}
std::string Stops(const std::string& stops) { return "<w:tabs>" + stops + "</w:tabs>"; }
std::string Tabbed(const std::string& before, const std::string& behind) {
  return Typed(before) + kTypedTab + Typed(behind);
}

TEST(LayoutTabs, GoOnAtTheDefaultStopsBehindTheLastStatedOne) {
  Document document(InParagraph(Tabbed("a", "b") + kTypedTab + Tabbed("c", "d"), Stops(Stop("left", 1000))));
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"b"), kLeft + 50, kNear);
  EXPECT_NEAR(page.LeftOf(u"c"), kLeft + 72, kNear) << "the next multiple of half an inch";
  EXPECT_NEAR(page.LeftOf(u"d"), kLeft + 108, kNear);
}

TEST(LayoutTabs, HaveTheDefaultStopsOfTheDocument) {
  Document document(InParagraph(Tabbed("a", "b")));
  document.WithSettings("<w:defaultTabStop w:val=\"1000\"/>");
  EXPECT_NEAR(Drawn(document).LeftOf(u"b"), kLeft + 50, kNear);
}

TEST(LayoutTabs, CountFromTheMarginAndNotFromTheIndent) {
  Document document(InParagraph(Tabbed("a", "b"), "<w:ind w:left=\"1000\"/>"));
  EXPECT_NEAR(Drawn(document).LeftOf(u"b"), kLeft + 72, kNear);
}

TEST(LayoutTabs, StopAtAHangingIndent) {
  const std::string text = InParagraph(Tabbed("a", "b"), "<w:ind w:left=\"500\" w:hanging=\"500\"/>");
  Document document(text);
  EXPECT_NEAR(Drawn(document).LeftOf(u"b"), kLeft + 25, kNear);
  Document without(text);
  without.WithSettings("<w:compat><w:noTabHangInd/></w:compat>");
  EXPECT_NEAR(Drawn(without).LeftOf(u"b"), kLeft + 36, kNear);
}

TEST(LayoutTabs, StopLeftOfTheMarginInFrontOfANegativeIndent) {
  Document document(InParagraph(Tabbed("a", "b"), Stops(Stop("left", -400)) + "<w:ind w:left=\"-800\"/>"));
  EXPECT_NEAR(Drawn(document).LeftOf(u"b"), kLeft - 20, kNear);
}

TEST(LayoutTabs, LoseTheStopsOfTheStyleThatAreCleared) {
  Document document(InParagraph(Tabbed("a", "b"), "<w:pStyle w:val=\"S\"/>" + Stops(Stop("clear", 1000))));
  document.WithStyles("<w:style w:type=\"paragraph\" w:styleId=\"S\"><w:pPr>" +
                      Stops(Stop("left", 1000) + Stop("left", 2000)) + "</w:pPr></w:style>");
  EXPECT_NEAR(Drawn(document).LeftOf(u"b"), kLeft + 100, kNear);
}

TEST(LayoutTabs, PassBarsWhichAreDrawnInEachLine) {
  Document document(
      InParagraph(Tabbed("a", "b") + "<w:r><w:br/></w:r>" + Typed("c"), Stops(Stop("bar", 1000) + Stop("left", 2000))));
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"b"), kLeft + 100, kNear);
  ASSERT_EQ(page.Display().rules.size(), 2U);
  for (const page::Rule& rule : page.Display().rules) {
    EXPECT_NEAR(rule.x, kLeft + 50, kNear);
    EXPECT_NEAR(rule.toX, kLeft + 50, kNear);
    EXPECT_GT(rule.toY, rule.y + 10);
  }
}

TEST(LayoutTabs, AlignThePointOrTheCommaOfNumbers) {
  const std::string stop = Stops(Stop("decimal", 2000));
  Document point(InParagraph(Tabbed("a", "1,234.5"), stop) + InParagraph(Tabbed("b", "67"), stop));
  const Drawn english(point);
  EXPECT_NEAR(english.LeftOf(u"1,234.5"), kLeft + 100 - 5 * kCharacter, kNear);
  EXPECT_NEAR(english.RightOf(u"67"), kLeft + 100, kNear) << "without a point the number ends there";
  Document comma(InParagraph(Tabbed("a", "1.234,5"), stop));
  comma.WithSettings("<w:decimalSymbol w:val=\",\"/>");
  EXPECT_NEAR(Drawn(comma).LeftOf(u"1.234,5"), kLeft + 100 - 5 * kCharacter, kNear);
}

TEST(LayoutTabs, FillTheirRoomWithTheLeaderThatTheyState) {
  const std::string stop = "<w:tab w:val=\"right\" w:leader=\"underscore\" w:pos=\"4000\"/>";
  Document document(InParagraph(Tabbed("a", "b"), Stops(stop)));
  EXPECT_EQ(Drawn(document).Run(u"\t").leader, u'_');
}

// As page numbers in a table of contents stand: the text ends at the indent, the number at the margin.
TEST(LayoutTabs, StopBeyondTheRightIndent) {
  const std::string indented = "<w:ind w:right=\"1440\"/>";
  Document document(InParagraph(Tabbed("a", "12"), Stops(Stop("right", 9360)) + indented));
  EXPECT_NEAR(Drawn(document).RightOf(u"12"), kRight, kNear);
  // 64 characters are left before the indent.
  Document full(InParagraph(Tabbed(std::string(63, 'a'), "12"), Stops(Stop("right", 9360)) + indented));
  EXPECT_EQ(Drawn(full).Display().lines.size(), 1U);
  EXPECT_NEAR(Drawn(full).RightOf(u"12"), kRight, kNear);
}

TEST(LayoutTabs, StopBeyondTheMarginUpToWord2010Only) {
  const std::string text = InParagraph(Tabbed("a", "12"), Stops(Stop("right", 10000)));
  Document before(text);
  before.WithSettings(laid::Compatibility(14));
  EXPECT_NEAR(Drawn(before).RightOf(u"12"), kLeft + 500, kNear);
  Document now(text);
  now.WithSettings(laid::Compatibility(15));
  EXPECT_NEAR(Drawn(now).RightOf(u"12"), kRight, kNear);
}

TEST(LayoutTabs, EndTheLineWhereNoStopIsLeftOnIt) {
  Document document(InParagraph(Tabbed(std::string(75, 'a'), "bbb")));
  const Drawn page(document);
  ASSERT_EQ(page.Display().lines.size(), 2U);
  EXPECT_NEAR(page.LeftOf(u"bbb"), kLeft, kNear);
}

}  // namespace
