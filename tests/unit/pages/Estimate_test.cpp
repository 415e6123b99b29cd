#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "hosts/docx/model/SectionBreaks.h"
#include "tests/unit/pages/PagedDocument.h"

using paged::Code;
using paged::Document;
using paged::FieldMark;
using paged::InRun;
using paged::kBreak;
using paged::kMark;
using paged::P;
using paged::Text;

namespace {

std::string Times(int count, const std::string& piece) {
  std::string all;
  for (int i = 0; i < count; ++i) all += piece;
  return all;
}
std::string Words(int count) { return Times(count, "word "); }

// Lines of exactly 24 points: 27 of them on a page of 648.
const std::string kSpacing = "<w:spacing w:line=\"480\" w:lineRule=\"exact\"/>";
std::string Lines(int count) { return Times(count, P(Text("x"), kSpacing)); }
std::string Last() { return P(Text("last"), kSpacing); }

TEST(Estimate, APageHoldsTheLinesThatItsHeightHolds) {
  EXPECT_EQ(Document(Lines(26) + Last()).PageOf(u"last"), 1);
  EXPECT_EQ(Document(Lines(27) + Last()).PageOf(u"last"), 2);
  EXPECT_EQ(Document(Lines(54) + Last()).PageOf(u"last"), 3);
}

TEST(Estimate, EmptyParagraphsAreLines) { EXPECT_EQ(Document(Times(27, P("", kSpacing)) + Last()).PageOf(u"last"), 2); }

TEST(Estimate, WhatIsPutInLeavesThePagesBeforeItsParagraphOrBeforeThatsEndAsTheyWere) {
  const std::string before = Lines(20) + "<w:tbl><w:tr><w:tc>" + Lines(4) + "</w:tc><w:tc>" + Lines(9) +
                             "</w:tc></w:tr></w:tbl>" + P(Text(Words(900))) + P(Text("x") + kBreak, kSpacing) +
                             Lines(26);
  const std::string section = "<w:sectPr><w:pgNumType w:fmt=\"upperRoman\" w:start=\"4\"/></w:sectPr>";
  for (const bool ownSection : {false, true}) {
    Document document(before + P(Text(Words(20) + "last")) + Lines(90) + section);
    EXPECT_TRUE(document.Pages().HoldsBefore());
    docx::Story& main = document.Parts().Main();
    const auto last = static_cast<docx::Position>(main.Text(0, main.Length()).find(u"last"));
    const docx::Position limit = ownSection ? last + 4 : main.ParagraphStart(last);
    const auto labelsOf = [&](const docx::Paginator& pages) {
      std::vector<std::u16string> labels;
      for (docx::Position at = 0; at < limit; ++at) labels.push_back(pages.LabelOf(pages.PageOf(main, at)));
      return labels;
    };
    const std::vector<std::u16string> labels = labelsOf(document.Pages());
    EXPECT_EQ(labels.back(), u"VI");
    // Behind the word, or in its place.
    const docx::Position at = ownSection ? last + 4 : last;
    for (int i = 0; i < 200; ++i) main.InsertText(at, u"\rmore");
    if (ownSection) docx::EncloseInSection(main, at, at + 199 * 5, 2, nullptr);
    std::shared_ptr<docx::layout::LayoutMemory> noLayout;
    const auto now = docx::MakePaginator(document.Parts(), docx::PageSource::kFile, nullptr, false, noLayout);
    EXPECT_GT(now->PageCount(), document.Count());
    EXPECT_EQ(labelsOf(*now), labels);
  }
}

TEST(Estimate, PagesThatWordLeftMayDependOnWhatComesLater) {
  EXPECT_FALSE(Document(Lines(2) + P(kMark + Text("x")) + Last()).Pages().HoldsBefore());
}

TEST(Estimate, StatedBreaksBeginAPageToFill) {
  Document document(Lines(20) + P(Text("x") + kBreak, kSpacing) + Lines(26) + Last());
  EXPECT_EQ(document.PageOf(u"last"), 2);
  EXPECT_EQ(document.Count(), 2);
  EXPECT_EQ(document.Pages().Basis(), "breaks in the file and an estimate");
}

TEST(Estimate, LargerMarginsTakeLines) {
  const std::string margins = "<w:sectPr><w:pgMar w:top=\"3840\" w:bottom=\"3840\"/></w:sectPr>";
  EXPECT_EQ(Document(Lines(17) + Last() + margins).PageOf(u"last"), 2);
  EXPECT_EQ(Document(Lines(16) + Last() + margins).PageOf(u"last"), 1);
}

TEST(Estimate, TheLargerSpaceBetweenParagraphsCounts) {
  const std::string apart = "<w:spacing w:line=\"480\" w:lineRule=\"exact\" w:before=\"240\" w:after=\"480\"/>";
  // 24 points each and 24 between them: 13 on a page, the last one's space not counted.
  EXPECT_EQ(Document(Times(12, P(Text("x"), apart)) + P(Text("last"), apart)).PageOf(u"last"), 1);
  EXPECT_EQ(Document(Times(14, P(Text("x"), apart)) + P(Text("last"), apart)).PageOf(u"last"), 2);
}

TEST(Estimate, SmallerTypeFillsFewerPages) {
  const auto sized = [](int halfPoints) {
    Document document(P(Text(Words(4000))));
    document.With("styles", "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val=\"" + std::to_string(halfPoints) +
                                "\"/></w:rPr></w:rPrDefault></w:docDefaults>");
    return document.Count();
  };
  // Room goes with the square of the size.
  EXPECT_GT(sized(24), 3 * sized(12) / 2);
  EXPECT_LT(sized(24), 6 * sized(12));
  EXPECT_GT(sized(16), 1);
}

TEST(Estimate, PagesAscendWithinALongParagraph) {
  Document document(P(Text(Words(2000) + "middle " + Words(2000) + "last")));
  EXPECT_EQ(document.PageOf(u"word"), 1);
  EXPECT_EQ(document.PageOf(u"last"), document.Count());
  EXPECT_EQ(document.PageOf(u"middle"), (document.Count() + 1) / 2);
  int before = 1;
  for (docx::Position at = 0; at < document.Parts().Main().Length(); at += 50) {
    const int page = document.Pages().PageOf(document.Parts().Main(), at);
    ASSERT_TRUE(page == before || page == before + 1) << at;
    before = page;
  }
}

TEST(Estimate, FieldsWithoutResultMoveNoText) {
  const std::string entry =
      FieldMark("begin") + Code(" XE \"a term that is long enough to matter here\" ") + FieldMark("end");
  const std::string plain = "<w:p>" + Times(300, InRun(Text(Words(8)))) + InRun(Text("last")) + "</w:p>";
  const std::string marked = "<w:p>" + Times(300, InRun(Text(Words(8))) + entry) + InRun(Text("last")) + "</w:p>";
  Document without(plain);
  Document with(marked);
  EXPECT_GT(without.Count(), 2);
  EXPECT_EQ(with.Count(), without.Count());
  // The page of each run of eight words is the same.
  const docx::Story& a = without.Parts().Main();
  const docx::Story& b = with.Parts().Main();
  const docx::Position step = (b.Length() - 5) / 300;
  for (int i = 0; i < 300; ++i) {
    ASSERT_EQ(with.Pages().PageOf(b, i * step), without.Pages().PageOf(a, i * 40)) << i;
  }
}

TEST(Estimate, ARowIsAsHighAsItsLongestCell) {
  const auto rows = [](const std::string& first, const std::string& second) {
    return "<w:tbl>" + Times(5, "<w:tr><w:tc>" + first + "</w:tc><w:tc>" + second + "</w:tc></w:tr>") + "</w:tbl>";
  };
  // 5 rows of 5 lines leave two lines on the page.
  EXPECT_EQ(Document(rows(Lines(5), Lines(2)) + Lines(1) + Last()).PageOf(u"last"), 1);
  EXPECT_EQ(Document(rows(Lines(5), Lines(2)) + Lines(2) + Last()).PageOf(u"last"), 2);
  EXPECT_EQ(Document(rows(Lines(2), Lines(5)) + Lines(1) + Last()).PageOf(u"last"), 1);
  EXPECT_EQ(Document(rows(Lines(2), Lines(5)) + Lines(2) + Last()).PageOf(u"last"), 2);
}

TEST(Estimate, ARowGoesWholeToTheNextPageWithItsFirstLine) {
  const std::string row = "<w:tbl><w:tr><w:tc>" + P(Text("left"), kSpacing) + "</w:tc><w:tc>" +
                          P(Text("right"), kSpacing) + "</w:tc></w:tr></w:tbl>";
  Document document(Lines(27) + row + Last());
  EXPECT_EQ(document.PageOf(u"left"), 2);
  EXPECT_EQ(document.PageOf(u"right"), 2);
  EXPECT_EQ(document.PageOf(u"last"), 2);
}

TEST(Estimate, FootnotesTakeRoomAtTheirReference) {
  const auto pages = [](int lines) {
    Document document(P(Text("x") + "<w:footnoteReference w:id=\"1\"/>", kSpacing) + Lines(20) + Last());
    document.With("footnotes", "<w:footnote w:id=\"1\">" + Lines(lines) + "</w:footnote>");
    return document.PageOf(u"last");
  };
  EXPECT_EQ(pages(5), 1);
  EXPECT_EQ(pages(6), 2);
}

TEST(Estimate, NotesDoNotEndLines) {
  const auto text = [](const std::string& between) { return P(Times(400, Text(Words(8)) + between) + Text("last")); };
  Document plain(text(Text(".")));
  Document noted(text("<w:footnoteReference w:id=\"1\"/>"));
  EXPECT_GT(plain.Count(), 2);
  EXPECT_EQ(noted.Count(), plain.Count());
}

TEST(Estimate, LineBreaksEndLines) {
  const std::string line = "<w:br/>";
  EXPECT_EQ(Document(P(Times(25, Text("x") + line) + Text("x"), kSpacing) + Last()).PageOf(u"last"), 1);
  EXPECT_EQ(Document(P(Times(26, Text("x") + line) + Text("x"), kSpacing) + Last()).PageOf(u"last"), 2);
}

TEST(Estimate, EndnotesTakeRoomBehindTheText) {
  Document document(P(Text("x") + "<w:endnoteReference w:id=\"1\"/>", kSpacing) + Lines(25));
  document.With("endnotes", "<w:endnote w:id=\"1\">" + Lines(1) + Last() + "</w:endnote>");
  EXPECT_EQ(document.PageOf(u"x", word::wdEndnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"last", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.Count(), 2);
}

TEST(Estimate, ColumnsShareAPage) {
  const std::string two = "<w:sectPr><w:cols w:num=\"2\"/></w:sectPr>";
  EXPECT_EQ(Document(Lines(53) + Last() + two).PageOf(u"last"), 1);
  EXPECT_EQ(Document(Lines(54) + Last() + two).PageOf(u"last"), 2);
}

TEST(Estimate, WhereWordHasLeftBreaksThereAreNoOthers) {
  Document document(Lines(60) + P(kMark + Text("marked")));
  EXPECT_EQ(document.PageOf(u"marked"), 2);
  EXPECT_EQ(document.Pages().Basis(), "breaks in the file");
}

TEST(Estimate, AnIndexThatWordHasNotLaidOutTakesItsRoom) {
  const auto withIndex = [](int entries) {
    return P(Text("start"), kSpacing) + P(kMark + Text("marked"), kSpacing) + "<w:p><w:pPr>" + kSpacing + "</w:pPr>" +
           FieldMark("begin") + Code(" INDEX \\e \", \" ") + FieldMark("separate") + InRun(Text("entry")) + "</w:p>" +
           Lines(entries) + "<w:p><w:pPr>" + kSpacing + "</w:pPr>" + FieldMark("end") + "</w:p>" + Last();
  };
  Document small(withIndex(10));
  EXPECT_EQ(small.PageOf(u"last"), 2);
  EXPECT_EQ(small.Pages().Basis(), "breaks in the file");
  Document large(withIndex(60));
  EXPECT_EQ(large.PageOf(u"entry"), 2);
  EXPECT_EQ(large.PageOf(u"last"), 4);
  EXPECT_EQ(large.Pages().Basis(), "breaks in the file and an estimate");
}

TEST(Estimate, BehindAnEstimatedIndexWordsBreaksHold) {
  const std::string index = "<w:p>" + FieldMark("begin") + Code("INDEX") + FieldMark("separate") +
                            InRun(Text("entry")) + FieldMark("end") + "</w:p>";
  Document document(index + Lines(60) + Last() + P(kMark + Text("marked")));
  EXPECT_EQ(document.PageOf(u"last"), 1);
  EXPECT_EQ(document.PageOf(u"marked"), 2);
}

TEST(Estimate, NoLineOfAParagraphStandsAlone) {
  const std::string wrapped = P(Text(Words(45) + "end"), kSpacing);
  // Three lines at ten points; where two would fit, the last would stand alone, so all go.
  Document alone(Lines(25) + wrapped);
  EXPECT_EQ(alone.PageOf(u"word"), 2);
  EXPECT_EQ(alone.PageOf(u"end"), 2);
  Document fitting(Lines(24) + wrapped);
  EXPECT_EQ(fitting.PageOf(u"word"), 1);
  EXPECT_EQ(fitting.PageOf(u"end"), 1);
}

TEST(Estimate, ImpossiblePagesEnd) {
  const std::string tiny =
      "<w:sectPr><w:pgSz w:w=\"0\" w:h=\"-5\"/><w:pgMar w:top=\"99999\" w:left=\"99999\"/>"
      "<w:cols w:num=\"10000\" w:space=\"9999\"/></w:sectPr>";
  const std::string huge = "<w:spacing w:before=\"999999\" w:line=\"999999\" w:lineRule=\"exact\"/>";
  Document document(Times(50, P(Text(Words(20)), huge)) + tiny);
  EXPECT_GE(document.Count(), 50);
  EXPECT_EQ(document.Pages().PageOf(document.Parts().Main(), document.Parts().Main().Length() - 1), document.Count());
}

}  // namespace
