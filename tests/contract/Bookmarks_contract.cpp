#include "DocxDocument.h"
#include "Markup.h"

#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

constexpr int kPrimaryHeader = 7;
const std::string kHasHeader = "<w:headerReference w:type=\"default\" r:id=\"rId3\"/>";

std::string Marked(int id, const std::string& name, const std::string& text) {
  const std::string number = "w:id=\"" + std::to_string(id) + "\"";
  return "<w:bookmarkStart " + number + " w:name=\"" + name + "\"/>" + TextRun(text) + "<w:bookmarkEnd " + number +
         "/>";
}

std::string TextBox(const std::string& shown, const std::string& passedOver) {
  const auto box = [](const std::string& content) {
    return "<w:pict><w:txbxContent>" + Paragraph(content) + "</w:txbxContent></w:pict>";
  };
  return "<w:r><mc:AlternateContent xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">"
         "<mc:Choice Requires=\"wps\">" +
         box(shown) + "</mc:Choice><mc:Fallback>" + box(passedOver) + "</mc:Fallback></mc:AlternateContent></w:r>";
}

/// Of all elements that begin a bookmark in a part.
std::vector<int> Ids(const DocxDocument& document, const std::string& part) {
  const std::string xml = document.Part(part);
  const std::regex start("<w:bookmarkStart[^>]* w:id=\"(\\d+)\"");
  std::vector<int> ids;
  for (std::sregex_iterator match(xml.begin(), xml.end(), start); match != std::sregex_iterator(); ++match) {
    ids.push_back(std::stoi((*match)[1]));
  }
  std::sort(ids.begin(), ids.end());
  return ids;
}

void Add(const DocxDocument& document, const char16_t* name) {
  document.Document()->Bookmarks()->Add(name, document.Document()->Range(0, 1));
}

TEST(Bookmarks, OfTextBoxesAndHeadersBelongToTheDocument) {
  const DocxDocument document(
      {.body = Paragraph(Marked(0, "text", "The Buyer") + TextBox(Marked(1, "Box", "in box"), "")),
       .section = kHasHeader,
       .header = Paragraph(TextRun("the ") + Marked(2, "head", "head"))});
  const word::BookmarksPtr bookmarks = document.Document()->Bookmarks();
  ASSERT_EQ(bookmarks->Count(), 3);
  EXPECT_EQ(bookmarks->Item(1)->Name(), u"Box");
  EXPECT_EQ(bookmarks->Item(1)->Range()->StoryType(), word::wdTextFrameStory);
  EXPECT_EQ(bookmarks->Item(1)->Range()->Text(), u"in box");
  ASSERT_TRUE(bookmarks->Exists(u"HEAD"));
  EXPECT_EQ(static_cast<int>(bookmarks->Item(u"head")->Range()->StoryType()), kPrimaryHeader);
  EXPECT_EQ(bookmarks->Item(u"head")->Range()->Start(), 4);
  bookmarks->Item(u"head")->Delete();
  EXPECT_FALSE(bookmarks->Exists(u"head"));
  EXPECT_EQ(document.Part("word/header.xml").find("bookmark"), std::string::npos);
}

TEST(Bookmarks, OfOneNameTheOneInTheTextCounts) {
  const DocxDocument document(
      {.body = Paragraph(TextBox(Marked(1, "place", "box"), "") + TextRun("the ") + Marked(0, "place", "text")),
       .section = kHasHeader,
       .header = Paragraph(Marked(2, "place", "head"))});
  EXPECT_EQ(document.Document()->Bookmarks()->Count(), 1);
  EXPECT_EQ(document.Document()->Bookmarks()->Item(u"place")->Range()->Text(), u"text");
}

TEST(Bookmarks, HaveNumbersThatNoOtherHasWhereverItStands) {
  const DocxDocument document(
      {.body = Paragraph(TextRun("The ") + TextBox(Marked(1, "box", "in box"), Marked(3, "passed", "in box")) +
                         TextRun("Buyer")),
       .footnotes = "<w:footnote w:id=\"2\">" + Paragraph("") + "</w:footnote>",
       .section = kHasHeader,
       .header = Paragraph(Marked(2, "head", "head"))});
  Add(document, u"first");
  Add(document, u"second");
  EXPECT_EQ(Ids(document, "word/document.xml"), (std::vector<int>{0, 1, 3, 4}));
}

