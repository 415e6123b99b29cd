#include <gtest/gtest.h>

#include "tests/unit/layout/Drawn.h"
#include "tests/unit/layout/LaidOut.h"

using laid::Document;
using laid::kPerPage;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Text;

namespace {

std::string Referring(const std::string& text, int id, const std::string& kind = "footnote") {
  return P(Text(text) + "<w:" + kind + "Reference w:id=\"" + std::to_string(id) + "\"/>", kTall);
}

std::string Note(int id, const std::string& blocks, const std::string& kind = "footnote") {
  return "<w:" + kind + " w:id=\"" + std::to_string(id) + "\">" + blocks + "</w:" + kind + ">";
}

TEST(LayoutNotes, TakeRoomOnThePageOfTheirReference) {
  Document document(Referring("r", 2) + Lines("a", kPerPage));
  document.With("footnotes", Note(2, Lines("n", 3)));
  EXPECT_EQ(document.PageOf(u"a14"), 1);
  EXPECT_EQ(document.PageOf(u"a15"), 2);
  EXPECT_EQ(document.PageOf(u"n1", word::wdFootnotesStory), 1);
}

TEST(LayoutNotes, TakeTheirReferenceAlongWhenNotEvenALineFits) {
  Document document(Lines("a", kPerPage - 1) + Referring("r", 2));
  document.With("footnotes", Note(2, Lines("n", 3)));
  EXPECT_EQ(document.PageOf(u"r"), 2);
  EXPECT_EQ(document.PageOf(u"n1", word::wdFootnotesStory), 2);
}

TEST(LayoutNotes, GoOnOnTheNextPage) {
  Document document(Lines("a", kPerPage - 2) + Referring("r", 2) + Lines("b", kPerPage));
  document.With("footnotes", Note(2, Lines("n", 3)));
  EXPECT_EQ(document.PageOf(u"r"), 1);
  // Two lines of the note go over to the second page, and are counted there.
  EXPECT_EQ(document.PageOf(u"n1", word::wdFootnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"n2", word::wdFootnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"n3", word::wdFootnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"b16"), 2);
  EXPECT_EQ(document.PageOf(u"b17"), 3);
}

TEST(LayoutNotes, AreAsWideAsTheColumnsOfTheirOwnSection) {
  std::string words;
  for (int i = 0; i < 60; ++i) words += "word ";
  const std::string columns = "<w:cols w:num=\"2\" w:space=\"720\"/>";
  Document document(Lines("a", 1) + "<w:p><w:pPr>" + paged::Section("nextPage") + "</w:pPr></w:p>" + Referring("r", 2) +
                    paged::Section("nextPage", columns));
  document.With("footnotes", Note(2, P(Text(words))));
  const laid::Drawn page(document, 2);
  int lines = 0;
  for (const page::Line& line : page.Display().lines) {
    if (line.story != word::wdFootnotesStory) continue;
    ++lines;
    EXPECT_NEAR(line.area.Right(), laid::kLeft + (468 - 36) / 2.0, laid::kNear);
    EXPECT_LT(line.runs.back().edges.back(), line.area.Right() + 5);  // a blank may hang over
  }
  EXPECT_GT(lines, 4);
}

const std::string kSeparators = "<w:footnote w:type=\"separator\" w:id=\"0\">" + P("<w:separator/>", kTall) +
                                "</w:footnote><w:footnote w:type=\"continuationSeparator\" w:id=\"1\">" +
                                P("<w:continuationSeparator/>", kTall) + P("<w:continuationSeparator/>", kTall) +
                                "</w:footnote>";

TEST(LayoutNotes, TakeTheRoomOfTheirSeparatorOnceAPage) {
  Document document(Referring("r", 2) + Referring("s", 3) + Lines("a", kPerPage));
  document.With("footnotes", kSeparators + Note(2, Lines("n", 1)) + Note(3, Lines("m", 1)));
  // Two lines of text, two notes and the separator leave thirteen.
  EXPECT_EQ(document.PageOf(u"a13"), 1);
  EXPECT_EQ(document.PageOf(u"a14"), 2);
}

TEST(LayoutNotes, HaveAnotherSeparatorWhereTheyGoOn) {
  Document document(Lines("a", kPerPage - 3) + Referring("r", 2) + Lines("b", kPerPage));
  document.With("footnotes", kSeparators + Note(2, Lines("n", 3)));
  EXPECT_EQ(document.PageOf(u"n1", word::wdFootnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"n2", word::wdFootnotesStory), 2);
  // Two lines of the note under a separator of two lines.
  EXPECT_EQ(document.PageOf(u"b14"), 2);
  EXPECT_EQ(document.PageOf(u"b15"), 3);
}

TEST(LayoutNotes, StandUnderTheColumnOfTheirReference) {
  const std::string columns = "<w:cols w:num=\"2\" w:space=\"720\"/>";
  Document document(Referring("r", 2) + Lines("a", 2 * kPerPage) + paged::Section("nextPage", columns));
  document.With("footnotes", Note(2, Lines("n", 3)));
  // The first column has three lines fewer, the second one all of its own.
  EXPECT_EQ(document.PageOf(u"a32"), 1);
  EXPECT_EQ(document.PageOf(u"a33"), 2);
}

// The part of a row that stands on a page leaves room for its notes there.
TEST(LayoutNotes, GoWithTheirPartOfADividedRow) {
  const std::string cell = Lines("b", 2) + Referring("r", 2) + Lines("c", 6) + Referring("s", 3);
  Document document(Lines("a", kPerPage - 8) + laid::Table(laid::Row(laid::Cell(cell))));
  document.With("footnotes", Note(2, Lines("n", 2)) + Note(3, Lines("m", 1)));
  EXPECT_EQ(document.PageOf(u"r"), 1);
  EXPECT_EQ(document.PageOf(u"c3"), 1);
  EXPECT_EQ(document.PageOf(u"c4"), 2);
  EXPECT_EQ(document.PageOf(u"n2", word::wdFootnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"m1", word::wdFootnotesStory), 2);
}

TEST(LayoutNotes, StandBehindTheTextWhenTheyAreEndnotes) {
  Document document(Referring("r", 2, "endnote") + Lines("a", kPerPage - 2));
  document.With("endnotes", Note(2, Lines("n", 3), "endnote"));
  EXPECT_EQ(document.PageOf(u"n1", word::wdEndnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"n2", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.Count(), 2);
}

}  // namespace
