#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "platform/word/HostError.h"
#include "tests/unit/pages/PagedDocument.h"

using paged::Code;
using paged::Document;
using paged::FieldMark;
using paged::InRun;
using paged::kBreak;
using paged::P;
using paged::Section;
using paged::Text;

namespace {

/// Plays a word processor that begins a page at every page break and nowhere else, in every part.
class Breaks : public docx::PdfMaker {
 public:
  std::string MakePdf(const docx::Package& document) override {
    ++made;
    if (!pdf.empty()) return pdf;
    std::string destinations;
    int pages = 1;
    for (const std::string part : {"word/document.xml", "word/footnotes.xml", "word/endnotes.xml"}) {
      if (!document.Has(part)) continue;
      const std::string xml = document.Read(part);
      const std::regex wanted("<w:br w:type=\"page\"/>|w:name=\"(\\w+)\"");
      int page = 1;
      for (std::sregex_iterator match(xml.begin(), xml.end(), wanted), end; match != end; ++match) {
        if (!(*match)[1].matched) {
          pages = std::max(pages, ++page);
        } else {
          destinations += "/" + (*match)[1].str() + "[" + std::to_string(100 + page) + " 0 R/Fit]";
        }
      }
    }
    std::string kids;
    std::string objects;
    for (int page = 1; page <= pages; ++page) {
      kids += std::to_string(100 + page) + " 0 R ";
      objects += std::to_string(100 + page) + " 0 obj<</Type/Page>>endobj\n";
    }
    return "%PDF-1.6\n" + objects + "1 0 obj<</Type/Catalog/Pages<</Kids[" + kids + "]>>/Dests<<" + destinations +
           ">>>>endobj\n";
  }
  std::string Name() const override { return "Somebody"; }

  int made{0};
  std::string pdf;  ///< what it makes instead, when not empty
};

class PdfPaginator : public testing::Test {
 protected:
  Document& Open(const std::string& blocks) {
    document_.emplace(blocks);
    document_->source = docx::PageSource::kPdf;
    document_->pdfMaker = &maker_;
    return *document_;
  }

  Breaks maker_;
  std::optional<Document> document_;
};

TEST_F(PdfPaginator, OnePdfTellsThePagesOfAllPositions) {
  Document& document =
      Open(P(Text("first") + kBreak + Text("second")) + P(Text("also") + kBreak) + P(Text("third")) +
           "<w:tbl><w:tr><w:tc>" + P(Text("cell")) + "</w:tc></w:tr></w:tbl>" + P(kBreak) + P(Text("last")));
  EXPECT_EQ(document.PageOf(u"first"), 1);
  EXPECT_EQ(document.PageOf(u"also"), 2);
  EXPECT_EQ(document.PageOf(u"third"), 3);
  EXPECT_EQ(document.PageOf(u"cell"), 3);
  EXPECT_EQ(document.PageOf(u"last"), 4);
  EXPECT_EQ(document.Count(), 4);
  EXPECT_EQ(document.Pages().Basis(), "the layout of Somebody");
  EXPECT_EQ(maker_.made, 1);
}

TEST_F(PdfPaginator, EveryFieldAndEveryStretchOfALongParagraphIsAsked) {
  const std::string filler(200, 'x');
  Document& document =
      Open("<w:p>" + InRun(Text("word")) + InRun(kBreak) + FieldMark("begin") + Code(" XE \"a\" ") + FieldMark("end") +
           InRun(Text(filler)) + InRun(kBreak) + InRun(Text(filler)) + InRun(kBreak) + InRun(Text("end")) + "</w:p>");
  EXPECT_EQ(document.PageOf(u"word"), 1);
  EXPECT_EQ(document.PageOf(u"\u0013"), 2);
  EXPECT_EQ(document.PageOf(u"end"), 4);
}

TEST_F(PdfPaginator, NotesAreWhereTheyAreLaid) {
  Document& document = Open(P(Text("a") + "<w:footnoteReference w:id=\"5\"/>"));
  document.With("footnotes", "<w:footnote w:id=\"5\">" + P(kBreak) + P(Text("note")) + "</w:footnote>");
  EXPECT_EQ(document.PageOf(u"note", word::wdFootnotesStory), 2);
}

TEST_F(PdfPaginator, LabelsFollowTheSections) {
  const std::string roman = "<w:pgNumType w:fmt=\"lowerRoman\"/>";
  Document& document = Open(P(Text("a") + kBreak) + P(Text("b"), Section("nextPage", roman)) + P(kBreak + Text("c")) +
                            P(kBreak + Text("d")) + Section("nextPage", "<w:pgNumType w:start=\"1\"/>"));
  // The stand-in begins no page for a section: the second one begins on page 2.
  EXPECT_EQ(document.Pages().LabelOf(1), u"i");
  EXPECT_EQ(document.Pages().LabelOf(2), u"1");
  EXPECT_EQ(document.Pages().LabelOf(3), u"2");
  EXPECT_EQ(document.Pages().LabelOf(9), u"9");
}

TEST_F(PdfPaginator, TheDocumentItselfStaysAsItIs) {
  Document& document = Open(P(Text("first") + kBreak + Text("second")));
  document.Count();
  EXPECT_FALSE(document.Parts().Changed());
}

TEST_F(PdfPaginator, APdfThatIsNoneIsAnError) {
  maker_.pdf = "nothing";
  EXPECT_THROW(Open(P(Text("a"))).Count(), word::HostError);
  maker_.pdf = "%PDF-1.6 1 0 obj<</Type/Catalog/Pages<</Kids[2 0 R]>>>>endobj 2 0 obj<</Type/Page>>endobj";
  EXPECT_THROW(Open(P(Text("a"))).Count(), word::HostError);
}

}  // namespace
