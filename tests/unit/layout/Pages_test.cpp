#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Document;
using laid::kPerPage;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Paragraph;
using laid::Text;
using paged::Section;

namespace {

const std::string kBreak = paged::kBreak;

std::string EndOf(const std::string& section) { return "<w:p><w:pPr>" + kTall + section + "</w:pPr></w:p>"; }

TEST(LayoutPages, BeginWhereTheNextLineDoesNotFit) {
  Document document(Lines("a", kPerPage + 1));
  EXPECT_EQ(document.Count(), 2);
  EXPECT_EQ(document.PageOf(u"a18"), 1);
  EXPECT_EQ(document.PageOf(u"a19"), 2);
  EXPECT_EQ(document.Pages().Basis(), "layout");
}

// Neither the first nor the last line of a paragraph stands alone.
TEST(LayoutPages, LeaveNoLineAlone) {
  Document orphan(Lines("a", kPerPage - 1) + Paragraph("b", 4));
  EXPECT_EQ(orphan.PageOf(u"b1."), 2);
  Document widow(Lines("a", kPerPage - 3) + Paragraph("b", 4));
  EXPECT_EQ(widow.PageOf(u"b2."), 1);
  EXPECT_EQ(widow.PageOf(u"b3."), 2);
  Document three(Lines("a", kPerPage - 2) + Paragraph("b", 3));
  EXPECT_EQ(three.PageOf(u"b1."), 2);
}

TEST(LayoutPages, LeaveLinesAloneWithoutWidowControl) {
  Document document(Lines("a", kPerPage - 1) + Paragraph("b", 4, "<w:widowControl w:val=\"0\"/>"));
  EXPECT_EQ(document.PageOf(u"b1."), 1);
  EXPECT_EQ(document.PageOf(u"b2."), 2);
}

TEST(LayoutPages, KeepAParagraphsLinesTogetherThatWantsIt) {
  Document document(Lines("a", kPerPage - 3) + Paragraph("b", 4, "<w:keepLines/>"));
  EXPECT_EQ(document.PageOf(u"b1."), 2);
}

TEST(LayoutPages, KeepAHeadingWithWhatFollows) {
  Document document(Lines("a", kPerPage - 2) + Lines("h", 2, "<w:keepNext/>") + Lines("b", 1));
  EXPECT_EQ(document.PageOf(u"a16"), 1);
  EXPECT_EQ(document.PageOf(u"h1"), 2);
}

TEST(LayoutPages, BreakAChainOfHeadingsThatIsLongerThanAPage) {
  Document document(Lines("a", 3 * kPerPage, "<w:keepNext/>"));
  EXPECT_EQ(document.Count(), 3);
  EXPECT_EQ(document.PageOf(u"a18"), 1);
}

TEST(LayoutPages, BeginBeforeAParagraphThatWantsIt) {
  Document document(Lines("a", 1) + Lines("b", 1, "<w:pageBreakBefore/>"));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
}

// The mark of a paragraph that ends in a break stays on the break's page, so that no empty line begins the next one.
TEST(LayoutPages, BeginBehindABreakWithoutTheParagraphsMark) {
  Document document(P(Text("a") + kBreak, kTall) + Lines("b", kPerPage) + Lines("c", 1));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
  EXPECT_EQ(document.PageOf(u"b18"), 2);
  EXPECT_EQ(document.PageOf(u"c1"), 3);
}

// Seen in files of Word 2010 and 2013: it leaves no page blank for a paragraph that has nothing but a section's mark.
TEST(LayoutPages, LieBlankForNoMarkOfASectionBehindABreak) {
  const std::string pages = P(Text("a") + kBreak, kTall) + EndOf(Section("nextPage"));
  Document document(pages + Lines("b", 1) + Section("nextPage"));
  EXPECT_EQ(document.PageOf(u"b1"), 2);
  Document continuous(pages + Lines("b", 1) + Section("continuous"));
  EXPECT_EQ(continuous.PageOf(u"b1"), 2);
  Document text(P(Text("a") + kBreak, kTall) + P(Text("t"), kTall + Section("nextPage")) + Lines("b", 1));
  EXPECT_EQ(text.PageOf(u"b1"), 3);
}

TEST(LayoutPages, BeginWithAFrameBehindABreak) {
  const std::string frame = "<w:framePr w:w=\"3000\" w:wrap=\"around\" w:vAnchor=\"page\" w:hAnchor=\"page\"/>";
  Document document(P(Text("a") + kBreak, kTall) + Lines("f", 1, frame) + Lines("b", kPerPage) + Lines("c", 1));
  EXPECT_EQ(document.PageOf(u"f1"), 2);
  EXPECT_EQ(document.PageOf(u"b18"), 2);
  EXPECT_EQ(document.PageOf(u"c1"), 3);
}

TEST(LayoutPages, BeginInTheMiddleOfAParagraphAtABreak) {
  Document document(P(Text("a") + kBreak + Text("b"), kTall));
  EXPECT_EQ(document.PageOf(u"a"), 1);
  EXPECT_EQ(document.PageOf(u"b"), 2);
}

std::string Spaced(int before, int after, const std::string& more = {}) {
  return more + "<w:spacing w:before=\"" + std::to_string(before) + "\" w:after=\"" + std::to_string(after) +
         "\" w:line=\"720\" w:lineRule=\"exact\"/>";
}

double DistanceOf(const std::string& first, const std::string& second, const std::string& settings = {}) {
  Document document(P(Text("a"), first) + P(Text("b"), second));
  document.WithSettings(settings);
  const auto lines = document.Lines();
  return lines[1].top - lines[0].top - 720;
}

TEST(LayoutSpaces, TheLargerOfTwoCounts) {
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 200), Spaced(300, 0)), 300);
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 400), Spaced(300, 0)), 400);
}

