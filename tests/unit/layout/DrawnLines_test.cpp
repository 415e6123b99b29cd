#include <gtest/gtest.h>

#include <string>

#include "tests/unit/layout/Drawn.h"

using laid::Document;
using laid::Drawn;
using laid::InParagraph;
using laid::InRun;
using laid::kCharacter;
using laid::kLeft;
using laid::kNear;
using laid::kRight;
using laid::kTop;
using laid::kTypedTab;
using laid::P;
using laid::Text;
using laid::Typed;

namespace {

TEST(DrawnLines, HaveEachCharacterBehindTheOneBefore) {
  Document document(InParagraph(Typed("one")) + InParagraph(Typed("two")));
  const Drawn page(document);
  ASSERT_EQ(page.Display().lines.size(), 2U);
  const page::Run& run = page.Run(u"one");
  ASSERT_EQ(run.edges.size(), 4U);
  for (std::size_t i = 0; i < run.edges.size(); ++i) {
    EXPECT_NEAR(run.edges[i], kLeft + kCharacter * static_cast<double>(i), kNear);
  }
  const page::Line& first = page.Line(u"one");
  EXPECT_NEAR(first.area.y, kTop, kNear);
  EXPECT_NEAR(first.area.height, 8.33 + 3, kNear);
  EXPECT_NEAR(first.baseline, kTop + 8.33, kNear);
  EXPECT_NEAR(page.Line(u"two").area.y, first.area.Bottom(), kNear);
}

TEST(DrawnLines, KnowThePositionsOfTheirCharacters) {
  Document document(InParagraph(Typed("one")) + InParagraph(Typed("two") + kTypedTab + Typed("x")));
  const Drawn page(document);
  const page::Line& line = page.Line(u"two");
  EXPECT_EQ(line.story, 1);
  EXPECT_EQ(line.start, 4);
  EXPECT_EQ(line.end, 9);
  EXPECT_TRUE(line.endsParagraph);
  EXPECT_EQ(page.Run(u"two").position, 4);
  EXPECT_EQ(page.Run(u"\t").position, 7);
  EXPECT_EQ(page.Run(u"x").position, 8);
}

TEST(DrawnLines, HaveTextWithReadingsAboveItAtOnePosition) {
  const std::string base = "<w:rubyBase>" + InRun("<w:rPr><w:b/></w:rPr>" + Text("base")) + paged::FieldMark("begin") +
                           InRun(Text(" of words") + "<w:tab/>") + "</w:rubyBase>";
  Document document(P(Text("ab") + "<w:ruby>" + base + "</w:ruby>" + Text("cd") + "<w:tab/>" + Text("x")));
  const Drawn page(document);
  EXPECT_TRUE(page.Run(u"base").solid);
  EXPECT_EQ(page.Run(u"base").position, 2);
  EXPECT_EQ(page.Run(u" of words").position, 2);
  EXPECT_EQ(page.Run(u"cd").position, 3);
  EXPECT_EQ(page.Run(u"x").position, 6);
  EXPECT_TRUE(page.Face(page.Run(u"base")).bold);
  EXPECT_FALSE(page.Face(page.Run(u"cd")).bold) << "what stands behind has its own format";
}

TEST(DrawnLines, StandWhereTheirAlignmentWantsThem) {
  Document document(InParagraph(Typed("middle"), "<w:jc w:val=\"center\"/>") +
                    InParagraph(Typed("right   "), "<w:jc w:val=\"right\"/>"));
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"middle"), (kLeft + kRight) / 2 - 3 * kCharacter, kNear);
  // Blanks hang over the end.
  EXPECT_NEAR(page.LeftOf(u"right"), kRight - 5 * kCharacter, kNear);
}

