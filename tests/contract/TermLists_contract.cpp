#include "engine/TermLists.h"

#include "DocxDocument.h"
#include "Markup.h"

#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Format.h"
#include "platform/word/Range.h"
#include "platform/word/Selection.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

/// Both lists behind an index, in a document as a person has it.
class TermListsOnDocx : public testing::Test {
 protected:
  void Index(const DocxDocument::Parts& parts, word::Position at, int columns) {
    docx_.emplace(parts);
    before_ = docx_->Canonical();
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Add(u"IndexBKStart", document->Range(at, at));
    marker_->InsertIndex(docx_->Application(), document, columns, u":  \t");
    document->Bookmarks()->Item(u"IndexBKStart")->Delete();
  }
  void WriteLists() {
    WriteNotUsedList(docx_->Document(), u"Buyer\r\nNote");
    WriteNotFoundList(docx_->Application(), docx_->Document(), u"Gone");
  }
  void ExpectGivenBack() {
    marker_->RemoveIndex(docx_->Application(), docx_->Document(), true);
    const auto after = docx_->Canonical();
    EXPECT_EQ(after.at("word/document.xml"), before_.at("word/document.xml"));
    EXPECT_EQ(after, before_);
  }
  word::RangePtr Place(const std::u16string& text) const {
    const std::size_t at = docx_->Text().find(text);
    EXPECT_NE(at, std::u16string::npos);
    return docx_->Document()->Range(static_cast<word::Position>(at), static_cast<word::Position>(at + text.size()));
  }
  std::u16string Covered(std::u16string_view bookmark) const {
    const word::RangePtr range = docx_->Document()->Bookmarks()->Item(bookmark)->Range();
    range->TextRetrievalMode()->SetIncludeFieldCodes(true);
    return range->Text();
  }

  std::unique_ptr<TermMarker> marker_ = reach::Marker();
  std::optional<DocxDocument> docx_;
  std::map<std::string, std::string> before_;
};

const std::string kTwoParagraphs = Paragraph(TextRun("one")) + Paragraph(TextRun("two three"));

TEST_F(TermListsOnDocx, TheListsStandBehindTheIndexOneBehindTheOther) {
  Index({.body = kTwoParagraphs}, 4, 1);
  WriteLists();
  const std::u16string text = docx_->Text();
  const std::u16string lists =
      u"\u0015\rDEFINED BUT NOT USED / USED ONLY ONCE (see Index above for page number)\rBuyer\rNote\r\r"
      u"\rNOT FOUND\rGone\r\rtwo three\r";
  EXPECT_EQ(text.substr(text.size() - lists.size()), lists);
  EXPECT_EQ(Covered(kNotFoundListBookmark), u"\rNOT FOUND\rGone\r\r");
  EXPECT_TRUE(Covered(kNotUsedListBookmark).ends_with(u"Buyer\rNote\r\r"));
  EXPECT_TRUE(Covered(u"DefinedTermsIndex").ends_with(u"\u0015"));
  EXPECT_EQ(docx_->Application()->Selection()->Range()->Start(), Place(u"\rNOT FOUND")->Start());
}

TEST_F(TermListsOnDocx, TheHeadingIsBoldAndAllElseIsNot) {
  Index({.body = kTwoParagraphs}, 4, 1);
  WriteLists();
  EXPECT_EQ(Place(u"DEFINED BUT NOT USED / USED ONLY ONCE")->Font()->Bold(), -1);
  EXPECT_EQ(Place(u"(see Index above for page number)")->Font()->Bold(), 0);
  EXPECT_EQ(Place(u"Buyer")->Font()->Bold(), 0);
  EXPECT_EQ(Place(u"NOT FOUND")->Font()->Bold(), -1);
  EXPECT_EQ(Place(u"Gone")->Font()->Bold(), 0);
}