TEST(LayoutSpaces, AreAddedWhereTheDocumentSaysSo) {
  const std::string settings = "<w:compat><w:doNotUseHTMLParagraphAutoSpacing/></w:compat>";
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 200), Spaced(300, 0), settings), 500);
}

TEST(LayoutSpaces, GoBetweenParagraphsOfOneStyleThatWantsIt) {
  const std::string contextual = "<w:contextualSpacing/>";
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 200, contextual), Spaced(300, 0, contextual)), 0);
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 200, contextual), Spaced(300, 0)), 300);
}

TEST(LayoutSpaces, GoAtTheTopOfAPageButNotBehindABreak) {
  Document flowing(Lines("a", kPerPage) + P(Text("b"), Spaced(300, 0)));
  EXPECT_DOUBLE_EQ(flowing.Lines().back().top, 1440);
  Document broken(Lines("a", 1) + P(Text("b"), Spaced(300, 0, "<w:pageBreakBefore/>")));
  EXPECT_DOUBLE_EQ(broken.Lines().back().top, 1740);
}

// The mark goes along where the document has the setting of old versions, and is an empty line there.
TEST(LayoutPages, BeginBehindABreakWithTheParagraphsMarkWhereTheDocumentSaysSo) {
  Document document(P(Text("a") + kBreak, kTall) + Lines("b", kPerPage));
  document.WithSettings("<w:compat><w:splitPgBreakAndParaMark/></w:compat>");
  EXPECT_EQ(document.PageOf(u"b17"), 2);
  EXPECT_EQ(document.PageOf(u"b18"), 3);
}

