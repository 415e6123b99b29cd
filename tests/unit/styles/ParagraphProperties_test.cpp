#include "hosts/docx/styles/ParagraphProperties.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "platform/word/Constants.h"
#include "tests/unit/styles/Parts.h"

using docx::SetAlignment;
using docx::SetSpaceAfter;
using docx::SetSpaceBefore;

namespace {

const std::string kStyles =
    "<w:style w:type=\"paragraph\" w:styleId=\"Centred\"><w:pPr><w:spacing w:before=\"240\"/><w:jc w:val=\"center\"/>"
    "</w:pPr></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Web\"><w:pPr><w:spacing w:before=\"100\" w:beforeLines=\"50\" "
    "w:beforeAutospacing=\"1\"/></w:pPr></w:style>";

/// A paragraph that starts with this.
class Paragraph : public parts::Sample {
 public:
  explicit Paragraph(const std::string& start, const std::string& uri = parts::kTransitional)
      : Sample("p", "<w:p>" + start + "<w:r/></w:p>", "<w:r/>", kStyles, uri) {}
};

TEST(ParagraphProperties, AlignmentIsSetAndTakenAway) {
  Paragraph p("");
  EXPECT_TRUE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphJustify));
  EXPECT_EQ(p.Start(), "<w:pPr><w:jc w:val=\"both\"/></w:pPr>");
  EXPECT_FALSE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphJustify));
  EXPECT_TRUE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphLeft));
  EXPECT_EQ(p.Start(), "");
}

TEST(ParagraphProperties, AnEmptyContainerSurvives) {
  Paragraph p("<w:pPr/>");
  SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphCenter);
  EXPECT_EQ(p.Start(), "<w:pPr><?kelvarin keep?><w:jc w:val=\"center\"/></w:pPr>");
  SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphLeft);
  EXPECT_EQ(p.Start(), "<w:pPr/>");
}

TEST(ParagraphProperties, AnAlignmentAmongBlanksComesBackInItsPlace) {
  for (const std::string start :
       {"<w:pPr>\n <w:jc w:val=\"both\"/>\n</w:pPr>", "<w:pPr>\n <w:jc w:val=\"both\"/></w:pPr>",
        "<w:pPr>\n <w:pStyle w:val=\"Centred\"/>\n <w:rPr/>\n</w:pPr>"}) {
    Paragraph p(start);
    const int before = p.Format().Alignment(p.Node());
    SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphLeft);
    SetAlignment(p.Format(), p.Node(), before);
    EXPECT_EQ(p.Start(), start);
  }
}

TEST(ParagraphProperties, AValueThatShowsAlreadyChangesNothing) {
  Paragraph p("<w:pPr><w:pStyle w:val=\"Centred\"/></w:pPr>");
  EXPECT_FALSE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphCenter));
  EXPECT_FALSE(SetSpaceBefore(p.Format(), p.Node(), 12));
  EXPECT_FALSE(SetSpaceAfter(p.Format(), p.Node(), 0));
  EXPECT_FALSE(p.Part().Changed());
}

TEST(ParagraphProperties, TheStylesValueIsOverridden) {
  Paragraph p("<w:pPr><w:pStyle w:val=\"Centred\"/><w:ind w:left=\"1\"/><w:sectPr/></w:pPr>");
  EXPECT_TRUE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphLeft));
  EXPECT_TRUE(SetSpaceBefore(p.Format(), p.Node(), 0));
  EXPECT_EQ(p.Start(),
            "<w:pPr><w:pStyle w:val=\"Centred\"/><w:spacing w:before=\"0\"/><w:ind w:left=\"1\"/><w:jc w:val=\"left\"/>"
            "<w:sectPr/></w:pPr>");
  EXPECT_EQ(p.Format().Alignment(p.Node()), word::wdAlignParagraphLeft);
  EXPECT_EQ(p.Format().SpaceBefore(p.Node()), 0);
  EXPECT_TRUE(SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphCenter));
  EXPECT_TRUE(SetSpaceBefore(p.Format(), p.Node(), 12));
  EXPECT_EQ(p.Start(), "<w:pPr><w:pStyle w:val=\"Centred\"/><w:ind w:left=\"1\"/><w:sectPr/></w:pPr>");
}

TEST(ParagraphProperties, StrictDocumentsSayStartAndEnd) {
  Paragraph p("", parts::kStrict);
  SetAlignment(p.Format(), p.Node(), word::wdAlignParagraphRight);
  EXPECT_EQ(p.Start(), "<w:pPr><w:jc w:val=\"end\"/></w:pPr>");
}

TEST(ParagraphProperties, SpacingKeepsWhatElseItSays) {
  Paragraph p("<w:pPr><w:spacing w:after=\"120\" w:line=\"276\" w:lineRule=\"auto\"/></w:pPr>");
  EXPECT_TRUE(SetSpaceBefore(p.Format(), p.Node(), 1.5));
  EXPECT_TRUE(SetSpaceAfter(p.Format(), p.Node(), 0));
  EXPECT_EQ(p.Start(), "<w:pPr><w:spacing w:line=\"276\" w:lineRule=\"auto\" w:before=\"30\"/></w:pPr>");
  EXPECT_EQ(p.Format().SpaceBefore(p.Node()), 1.5);
}

TEST(ParagraphProperties, SpacingOfItsOwnGoesWithItsLastValue) {
  Paragraph p("");
  SetSpaceBefore(p.Format(), p.Node(), 6);
  SetSpaceAfter(p.Format(), p.Node(), 3);
  EXPECT_EQ(p.Start(), "<w:pPr><w:spacing w:before=\"120\" w:after=\"60\"/></w:pPr>");
  SetSpaceAfter(p.Format(), p.Node(), 0);
  SetSpaceBefore(p.Format(), p.Node(), 0);
  EXPECT_EQ(p.Start(), "");
}

TEST(ParagraphProperties, AutomaticSpacingEndsWhereASpaceIsSet) {
  Paragraph own(
      "<w:pPr><w:spacing w:before=\"100\" w:beforeAutospacing=\"1\" w:after=\"100\" "
      "w:afterAutospacing=\"1\"/></w:pPr>");
  EXPECT_TRUE(SetSpaceBefore(own.Format(), own.Node(), 5));
  EXPECT_EQ(own.Start(), "<w:pPr><w:spacing w:before=\"100\" w:after=\"100\" w:afterAutospacing=\"1\"/></w:pPr>");
  EXPECT_TRUE(SetSpaceAfter(own.Format(), own.Node(), 0));
  EXPECT_EQ(own.Start(), "<w:pPr><w:spacing w:before=\"100\"/></w:pPr>");
}

TEST(ParagraphProperties, AutomaticSpacingOfTheStyleIsSwitchedOff) {
  Paragraph p("<w:pPr><w:pStyle w:val=\"Web\"/></w:pPr>");
  EXPECT_TRUE(SetSpaceBefore(p.Format(), p.Node(), 0));
  EXPECT_EQ(p.Start(),
            "<w:pPr><w:pStyle w:val=\"Web\"/><w:spacing w:before=\"0\" w:beforeLines=\"0\" "
            "w:beforeAutospacing=\"0\"/></w:pPr>");
  EXPECT_FALSE(SetSpaceBefore(p.Format(), p.Node(), 0));
}

TEST(ParagraphProperties, AnAlignmentThatWordDoesNotHaveIsRefused) {
  Paragraph p("");
  EXPECT_THROW(SetAlignment(p.Format(), p.Node(), 6), std::out_of_range);
  EXPECT_EQ(p.Start(), "");
}

}  // namespace