TEST(DrawnLines, ReachTheRightEdgeWhenTheyAreJustifiedButForTheLast) {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "word ";
  Document document(InParagraph(Typed(text + "end"), "<w:jc w:val=\"both\"/>"));
  const Drawn page(document);
  ASSERT_EQ(page.Display().lines.size(), 3U);
  for (const int line : {0, 1}) {
    const page::Run& run = page.Display().lines[static_cast<std::size_t>(line)].runs.front();
    const std::size_t last = run.text.find_last_not_of(u' ');
    EXPECT_NEAR(run.edges[last + 1], kRight, kNear);
    EXPECT_GT(run.edges[5] - run.edges[4], kCharacter) << "the blank has grown";
    EXPECT_NEAR(run.edges[4] - run.edges[3], kCharacter, kNear);
  }
  const page::Run& run = page.Display().lines[2].runs.front();
  EXPECT_NEAR(run.edges[5] - run.edges[4], kCharacter, kNear);
}

TEST(DrawnLines, StayBeforeTheRightEdgeWhenTheLastWordFittedInByNarrowerBlanks) {
  const auto words = static_cast<int>((kRight - kLeft) / kCharacter) / 7;
  std::string text;
  for (int i = 0; i < words; ++i) text += "aaaaaa ";
  Document document(InParagraph(Typed(text + "bbb"), "<w:jc w:val=\"both\"/>"));
  document.WithSettings(laid::Compatibility(15));
  const Drawn page(document);
  ASSERT_EQ(page.Display().lines.size(), 1U);
  EXPECT_GT(static_cast<double>(text.size() + 3) * kCharacter, kRight - kLeft) << "it is too long for its line";
  EXPECT_NEAR(page.Display().lines[0].runs.back().edges.back(), kRight, kNear);
}

TEST(DrawnLines, EndOrCentreAtTheStopsOfTheirTabs) {
  const std::string stops =
      "<w:tabs><w:tab w:val=\"left\" w:pos=\"1440\"/><w:tab w:val=\"center\" w:pos=\"4320\"/>"
      "<w:tab w:val=\"decimal\" w:pos=\"6000\"/><w:tab w:val=\"right\" w:leader=\"dot\" w:pos=\"9000\"/></w:tabs>";
  Document document(InParagraph(Typed("a") + kTypedTab + Typed("left") + kTypedTab + Typed("middle") + kTypedTab +
                                    Typed("12.34") + kTypedTab + Typed("right"),
                                stops));
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"left"), kLeft + 72, kNear);
  EXPECT_NEAR(page.LeftOf(u"middle"), kLeft + 216 - 3 * kCharacter, kNear);
  EXPECT_NEAR(page.LeftOf(u"12.34"), kLeft + 300 - 2 * kCharacter, kNear);
  EXPECT_NEAR(page.RightOf(u"right"), kLeft + 450, kNear);
  const page::Line& line = page.Display().lines.front();
  const page::Run& last = line.runs[line.runs.size() - 2];
  EXPECT_EQ(last.leader, u'.');
  EXPECT_NEAR(last.edges.back(), page.LeftOf(u"right"), kNear);
}

TEST(DrawnLines, HaveTheirNumbersBesideTheText) {
  Document document(InParagraph(Typed("text"), "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>"));
  document.With("numbering",
                "<w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"3\"/><w:numFmt "
                "w:val=\"decimal\"/><w:lvlText w:val=\"%1.\"/><w:pPr><w:ind w:left=\"720\" w:hanging=\"360\"/></w:pPr>"
                "</w:lvl></w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>");
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"text"), kLeft + 36, kNear);
  const page::Run& number = page.Run(u"3.");
  EXPECT_NEAR(number.edges.front(), kLeft + 18, kNear);
  EXPECT_FALSE(number.places) << "a number is in no story";
  EXPECT_EQ(page.Run(u"text").position, 0);
}