// In files of Word half a line is 120 twips without a grid, and 180 on one of 360.
TEST(LayoutSpaces, AreStatedInLinesOfTheGrid) {
  const auto space = [](const std::string& grid) {
    const std::string lines = "<w:spacing w:beforeLines=\"50\" w:before=\"1\" w:line=\"720\" w:lineRule=\"exact\"/>";
    Document document(P(Text("a"), kTall) + P(Text("b"), lines) + "<w:sectPr><w:docGrid " + grid + "/></w:sectPr>");
    const auto placed = document.Lines();
    return placed[1].top - placed[0].top - 720;
  };
  EXPECT_DOUBLE_EQ(space("w:linePitch=\"360\""), 120);
  EXPECT_DOUBLE_EQ(space("w:type=\"lines\" w:linePitch=\"360\""), 180);
}

/// A page that Word began two lines before the layout would have.
std::string WithLastBreak(int line) {
  std::string blocks;
  for (int i = 1; i <= 2 * kPerPage; ++i) {
    blocks += P((i == line ? paged::kMark : "") + Text("a" + std::to_string(i) + "."), kTall);
  }
  return blocks;
}

TEST(LayoutLastBreaks, CountWhereTheyAreStillTrue) {
  Document document(WithLastBreak(kPerPage));
  document.source = docx::PageSource::kAuto;
  EXPECT_EQ(document.PageOf(u"a17."), 1);
  EXPECT_EQ(document.PageOf(u"a18."), 2);
  EXPECT_EQ(document.Pages().Basis(), "layout and breaks that Word left");
  Document later(WithLastBreak(kPerPage + 2));
  later.source = docx::PageSource::kAuto;
  EXPECT_EQ(later.PageOf(u"a19."), 1);
  EXPECT_EQ(later.PageOf(u"a20."), 2);
}

TEST(LayoutLastBreaks, DoNotCountFarFromWhereAPageEnds) {
  Document document(WithLastBreak(7));
  document.source = docx::PageSource::kAuto;
  EXPECT_EQ(document.PageOf(u"a18."), 1);
  EXPECT_EQ(document.PageOf(u"a19."), 2);
  EXPECT_EQ(document.Pages().Basis(), "layout");
}

// Word notes its break behind the one that the text has; the line with the break stays before it.
TEST(LayoutLastBreaks, DoNotMoveTheBreakThatTheyFollow) {
  Document document(Lines("a", 2) + P(kBreak + paged::kMark, kTall) + Lines("b", 1));
  document.source = docx::PageSource::kAuto;
  const docx::layout::DocumentLayout layout(document.Parts(), true);
  EXPECT_EQ(layout.PageCount(), 2);
  EXPECT_EQ(layout.PageShowing(word::wdMainTextStory, 6), 1);
  EXPECT_EQ(document.PageOf(u"b1"), 2);
}

TEST(LayoutLastBreaks, DoNotCountForTheLayoutAlone) {
  Document document(WithLastBreak(kPerPage));
  EXPECT_EQ(document.PageOf(u"a18."), 1);
}

TEST(LayoutSections, BeginPagesAndCountBlankOnes) {
  Document document(Lines("a", 1) + EndOf(Section("nextPage")) + Lines("b", 1) + Section("oddPage"));
  EXPECT_EQ(document.PageOf(u"b1"), 3);
  EXPECT_EQ(document.Count(), 3);
}

TEST(LayoutSections, GoOnOnThePageWhenContinuous) {
  Document document(Lines("a", 1) + EndOf(Section("nextPage")) + Lines("b", kPerPage) + Section("continuous"));
  EXPECT_EQ(document.PageOf(u"b1"), 1);
  EXPECT_EQ(document.PageOf(u"b16"), 1);
  EXPECT_EQ(document.PageOf(u"b17"), 2);
}

TEST(LayoutSections, FillOneColumnAfterTheOther) {
  const std::string columns = "<w:cols w:num=\"2\" w:space=\"720\"/>";
  Document document(Lines("a", 2 * kPerPage + 1) + Section("nextPage", columns));
  EXPECT_EQ(document.Count(), 2);
  EXPECT_EQ(document.PageOf(u"a36"), 1);
  EXPECT_EQ(document.PageOf(u"a37"), 2);
}

