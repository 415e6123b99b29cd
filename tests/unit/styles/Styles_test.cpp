#include "hosts/docx/styles/Styles.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/styles/Parts.h"

using docx::Style;
using docx::Styles;
using docx::StyleType;
using parts::StylesOf;

namespace {

std::string ParagraphStyle(const std::string& id, const std::string& content, const std::string& attributes = "") {
  return "<w:style w:type=\"paragraph\" w:styleId=\"" + id + "\" " + attributes + ">" + content + "</w:style>";
}

TEST(Styles, ADocumentWithoutStylesPartHasNoStyles) {
  const Styles styles(nullptr);
  EXPECT_EQ(styles.ById("Normal"), nullptr);
  EXPECT_EQ(styles.Paragraph(""), nullptr);
  EXPECT_FALSE(styles.RunDefaults().bold.has_value());
  EXPECT_FALSE(styles.AnyHidden());
}

TEST(Styles, AStyleIsFoundByIdAsWritten) {
  const StylesOf given(ParagraphStyle("Heading1", "<w:name w:val=\"heading 1\"/>"));
  ASSERT_NE(given.styles.ById("Heading1"), nullptr);
  EXPECT_EQ(given.styles.ById("Heading1")->name, "heading 1");
  EXPECT_EQ(given.styles.ById("heading1"), nullptr);
}

TEST(Styles, AStyleIsFoundByNameInAnyCase) {
  const StylesOf given(ParagraphStyle("a17", "<w:name w:val=\"index 1\"/>"));
  ASSERT_NE(given.styles.ByName("Index 1"), nullptr);
  EXPECT_EQ(given.styles.ByName("Index 1")->id, "a17");
  EXPECT_EQ(given.styles.ByName("index 2"), nullptr);
}

TEST(Styles, AStyleHasWhatItsBaseStatesUnlessItStatesItself) {
  const StylesOf given(
      ParagraphStyle("C", "<w:basedOn w:val=\"B\"/><w:pPr><w:spacing w:after=\"40\"/></w:pPr>") +
      ParagraphStyle("B", "<w:basedOn w:val=\"A\"/><w:rPr><w:b w:val=\"0\"/></w:rPr>") +
      ParagraphStyle("A",
                     "<w:pPr><w:spacing w:before=\"120\" w:after=\"240\"/><w:jc w:val=\"center\"/></w:pPr>"
                     "<w:rPr><w:b/><w:vanish/><w:color w:val=\"FF0000\"/></w:rPr>"));
  const Style* c = given.styles.ById("C");
  EXPECT_EQ(c->run.bold, false);
  EXPECT_EQ(c->run.hidden, true);
  EXPECT_EQ(c->run.color, 255);
  EXPECT_EQ(c->paragraph.before.twips, 120);
  EXPECT_EQ(c->paragraph.after.twips, 40);
  EXPECT_EQ(c->paragraph.alignment, 1);
}

TEST(Styles, StylesBasedOnEachOtherKeepWhatTheyState) {
  const StylesOf given(ParagraphStyle("A", "<w:basedOn w:val=\"B\"/><w:rPr><w:b/></w:rPr>") +
                       ParagraphStyle("B", "<w:basedOn w:val=\"A\"/><w:rPr><w:sz w:val=\"30\"/></w:rPr>") +
                       ParagraphStyle("Self", "<w:basedOn w:val=\"Self\"/><w:rPr><w:b/></w:rPr>"));
  EXPECT_EQ(given.styles.ById("A")->run.bold, true);
  EXPECT_EQ(given.styles.ById("A")->run.size, 30);
  EXPECT_EQ(given.styles.ById("B")->run.size, 30);
  EXPECT_EQ(given.styles.ById("Self")->run.bold, true);
}

TEST(Styles, ABaseThatIsMissingOrOfAnotherTypeCountsAsNone) {
  const StylesOf given(
      ParagraphStyle("A", "<w:basedOn w:val=\"Nowhere\"/><w:rPr><w:b/></w:rPr>") +
      "<w:style w:type=\"character\" w:styleId=\"C\"><w:basedOn w:val=\"A\"/><w:rPr><w:vanish/></w:rPr></w:style>");
  EXPECT_EQ(given.styles.ById("A")->run.bold, true);
  EXPECT_FALSE(given.styles.ById("C")->run.bold.has_value());
}

TEST(Styles, AVeryLongChainOfBasesIsFollowedToItsEnd) {
  std::string xml;
  constexpr int kLength = 20000;
  for (int i = 0; i < kLength; ++i) {
    xml += ParagraphStyle("s" + std::to_string(i), "<w:basedOn w:val=\"s" + std::to_string(i + 1) + "\"/>");
  }
  xml += ParagraphStyle("s" + std::to_string(kLength), "<w:rPr><w:b/></w:rPr>");
  const StylesOf given(xml);
  EXPECT_EQ(given.styles.ById("s0")->run.bold, true);
}

TEST(Styles, AnUnknownOrUnfitNameMeansTheDefaultStyleOfTheType) {
  const StylesOf given(ParagraphStyle("N", "", "w:default=\"1\"") + ParagraphStyle("H", "") +
                       "<w:style w:type=\"character\" w:default=\"1\" w:styleId=\"D\"/>");
  EXPECT_EQ(given.styles.Paragraph("H")->id, "H");
  EXPECT_EQ(given.styles.Paragraph("")->id, "N");
  EXPECT_EQ(given.styles.Paragraph("Nowhere")->id, "N");
  EXPECT_EQ(given.styles.Paragraph("D")->id, "N");
  EXPECT_EQ(given.styles.Character("H")->id, "D");
}

TEST(Styles, OfEqualIdsTheFirstCounts) {
  const StylesOf given(ParagraphStyle("A", "<w:name w:val=\"one\"/>") + ParagraphStyle("A", "<w:name w:val=\"two\"/>"));
  EXPECT_EQ(given.styles.ById("A")->name, "one");
}

TEST(Styles, TheDefaultsAreKeptApart) {
  const StylesOf given(
      "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val=\"22\"/></w:rPr></w:rPrDefault><w:pPrDefault><w:pPr>"
      "<w:spacing w:after=\"160\" w:line=\"259\" w:lineRule=\"auto\"/></w:pPr></w:pPrDefault></w:docDefaults>" +
      ParagraphStyle("N", ""));
  EXPECT_EQ(given.styles.RunDefaults().size, 22);
  EXPECT_EQ(given.styles.ParagraphDefaults().after.twips, 160);
  EXPECT_EQ(given.styles.ParagraphDefaults().line, 259);
  EXPECT_EQ(given.styles.ParagraphDefaults().lineIsAuto, true);
  EXPECT_FALSE(given.styles.ById("N")->run.size.has_value());
}

TEST(Styles, HiddenTextInAStyleIsKnown) {
  EXPECT_TRUE(StylesOf(ParagraphStyle("A", "<w:rPr><w:vanish/></w:rPr>")).styles.AnyHidden());
  EXPECT_FALSE(StylesOf(ParagraphStyle("A", "<w:rPr><w:vanish w:val=\"0\"/></w:rPr>")).styles.AnyHidden());
}

TEST(Styles, MeasuresMayCarryUnitsAndNonsenseCountsAsNothing) {
  const StylesOf given(ParagraphStyle("A",
                                      "<w:pPr><w:spacing w:before=\"12pt\" w:after=\"0.5in\"/></w:pPr>"
                                      "<w:rPr><w:sz w:val=\"11pt\"/><w:color w:val=\"red\"/></w:rPr>") +
                       ParagraphStyle("B",
                                      "<w:pPr><w:spacing w:before=\"many\" w:after=\"1e300\"/></w:pPr>"
                                      "<w:rPr><w:sz w:val=\"99999999999999999999\"/></w:rPr>"));
  EXPECT_EQ(given.styles.ById("A")->paragraph.before.twips, 240);
  EXPECT_EQ(given.styles.ById("A")->paragraph.after.twips, 720);
  EXPECT_EQ(given.styles.ById("A")->run.size, 22);
  EXPECT_FALSE(given.styles.ById("A")->run.color.has_value());
  EXPECT_FALSE(given.styles.ById("B")->paragraph.before.twips.has_value());
  EXPECT_FALSE(given.styles.ById("B")->paragraph.after.twips.has_value());
  EXPECT_FALSE(given.styles.ById("B")->run.size.has_value());
}

TEST(Styles, ReadingAnewForgetsWhatWas) {
  StylesOf given(ParagraphStyle("A", "<w:rPr><w:vanish/></w:rPr>", "w:default=\"1\""));
  given.styles.Read(nullptr);
  EXPECT_EQ(given.styles.ById("A"), nullptr);
  EXPECT_EQ(given.styles.Paragraph(""), nullptr);
  EXPECT_FALSE(given.styles.AnyHidden());
}

}  // namespace
