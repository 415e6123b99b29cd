#include "hosts/docx/story/Story.h"

#include <gtest/gtest.h>

#include "tests/unit/story/StoryFixture.h"

namespace {

std::string P(const std::string& content) { return "<w:p>" + content + "</w:p>"; }
std::string R(const std::string& text) { return "<w:r><w:t>" + text + "</w:t></w:r>"; }
std::string Bold(const std::string& text) { return "<w:r><w:rPr><w:b/></w:rPr><w:t>" + text + "</w:t></w:r>"; }

TEST(Story, CountsMarksAndSpecialCharactersAsWordDoes) {
  const StoryFixture f(
      P("<w:r><w:t>a</w:t><w:tab/><w:br/><w:noBreakHyphen/><w:softHyphen/><w:br w:type=\"page\"/>"
        "<w:br w:type=\"column\"/><w:sym w:font=\"Wingdings\" w:char=\"F04A\"/>"
        "<w:footnoteReference w:id=\"2\"/></w:r>"));
  EXPECT_EQ(f.story->Text(0, f.story->Length()), u"a\t\v\x1e\x1f\f\x0e(\x02\r");
}

TEST(Story, ACellEndsInOneCharacterAndARowInAnother) {
  const StoryFixture f("<w:tbl><w:tr><w:tc>" + P(R("a")) + P(R("b")) + "</w:tc><w:tc>" + P("") +
                       "</w:tc></w:tr></w:tbl>" + P(""));
  EXPECT_EQ(f.story->Text(0, f.story->Length()), u"a\rb\x07\x07\x07\r");
}

TEST(Story, ANestedTableEndsBeforeTheCellAroundItDoes) {
  const std::string inner = "<w:tbl><w:tr><w:tc>" + P(R("in")) + "</w:tc></w:tr></w:tbl>";
  const StoryFixture f("<w:tbl><w:tr><w:tc>" + inner + P("") + "</w:tc></w:tr></w:tbl>" + P(""));
  EXPECT_EQ(f.story->Text(0, f.story->Length()), u"in\x07\x07\x07\x07\r");
}

TEST(Story, AFieldHasItsMarksAndItsCode) {
  const StoryFixture complex(
      P("<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText> PAGE </w:instrText></w:r>"
        "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
        R("3") + "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>"));
  const StoryFixture simple(P("<w:fldSimple w:instr=\"PAGE\">" + R("3") + "</w:fldSimple>"));
  EXPECT_EQ(complex.story->Text(0, complex.story->Length()),
            u"\x13PAGE\x14"
            u"3\x15\r");
  EXPECT_EQ(simple.story->Text(0, simple.story->Length()),
            u"\x13PAGE\x14"
            u"3\x15\r");
}

TEST(Story, ASectionEndsInThePageBreakCharacter) {
  const StoryFixture f(P("<w:pPr><w:sectPr/></w:pPr>" + R("a")) + P(""));
  EXPECT_EQ(f.story->Text(0, f.story->Length()), u"a\f\r");
}

TEST(Story, TextInHyperlinksControlsTagsAndInsertionsIsText) {
  const StoryFixture f(P("<w:hyperlink>" + R("a") + "</w:hyperlink><w:sdt><w:sdtContent>" + R("b") +
                         "</w:sdtContent></w:sdt><w:smartTag>" + R("c") + "</w:smartTag><w:ins>" + R("d") +
                         "</w:ins>"));
  EXPECT_EQ(f.Text(), "abcd\r");
}

TEST(Story, TrackedDeletionsAreInTheStoryAndMarked) {
  const StoryFixture f(P(R("a") + "<w:del><w:r><w:delText>gone</w:delText></w:r></w:del>"));
  EXPECT_EQ(f.Text(), "agone\r");
  EXPECT_TRUE(f.story->Atoms().Get(f.story->Atoms().At(2)).deleted);
}

TEST(Story, ATextBoxIsNotInTheStoryThatHoldsIt) {
  const std::string mc = " xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\"";
  const StoryFixture f(P("<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\"><w:drawing/></mc:Choice><mc:Fallback>"
                         "<w:pict><w:txbxContent>" +
                         P(R("box")) +
                         "</w:txbxContent></w:pict></mc:Fallback>"
                         "</mc:AlternateContent></w:r>" +
                         R("a")),
                       mc);
  EXPECT_EQ(f.story->Text(0, f.story->Length()),
            u"\x01"
            u"a\r");
}

TEST(Story, AnyPrefixOfTheNamespaceIsUnderstood) {
  auto part = std::make_shared<docx::XmlPart>(
      "document.xml",
      "<x:document "
      "xmlns:x=\"http://purl.oclc.org/ooxml/wordprocessingml/main\"><x:body><x:p><x:r><x:t>a</x:t></x:r></x:p>"
      "</x:body></x:document>");
  docx::Story story(part, 1, {part->Child(part->Root(), docx::Tag::kBody)});
  story.InsertText(1, u"b");
  EXPECT_EQ(story.Text(0, 3), u"ab\r");
  EXPECT_NE(part->Serialize().find("<x:t>b</x:t>"), std::string::npos);
}

TEST(Story, BlanksAtATextsEdgesCountOnlyWhenTheyArePreserved) {
  const StoryFixture f(P("<w:r><w:t> a </w:t></w:r><w:r><w:t xml:space=\"preserve\"> b </w:t></w:r>"));
  EXPECT_EQ(f.Text(), "a b \r");
}

TEST(Story, AFieldPutIntoARunLeavesNoTraceWhenItIsErased) {
  StoryFixture f(P(Bold("the Lender means")));
  const docx::Position length = f.story->InsertField(10, u" XE \"Lender\" ");
  EXPECT_EQ(f.story->Text(0, f.story->Length()), u"the Lender\x13 XE \"Lender\" \x15 means\r");
  f.ExpectFresh();
  f.story->Erase(10, 10 + length);
  EXPECT_EQ(f.Body(), f.before);
  f.ExpectFresh();
}

TEST(Story, EqualRunsThatWereApartStayApart) {
  StoryFixture f(P(R("the Lender") + R("means")));
  const docx::Position length = f.story->InsertField(10, u" XE \"Lender\" ");
  f.story->Erase(10, 10 + length);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, IsolatedRunsJoinAgainWhenTheyAreEqualAgain) {
  StoryFixture f(P("<w:r w:rsidR=\"00AA\"><w:t>the Lender means</w:t></w:r>"));
  EXPECT_EQ(f.story->IsolateRuns(4, 10).size(), 1u);
  f.ExpectFresh();
  EXPECT_NE(f.Body(), f.before);
  f.story->RejoinRuns(4, 10);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, ATextThatPreservedItsBlanksStillDoesAfterItWasDivided) {
  StoryFixture f(P("<w:r><w:t xml:space=\"preserve\">the Lender means</w:t></w:r>"));
  f.story->IsolateRuns(4, 10);
  f.story->RejoinRuns(4, 10);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, AParagraphMarkInsertedAndErasedLeavesTheParagraphAsItWas) {
  StoryFixture f(P("<w:pPr><w:jc w:val=\"both\"/></w:pPr>" + R("one two")));
  f.story->InsertText(4, u"\r");
  EXPECT_EQ(f.Text(), "one \rtwo\r");
  EXPECT_EQ(std::string(f.Node().FirstChild().FirstChild().FirstChild().Name()), "w:jc");
  f.ExpectFresh();
  f.story->Erase(4, 5);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, InsertedTextTakesTheFormattingOfTheCharacterBeforeIt) {
  StoryFixture f(P(Bold("a") + R("b")));
  f.story->InsertText(1, u"X");
  EXPECT_EQ(f.Body(), P(Bold("a") + Bold("X") + R("b")));
  f.ExpectFresh();
}

TEST(Story, ErasingAcrossParagraphsKeepsTheLastOnesProperties) {
  StoryFixture f(P("<w:pPr><w:jc w:val=\"left\"/></w:pPr>" + R("abc")) + P(R("x")) +
                 P("<w:pPr><w:jc w:val=\"right\"/></w:pPr>" + R("def")));
  f.story->Erase(2, 7);
  EXPECT_EQ(f.Text(), "abef\r");
  EXPECT_EQ(f.Body(), P("<w:pPr><w:jc w:val=\"right\"/></w:pPr>" + R("abef")));
  f.ExpectFresh();
}

TEST(Story, TheLastMarkOfACellCannotBeErased) {
  StoryFixture f("<w:tbl><w:tr><w:tc>" + P(R("ab")) + "</w:tc></w:tr></w:tbl>" + P(R("c")));
  f.story->Erase(1, 4);
  EXPECT_EQ(f.story->Text(0, f.story->Length()),
            u"a\x07\x07"
            u"c\r");
  f.ExpectFresh();
}

TEST(Story, TrackedDeletionsAreNeverErased) {
  StoryFixture f(P(R("a") + "<w:del><w:r><w:delText>x</w:delText></w:r></w:del>" + R("b")));
  f.story->Erase(0, 3);
  EXPECT_EQ(f.Text(), "x\r");
  f.ExpectFresh();
}

TEST(Story, WhatIsInsertedBehindADeletionIsNoPartOfIt) {
  StoryFixture f(P(R("a") + "<w:del><w:r><w:delText>xy</w:delText></w:r></w:del>" + R("b")));
  f.story->InsertText(2, u"N");
  EXPECT_EQ(f.Text(), "axNyb\r");
  EXPECT_FALSE(f.story->Atoms().Get(f.story->Atoms().At(2)).deleted);
  f.ExpectFresh();
}

TEST(Story, WhatIsInsertedBehindTheLastOfAHyperlinkIsNoPartOfIt) {
  StoryFixture f(P("<w:hyperlink>" + R("link") + "</w:hyperlink>" + R("b")));
  f.story->InsertText(4, u"N");
  EXPECT_EQ(f.Body(), P("<w:hyperlink>" + R("link") + "</w:hyperlink>" + R("N") + R("b")));
  f.ExpectFresh();
}

TEST(Story, WhatIsInsertedBehindTheLastOfASimpleFieldStaysBeforeItsEnd) {
  StoryFixture f(P("<w:fldSimple w:instr=\"PAGE\">" + R("3") + "</w:fldSimple>"));
  f.story->InsertText(7, u"N");
  EXPECT_EQ(f.Text(),
            "\x13PAGE\x14"
            "3N\x15\r");
  f.ExpectFresh();
}

TEST(Story, AParagraphMarkAtTheEndOfAControlLeavesTheControlWhole) {
  StoryFixture f(P("<w:sdt><w:sdtContent>" + R("in") + "\n</w:sdtContent></w:sdt>"));
  f.story->InsertText(2, u"\r");
  f.ExpectFresh();
  f.story->Erase(2, 3);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, ABookmarkGoesWithItsWholeText) {
  StoryFixture f(
      P(R("ab") + "<w:bookmarkStart w:id=\"1\" w:name=\"B\"/>" + R("cd") + "<w:bookmarkEnd w:id=\"1\"/>" + R("ef")));
  f.story->Erase(3, 4);
  EXPECT_EQ(StoryFixture::Bookmarks(*f.story), "(2#1 )3#1 ");
  f.story->Erase(2, 3);
  EXPECT_EQ(StoryFixture::Bookmarks(*f.story), "");
  f.ExpectFresh();
}

TEST(Story, TextAtABookmarksStartGoesInsideAndAtItsEndOutside) {
  StoryFixture f(
      P(R("ab") + "<w:bookmarkStart w:id=\"1\" w:name=\"B\"/>" + R("cd") + "<w:bookmarkEnd w:id=\"1\"/>" + R("ef")));
  f.story->InsertText(4, u"X");
  f.story->InsertText(2, u"Y");
  EXPECT_EQ(f.Text(), "abYcdXef\r");
  EXPECT_EQ(StoryFixture::Bookmarks(*f.story), "(2#1 )5#1 ");
  f.ExpectFresh();
}

TEST(Story, ABookmarkAddedAndRemovedLeavesTheRunWhole) {
  StoryFixture f(P(R("the Lender means")));
  const auto elements = f.story->InsertBookmark(4, 10, "B", 7);
  EXPECT_EQ(StoryFixture::Bookmarks(*f.story), "(4#7 )10#7 ");
  f.ExpectFresh();
  f.story->RemoveBookmark(elements.first, elements.last);
  EXPECT_EQ(f.Body(), f.before);
}

TEST(Story, AnchorsFollowEdits) {
  StoryFixture f(P(R("0123456789")));
  docx::Anchor inner(*f.story, 4, 6);
  docx::Anchor empty(*f.story, 4, 4);
  f.story->InsertText(2, u"ab");
  EXPECT_EQ(inner.start, 6);
  EXPECT_EQ(inner.end, 8);
  f.story->InsertText(6, u"c");
  EXPECT_EQ(inner.start, 7);
  EXPECT_EQ(inner.end, 9);
  EXPECT_EQ(empty.start, 6);
  f.story->InsertText(9, u"d");
  EXPECT_EQ(inner.end, 9);
  f.story->Erase(8, 12);
  EXPECT_EQ(inner.start, 7);
  EXPECT_EQ(inner.end, 8);
  f.story->Erase(0, 9);
  EXPECT_EQ(inner.start, 0);
  EXPECT_EQ(inner.end, 0);
}

TEST(Story, ASimpleFieldGoesWhole) {
  StoryFixture f(P(R("a") + "<w:fldSimple w:instr=\"PAGE\">" + R("3") + "</w:fldSimple>" + R("b")));
  f.story->Erase(1, 9);
  EXPECT_EQ(f.Body(), P(R("ab")));
  f.ExpectFresh();
}

TEST(Story, ASimpleFieldBecomesAComplexOneInItsPlace) {
  StoryFixture f(P(R("a") +
                   "<w:bookmarkStart w:id=\"1\" w:name=\"x\"/><w:fldSimple w:instr=\"A&#9;B\" w:fldLock=\"1\">"
                   "<w:fldData>AA</w:fldData>" +
                   R("3") + "<w:bookmarkStart w:id=\"2\" w:name=\"y\"/>" + R("4") +
                   "<w:bookmarkEnd w:id=\"2\"/></w:fldSimple><w:bookmarkEnd w:id=\"1\"/>" + R("b")));
  const std::string text = f.Text();
  docx::Anchor inside(*f.story, 6, 7);
  f.story->ResolveSimpleField(1);
  EXPECT_EQ(f.Text(), text);
  EXPECT_EQ(
      f.Body(),
      P(R("a") +
        "<w:bookmarkStart w:id=\"1\" w:name=\"x\"/><w:r><w:fldChar w:fldCharType=\"begin\" w:fldLock=\"1\"/></w:r>"
        "<w:r><w:instrText>A</w:instrText><w:tab/><w:instrText>B</w:instrText></w:r>"
        "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>" +
        R("3") + "<w:bookmarkStart w:id=\"2\" w:name=\"y\"/>" + R("4") +
        "<w:bookmarkEnd w:id=\"2\"/><w:r><w:fldChar w:fldCharType=\"end\"/></w:r>"
        "<w:bookmarkEnd w:id=\"1\"/>" +
        R("b")));
  EXPECT_EQ(inside.start, 6);
  EXPECT_EQ(inside.end, 7);
  f.ExpectFresh();
  f.story->ResolveSimpleField(1);
  EXPECT_EQ(f.Text(), text);
  f.story->Erase(1, 9);
  EXPECT_EQ(f.Text(), "ab\r");
  f.ExpectFresh();
}

TEST(Story, SurrogatePairsAreNotDivided) {
  StoryFixture f(P(R("a\xF0\x9D\x94\xB8z")));
  f.story->InsertText(3, u"-");
  EXPECT_EQ(f.Text(), "a\xF0\x9D\x94\xB8-z\r");
  f.ExpectFresh();
}

}  // namespace