TEST(LayoutSections, LevelTheirColumnsBeforeAContinuousOne) {
  const std::string columns = "<w:cols w:num=\"2\" w:space=\"720\"/>";
  Document document(Lines("a", 9) + EndOf(Section("nextPage", columns)) + Lines("b", 14) + Section("continuous"));
  // Ten lines in two columns take the height of five.
  EXPECT_EQ(document.PageOf(u"b13"), 1);
  EXPECT_EQ(document.PageOf(u"b14"), 2);
}

TEST(LayoutSections, HaveTheirOwnPaper) {
  const std::string wide = "<w:pgSz w:w=\"15840\" w:h=\"12240\"/>";
  Document document(Lines("a", 14) + Section("nextPage", wide));
  EXPECT_EQ(document.PageOf(u"a13"), 1);
  EXPECT_EQ(document.PageOf(u"a14"), 2);
}

TEST(LayoutSections, PrintTheirOwnNumbers) {
  Document document(Lines("a", 1) + EndOf(Section("nextPage", "<w:pgNumType w:fmt=\"lowerRoman\"/>")) + Lines("b", 1) +
                    Section("nextPage", "<w:pgNumType w:start=\"1\"/>"));
  EXPECT_EQ(document.Pages().LabelOf(1), u"i");
  EXPECT_EQ(document.Pages().LabelOf(2), u"1");
}

/// Enough lines for two pages, under a header of three lines: 72 points deeper than the margin, or two lines.
Document UnderHeader(const std::string& type, const std::string& more = {}) {
  Document document(Lines("a", 3 * kPerPage) + "<w:sectPr><w:headerReference w:type=\"" + type + "\" w:id=\"rId1\"/>" +
                    more + "</w:sectPr>");
  document.WithHeader(Lines("h", 3));
  return document;
}

TEST(LayoutHeaders, PushTheTextDown) {
  Document document = UnderHeader("default");
  EXPECT_EQ(document.PageOf(u"a16"), 1);
  EXPECT_EQ(document.PageOf(u"a17"), 2);
  EXPECT_EQ(document.PageOf(u"a33"), 3);
}

TEST(LayoutHeaders, OfAFirstPagePushItsTextOnly) {
  Document document = UnderHeader("first", "<w:titlePg/>");
  EXPECT_EQ(document.PageOf(u"a17"), 2);
  EXPECT_EQ(document.PageOf(u"a34"), 2);
  EXPECT_EQ(document.PageOf(u"a35"), 3);
  Document without = UnderHeader("first");
  EXPECT_EQ(without.PageOf(u"a18"), 1);
}

TEST(LayoutHeaders, OfEvenPagesPushTheirTextOnly) {
  Document document = UnderHeader("even");
  document.WithSettings("<w:evenAndOddHeaders/>");
  EXPECT_EQ(document.PageOf(u"a18"), 1);
  EXPECT_EQ(document.PageOf(u"a34"), 2);
  EXPECT_EQ(document.PageOf(u"a35"), 3);
}

// A margin below zero is one that nothing pushes.
TEST(LayoutHeaders, LeaveAFixedMarginAlone) {
  Document document = UnderHeader("default", "<w:pgMar w:top=\"-1440\" w:bottom=\"1440\" w:header=\"720\"/>");
  EXPECT_EQ(document.PageOf(u"a18"), 1);
  EXPECT_EQ(document.PageOf(u"a19"), 2);
}

// As browsers have it: 14 points, and none between the items of a list.
TEST(LayoutSpaces, AreThoseOfAWebPageWhereTheyAreAutomatic) {
  const std::string automatic =
      "<w:spacing w:before=\"0\" w:beforeAutospacing=\"1\" w:after=\"0\" w:line=\"720\" w:lineRule=\"exact\"/>";
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 0), automatic), 280);
  EXPECT_DOUBLE_EQ(DistanceOf(Spaced(0, 400), automatic), 400);
}

}  // namespace
