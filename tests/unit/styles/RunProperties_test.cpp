#include "hosts/docx/styles/RunProperties.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "platform/word/Constants.h"
#include "tests/unit/styles/Parts.h"

using docx::Formatting;
using docx::Highlighter;
using docx::SameRunFormatting;
using docx::SetBold;
using docx::SetColor;
using docx::SetHighlight;
using docx::XmlNode;
using docx::XmlPart;
using parts::Document;
using parts::Nth;

namespace {

const std::string kStyles =
    "<w:style w:type=\"character\" w:styleId=\"Lit\"><w:rPr><w:highlight w:val=\"yellow\"/></w:rPr></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Lines\"><w:rPr><w:highlight w:val=\"yellow\"/></w:rPr></w:style>"
    "<w:style w:type=\"character\" w:styleId=\"Strong\"><w:rPr><w:b/><w:color w:val=\"FF0000\"/></w:rPr></w:style>";

/// A paragraph with one run that starts with this.
class SampleRun : public parts::Sample {
 public:
  explicit SampleRun(const std::string& start)
      : Sample("r", "<w:p><w:r>" + start + "<w:t>a</w:t></w:r></w:p>", "<w:t>", kStyles) {}
};

TEST(RunProperties, AHighlightMakesTheContainerAndItsRemovalTakesItAway) {
  SampleRun run("");
  EXPECT_TRUE(SetHighlight(run.Format(), run.Node(), word::wdBrightGreen));
  EXPECT_EQ(run.Start(), "<w:rPr><w:highlight w:val=\"green\"/></w:rPr>");
  EXPECT_EQ(run.Format().Highlight(run.Node()), word::wdBrightGreen);
  EXPECT_TRUE(run.Part().Changed());
  EXPECT_TRUE(SetHighlight(run.Format(), run.Node(), word::wdNoHighlight));
  EXPECT_EQ(run.Start(), "");
}

TEST(RunProperties, AnEmptyContainerSurvivesAHighlight) {
  SampleRun run("<w:rPr/>");
  SetHighlight(run.Format(), run.Node(), word::wdYellow);
  EXPECT_EQ(run.Start(), "<w:rPr><?kelvarin keep?><w:highlight w:val=\"yellow\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdNoHighlight);
  EXPECT_EQ(run.Start(), "<w:rPr/>");
}

TEST(RunProperties, AnEmptyContainerSurvivesTwoPropertiesTakenAwayOneAfterTheOther) {
  SampleRun run("<w:rPr/>");
  SetHighlight(run.Format(), run.Node(), word::wdYellow);
  SetBold(run.Format(), run.Node(), true);
  EXPECT_EQ(run.Start(), "<w:rPr><?kelvarin keep?><w:b/><w:highlight w:val=\"yellow\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdNoHighlight);
  EXPECT_EQ(run.Start(), "<w:rPr><?kelvarin keep?><w:b/></w:rPr>");
  SetBold(run.Format(), run.Node(), false);
  EXPECT_EQ(run.Start(), "<w:rPr/>");
}

TEST(RunProperties, AnExplicitNoneComesBack) {
  SampleRun run("<w:rPr><w:highlight w:val=\"none\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdYellow);
  EXPECT_EQ(run.Start(), "<w:rPr><?kelvarin highlight none?><w:highlight w:val=\"yellow\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdRed);
  EXPECT_EQ(run.Start(), "<w:rPr><?kelvarin highlight none?><w:highlight w:val=\"red\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdNoHighlight);
  EXPECT_EQ(run.Start(), "<w:rPr><w:highlight w:val=\"none\"/></w:rPr>");
}

TEST(RunProperties, LayingAndRestoringAHighlightGivesTheSameXml) {
  for (const char* start : {
           "",
           "<w:rPr/>",
           "<w:rPr><w:b/></w:rPr>",
           "<w:rPr>\n  <w:b/>\n  <w:u w:val=\"single\"/>\n</w:rPr>",
           "<w:rPr>\n</w:rPr>",
           "<w:rPr><!-- note --></w:rPr>",
           "<w:rPr><w:highlight w:val=\"none\"/></w:rPr>",
           "<w:rPr><w:highlight w:val=\"red\"/><w:b/></w:rPr>",
           "<w:rPr><w:highlight w:val=\"pinkish\"/></w:rPr>",
           "<w:rPr><w:highlight/></w:rPr>",
           "<w:rPr><w:rStyle w:val=\"Lit\"/></w:rPr>",
           "<w:rPr><w:rStyle w:val=\"Lit\"/><w:highlight w:val=\"yellow\"/></w:rPr>",
           "<w:rPr><w:rStyle w:val=\"Lit\"/><w:highlight w:val=\"none\"/></w:rPr>",
           "<w:rPr><w:lang w:val=\"fi-FI\"/><w:rPrChange w:id=\"1\" w:author=\"a\"><w:rPr/></w:rPrChange></w:rPr>",
       }) {
    SampleRun run(start);
    const std::string before = run.Part().Serialize();
    const int shown = run.Format().Highlight(run.Node());
    EXPECT_TRUE(SetHighlight(run.Format(), run.Node(), word::wdTeal)) << start;
    EXPECT_EQ(run.Format().Highlight(run.Node()), word::wdTeal) << start;
    EXPECT_NE(run.Part().Serialize(), before) << start;
    EXPECT_TRUE(SetHighlight(run.Format(), run.Node(), shown)) << start;
    EXPECT_EQ(run.Part().Serialize(), before) << start;
  }
}

/// Paragraphs of a run each, all runs starting the same.
class SampleRuns : public parts::Sample {
 public:
  explicit SampleRuns(const std::string& start, const std::string& firstStyle = {})
      : Sample("body", Paragraph(firstStyle, start) + Paragraph({}, start) + Paragraph({}, start), "</w:body>",
               kStyles) {}

  XmlNode Run(int n) const { return Nth(Part(), "r", n); }
  /// How the n-th run is written.
  std::string Written(int n) const {
    std::string xml = Start();
    for (; n > 1; --n) xml = xml.substr(xml.find("</w:r>") + 6);
    xml = xml.substr(xml.find("<w:r>"));
    return xml.substr(0, xml.find("</w:r>"));
  }

 private:
  static std::string Paragraph(const std::string& style, const std::string& start) {
    const std::string properties = style.empty() ? "" : "<w:pPr><w:pStyle w:val=\"" + style + "\"/></w:pPr>";
    return "<w:p>" + properties + "<w:r>" + start + "<w:t>a</w:t></w:r></w:p>";
  }
};

TEST(Highlighter, GivesRunsWithTheSamePropertiesWhatEachWouldGetAlone) {
  for (const char* start :
       {"", "<w:rPr/>", "<w:rPr><w:b/></w:rPr>", "<w:rPr>\n  <w:b/>\n</w:rPr>",
        "<w:rPr><w:highlight w:val=\"none\"/></w:rPr>", "<w:rPr><w:highlight w:val=\"red\"/><w:b/></w:rPr>",
        "<w:rPr><w:rStyle w:val=\"Lit\"/></w:rPr>"}) {
    SampleRuns runs(start);
    Highlighter highlighter(runs.Format());
    const int shown = runs.Format().Highlight(runs.Run(1));
    for (const int color : {int{word::wdTeal}, int{word::wdTeal}, int{word::wdYellow}, shown}) {
      const bool alone = SetHighlight(runs.Format(), runs.Run(3), color);
      EXPECT_EQ(highlighter.Set(runs.Run(1), color), alone) << start << color;
      EXPECT_EQ(highlighter.Set(runs.Run(2), color), alone) << start << color;
      EXPECT_EQ(runs.Written(1), runs.Written(3)) << start << color;
      EXPECT_EQ(runs.Written(2), runs.Written(3)) << start << color;
      EXPECT_EQ(runs.Format().Highlight(runs.Run(2)), color) << start;
    }
    EXPECT_EQ(runs.Written(2), std::string("<w:r>") + start + "<w:t>a</w:t>");
  }
}

TEST(Highlighter, TellsRunsApartByTheStylesOfTheirParagraphs) {
  SampleRuns runs("<w:rPr><w:b/></w:rPr>", "Lines");
  Highlighter highlighter(runs.Format());
  EXPECT_FALSE(highlighter.Set(runs.Run(1), word::wdYellow));
  EXPECT_TRUE(highlighter.Set(runs.Run(2), word::wdYellow));
  EXPECT_FALSE(highlighter.Set(runs.Run(2), word::wdYellow));
  EXPECT_EQ(runs.Written(1), "<w:r><w:rPr><w:b/></w:rPr><w:t>a</w:t>");
  EXPECT_EQ(runs.Written(2), "<w:r><w:rPr><w:b/><w:highlight w:val=\"yellow\"/></w:rPr><w:t>a</w:t>");
}

TEST(Highlighter, ALaterChangeOfOneRunLeavesTheOthers) {
  SampleRuns runs("<w:rPr><w:i/></w:rPr>");
  Highlighter highlighter(runs.Format());
  for (int n = 1; n <= 3; ++n) {
    highlighter.Set(runs.Run(n), word::wdYellow);
    if (n < 3) SetBold(runs.Format(), runs.Run(n), true);
  }
  EXPECT_EQ(runs.Written(2), "<w:r><w:rPr><w:b/><w:i/><w:highlight w:val=\"yellow\"/></w:rPr><w:t>a</w:t>");
  EXPECT_EQ(runs.Written(3), "<w:r><w:rPr><w:i/><w:highlight w:val=\"yellow\"/></w:rPr><w:t>a</w:t>");
}

TEST(RunProperties, AHighlightThatShowsAlreadyChangesNothing) {
  for (const char* start :
       {"<w:rPr><w:rStyle w:val=\"Lit\"/></w:rPr>", "<w:rPr><w:highlight w:val=\"yellow\"/></w:rPr>"}) {
    SampleRun run(start);
    EXPECT_FALSE(SetHighlight(run.Format(), run.Node(), word::wdYellow));
    EXPECT_EQ(run.Start(), start);
    EXPECT_FALSE(run.Part().Changed());
  }
  SampleRun none("<w:rPr><w:highlight w:val=\"none\"/></w:rPr>");
  EXPECT_FALSE(SetHighlight(none.Format(), none.Node(), word::wdNoHighlight));
  EXPECT_FALSE(none.Part().Changed());
}

TEST(RunProperties, AHighlightOfTheStyleIsSwitchedOffExplicitly) {
  SampleRun run("<w:rPr><w:rStyle w:val=\"Lit\"/></w:rPr>");
  EXPECT_TRUE(SetHighlight(run.Format(), run.Node(), word::wdNoHighlight));
  EXPECT_EQ(run.Start(), "<w:rPr><w:rStyle w:val=\"Lit\"/><w:highlight w:val=\"none\"/></w:rPr>");
}

TEST(RunProperties, AHighlightStandsAtItsPlaceInTheSchemasOrder) {
  SampleRun run(
      "<w:rPr><w:rStyle w:val=\"x\"/><w:sz w:val=\"20\"/><w:szCs w:val=\"20\"/><w:u w:val=\"single\"/></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdYellow);
  EXPECT_EQ(run.Start(),
            "<w:rPr><w:rStyle w:val=\"x\"/><w:sz w:val=\"20\"/><w:szCs w:val=\"20\"/><w:highlight w:val=\"yellow\"/>"
            "<w:u w:val=\"single\"/></w:rPr>");
}

TEST(RunProperties, WhatIsUnknownStaysBehindAndTheRecordOfAChangeLast) {
  SampleRun run(
      "<w:rPr><x:shadow xmlns:x=\"urn:x\"/><w:rPrChange w:id=\"1\" w:author=\"a\"><w:rPr/></w:rPrChange></w:rPr>");
  SetHighlight(run.Format(), run.Node(), word::wdYellow);
  EXPECT_EQ(run.Start(),
            "<w:rPr><w:highlight w:val=\"yellow\"/><x:shadow xmlns:x=\"urn:x\"/>"
            "<w:rPrChange w:id=\"1\" w:author=\"a\"><w:rPr/></w:rPrChange></w:rPr>");
}

TEST(RunProperties, AColorThatWordDoesNotHaveIsRefused) {
  SampleRun run("");
  EXPECT_THROW(SetHighlight(run.Format(), run.Node(), 17), std::out_of_range);
  EXPECT_THROW(SetHighlight(run.Format(), run.Node(), -1), std::out_of_range);
  EXPECT_EQ(run.Start(), "");
}

TEST(RunProperties, BoldIsSetAndTakenAway) {
  SampleRun run("");
  EXPECT_TRUE(SetBold(run.Format(), run.Node(), true));
  EXPECT_EQ(run.Start(), "<w:rPr><w:b/></w:rPr>");
  EXPECT_FALSE(SetBold(run.Format(), run.Node(), true));
  EXPECT_TRUE(SetBold(run.Format(), run.Node(), false));
  EXPECT_EQ(run.Start(), "");
}

TEST(RunProperties, BoldOfTheStyleIsSwitchedOffAndOnAgain) {
  SampleRun run("<w:rPr><w:rStyle w:val=\"Strong\"/></w:rPr>");
  EXPECT_TRUE(SetBold(run.Format(), run.Node(), false));
  EXPECT_EQ(run.Start(), "<w:rPr><w:rStyle w:val=\"Strong\"/><w:b w:val=\"0\"/></w:rPr>");
  EXPECT_EQ(run.Format().Bold(run.Node()), 0);
  EXPECT_TRUE(SetBold(run.Format(), run.Node(), true));
  EXPECT_EQ(run.Start(), "<w:rPr><w:rStyle w:val=\"Strong\"/></w:rPr>");
}

TEST(RunProperties, AnExplicitNotBoldBecomesBold) {
  SampleRun run("<w:rPr><w:b w:val=\"0\"/></w:rPr>");
  EXPECT_TRUE(SetBold(run.Format(), run.Node(), true));
  EXPECT_EQ(run.Start(), "<w:rPr><w:b/></w:rPr>");
}

TEST(RunProperties, ColorIsWrittenRedFirst) {
  SampleRun run("<w:rPr><w:b/><w:sz w:val=\"20\"/></w:rPr>");
  EXPECT_TRUE(SetColor(run.Format(), run.Node(), 0x0A0B0C));
  EXPECT_EQ(run.Start(), "<w:rPr><w:b/><w:color w:val=\"0C0B0A\"/><w:sz w:val=\"20\"/></w:rPr>");
  EXPECT_EQ(run.Format().Color(run.Node()), 0x0A0B0C);
  EXPECT_FALSE(SetColor(run.Format(), run.Node(), 0x0A0B0C));
  EXPECT_TRUE(SetColor(run.Format(), run.Node(), word::wdColorAutomatic));
  EXPECT_EQ(run.Start(), "<w:rPr><w:b/><w:sz w:val=\"20\"/></w:rPr>");
}

TEST(RunProperties, AutomaticColorIsSaidWhereTheStyleHasAnother) {
  SampleRun run("<w:rPr><w:rStyle w:val=\"Strong\"/></w:rPr>");
  EXPECT_TRUE(SetColor(run.Format(), run.Node(), word::wdColorAutomatic));
  EXPECT_EQ(run.Start(), "<w:rPr><w:rStyle w:val=\"Strong\"/><w:color w:val=\"auto\"/></w:rPr>");
}

TEST(RunProperties, AColorDropsTheThemeColor) {
  SampleRun run(
      "<w:rPr><w:color w:val=\"123456\" w:themeColor=\"accent1\" w:themeTint=\"99\" w:themeShade=\"80\"/></w:rPr>");
  EXPECT_TRUE(SetColor(run.Format(), run.Node(), 255));
  EXPECT_EQ(run.Start(), "<w:rPr><w:color w:val=\"FF0000\"/></w:rPr>");
}

TEST(RunProperties, AParagraphMarkIsFormattedInItsParagraphsProperties) {
  XmlPart part("word/document.xml", Document("<w:p><w:pPr><w:jc w:val=\"center\"/><w:sectPr/></w:pPr></w:p><w:p/>"));
  const std::string before = part.Serialize();
  const docx::Styles none(nullptr);
  const Formatting formatting(part, none);
  SetHighlight(formatting, Nth(part, "p", 1), word::wdYellow);
  SetHighlight(formatting, Nth(part, "p", 2), word::wdYellow);
  const std::string rPr = "<w:rPr><w:highlight w:val=\"yellow\"/></w:rPr>";
  const std::string after = part.Serialize();
  EXPECT_NE(after.find("<w:jc w:val=\"center\"/>" + rPr + "<w:sectPr/>"), std::string::npos) << after;
  EXPECT_NE(after.find("<w:p><w:pPr>" + rPr + "</w:pPr></w:p>"), std::string::npos) << after;
  SetHighlight(formatting, Nth(part, "p", 1), word::wdNoHighlight);
  SetHighlight(formatting, Nth(part, "p", 2), word::wdNoHighlight);
  EXPECT_EQ(part.Serialize(), before);
}

TEST(RunProperties, AnotherPrefixIsWrittenAsThePartWritesIt) {
  XmlPart part("word/document.xml",
               "<x:document xmlns:x=\"" + parts::kStrict + "\"><x:body><x:p><x:r/></x:p></x:body></x:document>");
  const docx::Styles none(nullptr);
  const Formatting formatting(part, none);
  SetHighlight(formatting, Nth(part, "r"), word::wdYellow);
  EXPECT_NE(part.Serialize().find("<x:r><x:rPr><x:highlight x:val=\"yellow\"/></x:rPr></x:r>"), std::string::npos);
}

bool SameRuns(const std::string& first, const std::string& second) {
  const XmlPart part("word/document.xml", Document("<w:p>" + first + second + "</w:p>"));
  const docx::XmlNode p = Nth(part, "p");
  return SameRunFormatting(part, p.FirstChild(), p.LastChild());
}

TEST(RunProperties, RunsAreTheSameWhateverTheyHold) {
  EXPECT_TRUE(SameRuns("<w:r><w:t>a</w:t></w:r>", "<w:r><w:tab/></w:r>"));
  EXPECT_TRUE(SameRuns("<w:r w:rsidR=\"1\" w:rsidRPr=\"2\"><w:rPr><w:b/></w:rPr></w:r>",
                       "<w:r w:rsidRPr=\"2\" w:rsidR=\"1\"><w:rPr><w:b/></w:rPr><w:t>b</w:t></w:r>"));
  EXPECT_TRUE(
      SameRuns("<w:r><w:rPr><w:b/><?kelvarin keep?><w:rPrChange><w:rPr><w:i/></w:rPr></w:rPrChange></w:rPr></w:r>",
               "<w:r><w:rPr><w:b/><?kelvarin keep?><w:rPrChange><w:rPr><w:i/></w:rPr></w:rPrChange></w:rPr></w:r>"));
}

TEST(RunProperties, RunsDifferInAttributesAndInAnythingOfTheirProperties) {
  EXPECT_FALSE(SameRuns("<w:r w:rsidR=\"1\"/>", "<w:r/>"));
  EXPECT_FALSE(SameRuns("<w:r w:rsidR=\"1\"/>", "<w:r w:rsidR=\"2\"/>"));
  EXPECT_FALSE(SameRuns("<w:r w:rsidR=\"1\"/>", "<w:r w:rsidP=\"1\"/>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr/></w:r>", "<w:r/>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr><w:b/></w:rPr></w:r>", "<w:r><w:rPr><w:b/><w:i/></w:rPr></w:r>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr><w:b/></w:rPr></w:r>", "<w:r><w:rPr><w:b w:val=\"0\"/></w:rPr></w:r>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr><?kelvarin keep?><w:b/></w:rPr></w:r>", "<w:r><w:rPr><w:b/></w:rPr></w:r>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr><w:rPrChange><w:rPr><w:i/></w:rPr></w:rPrChange></w:rPr></w:r>",
                        "<w:r><w:rPr><w:rPrChange><w:rPr/></w:rPrChange></w:rPr></w:r>"));
  EXPECT_FALSE(SameRuns("<w:r><w:rPr><w:rPrChange><w:rPr><w:i/></w:rPr></w:rPrChange></w:rPr></w:r>",
                        "<w:r><w:rPr><w:rPrChange><w:rPr><w:i/></w:rPr></w:rPrChange><w:u/></w:rPr></w:r>"));
}

}  // namespace
