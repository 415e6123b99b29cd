#include <gtest/gtest.h>

#include <string>

#include "tests/unit/layout/Drawn.h"

using laid::Document;
using laid::Drawn;
using laid::InRun;
using laid::Lines;
using laid::Text;
using paged::Code;
using paged::FieldMark;

namespace {

std::string Field(const std::string& code) {
  return FieldMark("begin") + Code(code) + FieldMark("separate") + InRun(Text("old")) + FieldMark("end");
}

/// A page of a document of three pages, with a header that has a field in brackets.
std::u16string HeaderWith(int page, const std::string& field) {
  const std::string reference = "<w:headerReference w:type=\"default\" w:id=\"rId1\"/>";
  const std::string first = "<w:sectPr>" + reference + "<w:pgNumType w:start=\"7\"/></w:sectPr>";
  Document document(Lines("a", 1) + "<w:p><w:pPr>" + first + "</w:pPr></w:p>" + Lines("b", laid::kPerPage + 1) +
                    "<w:sectPr>" + reference + "</w:sectPr>");
  document.WithHeader("<w:p>" + InRun(Text("[")) + field + InRun(Text("]")) + "</w:p>");
  const Drawn drawn(document, page);
  return laid::TextOf(drawn.Line(u"["));
}
std::u16string HeaderOf(int page, const std::string& code) { return HeaderWith(page, Field(code)); }

TEST(LayoutPageFields, PrintThePageTheDocumentsPagesAndTheSections) {
  EXPECT_EQ(HeaderOf(2, " PAGE "), u"[8]");
  EXPECT_EQ(HeaderOf(2, " NUMPAGES "), u"[3]");
  EXPECT_EQ(HeaderOf(1, " SECTIONPAGES "), u"[1]");
  EXPECT_EQ(HeaderOf(3, "SECTIONPAGES"), u"[2]");
}

TEST(LayoutPageFields, PrintInTheFormatThatTheyAskFor) {
  EXPECT_EQ(HeaderOf(2, " PAGE \\* roman "), u"[viii]");
  EXPECT_EQ(HeaderOf(2, " PAGE \\* ROMAN \\* MERGEFORMAT "), u"[VIII]");
  EXPECT_EQ(HeaderOf(2, " page\\*alphabetic"), u"[h]");
  EXPECT_EQ(HeaderOf(3, " NUMPAGES \\* ALPHABETIC "), u"[C]");
  EXPECT_EQ(HeaderOf(2, " PAGE \\* MERGEFORMAT "), u"[8]");
  EXPECT_EQ(HeaderOf(2, " PAGE \\* "), u"[8]");
}

TEST(LayoutPageFields, AreNotEndedByMarksInsideOfTheirElement) {
  const auto simple = [](const std::string& content) {
    return "<w:fldSimple w:instr=\"PAGE\">" + content + "</w:fldSimple>";
  };
  const std::string end = FieldMark("end");
  EXPECT_EQ(HeaderWith(2, simple(InRun(Text("old")))), u"[8]");
  EXPECT_EQ(HeaderWith(2, simple(end + InRun(Text("old")))), u"[8]");
  EXPECT_EQ(HeaderWith(2, simple(simple(end + end + end) + InRun(Text("old"))) + end), u"[8]");
  EXPECT_EQ(HeaderWith(2, simple(FieldMark("begin") + FieldMark("separate") + InRun(Text("old"))) + end), u"[8]");
}

TEST(LayoutPageFields, LeaveOtherFieldsAsTheyWere) { EXPECT_EQ(HeaderOf(2, " PAGEREF x "), u"[old]"); }

}  // namespace
