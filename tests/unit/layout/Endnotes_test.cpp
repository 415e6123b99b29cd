#include <gtest/gtest.h>

#include "tests/unit/layout/LaidOut.h"

using laid::Document;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Text;
using paged::Section;
using word::wdEndnotesStory;

namespace {

std::string Referring(const std::string& text, int id) {
  return P(Text(text) + "<w:endnoteReference w:id=\"" + std::to_string(id) + "\"/>", kTall);
}
std::string Note(int id, const std::string& text) {
  return "<w:endnote w:id=\"" + std::to_string(id) + "\">" + Lines(text, 1) + "</w:endnote>";
}
std::string EndOf(const std::string& section) { return "<w:p><w:pPr>" + kTall + section + "</w:pPr></w:p>"; }

/// A note in each of three sections, a page each.
Document ThreeSections(const std::string& place, const std::string& inFirst = {}) {
  Document document(Referring("a", 2) + EndOf(Section("nextPage", inFirst)) + Referring("b", 3) +
                    EndOf(Section("nextPage")) + Referring("c", 4) + Section("nextPage"));
  document.With("endnotes", Note(2, "one") + Note(3, "two") + Note(4, "three"));
  document.WithSettings("<w:endnotePr><w:pos w:val=\"" + place + "\"/></w:endnotePr>");
  return document;
}

TEST(LayoutEndnotes, StandAtTheDocumentsEndByThemselves) {
  Document document = ThreeSections("docEnd");
  EXPECT_EQ(document.PageOf(u"one1", wdEndnotesStory), 3);
  EXPECT_EQ(document.PageOf(u"two1", wdEndnotesStory), 3);
  EXPECT_EQ(document.PageOf(u"three1", wdEndnotesStory), 3);
}

TEST(LayoutEndnotes, StandAtTheEndOfTheirSectionsWhereTheDocumentSaysSo) {
  Document document = ThreeSections("sectEnd");
  EXPECT_EQ(document.PageOf(u"one1", wdEndnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"two1", wdEndnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"three1", wdEndnotesStory), 3);
}

TEST(LayoutEndnotes, GoOnToTheNextSectionFromOneThatHasNone) {
  Document document = ThreeSections("sectEnd", "<w:noEndnote/>");
  EXPECT_EQ(document.PageOf(u"one1", wdEndnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"two1", wdEndnotesStory), 2);
}

TEST(LayoutEndnotes, TakeRoomForTheirSeparatorOnlyWhereThereAreSome) {
  const std::string separator =
      "<w:endnote w:type=\"separator\" w:id=\"0\">" + P("<w:separator/>", kTall) + "</w:endnote>";
  Document document(Referring("a", 2));
  document.With("endnotes", separator + Note(2, "one"));
  const auto lines = document.Lines();
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_DOUBLE_EQ(lines.back().top, 1440 + 2 * 720);
  Document without(Lines("a", laid::kPerPage));
  without.With("endnotes", separator);
  EXPECT_EQ(without.Count(), 1);
}

}  // namespace
