#include <gtest/gtest.h>

#include "tests/unit/story/StoryFixture.h"

namespace {

const docx::Story::TrackedMove kTracked{{7, "Kelvarin", "2026-01-02T03:04:05Z"},
                                        {8, "Kelvarin", "2026-01-02T03:04:05Z"}};

/// With blanks preserved where there are any to preserve.
std::string TextRun(const std::string& text, const std::string& properties = "") {
  const bool blanks = text.front() == ' ' || text.back() == ' ';
  return "<w:r>" + (properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>") +
         (blanks ? "<w:t xml:space=\"preserve\">" : "<w:t>") + text + "</w:t></w:r>";
}

std::string Paragraph(const std::string& content) { return "<w:p>" + content + "</w:p>"; }

TEST(MovedCharacter, StaysInItsRunWhereOneRunHoldsAll) {
  StoryFixture f("<w:p><w:r><w:t>(the Bank) says</w:t></w:r></w:p>");
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), "<w:p><w:r><w:t>the (Bank) says</w:t></w:r></w:p>");
  f.ExpectFresh();
}

TEST(MovedCharacter, KeepsItsFormattingAndLeavesThatOfTheTextBetween) {
  StoryFixture f(Paragraph(TextRun("(", "<w:i/>") + TextRun("the ") + TextRun("Bank", "<w:b/>") + TextRun(") says")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(),
            Paragraph(TextRun("the ") + TextRun("(", "<w:i/>") + TextRun("Bank", "<w:b/>") + TextRun(") says")));
  f.ExpectFresh();
}

TEST(MovedCharacter, JoinsRunsOfItsOwnFormatting) {
  StoryFixture f(Paragraph(TextRun("see (") + TextRun("the ", "<w:i/>") + TextRun("Bank) says")));
  f.story->MoveCharacter(4, 9, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(TextRun("see ") + TextRun("the ", "<w:i/>") + TextRun("(Bank) says")));
  f.ExpectFresh();
}

TEST(MovedCharacter, StandsBeforeABookmarkThatBeginsThere) {
  const std::string bookmarked =
      "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + TextRun("Bank") + "<w:bookmarkEnd w:id=\"1\"/>";
  StoryFixture f(Paragraph(TextRun("(the ") + bookmarked + TextRun(")")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(TextRun("the (") + bookmarked + TextRun(")")));
  f.ExpectFresh();
}

TEST(MovedCharacter, LeavesABookmarkAroundTheWholeWhereItIs) {
  const std::string open = "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>", close = "<w:bookmarkEnd w:id=\"1\"/>";
  StoryFixture f(Paragraph(open + TextRun("(the Bank)") + close));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(open + TextRun("the (Bank)") + close));
  f.ExpectFresh();
}

TEST(MovedCharacter, TakesABookmarkAroundItselfAlong) {
  const std::string start = "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>", end = "<w:bookmarkEnd w:id=\"1\"/>";
  const std::string next = "<w:bookmarkStart w:id=\"2\" w:name=\"n\"/>", nextEnd = "<w:bookmarkEnd w:id=\"2\"/>";
  StoryFixture f(Paragraph(TextRun("see ", "<w:b/>") + start + TextRun("(", "<w:i/>") + end + TextRun("the ") + next +
                           TextRun("Bank") + nextEnd));
  f.story->MoveCharacter(4, 9, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(TextRun("see ", "<w:b/>") + TextRun("the ") + start + TextRun("(", "<w:i/>") + next +
                                end + TextRun("Bank") + nextEnd));
  f.ExpectFresh();
}

TEST(MovedCharacter, LeavesBookmarksBesideItInItsRunWhereTheyAre) {
  const std::string empty = "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/><w:bookmarkEnd w:id=\"1\"/>";
  StoryFixture f(Paragraph(empty + TextRun("see (the Bank")));
  f.story->MoveCharacter(4, 9, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(empty + TextRun("see the (Bank")));
  f.ExpectFresh();
}

TEST(MovedCharacter, GoesOutOfALinkThatEndsBefore) {
  StoryFixture f(Paragraph("<w:hyperlink>" + TextRun("(the ") + "</w:hyperlink>" + TextRun("Bank")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Text(), "the (Bank\r");
  f.ExpectFresh();
}

TEST(MovedCharacter, LeavesNoEmptyRunOrLinkBehind) {
  StoryFixture f(Paragraph("<w:hyperlink>" + TextRun("(") + "</w:hyperlink>" + TextRun("the Bank", "<w:b/>")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(TextRun("the ", "<w:b/>") + TextRun("(") + TextRun("Bank", "<w:b/>")));
}

TEST(MovedCharacter, TrackedIsOneDeletionAndOneInsertion) {
  StoryFixture f(Paragraph(TextRun("see (the ") + TextRun("Bank", "<w:b/>")));
  f.story->MoveCharacter(4, 9, &kTracked);
  const std::string stamp = " w:author=\"Kelvarin\" w:date=\"2026-01-02T03:04:05Z\">";
  EXPECT_EQ(f.Body(), Paragraph(TextRun("see ") + "<w:del w:id=\"7\"" + stamp +
                                "<w:r><w:delText>(</w:delText></w:r></w:del>" + TextRun("the ") + "<w:ins w:id=\"8\"" +
                                stamp + "<w:r><w:t>(</w:t></w:r></w:ins>" + TextRun("Bank", "<w:b/>")));
  EXPECT_EQ(f.Text(), "see (the (Bank\r");
  EXPECT_TRUE(f.story->HasRevisions());
  EXPECT_TRUE(f.story->Atoms().Get(f.story->Atoms().At(4)).deleted);
  f.ExpectFresh();
}

TEST(MovedCharacter, TrackedInSomebodyElsesInsertionIsPutWithoutOneOfItsOwn) {
  StoryFixture f(Paragraph("<w:ins w:id=\"1\" w:author=\"A\">" + TextRun("(the Bank") + "</w:ins>"));
  f.story->MoveCharacter(0, 5, &kTracked);
  const std::string body = f.Body();
  EXPECT_EQ(body.find("<w:ins", body.find("<w:ins") + 1), std::string::npos);
  EXPECT_NE(body.find("<w:del w:id=\"7\""), std::string::npos);
  EXPECT_EQ(f.Text(), "(the (Bank\r");
  f.ExpectFresh();
}

}  // namespace