TEST_F(TermListsOnDocx, TheListsAreLeftAlignedCloseSetPlainAndBlackWhateverTheTextIs) {
  const std::string look = "<w:pPr><w:spacing w:before=\"240\" w:after=\"120\"/><w:jc w:val=\"center\"/></w:pPr>";
  const std::string text = TextRun("two three", "<w:color w:val=\"FF0000\"/><w:highlight w:val=\"green\"/>");
  Index({.body = Paragraph(TextRun("one")) + Paragraph(look + text)}, 4, 1);
  WriteLists();
  for (const std::u16string line : {u"DEFINED", u"Buyer", u"NOT FOUND", u"Gone"}) {
    const word::RangePtr place = Place(line);
    EXPECT_EQ(place->ParagraphFormat()->Alignment(), word::wdAlignParagraphLeft);
    EXPECT_EQ(place->ParagraphFormat()->SpaceBefore(), 0);
    EXPECT_EQ(place->ParagraphFormat()->SpaceAfter(), 0);
    EXPECT_EQ(place->HighlightColorIndex(), word::wdNoHighlight);
    EXPECT_EQ(place->Font()->Color(), word::wdColorAutomatic);
  }
  const word::RangePtr behind = Place(u"two three");
  EXPECT_EQ(behind->ParagraphFormat()->Alignment(), word::wdAlignParagraphCenter);
  EXPECT_EQ(behind->ParagraphFormat()->SpaceBefore(), 12);
  EXPECT_EQ(behind->HighlightColorIndex(), word::wdBrightGreen);
  ExpectGivenBack();
}

TEST_F(TermListsOnDocx, TheNotFoundListAloneStandsAtTheSelection) {
  Index({.body = kTwoParagraphs}, 4, 1);
  WriteNotFoundList(docx_->Application(), docx_->Document(), u"Gone");
  const std::u16string text = docx_->Text();
  EXPECT_TRUE(text.ends_with(u"\u0015\rNOT FOUND\rGone\r\rtwo three\r"));
  EXPECT_FALSE(docx_->Document()->Bookmarks()->Exists(kNotUsedListBookmark));
  ExpectGivenBack();
}

TEST_F(TermListsOnDocx, EmptyListsHaveTheirHeadingsAndGoWithTheIndex) {
  Index({.body = kTwoParagraphs}, 4, 1);
  WriteNotUsedList(docx_->Document(), u"");
  WriteNotFoundList(docx_->Application(), docx_->Document(), u"");
  EXPECT_TRUE(docx_->Text().ends_with(u"page number)\r\r\r\rNOT FOUND\r\r\rtwo three\r"));
  EXPECT_TRUE(docx_->Document()->Bookmarks()->Exists(kNotUsedListBookmark));
  EXPECT_TRUE(docx_->Document()->Bookmarks()->Exists(kNotFoundListBookmark));
  ExpectGivenBack();
}

TEST_F(TermListsOnDocx, TheListsGoWithTheIndexWhereverItStands) {
  for (const word::Position at : {0, 2, 3, 4, 7, 13}) {
    for (const int columns : {1, 2, 4}) {
      Index({.body = kTwoParagraphs, .section = "<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"}, at, columns);
      WriteLists();
      ExpectGivenBack();
    }
  }
}

TEST_F(TermListsOnDocx, TheListsGoWholeThoughTheLinesAboveThemWereDeleted) {
  for (const word::Position at : {0, 2, 4, 7, 13}) {
    for (const int columns : {1, 2}) {
      Index({.body = kTwoParagraphs, .section = "<w:pgSz w:w=\"11906\" w:h=\"16838\"/>"}, at, columns);
      WriteLists();
      for (const std::u16string heading : {u"\rDEFINED BUT", u"\rNOT FOUND"}) {
        const word::Position line = Place(heading)->Start();
        docx_->Document()->Range(line, line + 1)->Delete();
      }
      ExpectGivenBack();
    }
  }
}

TEST_F(TermListsOnDocx, TheListsGoWholeThoughTheirHeadingsWereRewritten) {
  for (const bool isLineDeleted : {false, true}) {
    Index({.body = kTwoParagraphs}, 4, 1);
    WriteLists();
    for (const auto& [heading, other] :
         {std::pair{u"DEFINED BUT NOT USED", u"Never used"}, {u"NOT FOUND", u"Missing"}}) {
      const word::RangePtr place = Place(heading);
      place->SetText(other);
      if (isLineDeleted) docx_->Document()->Range(place->Start() - 1, place->Start())->Delete();
    }
    ExpectGivenBack();
  }
}

