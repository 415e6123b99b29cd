#include "TermMarkerOnDocx.h"

#include "platform/word/Fields.h"

#include <iterator>
#include <regex>

namespace {

/// Indexed clauses that a person has moved since, with the entries and the highlights in them.
class MovedText : public TermMarkerOnDocx {
 protected:
  /// What marking makes of a clause: runs with their entries and highlights.
  static std::string MarkedClause() {
    return TextRun("the ") + Highlighted("Lender", "yellow") + EntryField(" XE \"Lender\" \\f \"DefinedTermsIndex\" ") +
           TextRun(" pays") + EntryField(" XE \"the author's\" ");
  }
  static std::string Highlighted(const std::string& text, const std::string& colour) {
    return TextRun(text, "<w:highlight w:val=\"" + colour + "\"/>");
  }
  static std::string TextBox(const std::string& content) {
    return "<w:r><w:pict><v:shape xmlns:v=\"urn:schemas-microsoft-com:vml\" style=\"position:absolute\"><v:textbox>"
           "<w:txbxContent>" +
           Paragraph(content) + "</w:txbxContent></v:textbox></v:shape></w:pict></w:r>";
  }
  static std::string Record() {
    return "<w:bookmarkStart w:id=\"7\" w:name=\"_KVXHighlighting\"/><w:bookmarkEnd w:id=\"7\"/>";
  }
  static std::string Author(int id, int colour, const std::string& content) {
    const std::string number = std::to_string(id);
    return "<w:bookmarkStart w:id=\"" + number + "\" w:name=\"_KVXHighlight_" + std::to_string(colour) + "_" + number +
           "\"/>" + content + "<w:bookmarkEnd w:id=\"" + number + "\"/>";
  }
  static DocxDocument::Parts Everywhere() {
    return {.body = Paragraph(Record() + TextRun("first ") + TextBox(MarkedClause()) + TextBox(MarkedClause()) +
                              "<w:r><w:commentReference w:id=\"1\"/></w:r>"),
            .section = "<w:headerReference w:type=\"default\" r:id=\"rId3\"/>",
            .comments = "<w:comment w:id=\"1\">" + Paragraph(MarkedClause()) + "</w:comment>",
            .header = Paragraph(MarkedClause())};
  }
  std::string All() const {
    std::string all;
    for (const char* name : {"word/document.xml", "word/comments.xml", "word/header.xml"}) all += docx_->Part(name);
    return all;
  }
  static std::ptrdiff_t CountOf(const std::string& text, const std::string& pattern) {
    const std::regex part(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), part), {});
  }
};

TEST_F(MovedText, LosesItsEntriesAndHighlightsWhereverItIs) {
  Open(Everywhere());
  ASSERT_EQ(CountOf(All(), "DefinedTermsIndex"), 4);
  ASSERT_EQ(CountOf(All(), "w:val=\"yellow\""), 4);
  RemoveAll();
  EXPECT_EQ(CountOf(All(), "DefinedTermsIndex"), 0);
  EXPECT_EQ(CountOf(All(), "<w:highlight"), 0);
  EXPECT_EQ(CountOf(All(), "the author's"), 4);
  EXPECT_FALSE(docx_->Document()->Bookmarks()->Exists(u"_KVXHighlighting"));
}

TEST_F(MovedText, LosesItsHighlightsAloneWhereverItIs) {
  Open(Everywhere());
  marker_->RemoveTermHighlighting(docx_->Document());
  EXPECT_EQ(CountOf(All(), "DefinedTermsIndex"), 4);
  EXPECT_EQ(CountOf(All(), "<w:highlight"), 0);
}

TEST_F(MovedText, GivesTheAuthorsHighlightsBackInTheirTextBoxOnly) {
  const std::string entry = EntryField(" XE \"Lender\" \\f \"DefinedTermsIndex\" ");
  for (const bool isEntryRemoved : {false, true}) {
    Open({.body = Paragraph(Record() + TextBox(Author(8, 4, Highlighted("Lender", "yellow")) + entry) +
                            TextBox(Highlighted("Lender", "yellow") + entry))});
    if (isEntryRemoved) marker_->RemoveIndexEntries(docx_->Application(), docx_->Document(), false);
    marker_->RemoveTermHighlighting(docx_->Document());
    const std::string xml = docx_->Part("word/document.xml");
    EXPECT_EQ(CountOf(xml, "<w:highlight w:val=\"green\""), 1) << xml;
    EXPECT_LT(xml.find("w:val=\"green\""), xml.rfind("<w:txbxContent>"));
    EXPECT_EQ(CountOf(xml, "w:val=\"yellow\""), 0) << xml;
  }
}

TEST_F(MovedText, LosesItsEntriesInBothBranchesThatATextBoxIsStoredIn) {
  const auto branch = [](const std::string& name, const std::string& content) {
    return "<mc:" + name + ">" + content + "</mc:" + name + ">";
  };
  const std::string box = "<w:txbxContent>" + Paragraph(MarkedClause()) + "</w:txbxContent>";
  Open({.body = Paragraph(Record() + TextRun("first") +
                          "<w:r><mc:AlternateContent "
                          "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\">" +
                          branch("Choice", "<w:drawing><wps xmlns=\"wps\">" + box + "</wps></w:drawing>") +
                          branch("Fallback", "<w:pict><shape xmlns=\"vml\">" + box + "</shape></w:pict>") +
                          "</mc:AlternateContent></w:r>")});
  RemoveAll();
  const std::string xml = docx_->Part("word/document.xml");
  EXPECT_EQ(CountOf(xml, "DefinedTermsIndex"), 0) << xml;
  EXPECT_EQ(CountOf(xml, "<w:highlight"), 0) << xml;
  EXPECT_EQ(CountOf(xml, "the author's"), 2) << xml;
  EXPECT_EQ(CountOf(xml, "<shape"), 1) << xml;
}

TEST_F(MovedText, IsNotMarkedWhereNothingIsMarked) {
  Open(Everywhere());
  EXPECT_EQ(Mark({u"Lender"})[0].count, 0);
  EXPECT_EQ(CountOf(All(), "DefinedTermsIndex"), 0);
}

TEST_F(MovedText, LosesItsEntryInAHeaderThatTwoSectionsShare) {
  const std::string section = "<w:headerReference w:type=\"default\" r:id=\"rId3\"/>";
  Open({.body = "<w:p><w:pPr><w:sectPr>" + section + "</w:sectPr></w:pPr>" + TextRun("one") + "</w:p>" +
                Paragraph(Record() + TextRun("two")),
        .section = section,
        .header = Paragraph(MarkedClause())});
  RemoveAll();
  const std::string header = docx_->Part("word/header.xml");
  EXPECT_EQ(CountOf(header, "DefinedTermsIndex"), 0);
  EXPECT_EQ(CountOf(header, "<w:highlight"), 0);
}

TEST_F(MovedText, LosesTheIndexWhereverItIs) {
  const std::string index = Field(" INDEX \\f \"DefinedTermsIndex\" ", "Buyer, 1");
  Open({.body = Paragraph(TextRun("first") + TextBox(TextRun("second ") + index)), .header = Paragraph(index)});
  RemoveAll();
  EXPECT_EQ(docx_->Part("word/document.xml").find("INDEX"), std::string::npos);
}

}  // namespace