TEST(Bookmarks, LeaveTheirNumbersOnlyWhereNoOtherHasThem) {
  const DocxDocument document({.body = Paragraph(Marked(0, "text", "The Buyer")),
                               .section = kHasHeader,
                               .header = Paragraph(Marked(0, "head", "head"))});
  Add(document, u"first");
  document.Document()->Bookmarks()->Item(u"text")->Delete();
  Add(document, u"second");
  EXPECT_EQ(Ids(document, "word/document.xml"), (std::vector<int>{1, 2}));
  document.Document()->Bookmarks()->Item(u"head")->Delete();
  Add(document, u"third");
  EXPECT_EQ(Ids(document, "word/document.xml"), (std::vector<int>{0, 1, 2}));
}

TEST(Bookmarks, MayTakeInTheLastParagraphMarkAndThatOfARow) {
  const DocxDocument document({.body = "<w:tbl><w:tblPr/><w:tblGrid/><w:tr><w:tc>" + Paragraph(TextRun("cell")) +
                                       "</w:tc></w:tr></w:tbl>" + Paragraph(TextRun("The Buyer"))});
  const std::map<std::string, std::string> before = document.Canonical();
  const word::BookmarksPtr bookmarks = document.Document()->Bookmarks();
  const int length = document.Story()->StoryLength();
  bookmarks->Add(u"all", document.Document()->Range(0, length));
  EXPECT_EQ(bookmarks->Item(u"all")->Range()->End(), length - 1);
  bookmarks->Add(u"behind", document.Document()->Range(length, length));
  EXPECT_EQ(bookmarks->Item(u"behind")->Range()->Start(), length - 1);
  // The cell with its mark, as far as that of the row.
  bookmarks->Add(u"cell", document.Document()->Range(0, 5));
  EXPECT_EQ(bookmarks->Item(u"cell")->Range()->End(), 4);
  for (const char16_t* name : {u"all", u"behind", u"cell"}) bookmarks->Item(name)->Delete();
  EXPECT_EQ(document.Canonical(), before);
}

TEST(Bookmarks, ThatCannotBeAddedLeaveNothingBehind) {
  const DocxDocument document({.body = Paragraph(TextRun("The Buyer \xF0\x9F\x98\x80."))});
  const std::map<std::string, std::string> before = document.Canonical();
  const word::BookmarksPtr bookmarks = document.Document()->Bookmarks();
  EXPECT_THROW(bookmarks->Add(u"half", document.Document()->Range(2, 11)), word::HostError);
  EXPECT_FALSE(bookmarks->Exists(u"half"));
  EXPECT_EQ(document.Canonical(), before);
}

TEST(Bookmarks, InTheCodeOfASimpleFieldBeginAndEndBehindTheCode) {
  const DocxDocument document(
      {.body = Paragraph(TextRun("The ") + SimpleField(" TITLE ", TextRun("Title")) + TextRun("."))});
  const std::map<std::string, std::string> before = document.Canonical();
  const word::BookmarksPtr bookmarks = document.Document()->Bookmarks();
  bookmarks->Add(u"place", document.Document()->Range(7, 7));
  EXPECT_EQ(bookmarks->Item(u"place")->Range()->Start(), static_cast<int>(document.Text().find(u"Title")));
  bookmarks->Add(u"both", document.Document()->Range(2, 7));
  EXPECT_EQ(bookmarks->Item(u"both")->Range()->Start(), 2);
  EXPECT_EQ(bookmarks->Item(u"both")->Range()->End(), static_cast<int>(document.Text().find(u"Title")));
  for (const char16_t* name : {u"place", u"both"}) bookmarks->Item(name)->Delete();
  EXPECT_EQ(document.Canonical(), before);
}

}  // namespace
