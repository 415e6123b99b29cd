#include <gtest/gtest.h>

#include "hosts/docx/layout/Numbering.h"
#include "tests/unit/layout/Drawn.h"
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

TEST(LayoutFormats, ComeFromTheStrongestPlaceInTheTableThatIsTheCells) {
  std::string places;
  int height = 400;
  for (const std::string place : {"band1Vert", "band1Horz", "firstRow", "lastCol", "neCell"}) {
    places += "<w:tblStylePr w:type=\"" + place + "\">" + InPPr(Exact(height += 10)) + "</w:tblStylePr>";
  }
  const auto heightWith = [&](const std::string& look) {
    Document document("<w:tbl><w:tblPr><w:tblStyle w:val=\"T\"/><w:tblLook " + look +
                      "/></w:tblPr><w:tblGrid><w:gridCol w:w=\"4000\"/></w:tblGrid>" +
                      laid::Row(laid::Cell(P(Text("x")))) + "</w:tbl>" + P(""));
    document.WithStyles(Style("table", "T", InPPr(Exact(400)) + places));
    return document.Lines()[1].height;
  };
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0600\""), 400);
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0200\""), 410);
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0000\""), 420);
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0020\""), 430);
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0100\""), 440);
  EXPECT_DOUBLE_EQ(heightWith("w:val=\"0120\""), 450);
}

/// The height of a line in a run's format; its paragraph is of the style "Large" with the default font at 20 points.
double HeightInRun(const std::string& runProperties, const std::string& more = {}) {
  const std::string size = "<w:rPr><w:rFonts w:ascii=\"Arial\" w:hAnsi=\"Arial\"/><w:sz w:val=\"40\"/></w:rPr>";
  Document document("<w:p><w:pPr><w:pStyle w:val=\"Large\"/></w:pPr><w:r><w:rPr>" + runProperties + "</w:rPr>" +
                    Text("x") + "</w:r></w:p>");
  document.WithStyles(Style("paragraph", "Large", size) + more);
  return document.Lines().front().height;
}

// Ten points of Arial are 230 twips high.
TEST(LayoutFormats, ComeFromTheCharacterStyleAndAtLastFromTheRunItself) {
  const std::string small = Style("character", "Small", "<w:rPr><w:sz w:val=\"20\"/></w:rPr>");
  EXPECT_DOUBLE_EQ(HeightInRun("", small), 460);
  EXPECT_DOUBLE_EQ(HeightInRun("<w:rStyle w:val=\"Small\"/>", small), 230);
  EXPECT_DOUBLE_EQ(HeightInRun("<w:rStyle w:val=\"Small\"/><w:sz w:val=\"80\"/>", small), 920);
}

TEST(LayoutFormats, TakeTheFontsOfTheTheme) {
  const std::string theme =
      "<a:themeElements xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\"><a:fontScheme name=\"x\">"
      "<a:majorFont><a:latin typeface=\"Courier New\"/></a:majorFont><a:minorFont><a:latin typeface=\"Arial\"/>"
      "</a:minorFont></a:fontScheme></a:themeElements>";
  const auto family = [&](const std::string& reference) {
    Document document("<w:p><w:r><w:rPr><w:rFonts w:asciiTheme=\"" + reference +
                      "\" w:ascii=\"Times New Roman\"/></w:rPr>" + Text("x") + "</w:r></w:p>");
    document.With("theme", theme);
    const docx::layout::DocumentLayout layout(document.Parts());
    return layout.Placed()
        .front()
        .shown.paragraph->pieces.front()
        .style->FontFor(docx::layout::Script::kAscii)
        .Name()
        .wanted;
  };
  EXPECT_EQ(family("majorHAnsi"), "courier new");
  EXPECT_EQ(family("minorAscii"), "arial");
  EXPECT_EQ(family("nobody"), "times new roman");
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

// The level's indents stand between those of the paragraph itself and those of its style.
TEST(LayoutNumbers, IndentTheirParagraphs) {
  const std::string numbering =
      "<w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:numFmt w:val=\"decimal\"/><w:lvlText "
      "w:val=\"%1.\"/><w:pPr><w:ind w:left=\"1000\" w:hanging=\"500\"/></w:pPr></w:lvl></w:abstractNum>"
      "<w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>";
  const std::string number = "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>";
  const auto left = [&](const std::string& properties) {
    Document document(P(Text("x"), "<w:pStyle w:val=\"S\"/>" + properties));
    document.With("numbering", numbering);
    document.WithStyles(Style("paragraph", "S", InPPr("<w:ind w:left=\"300\"/>")));
    const docx::layout::DocumentLayout layout(document.Parts());
    return *layout.Placed().front().shown.paragraph->look.format.left;
  };
  EXPECT_EQ(left(""), 300);
  EXPECT_EQ(left(number), 1000);
  EXPECT_EQ(left(number + "<w:ind w:left=\"2000\"/>"), 2000);
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

// What stands between a number and the text is a tab, a blank or nothing.
TEST(LayoutNumbers, AreFollowedByWhatTheirLevelSays) {
  const auto textAt = [](const std::string& suffix) {
    Document document(laid::InParagraph(laid::Typed("x"), "<w:numPr><w:numId w:val=\"1\"/></w:numPr>"));
    document.With("numbering",
                  "<w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:numFmt w:val=\"decimal\"/>" + suffix +
                      "<w:lvlText w:val=\"%1.\"/><w:rPr><w:rFonts w:ascii=\"Courier New\" "
                      "w:hAnsi=\"Courier New\"/><w:sz w:val=\"20\"/></w:rPr></w:lvl></w:abstractNum>"
                      "<w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>");
    return laid::Drawn(document).LeftOf(u"x") - laid::kLeft;
  };
  EXPECT_NEAR(textAt(""), 36, laid::kNear);
  EXPECT_NEAR(textAt("<w:suff w:val=\"space\"/>"), 3 * laid::kCharacter, laid::kNear);
  EXPECT_NEAR(textAt("<w:suff w:val=\"nothing\"/>"), 2 * laid::kCharacter, laid::kNear);
}

// Up to Word 2010 a style without its base's number has no hanging indent either; from 2013 on it keeps it.
TEST(LayoutNumbers, TakeTheHangingIndentAlongUpToWord2010) {
  const std::string base = InPPr("<w:ind w:left=\"720\" w:hanging=\"720\"/><w:numPr><w:numId w:val=\"1\"/></w:numPr>");
  const std::string without = InPPr("<w:numPr><w:numId w:val=\"0\"/></w:numPr>");
  const auto firstLine = [&](int version) {
    Document document(Styled("Without"));
    document.WithStyles(Style("paragraph", "Base", base) + Style("paragraph", "Without", Based("Base") + without));
    document.With("numbering", kNumbering);
    document.WithSettings(laid::Compatibility(version));
    const docx::layout::DocumentLayout layout(document.Parts());
    return *layout.Placed().front().shown.paragraph->look.format.firstLine;
  };
  EXPECT_EQ(firstLine(14), 0);
  EXPECT_EQ(firstLine(15), -720);
}

}  // namespace
