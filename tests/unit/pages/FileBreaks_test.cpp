#include <gtest/gtest.h>

#include <string>

#include "tests/unit/pages/PagedDocument.h"

using paged::Document;
using paged::InRun;
using paged::kBreak;
using paged::kMark;
using paged::P;
using paged::Section;
using paged::Text;

namespace {

std::string EndOf(const std::string& section) { return "<w:p><w:pPr>" + section + "</w:pPr></w:p>"; }
std::string Cell(const std::string& blocks) { return "<w:tc>" + blocks + "</w:tc>"; }
std::string Row(const std::string& cells) { return "<w:tr>" + cells + "</w:tr>"; }
std::string Table(const std::string& rows) { return "<w:tbl>" + rows + "</w:tbl>"; }

const std::string kMarked = P(kMark + Text("marked"));

TEST(FileBreaks, ADocumentWithoutBreaksIsOnePage) {
  Document document(P(Text("a")));
  EXPECT_EQ(document.Count(), 1);
  EXPECT_EQ(document.PageOf(u"a"), 1);
  EXPECT_EQ(document.Pages().Basis(), "an estimate");
}

TEST(FileBreaks, WordsLastBreaksBeginPages) {
  Document document(P(Text("one ") + kMark + Text("two ")) + P(Text("still")) + kMarked);
  EXPECT_EQ(document.Count(), 3);
  EXPECT_EQ(document.PageOf(u"one"), 1);
  EXPECT_EQ(document.PageOf(u"two"), 2);
  EXPECT_EQ(document.PageOf(u"still"), 2);
  EXPECT_EQ(document.PageOf(u"marked"), 3);
  EXPECT_EQ(document.Pages().Basis(), "breaks in the file");
}

TEST(FileBreaks, AMarkInARunOfItsOwnCounts) {
  Document document("<w:p>" + InRun(Text("one")) + InRun(kMark) + InRun(Text("two")) + "</w:p>");
  EXPECT_EQ(document.PageOf(u"one"), 1);
  EXPECT_EQ(document.PageOf(u"two"), 2);
}

TEST(FileBreaks, AMarkBehindAStatedBreakIsTheSamePage) {
  EXPECT_EQ(Document(P(Text("a") + kBreak + kMark + Text("b"))).Count(), 2);
  EXPECT_EQ(Document(P(Text("a") + kBreak) + kMarked).Count(), 2);
  EXPECT_EQ(Document(P(Text("a")) + P(kMark + Text("b"), "<w:pageBreakBefore/>")).Count(), 2);
  EXPECT_EQ(Document(P(Text("a")) + EndOf(Section("nextPage")) + kMarked + Section("nextPage")).Count(), 2);
}

TEST(FileBreaks, AMarkBehindTextOnANewPageIsAnotherPage) {
  EXPECT_EQ(Document(P(Text("a") + kBreak + Text("b") + kMark + Text("c"))).Count(), 3);
}

TEST(FileBreaks, PageBreaksOneAfterTheOtherLeaveEmptyPages) {
  Document document(P(Text("a") + kBreak + kBreak + Text("b")));
  EXPECT_EQ(document.Count(), 3);
  EXPECT_EQ(document.PageOf(u"b"), 3);
}

TEST(FileBreaks, APageBreakItselfStandsOnThePageBefore) {
  Document document(P(Text("a") + kBreak + Text("b")));
  EXPECT_EQ(document.Pages().PageOf(document.Parts().Main(), 1), 1);
  EXPECT_EQ(document.Pages().PageOf(document.Parts().Main(), 2), 2);
}

TEST(FileBreaks, APageBreakBeforeAddsNothingOnANewPage) {
  EXPECT_EQ(Document(P(Text("a"), "<w:pageBreakBefore/>")).Count(), 1);
  EXPECT_EQ(Document(P(Text("a") + kBreak) + P(Text("b"), "<w:pageBreakBefore/>")).Count(), 2);
  EXPECT_EQ(Document(P(Text("a") + kBreak) + P("") + P(Text("b"), "<w:pageBreakBefore/>")).Count(), 3);
}

TEST(FileBreaks, APageBreakBeforeMayComeFromTheStyle) {
  Document document(P(Text("a")) + P(Text("b"), "<w:pStyle w:val=\"Schedule\"/>"));
  document.With("styles",
                "<w:style w:type=\"paragraph\" w:styleId=\"Schedule\"><w:pPr><w:pageBreakBefore/></w:pPr></w:style>");
  EXPECT_EQ(document.PageOf(u"b"), 2);
  EXPECT_EQ(document.Pages().Basis(), "breaks in the file and an estimate");
}

TEST(FileBreaks, ASectionBeginsAsItsOwnTypeSays) {
  const std::string first = P(Text("a")) + EndOf(Section("nextPage"));
  EXPECT_EQ(Document(first + P(Text("b")) + Section("continuous")).Count(), 1);
  EXPECT_EQ(Document(first + P(Text("b")) + "<w:sectPr/>").Count(), 2);
  EXPECT_EQ(Document(P(Text("a")) + EndOf(Section("continuous")) + P(Text("b")) + Section("nextPage")).Count(), 2);
}

TEST(FileBreaks, OtherPaperBeginsAPageEvenInAContinuousSection) {
  EXPECT_EQ(Document(P(Text("a")) + EndOf("<w:sectPr/>") + P(Text("b")) +
                     Section("continuous", "<w:pgSz w:w=\"15840\" w:h=\"12240\"/>"))
                .Count(),
            2);
}

TEST(FileBreaks, AnOddPageStartLeavesABlankPageThatCounts) {
  Document document(P(Text("a")) + EndOf("<w:sectPr/>") + P(Text("b")) + Section("oddPage"));
  EXPECT_EQ(document.Count(), 3);
  EXPECT_EQ(document.PageOf(u"b"), 3);
}

TEST(FileBreaks, AnEvenPageStartLeavesABlankPageOnlyWhereItMust) {
  const std::string second = P(Text("b")) + Section("evenPage");
  EXPECT_EQ(Document(P(Text("a")) + EndOf("<w:sectPr/>") + second).Count(), 2);
  EXPECT_EQ(Document(P(Text("a") + kBreak + Text("c")) + EndOf("<w:sectPr/>") + second).Count(), 4);
}

TEST(FileBreaks, DeletedBreaksDoNotCount) {
  Document document("<w:p>" + InRun(Text("a")) + "<w:del>" + InRun(kBreak) + "</w:del>" + InRun(Text("b")) + "</w:p>");
  EXPECT_EQ(document.PageOf(u"b"), 1);
}

TEST(FileBreaks, BreaksInTextBoxesDoNotCount) {
  const std::string box = "<w:pict><w:txbxContent>" + P(kMark + Text("x") + kBreak) + "</w:txbxContent></w:pict>";
  Document document(P(Text("a") + kMark + Text("b")) + P(box) + P(Text("c")));
  EXPECT_EQ(document.PageOf(u"c"), 2);
}

TEST(FileBreaks, TextBoxesThemselvesAreOnPageOne) {
  const std::string box = "<w:pict><w:txbxContent>" + P(Text("x")) + "</w:txbxContent></w:pict>";
  Document document(P(Text("a") + kBreak + Text("b")) + P(box));
  EXPECT_EQ(document.PageOf(u"x", word::wdTextFrameStory), 1);
}

TEST(FileBreaks, ARowDividedInSeveralCellsIsOneBreak) {
  const std::string divided =
      Row(Cell(P(Text("left ") + kMark + Text("below"))) + Cell(P(Text("right ") + kMark + Text("lower"))));
  Document document(Table(divided) + P(Text("after")));
  EXPECT_EQ(document.Count(), 2);
  EXPECT_EQ(document.PageOf(u"below"), 2);
  EXPECT_EQ(document.PageOf(u"right"), 1);
  EXPECT_EQ(document.PageOf(u"lower"), 2);
  EXPECT_EQ(document.PageOf(u"after"), 2);
}

TEST(FileBreaks, ARowThatBeginsAPageHasAllItsCellsThere) {
  const std::string first = Row(Cell(P(Text("a"))) + Cell(P(Text("b"))));
  const std::string moved = Row(Cell(P(kMark + Text("left"))) + Cell(P(Text("right")))) +
                            Row(Cell(P(kMark + Text("one"))) + Cell(P(kMark + Text("two"))));
  Document document(Table(first + moved));
  EXPECT_EQ(document.PageOf(u"left"), 2);
  EXPECT_EQ(document.PageOf(u"right"), 2);
  EXPECT_EQ(document.PageOf(u"one"), 3);
  EXPECT_EQ(document.PageOf(u"two"), 3);
  EXPECT_EQ(document.Count(), 3);
}

TEST(FileBreaks, ATableInARowTakesTheRowAlong) {
  const std::string inner = Table(Row(Cell(P("")) + Cell(P(kMark + Text("inner")))));
  Document document(P(Text("a")) + Table(Row(Cell(inner + P("")) + Cell(P(Text("outer"))))) + P(Text("after")));
  EXPECT_EQ(document.PageOf(u"inner"), 2);
  EXPECT_EQ(document.PageOf(u"outer"), 2);
  EXPECT_EQ(document.PageOf(u"after"), 2);
}

TEST(FileBreaks, TablesInTablesTakeAllTheirRowsAlong) {
  const std::string inner = Table(Row(Cell(P(kMark + Text("inner")))));
  const std::string middle = Table(Row(Cell(inner + P("")) + Cell(P(Text("middle")))));
  Document document(P(Text("a")) + Table(Row(Cell(middle + P("")) + Cell(P(Text("outer"))))));
  EXPECT_EQ(document.PageOf(u"middle"), 2);
  EXPECT_EQ(document.PageOf(u"outer"), 2);
}

TEST(FileBreaks, PageBreaksInTablesDoNotCount) {
  Document document(Table(Row(Cell(P(Text("a") + kBreak + Text("b"))))) + kMarked);
  EXPECT_EQ(document.PageOf(u"b"), 1);
  EXPECT_EQ(document.PageOf(u"marked"), 2);
}

TEST(FileBreaks, FieldsAndHyperlinksAreReadThrough) {
  Document document("<w:p>" + InRun(Text("a")) + "<w:hyperlink>" + InRun(kMark + Text("link")) + "</w:hyperlink>" +
                    "<w:fldSimple w:instr=\" REF x \">" + InRun(kMark + Text("result")) + "</w:fldSimple></w:p>" +
                    "<w:sdt><w:sdtPr/><w:sdtContent>" + P(kMark + Text("control")) + "</w:sdtContent></w:sdt>");
  EXPECT_EQ(document.PageOf(u"link"), 2);
  EXPECT_EQ(document.PageOf(u"result"), 3);
  EXPECT_EQ(document.PageOf(u"control"), 4);
}

TEST(FileBreaks, AnEmptySectionEndBehindAPageBreakAddsNoPage) {
  EXPECT_EQ(Document(P(Text("a")) + P(kBreak, "<w:sectPr/>") + P(Text("b")) + "<w:sectPr/>").Count(), 2);
}

}  // namespace
