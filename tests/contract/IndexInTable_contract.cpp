#include "TermMarkerOnDocx.h"

namespace {

std::string Cell(const std::string& blocks) { return "<w:tc>" + blocks + "</w:tc>"; }
std::string Table(const std::string& cells) { return "<w:tbl><w:tr>" + cells + "</w:tr></w:tbl>"; }
std::string Index(const std::string& switches) { return Field(" INDEX \\f \"DefinedTermsIndex\" " + switches, "Old"); }
std::string Bookmarked(const std::string& content) {
  return "<w:bookmarkStart w:id=\"3\" w:name=\"DefinedTermsIndex\"/>" + content + "<w:bookmarkEnd w:id=\"3\"/>";
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

const std::string kTitlePage = "<w:pgNumType w:start=\"5\"/><w:titlePg/>";

/// Indexes that a person has put into a table, where no section can begin.
class IndexInTable : public TermMarkerOnDocx {
 protected:
  void OpenInCell(const std::string& content) {
    Open({.body = Paragraph(TextRun("one Lender")) +
                  Table(Cell(Paragraph(content)) + Cell(Paragraph(TextRun("beside")))) + Paragraph(TextRun("end")),
          .section = kTitlePage});
  }
  void ExpectOneSection() {
    const std::string xml = docx_->Part("word/document.xml");
    EXPECT_EQ(CountOf(xml, "<w:sectPr"), 1U) << xml;
    EXPECT_NE(xml.find("<w:sectPr>" + CanonicalSection() + "</w:sectPr></w:body>"), std::string::npos) << xml;
  }
  static std::string CanonicalSection() { return kTitlePage; }
};

TEST_F(IndexInTable, HasNoSectionOfItsOwnWhenItIsUpdated) {
  OpenInCell(EntryField(" XE \"Lender\" \\f \"DefinedTermsIndex\" ") + Bookmarked(Index("\\c \"2\"")));
  marker_->UpdateIndex(docx_->Document());
  EXPECT_NE(docx_->Text().find(u"Lender, 5\r\u0015\r\u0007beside\r\u0007"), std::u16string::npos)
      << docx_->Part("word/document.xml");
  ExpectOneSection();
}

TEST_F(IndexInTable, HasNoSectionOfItsOwnWhenItIsInserted) {
  for (const std::string content : {"", "before"}) {
    OpenInCell(TextRun(content));
    const auto before = docx_->Canonical();
    const auto at = static_cast<word::Position>(std::string("one Lender\r").size() + content.size());
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Add(u"IndexBKStart", document->Range(at, at));
    Mark({u"Lender"});
    marker_->InsertIndex(docx_->Application(), document, 2, u", ");
    document->Bookmarks()->Item(u"IndexBKStart")->Delete();
    ExpectOneSection();
    // Its entries have paragraphs of their own nevertheless.
    EXPECT_NE(docx_->Text().find(u"\u0014\rLender, 5\r\u0015\r\u0007beside\r\u0007"), std::u16string::npos);
    RemoveAll();
    ExpectSameParts(before);
  }
}

TEST_F(IndexInTable, HasASectionOfItsOwnInAContentControlOfTheBody) {
  Open({.body = "<w:sdt><w:sdtContent>" + Paragraph(TextRun("one Lender")) + "</w:sdtContent></w:sdt>" +
                Paragraph(TextRun("end")),
        .section = kTitlePage});
  const auto before = docx_->Canonical();
  Mark({u"Lender"});
  InsertIndexAt(0, 2);
  EXPECT_EQ(CountOf(docx_->Part("word/document.xml"), "<w:sectPr"), 3U);
  RemoveAll();
  ExpectSameParts(before);
}

TEST_F(IndexInTable, OneColumnRightBehindATableNeedsNoSection) {
  Open({.body = Paragraph(TextRun("Lender")) + Table(Cell(Paragraph(TextRun("cell")))) + Paragraph(TextRun("end")),
        .section = kTitlePage});
  const auto before = docx_->Canonical();
  const word::Position at = docx_->Story()->End() - 4;
  const word::DocumentPtr document = docx_->Document();
  document->Bookmarks()->Add(u"IndexBKStart", document->Range(at, at));
  Mark({u"Lender"});
  marker_->InsertIndex(docx_->Application(), document, 1, u", ");
  document->Bookmarks()->Item(u"IndexBKStart")->Delete();
  EXPECT_EQ(docx_->Text().find(u"\\c \"1\""), std::u16string::npos);
  ExpectOneSection();
  RemoveAll();
  ExpectSameParts(before);
}

}  // namespace
