#include "DocxDocument.h"

#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Find.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

std::string TextRun(const std::string& text) { return "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>"; }
std::string Paragraph(const std::string& content) { return "<w:p>" + content + "</w:p>"; }
std::string FieldMark(const std::string& type) { return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>"; }
std::string Field(const std::string& code) {
  return FieldMark("begin") + "<w:r><w:instrText xml:space=\"preserve\"> " + code + " </w:instrText></w:r>" +
         FieldMark("end");
}
std::string Entry(const std::string& text, const std::string& more = {}) { return Field("XE \"" + text + "\"" + more); }
std::string Sequence(const std::string& name, const std::string& number) {
  return FieldMark("begin") + "<w:r><w:instrText> SEQ " + name + " </w:instrText></w:r>" + FieldMark("separate") +
         TextRun(number) + FieldMark("end");
}
std::string Bookmark(const std::string& name, const std::string& content) {
  return "<w:bookmarkStart w:id=\"1\" w:name=\"" + name + "\"/>" + content + "<w:bookmarkEnd w:id=\"1\"/>";
}
const std::string kPageBreak = "<w:r><w:br w:type=\"page\"/></w:r>";

/// Documents of an author's own entries, with an index at their end.
class IndexFieldOnDocx : public testing::Test {
 protected:
  void Open(const std::string& content, const std::string& switches) {
    docx_.emplace(DocxDocument::Parts{.body = Paragraph(content) + Paragraph(Field("INDEX " + switches))});
  }

  /// The index's text after it was brought up to date.
  std::u16string Updated() {
    const word::FieldsPtr fields = docx_->Document()->Fields();
    const word::FieldPtr index = fields->Item(fields->Count());
    EXPECT_TRUE(index->Update());
    return index->Result()->Text();
  }

  std::optional<DocxDocument> docx_;
};

TEST_F(IndexFieldOnDocx, ABookmarkLimitsTheEntries) {
  const std::string content =
      Entry("Before") + Bookmark("Part", TextRun("x") + Entry("Inside") + TextRun("y")) + Entry("After");
  Open(content, "\\b Part");
  EXPECT_EQ(Updated(), u"Inside, 1\r");
  Open(content, "\\b Missing");
  EXPECT_EQ(Updated(), u"No index entries found.\r");
}

TEST_F(IndexFieldOnDocx, OfBookmarksThatShareAnIdTheLastBeforeTheEndMarkCounts) {
  const std::string lost = "<w:bookmarkStart w:id=\"1\" w:name=\"Lost\"/>";
  Open(lost + Entry("Before") + Bookmark("Part", Entry("Inside")), "\\b Part");
  EXPECT_EQ(Updated(), u"Inside, 1\r");
  EXPECT_FALSE(docx_->Document()->Bookmarks()->Exists(u"Lost"));
}

TEST_F(IndexFieldOnDocx, AnEndMarkDoesNotEndABookmarkOfTheSameNameThatBeganLater) {
  const std::string later = "<w:bookmarkStart w:id=\"2\" w:name=\"Part\"/>";
  Open(Bookmark("Part", Entry("Inside") + later) + Entry("After"), "");
  EXPECT_EQ(Updated(), u"After, 1\rInside, 1\r");
  EXPECT_FALSE(docx_->Document()->Bookmarks()->Exists(u"Part"));
}

TEST_F(IndexFieldOnDocx, AnEntryForABookmarkHasItsPages) {
  const std::string content = Entry("Whole", " \\r Part") + Entry("Lost", " \\r Missing") + kPageBreak +
                              Bookmark("Part", TextRun("x") + kPageBreak + kPageBreak + TextRun("y"));
  Open(content, "");
  EXPECT_EQ(Updated(), u"Lost, 1\rWhole, 2\u20134\r");
}

TEST_F(IndexFieldOnDocx, PagesArePrintedAsTheirSectionsNumberThem) {
  const auto section = [](const std::string& content, const std::string& numbers) {
    return "<w:p><w:pPr><w:sectPr><w:pgNumType" + numbers + "/></w:sectPr></w:pPr>" + content + "</w:p>";
  };
  docx_.emplace(DocxDocument::Parts{
      .body = section(Entry("A") + kPageBreak + Entry("B") + TextRun("x"), " w:fmt=\"lowerRoman\"") +
              section(Entry("A") + Entry("C"), " w:start=\"1\"") + section(Entry("B"), " w:fmt=\"upperRoman\"") +
              Paragraph(Field("INDEX")),
      .section = "<w:pgNumType w:fmt=\"upperLetter\" w:start=\"2\"/>"});
  EXPECT_EQ(Updated(), u"A, i, 1\rB, ii, II\rC, 1\r");
}

TEST_F(IndexFieldOnDocx, ASequencePrefixesThePages) {
  const std::string content = Entry("None") + Sequence("chapter", "1") + Entry("One") + Sequence("other", "7") +
                              Sequence("chapter", "2") + Entry("Two");
  Open(content, "\\s chapter");
  EXPECT_EQ(Updated(), u"None, 1\rOne, 1-1\rTwo, 2-1\r");
}

TEST_F(IndexFieldOnDocx, HeadingsHaveTheirStyleAndStayWithTheirEntries) {
  Open(Entry("Buyer") + Entry("Seller"), "\\h \"A\"");
  const auto before = docx_->Canonical();
  EXPECT_EQ(Updated(), u"B\rBuyer, 1\rS\rSeller, 1\r");
  const std::string body = docx_->Part("word/document.xml");
  EXPECT_NE(body.find("<w:pStyle w:val=\"IndexHeading\"/><w:keepNext/><w:tabs>"), std::string::npos) << body;
  const std::string styles = docx_->Part("word/styles.xml");
  EXPECT_NE(styles.find("<w:name w:val=\"index heading\"/>"), std::string::npos) << styles;
  EXPECT_NE(styles.find("<w:next w:val=\"Index1\"/>"), std::string::npos) << styles;
  // They go with the index.
  const word::FieldsPtr fields = docx_->Document()->Fields();
  fields->Item(fields->Count())->Delete();
  EXPECT_EQ(docx_->Canonical().at("word/styles.xml"), before.at("word/styles.xml"));
}

TEST_F(IndexFieldOnDocx, TheResultHasNothingOfTheFormatOfTheFieldsMarks) {
  const std::string colour = "<w:rPr><w:b/><w:color w:val=\"FF0000\"/></w:rPr>";
  const auto mark = [&](const std::string& type) {
    return "<w:r>" + colour + "<w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
  };
  for (const std::string columns : {"", " \\c \"2\""}) {
    const std::string index = mark("begin") + "<w:r><w:instrText>INDEX" + columns + "</w:instrText></w:r>" +
                              mark("separate") + TextRun("old") + mark("end");
    docx_.emplace(DocxDocument::Parts{.body = Paragraph(Entry("Buyer") + Entry("Seller")) + Paragraph(index)});
    Updated();
    const word::RangePtr result = docx_->Document()->Fields()->Item(3)->Result();
    const std::u16string text = result->Text();
    const auto term = static_cast<int>(text.find(u"Buyer"));
    ASSERT_GE(term, 0);
    for (const int at : {term, static_cast<int>(text.find(u"Seller"))}) {
      const word::FontPtr font = docx_->Document()->Range(result->Start() + at, result->Start() + at + 5)->Font();
      EXPECT_EQ(font->Bold(), 0) << columns;
      EXPECT_EQ(font->Color(), word::wdColorAutomatic) << columns;
    }
  }
}

TEST_F(IndexFieldOnDocx, ReplacingKeepsWhatTheSearchPassedOver) {
  for (const int replace : {word::wdReplaceOne, word::wdReplaceAll}) {
    Open(TextRun("The Len") + Entry("Author") + TextRun("der pays."), "");
    const word::RangePtr range = docx_->Story();
    const word::FindPtr find = range->Find();
    find->SetText(u"Lender");
    find->Replacement()->SetText(u"Bank");
    EXPECT_TRUE(find->Execute({.Replace = replace}));
    EXPECT_TRUE(docx_->Text().starts_with(u"The Bank\u0013 XE \"Author\" \u0015 pays.\r"));
  }
}

TEST_F(IndexFieldOnDocx, ReplacingAllFromACollapsedRangeGoesOnToTheEnd) {
  Open(TextRun("a b a b a"), "");
  const word::RangePtr range = docx_->Document()->Range(3, 3);
  const word::FindPtr find = range->Find();
  find->SetText(u"a");
  find->Replacement()->SetText(u"c");
  EXPECT_TRUE(find->Execute({.Replace = word::wdReplaceAll}));
  EXPECT_EQ(docx_->Text().substr(0, 10), u"a b c b c\r");
}

}  // namespace
