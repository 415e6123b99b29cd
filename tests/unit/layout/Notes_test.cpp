#include <gtest/gtest.h>

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

TEST(LayoutNotes, StandBehindTheTextWhenTheyAreEndnotes) {
  Document document(Referring("r", 2, "endnote") + Lines("a", kPerPage - 2));
  document.With("endnotes", Note(2, Lines("n", 3), "endnote"));
  EXPECT_EQ(document.PageOf(u"n1", word::wdEndnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"n2", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.Count(), 2);
}

}  // namespace