TEST(DrawnLines, ShowTheFormatsOfTheirCharacters) {
  Document document(InParagraph(Typed("plain") + Typed("strong", "<w:b/><w:i/><w:color w:val=\"FF8000\"/>") +
                                Typed("marked", "<w:highlight w:val=\"yellow\"/><w:u w:val=\"double\"/><w:strike/>") +
                                Typed("shaded", "<w:shd w:val=\"clear\" w:fill=\"D0E0F0\"/>") +
                                Typed("raised", "<w:vertAlign w:val=\"superscript\"/>") + Typed("Shout", "<w:caps/>") +
                                Typed("Small", "<w:smallCaps/>")));
  const Drawn page(document);
  EXPECT_EQ(page.Run(u"plain").color, page::kBlack);
  EXPECT_FALSE(page.Face(page.Run(u"plain")).bold);
  EXPECT_DOUBLE_EQ(page.Face(page.Run(u"plain")).size, 10);
  const page::Run& strong = page.Run(u"strong");
  EXPECT_TRUE(page.Face(strong).bold);
  EXPECT_TRUE(page.Face(strong).italic);
  EXPECT_EQ(strong.color, 0xFF8000);
  const page::Run& marked = page.Run(u"marked");
  EXPECT_EQ(marked.background, 0xFFFF00);
  EXPECT_EQ(marked.underline, page::Stroke::kDouble);
  EXPECT_TRUE(marked.strike);
  EXPECT_EQ(page.Run(u"shaded").background, 0xD0E0F0);
  EXPECT_LT(page.Run(u"raised").baseline, page.Line(u"raised").baseline - 2);
  EXPECT_EQ(page.Run(u"SHOUT").position, 5 + 6 + 6 + 6 + 6);
  EXPECT_EQ(page.Run(u"MALL").position, page.Run(u"S").position + 5 + 1);
  EXPECT_DOUBLE_EQ(page.Face(page.Run(u"MALL")).size, 8);
}

TEST(DrawnLines, WriteLightOnDarkWhereTheColourIsLeftToTheBackground) {
  Document document(InParagraph(Typed("dark"), "<w:shd w:val=\"clear\" w:fill=\"000080\"/>"));
  const Drawn page(document);
  ASSERT_EQ(page.Display().fills.size(), 1U);
  EXPECT_EQ(page.Display().fills[0].color, 0x000080);
  EXPECT_EQ(page.Run(u"dark").color, 0xFFFFFF);
}

TEST(DrawnLines, RunFromTheRightWhereTheScriptDoes) {
  Document document(InParagraph(Typed("\xD7\x90\xD7\x91\xD7\x92"), "<w:bidi/>"));
  const Drawn page(document);
  const page::Run& run = page.Run(u"\u05D0");
  EXPECT_TRUE(run.rightToLeft);
  ASSERT_EQ(run.edges.size(), 4U);
  EXPECT_NEAR(run.edges.front(), kRight, kNear);
  EXPECT_LT(run.edges.back(), run.edges.front());
}

TEST(DrawnLines, StandInTheBoxOfTheirParagraphs) {
  const std::string box =
      "<w:pBdr><w:top w:val=\"single\" w:sz=\"8\" w:space=\"1\"/><w:left w:val=\"single\" w:sz=\"8\" w:space=\"4\"/>"
      "<w:bottom w:val=\"double\" w:sz=\"8\" w:space=\"1\" w:color=\"FF0000\"/>"
      "<w:right w:val=\"single\" w:sz=\"8\" w:space=\"4\"/></w:pBdr>";
  Document document(InParagraph(Typed("one"), box) + InParagraph(Typed("two"), box));
  const Drawn page(document);
  const std::vector<page::Rule>& rules = page.Display().rules;
  ASSERT_EQ(rules.size(), 4U) << "one box around both";
  const page::Rule& left = rules[0];
  EXPECT_NEAR(left.x, kLeft - 4, kNear);
  EXPECT_NEAR(left.y, page.Line(u"one").area.y, kNear);
  EXPECT_NEAR(left.toY, page.Line(u"two").area.Bottom(), kNear);
  const page::Rule& bottom = rules[3];
  EXPECT_EQ(bottom.stroke, page::Stroke::kDouble);
  EXPECT_EQ(bottom.color, 0xFF0000);
  EXPECT_NEAR(bottom.y, left.toY, kNear);
}

}  // namespace
