#include <gtest/gtest.h>

#include "hosts/docx/layout/Numbering.h"
#include "tests/unit/layout/LaidOut.h"

using docx::layout::FormatListNumber;
using laid::Document;
using laid::InRun;
using laid::P;
using laid::Text;

namespace {

std::string Exact(int twips) { return "<w:spacing w:line=\"" + std::to_string(twips) + "\" w:lineRule=\"exact\"/>"; }
std::string Style(const std::string& type, const std::string& id, const std::string& content) {
  return "<w:style w:type=\"" + type + "\" w:styleId=\"" + id + "\">" + content + "</w:style>";
}
std::string Based(const std::string& id) { return "<w:basedOn w:val=\"" + id + "\"/>"; }
std::string InPPr(const std::string& content) { return "<w:pPr>" + content + "</w:pPr>"; }
std::string Styled(const std::string& id) { return P(Text("x"), "<w:pStyle w:val=\"" + id + "\"/>"); }

double HeightOf(const std::string& blocks, const std::string& styles) {
  Document document(blocks);
  document.WithStyles(styles);
  return document.Lines().front().height;
}

const std::string kDefaults = "<w:docDefaults><w:pPrDefault>" + InPPr(Exact(300)) + "</w:pPrDefault></w:docDefaults>";

TEST(LayoutFormats, ComeFromTheDefaultsTheStyleAndItsBases) {
  const std::string styles = kDefaults + Style("paragraph", "Base", InPPr(Exact(400))) +
                             Style("paragraph", "Derived", Based("Base")) +
                             Style("paragraph", "Other", Based("Base") + InPPr(Exact(500)));
  EXPECT_DOUBLE_EQ(HeightOf(P(Text("x")), styles), 300);
  EXPECT_DOUBLE_EQ(HeightOf(Styled("Derived"), styles), 400);
  EXPECT_DOUBLE_EQ(HeightOf(Styled("Other"), styles), 500);
  EXPECT_DOUBLE_EQ(HeightOf(P(Text("x"), "<w:pStyle w:val=\"Other\"/>" + Exact(600)), styles), 600);
}

TEST(LayoutFormats, EndWhereStylesAreBasedOnThemselves) {
  const std::string styles = Style("paragraph", "A", Based("B") + InPPr(Exact(400))) +
                             Style("paragraph", "B", Based("A")) + Style("paragraph", "C", Based("C"));
  EXPECT_DOUBLE_EQ(HeightOf(Styled("A"), styles), 400);
  EXPECT_GT(HeightOf(Styled("B"), styles), 0);
  EXPECT_GT(HeightOf(Styled("C"), styles), 0);
}

// Table styles stand between the defaults and the paragraph's style.
TEST(LayoutFormats, ComeFromTheTablesStyleInCells) {
  const std::string styles =
      kDefaults +
      Style("table", "T",
            InPPr(Exact(400)) + "<w:tblStylePr w:type=\"firstRow\">" + InPPr(Exact(450)) + "</w:tblStylePr>") +
      Style("paragraph", "Own", InPPr(Exact(500)));
  const auto table = [](const std::string& look, const std::string& blocks) {
    return "<w:tbl><w:tblPr><w:tblStyle w:val=\"T\"/><w:tblLook w:firstRow=\"" + look +
           "\"/></w:tblPr><w:tblGrid><w:gridCol w:w=\"4000\"/></w:tblGrid>" + laid::Row(laid::Cell(blocks)) +
           "</w:tbl>" + P("");
  };
  const auto second = [&](const std::string& blocks) {
    Document document(blocks);
    document.WithStyles(styles);
    return document.Lines()[1].height;
  };
  EXPECT_DOUBLE_EQ(second(table("0", P(Text("x")))), 400);
  EXPECT_DOUBLE_EQ(second(table("1", P(Text("x")))), 450);
  EXPECT_DOUBLE_EQ(second(table("1", Styled("Own"))), 500);
}

// Word notes a font's classification when it has the font, and what it took instead when it has not.
TEST(LayoutFormats, TakeTheFontThatWordTookForAMissingOne) {
  const std::string run = "<w:rPr><w:rFonts w:ascii=\"Verdana\" w:hAnsi=\"Verdana\"/><w:sz w:val=\"20\"/></w:rPr>";
  const std::string text = "<w:p><w:pPr>" + run + "</w:pPr><w:r>" + run + Text("x") + "</w:r></w:p>";
  const auto height = [&](const std::string& description) {
    Document document(text);
    document.With("fontTable",
                  "<w:font w:name=\"Verdana\"><w:altName w:val=\"Courier New\"/>" + description + "</w:font>");
    return document.Lines().front().height;
  };
  EXPECT_NEAR(height(""), 226.5, 1);
  EXPECT_NEAR(height("<w:panose1 w:val=\"020B0604030504040204\"/>"), 243, 1);
}

// Arabic letters are narrower than the half of an em that is taken for a letter without any font.
TEST(LayoutFormats, TakeLettersThatAFontLacksFromAnother) {
  docx::layout::FontLibrary fonts;
  const docx::layout::Font& font = fonts.Get(fonts.Family("Arial"), false, false);
  EXPECT_LT(font.Advance(U'\u0627'), 0.3);
  EXPECT_LT(font.ShapedAdvance(u"\u0627\u0644\u0644\u0647", true), 4 * 0.4);
}

TEST(LayoutFormats, TurnTogglesOverBetweenKindsOfStyles) {
  const std::string styles =
      "<w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii=\"Arial\" w:hAnsi=\"Arial\"/></w:rPr>"
      "</w:rPrDefault></w:docDefaults>" +
      Style("paragraph", "Hidden", "<w:rPr><w:vanish/></w:rPr>") +
      Style("character", "Shown", "<w:rPr><w:vanish/></w:rPr>");
  const std::string words(2000, 'w');
  const auto lines = [&](const std::string& runProperties) {
    Document document(
        "<w:p><w:pPr><w:pStyle w:val=\"Hidden\"/><w:rPr><w:vanish w:val=\"0\"/></w:rPr></w:pPr><w:r><w:rPr>" +
        runProperties + "</w:rPr>" + Text(words) + "</w:r></w:p>");
    document.WithStyles(styles);
    return document.Lines().size();
  };
  EXPECT_EQ(lines(""), 1U);
  EXPECT_GT(lines("<w:rStyle w:val=\"Shown\"/>"), 1U);
}

TEST(LayoutNumbers, AreFormattedAsTheLevelSays) {
  EXPECT_EQ(FormatListNumber("decimal", 12), u"12");
  EXPECT_EQ(FormatListNumber("upperRoman", 4), u"IV");
  EXPECT_EQ(FormatListNumber("lowerLetter", 28), u"bb");
  EXPECT_EQ(FormatListNumber("ordinal", 22), u"22nd");
  EXPECT_EQ(FormatListNumber("ordinal", 11), u"11th");
  EXPECT_EQ(FormatListNumber("cardinalText", 42), u"Forty-two");
  EXPECT_EQ(FormatListNumber("ordinalText", 20), u"Twentieth");
  EXPECT_EQ(FormatListNumber("none", 1), u"");
}

const std::string kNumbering =
    "<w:abstractNum w:abstractNumId=\"0\">"
    "<w:lvl w:ilvl=\"0\"><w:start w:val=\"1\"/><w:numFmt w:val=\"upperRoman\"/><w:lvlText w:val=\"Article "
    "%1\"/></w:lvl>"
    "<w:lvl w:ilvl=\"1\"><w:start w:val=\"1\"/><w:numFmt w:val=\"decimal\"/><w:isLgl/><w:lvlText "
    "w:val=\"%1.%2\"/></w:lvl>"
    "</w:abstractNum><w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>"
    "<w:num w:numId=\"2\"><w:abstractNumId w:val=\"0\"/><w:lvlOverride w:ilvl=\"0\"><w:startOverride w:val=\"5\"/>"
    "</w:lvlOverride></w:num>";

TEST(LayoutNumbers, CountByLevelAndStartAnewBelow) {
  Document document(P(Text("x")));
  document.With("numbering", kNumbering);
  docx::layout::FontLibrary fonts;
  const docx::layout::ThemeFonts theme(nullptr, nullptr);
  const docx::layout::Numbering numbering(document.Parts().Related("/numbering"), nullptr, fonts, theme);
  docx::layout::NumberCounters counters;
  const auto next = [&](const std::string& id, int level) { return counters.Next(id, *numbering.Find(id), level); };
  EXPECT_EQ(next("1", 0), u"Article I");
  EXPECT_EQ(next("1", 1), u"1.1");
  EXPECT_EQ(next("1", 1), u"1.2");
  EXPECT_EQ(next("1", 0), u"Article II");
  EXPECT_EQ(next("1", 1), u"2.1");
  EXPECT_EQ(next("2", 0), u"Article V");
  EXPECT_EQ(next("1", 0), u"Article VI");
  EXPECT_EQ(numbering.Find("0"), nullptr);
}

TEST(LayoutNumbers, TakeRoomOnTheirLine) {
  const std::string number = "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>";
  std::string words;
  for (int i = 0; i < 40; ++i) words += "aa ";
  const auto lines = [&](const std::string& properties) {
    Document document(P(Text(words), properties));
    document.With("numbering", kNumbering);
    return document.Lines().size();
  };
  EXPECT_EQ(lines("") + 1, lines(number));
}

}  // namespace