TEST_F(TermListsOnDocx, AnAuthorsTextThatReadsAsAHeadingStays) {
  Index({.body = Paragraph(TextRun("one")) + Paragraph(TextRun("NOT FOUND, he said"))}, 4, 1);
  WriteNotFoundList(docx_->Application(), docx_->Document(), u"Gone");
  ExpectGivenBack();
}

TEST_F(TermListsOnDocx, DeletingThemByHandWithAnIndexAtTheStartKeepsTheRecordOfHighlights) {
  for (const auto& [isNotUsed, isNotFound] : {std::pair{true, true}, {true, false}, {false, true}}) {
    docx_.emplace(DocxDocument::Parts{.body = Paragraph(TextRun("the Lender")) + Paragraph(TextRun("a Lender"))});
    before_ = docx_->Canonical();
    const word::DocumentPtr document = docx_->Document();
    document->Bookmarks()->Add(u"IndexBKStart", document->Range(0, 0));
    marker_->BeginIndexing(document);
    marker_->BuildTermTable(docx_->Application(), document, {u"Lender"}, true);
    EXPECT_EQ(marker_->MarkTermInStory(document, docx_->Story(), u"Lender", 0, 1, true, false, u"IndexAll", u""), 2);
    marker_->InsertIndex(docx_->Application(), document, 1, u":  \t");
    if (isNotUsed) WriteNotUsedList(document, u"Buyer");
    if (isNotFound) WriteNotFoundList(docx_->Application(), document, u"Gone");
    marker_->EndIndexing(document);
    document->Bookmarks()->Item(u"IndexBKStart")->Delete();
    const word::Position end =
        document->Bookmarks()->Item(isNotFound ? kNotFoundListBookmark : kNotUsedListBookmark)->Range()->End();
    document->Range(0, end)->Delete();
    marker_->RemoveTermHighlighting(document);
    EXPECT_EQ(docx_->Part("word/document.xml").find("<w:highlight"), std::string::npos);
    marker_->RemoveIndexEntries(docx_->Application(), document, false);
    EXPECT_EQ(docx_->Part("word/document.xml"), before_.at("word/document.xml"));
  }
}

TEST_F(TermListsOnDocx, AlignmentsInAnyWordsComeBack) {
  for (const std::string value : {"both", "start", "end", "distribute", "numTab", "nonsense", "left"}) {
    const std::string properties = "<w:pPr><w:jc w:val=\"" + value + "\"/></w:pPr>";
    Index({.body = Paragraph(TextRun("one")) + Paragraph(properties + TextRun("two"))}, 4, 1);
    WriteLists();
    ExpectGivenBack();
  }
}

TEST_F(TermListsOnDocx, AnAlignmentThatTheStyleGivesAnywayComesBack) {
  const std::string properties = "<w:pPr><w:pStyle w:val=\"Mid\"/><w:jc w:val=\"center\"/></w:pPr>";
  Index({.body = Paragraph(TextRun("one")) + Paragraph(properties + TextRun("two")),
         .styles = "<w:style w:type=\"paragraph\" w:styleId=\"Mid\"><w:pPr><w:jc w:val=\"center\"/></w:pPr>"
                   "</w:style>"},
        4, 1);
  WriteLists();
  ExpectGivenBack();
}

TEST_F(TermListsOnDocx, ATrackedParagraphMarkBehindTheListsIsNotTheirs) {
  const std::string tracked = "<w:pPr><w:rPr><w:del w:id=\"3\" w:author=\"A\"/></w:rPr></w:pPr>";
  Index({.body = Paragraph(TextRun("one")) + Paragraph(tracked + TextRun("two")) + Paragraph(TextRun("three"))}, 4, 1);
  WriteLists();
  EXPECT_EQ(docx_->Part("word/document.xml").find("<w:del "), docx_->Part("word/document.xml").rfind("<w:del "));
  ExpectGivenBack();
}

}  // namespace
