#include <gtest/gtest.h>

#include <string>

#include "tests/unit/pages/PagedDocument.h"

using paged::Document;
using paged::kBreak;
using paged::kMark;
using paged::P;
using paged::Text;

namespace {

std::string Reference(const std::string& kind, int id) {
  return "<w:" + kind + "Reference w:id=\"" + std::to_string(id) + "\"/>";
}
std::string Note(const std::string& kind, int id, const std::string& blocks) {
  return "<w:" + kind + " w:id=\"" + std::to_string(id) + "\">" + blocks + "</w:" + kind + ">";
}
std::string Foot(int id) { return Reference("footnote", id); }
std::string End(int id) { return Reference("endnote", id); }

TEST(NotePages, AFootnoteIsOnThePageOfItsReference) {
  Document document(P(Text("a") + Foot(5) + kMark + Text("b") + Foot(3) + kMark + Text("c")));
  document.With("footnotes",
                Note("footnote", 3, P(Text("second")) + P(Text("more"))) + Note("footnote", 5, P(Text("first"))));
  EXPECT_EQ(document.PageOf(u"first", word::wdFootnotesStory), 1);
  EXPECT_EQ(document.PageOf(u"second", word::wdFootnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"more", word::wdFootnotesStory), 2);
}

TEST(NotePages, EndnotesAreOnTheLastPage) {
  Document document(P(Text("a") + End(1) + kMark + Text("b")));
  document.With("endnotes", Note("endnote", 1, P(Text("note"))));
  EXPECT_EQ(document.PageOf(u"note", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.Count(), 2);
}

TEST(NotePages, EndnotesGoOnOverWordsLastBreaks) {
  Document document(P(Text("a") + End(1) + End(2) + kMark + Text("b")));
  document.With("endnotes",
                Note("endnote", 1, P(Text("note"))) + Note("endnote", 2, P(Text("start") + kMark + Text("rest"))));
  EXPECT_EQ(document.PageOf(u"start", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"rest", word::wdEndnotesStory), 3);
  EXPECT_EQ(document.Count(), 3);
  EXPECT_EQ(document.PageOf(u"b"), 2);
}

TEST(NotePages, EndnotesMayStandAtTheEndOfTheirSection) {
  Document document(P(Text("a") + End(1) + kMark + Text("b")) + P(Text("c"), "<w:sectPr/>") + P(Text("d") + End(2)) +
                    "<w:sectPr/>");
  document.With("endnotes", Note("endnote", 1, P(Text("note"))) + Note("endnote", 2, P(Text("other"))));
  document.With("settings", "<w:endnotePr><w:pos w:val=\"sectEnd\"/></w:endnotePr>");
  EXPECT_EQ(document.PageOf(u"note", word::wdEndnotesStory), 2);
  EXPECT_EQ(document.PageOf(u"other", word::wdEndnotesStory), 3);
}

}  // namespace
