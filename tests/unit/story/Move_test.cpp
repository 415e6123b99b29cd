#include <gtest/gtest.h>

#include "tests/unit/story/StoryFixture.h"

namespace {

const docx::Story::TrackedMove kTracked{{7, "Kelvarin", "2026-01-02T03:04:05Z"},
                                        {8, "Kelvarin", "2026-01-02T03:04:05Z"}};

std::string Run(const std::string& text, const std::string& properties = "") {
  return "<w:r>" + (properties.empty() ? "" : "<w:rPr>" + properties + "</w:rPr>") + "<w:t xml:space=\"preserve\">" +
         text + "</w:t></w:r>";
}

std::string Paragraph(const std::string& content) { return "<w:p>" + content + "</w:p>"; }

TEST(MovedCharacter, StaysInItsRunWhereOneRunHoldsAll) {
  StoryFixture f("<w:p><w:r><w:t>(the Bank) says</w:t></w:r></w:p>");
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), "<w:p><w:r><w:t>the (Bank) says</w:t></w:r></w:p>");
  f.ExpectFresh();
}

TEST(MovedCharacter, KeepsItsFormattingAndLeavesThatOfTheTextBetween) {
  StoryFixture f(Paragraph(Run("(", "<w:i/>") + Run("the ") + Run("Bank", "<w:b/>") + Run(") says")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(Run("the ") + Run("(", "<w:i/>") + Run("Bank", "<w:b/>") + Run(") says")));
  f.ExpectFresh();
}

TEST(MovedCharacter, JoinsRunsOfItsOwnFormatting) {
  StoryFixture f(Paragraph(Run("see (") + Run("the ", "<w:i/>") + Run("Bank) says")));
  f.story->MoveCharacter(4, 9, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(Run("see ") + Run("the ", "<w:i/>") + Run("(Bank) says")));
  f.ExpectFresh();
}

TEST(MovedCharacter, StandsBeforeABookmarkThatBeginsThere) {
  const std::string bookmarked =
      "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + Run("Bank") + "<w:bookmarkEnd w:id=\"1\"/>";
  StoryFixture f(Paragraph(Run("(the ") + bookmarked + Run(")")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(Run("the (") + bookmarked + Run(")")));
  f.ExpectFresh();
}

TEST(MovedCharacter, LeavesABookmarkAroundTheWholeWhereItIs) {
  const std::string open = "<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>", close = "<w:bookmarkEnd w:id=\"1\"/>";
  StoryFixture f(Paragraph(open + Run("(the Bank)") + close));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(open + Run("the (Bank)") + close));
  f.ExpectFresh();
}

TEST(MovedCharacter, GoesOutOfALinkThatEndsBefore) {
  StoryFixture f(Paragraph("<w:hyperlink>" + Run("(the ") + "</w:hyperlink>" + Run("Bank")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Text(), "the (Bank\r");
  f.ExpectFresh();
}

TEST(MovedCharacter, LeavesNoEmptyRunOrLinkBehind) {
  StoryFixture f(Paragraph("<w:hyperlink>" + Run("(") + "</w:hyperlink>" + Run("the Bank", "<w:b/>")));
  f.story->MoveCharacter(0, 5, nullptr);
  EXPECT_EQ(f.Body(), Paragraph(Run("the ", "<w:b/>") + Run("(") + Run("Bank", "<w:b/>")));
}

TEST(MovedCharacter, TrackedIsOneDeletionAndOneInsertion) {
  StoryFixture f(Paragraph(Run("see (the ") + Run("Bank", "<w:b/>")));
  f.story->MoveCharacter(4, 9, &kTracked);
  const std::string stamp = " w:author=\"Kelvarin\" w:date=\"2026-01-02T03:04:05Z\">";
  EXPECT_EQ(f.Body(),
            Paragraph(Run("see ") + "<w:del w:id=\"7\"" + stamp +
                      "<w:r><w:delText xml:space=\"preserve\">(</w:delText></w:r></w:del>" + Run("the ") +
                      "<w:ins w:id=\"8\"" + stamp + "<w:r><w:t>(</w:t></w:r></w:ins>" + Run("Bank", "<w:b/>")));
  EXPECT_EQ(f.Text(), "see (the (Bank\r");
  EXPECT_TRUE(f.story->HasRevisions());
  EXPECT_TRUE(f.story->Atoms().Get(f.story->Atoms().At(4)).deleted);
  f.ExpectFresh();
}

TEST(MovedCharacter, TrackedInSomebodyElsesInsertionIsPutWithoutOneOfItsOwn) {
  StoryFixture f(Paragraph("<w:ins w:id=\"1\" w:author=\"A\">" + Run("(the Bank") + "</w:ins>"));
  f.story->MoveCharacter(0, 5, &kTracked);
  const std::string body = f.Body();
  EXPECT_EQ(body.find("<w:ins", body.find("<w:ins") + 1), std::string::npos);
  EXPECT_NE(body.find("<w:del w:id=\"7\""), std::string::npos);
  EXPECT_EQ(f.Text(), "(the (Bank\r");
  f.ExpectFresh();
}

}  // namespace
