#include "TermMarkerOnDocx.h"

#include "platform/word/Fields.h"

namespace {

const std::string kIndexCode = " INDEX \\f &quot;DefinedTermsIndex&quot; \\e &quot;, &quot; ";

std::string Marked(const std::string& term) {
  return TextRun(term) + SimpleField(" XE &quot;" + term + "&quot; \\f &quot;DefinedTermsIndex&quot; ", "");
}

/// An index of ours that a program stored as one element.
class SimpleIndexField : public TermMarkerOnDocx {
 protected:
  void OpenWithIndex(const std::string& content) {
    Open({.body = Paragraph(Marked("Buyer")) + Paragraph(TextRun("see ") + content + TextRun(" end"))});
  }
  std::u16string Covered(std::u16string_view bookmark) const {
    const word::RangePtr range = docx_->Document()->Bookmarks()->Item(bookmark)->Range();
    range->TextRetrievalMode()->SetIncludeFieldCodes(true);
    return range->Text();
  }
};

const std::string kBookmarked = "<w:bookmarkStart w:id=\"3\" w:name=\"DefinedTermsIndex\"/>" +
                                SimpleField(kIndexCode, TextRun("Old")) + "<w:bookmarkEnd w:id=\"3\"/>";
const std::u16string kUpdated = u"\u0013 INDEX \\f \"DefinedTermsIndex\" \\e \", \" \u0014Buyer, 1\r\u0015";

TEST_F(SimpleIndexField, IsUpdatedToOneThatMayHoldParagraphs) {
  for (const std::string content : {"", "Old"}) {
    OpenWithIndex(SimpleField(kIndexCode, content.empty() ? "" : TextRun(content)));
    marker_->UpdateIndex(docx_->Document());
    EXPECT_TRUE(docx_->Text().ends_with(u"\rsee " + kUpdated + u" end\r"));
    const std::string xml = docx_->Part("word/document.xml");
    EXPECT_EQ(xml.find("INDEX", xml.find("<w:fldSimple w:instr=\" INDEX")), std::string::npos);
    // And once more, now that it is another.
    marker_->UpdateIndex(docx_->Document());
    EXPECT_TRUE(docx_->Text().ends_with(u"\rsee " + kUpdated + u" end\r"));
  }
}

TEST_F(SimpleIndexField, KeepsItsBookmarkWhenItIsUpdated) {
  OpenWithIndex(kBookmarked);
  marker_->UpdateIndex(docx_->Document());
  EXPECT_EQ(Covered(u"DefinedTermsIndex"), kUpdated);
}

TEST_F(SimpleIndexField, IsRemoved) {
  for (const std::string& content :
       {SimpleField(kIndexCode, ""), SimpleField(kIndexCode, TextRun("Old")), kBookmarked}) {
    OpenWithIndex(content);
    RemoveAll();
    EXPECT_EQ(docx_->Text(), u"Buyer\rsee  end\r");
    EXPECT_EQ(docx_->Part("word/document.xml").find("fldSimple"), std::string::npos);
    EXPECT_EQ(docx_->Document()->Bookmarks()->Count(), 0);
  }
}

TEST_F(SimpleIndexField, IsReplacedWhenTheDocumentIsIndexedAgain) {
  OpenWithIndex(kBookmarked);
  const word::Position at = docx_->Document()->Bookmarks()->Item(u"DefinedTermsIndex")->Range()->Start();
  const word::DocumentPtr document = docx_->Document();
  document->Bookmarks()->Add(u"IndexBKStart", document->Range(at, at));
  Mark({u"Buyer"});
  marker_->InsertIndex(docx_->Application(), document, 2, u", ");
  document->Bookmarks()->Item(u"IndexBKStart")->Delete();
  const std::u16string text = docx_->Text();
  EXPECT_EQ(text.find(u" INDEX "), text.rfind(u" INDEX "));
  EXPECT_NE(text.find(u"Buyer, 1\f"), std::u16string::npos);
  RemoveAll();
  EXPECT_EQ(docx_->Text(), u"Buyer\rsee  end\r");
}

TEST_F(SimpleIndexField, InATrackedInsertionIsUpdatedInsideOfIt) {
  OpenWithIndex(Tracked("ins", SimpleField(kIndexCode, TextRun("Old"))));
  marker_->UpdateIndex(docx_->Document());
  EXPECT_TRUE(docx_->Text().ends_with(u"\rsee " + kUpdated + u" end\r"));
  const std::string xml = docx_->Part("word/document.xml");
  const std::size_t field = xml.find("fldCharType=\"begin\"");
  EXPECT_LT(xml.rfind("<w:ins ", field), field);
  EXPECT_GT(xml.find("</w:ins>", field), field);
}

TEST_F(SimpleIndexField, WithDataOfItsProgramLeavesAWellFormedParagraph) {
  const std::string data = "<w:fldData>AAAA</w:fldData>";
  OpenWithIndex(SimpleField(kIndexCode, data + TextRun("Old")));
  marker_->UpdateIndex(docx_->Document());
  EXPECT_EQ(docx_->Part("word/document.xml").find("fldData"), std::string::npos);
  OpenWithIndex(SimpleField(kIndexCode, data + TextRun("Old")));
  RemoveAll();
  EXPECT_EQ(docx_->Part("word/document.xml").find("fldData"), std::string::npos);
}

}  // namespace
