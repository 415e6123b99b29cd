#include "hosts/docx/styles/Formatting.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/word/Constants.h"
#include "tests/unit/styles/Parts.h"

using docx::Formatting;
using docx::XmlPart;
using parts::Document;
using parts::Nth;
using parts::StylesOf;

namespace {

const std::string kStyles =
    "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Normal\"/>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Heavy\"><w:pPr><w:pageBreakBefore/><w:spacing w:before=\"240\" "
    "w:after=\"60\"/><w:jc w:val=\"both\"/></w:pPr><w:rPr><w:b/><w:vanish/><w:highlight w:val=\"yellow\"/>"
    "<w:color w:val=\"0000FF\"/></w:rPr></w:style>"
    "<w:style w:type=\"character\" w:styleId=\"Strong\"><w:rPr><w:b/><w:color w:val=\"00FF00\"/></w:rPr></w:style>"
    "<w:style w:type=\"character\" w:styleId=\"Hid\"><w:rPr><w:vanish/></w:rPr></w:style>";

/// One paragraph with one run.
struct Sample {
  Sample(const std::string& pPr, const std::string& rPr, const std::string& styleXml = kStyles)
      : part("word/document.xml",
             Document("<w:p><w:pPr>" + pPr + "</w:pPr><w:r><w:rPr>" + rPr + "</w:rPr><w:t>a</w:t></w:r></w:p>")),
        styles(styleXml),
        formatting(part, styles.styles),
        run(Nth(part, "r")),
        p(Nth(part, "p")) {}
  XmlPart part;
  StylesOf styles;
  Formatting formatting;
  docx::XmlNode run;
  docx::XmlNode p;
};

const std::string kHeavy = "<w:pStyle w:val=\"Heavy\"/>";
const std::string kStrong = "<w:rStyle w:val=\"Strong\"/>";

TEST(Formatting, PlainTextHasWordsDefaults) {
  const Sample plain("", "");
  EXPECT_EQ(plain.formatting.Bold(plain.run), 0);
  EXPECT_FALSE(plain.formatting.Hidden(plain.run));
  EXPECT_EQ(plain.formatting.Highlight(plain.run), word::wdNoHighlight);
  EXPECT_EQ(plain.formatting.Color(plain.run), word::wdColorAutomatic);
  EXPECT_EQ(plain.formatting.Alignment(plain.p), word::wdAlignParagraphLeft);
  EXPECT_EQ(plain.formatting.SpaceBefore(plain.p), 0);
  EXPECT_EQ(plain.formatting.SpaceAfter(plain.p), 0);
  EXPECT_FALSE(plain.formatting.InheritedParagraph(plain.p).pageBreakBefore);
}

TEST(Formatting, TheNearestFontSizeCounts) {
  const std::string sizes =
      "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val=\"22\"/></w:rPr></w:rPrDefault></w:docDefaults>"
      "<w:style w:type=\"paragraph\" w:styleId=\"Big\"><w:rPr><w:sz w:val=\"40\"/></w:rPr></w:style>"
      "<w:style w:type=\"character\" w:styleId=\"Small\"><w:rPr><w:sz w:val=\"15\"/></w:rPr></w:style>";
  const std::string big = "<w:pStyle w:val=\"Big\"/>";
  const std::string small = "<w:rStyle w:val=\"Small\"/>";
  const auto sizeOf = [](const Sample& sample) { return sample.formatting.FontSize(sample.run); };
  EXPECT_EQ(sizeOf(Sample("", "")), 10);
  EXPECT_EQ(sizeOf(Sample("", "", sizes)), 11);
  EXPECT_EQ(sizeOf(Sample(big, "", sizes)), 20);
  EXPECT_EQ(sizeOf(Sample(big, small, sizes)), 7.5);
  EXPECT_EQ(sizeOf(Sample(big, small + "<w:sz w:val=\"24\"/>", sizes)), 12);
}

TEST(Formatting, ADocumentWithoutStylesIsRead) {
  XmlPart part("word/document.xml", Document("<w:p><w:r><w:rPr><w:b/></w:rPr></w:r><w:r/></w:p>"));
  const docx::Styles none(nullptr);
  const Formatting formatting(part, none);
  EXPECT_EQ(formatting.Bold(Nth(part, "r", 1)), -1);
  EXPECT_EQ(formatting.Bold(Nth(part, "r", 2)), 0);
  EXPECT_EQ(formatting.SpaceAfter(Nth(part, "p")), 0);
}

TEST(Formatting, ParagraphStyleShowsInItsRuns) {
  const Sample styled(kHeavy, "");
  EXPECT_EQ(styled.formatting.Bold(styled.run), -1);
  EXPECT_TRUE(styled.formatting.Hidden(styled.run));
  EXPECT_EQ(styled.formatting.Highlight(styled.run), word::wdYellow);
  EXPECT_EQ(styled.formatting.Color(styled.run), 0xFF0000);
  EXPECT_EQ(styled.formatting.Alignment(styled.p), word::wdAlignParagraphJustify);
  EXPECT_EQ(styled.formatting.SpaceBefore(styled.p), 12);
  EXPECT_EQ(styled.formatting.SpaceAfter(styled.p), 3);
  EXPECT_EQ(styled.formatting.InheritedParagraph(styled.p).pageBreakBefore, true);
}

TEST(Formatting, BoldOfParagraphAndCharacterStyleCancelOut) {
  const Sample both(kHeavy, kStrong);
  EXPECT_EQ(both.formatting.Bold(both.run), 0);
  EXPECT_EQ(both.formatting.Color(both.run), 0x00FF00);
  const Sample one("", kStrong);
  EXPECT_EQ(one.formatting.Bold(one.run), -1);
}

TEST(Formatting, HiddenOfParagraphAndCharacterStyleCancelOut) {
  const Sample both(kHeavy, "<w:rStyle w:val=\"Hid\"/>");
  EXPECT_FALSE(both.formatting.Hidden(both.run));
  const Sample one("", "<w:rStyle w:val=\"Hid\"/>");
  EXPECT_TRUE(one.formatting.Hidden(one.run));
}

/// A table in which each cell holds one run, row by row; the style says something in some places.
struct TableSample {
  /// @param rows each with the content of its cells
  TableSample(const std::string& look, const std::string& style, const std::vector<std::vector<std::string>>& rows)
      : styles(kStyles + "<w:style w:type=\"table\" w:styleId=\"Base\">" + style +
               "</w:style><w:style w:type=\"table\" w:styleId=\"T\"><w:basedOn w:val=\"Base\"/></w:style>"),
        part("word/document.xml", Document(Table(look, rows))),
        formatting(part, styles.styles) {}

  static std::string Table(const std::string& look, const std::vector<std::vector<std::string>>& rows) {
    std::string xml = "<w:tbl><w:tblPr><w:tblStyle w:val=\"T\"/>" + look + "</w:tblPr>";
    for (const auto& row : rows) {
      xml += "<w:tr>";
      for (const std::string& cell : row) xml += "<w:tc>" + cell + "</w:tc>";
      xml += "</w:tr>";
    }
    return xml + "</w:tbl>";
  }

  /// Of each run, "b" for bold and "." for not.
  std::string Bold() const {
    std::string bold;
    for (int n = 1; Nth(part, "r", n); ++n) bold += formatting.Bold(Nth(part, "r", n)) != 0 ? 'b' : '.';
    return bold;
  }

  StylesOf styles;
  XmlPart part;
  Formatting formatting;
};

std::string InPlace(const std::string& type, const std::string& rPr) {
  return "<w:tblStylePr w:type=\"" + type + "\"><w:rPr>" + rPr + "</w:rPr></w:tblStylePr>";
}

const std::string kBold = "<w:rPr><w:b/></w:rPr>";
const std::string kCell = "<w:p><w:r><w:t>a</w:t></w:r></w:p>";
const std::vector<std::vector<std::string>> kThreeByThree(3, {kCell, kCell, kCell});

TEST(Formatting, ATablesStyleMakesItsTextBold) {
  EXPECT_EQ(TableSample("", kBold, {{kCell, kCell}}).Bold(), "bb");
  EXPECT_EQ(TableSample("", "", {{kCell, kCell}}).Bold(), "..");
}

TEST(Formatting, ATablesStyleIsBoldInThePlacesThatTheTableAsksFor) {
  const auto bold = [](const std::string& place, const std::string& look) {
    return TableSample("<w:tblLook " + look + "/>", InPlace(place, "<w:b/>"), kThreeByThree).Bold();
  };
  EXPECT_EQ(bold("firstRow", "w:val=\"0020\""), "bbb......");
  EXPECT_EQ(bold("firstRow", "w:val=\"0000\""), ".........");
  EXPECT_EQ(bold("firstRow", "w:val=\"0020\" w:firstRow=\"0\""), ".........");
  EXPECT_EQ(bold("lastRow", "w:lastRow=\"1\""), "......bbb");
  EXPECT_EQ(bold("firstCol", "w:val=\"04A0\""), "b..b..b..");
  EXPECT_EQ(bold("lastCol", "w:val=\"0100\""), "..b..b..b");
  EXPECT_EQ(bold("band1Horz", "w:val=\"0000\""), "bbb...bbb");
  EXPECT_EQ(bold("band1Horz", "w:val=\"0020\""), "...bbb...");
  EXPECT_EQ(bold("band1Horz", "w:val=\"0200\""), ".........");
  EXPECT_EQ(bold("band2Vert", "w:val=\"0000\""), ".b..b..b.");
  EXPECT_EQ(bold("nwCell", "w:val=\"00A0\""), "b........");
  EXPECT_EQ(bold("seCell", "w:val=\"0140\""), "........b");
}

TEST(Formatting, TheColumnWinsOverTheRowAndThatOverTheWholeTable) {
  EXPECT_EQ(
      TableSample("<w:tblLook w:val=\"00A0\"/>",
                  kBold + InPlace("firstRow", "<w:b w:val=\"0\"/>") + InPlace("firstCol", "<w:b/>"), kThreeByThree)
          .Bold(),
      "b..bbbbbb");
}

TEST(Formatting, WhatWrapsRowsAndCellsDoesNotMakeThemTheFirst) {
  const std::string wrapped = "<w:sdt><w:sdtPr><w:id w:val=\"1\"/></w:sdtPr><w:sdtContent>";
  const std::string row = "<w:tr><w:trPr/><w:tc>" + kCell + "</w:tc>" + wrapped + "<w:tc>" + kCell +
                          "</w:tc></w:sdtContent></w:sdt></w:tr>";
  const StylesOf styles("<w:style w:type=\"table\" w:default=\"1\" w:styleId=\"T\">" + InPlace("firstRow", "<w:b/>") +
                        InPlace("lastCol", "<w:b/>") + "</w:style>");
  XmlPart part("word/document.xml", Document("<w:tbl><w:tblPr><w:tblLook w:val=\"0120\"/></w:tblPr>" + row + wrapped +
                                             row + "</w:sdtContent></w:sdt></w:tbl>"));
  const Formatting formatting(part, styles.styles);
  std::string bold;
  for (int n = 1; n <= 4; ++n) bold += formatting.Bold(Nth(part, "r", n)) != 0 ? 'b' : '.';
  EXPECT_EQ(bold, "bb.b");
}

TEST(Formatting, BoldOfTableAndOtherStylesCancelsOut) {
  const std::string heavy = "<w:p><w:pPr>" + kHeavy + "</w:pPr><w:r><w:t>a</w:t></w:r></w:p>";
  const std::string strong = "<w:p><w:r><w:rPr>" + kStrong + "</w:rPr><w:t>a</w:t></w:r></w:p>";
  const std::string direct = "<w:p><w:r><w:rPr><w:b/></w:rPr><w:t>a</w:t></w:r></w:p>";
  EXPECT_EQ(TableSample("", kBold, {{heavy, strong, direct}}).Bold(), "..b");
}

TEST(Formatting, ATablesStyleSaysNothingOfATableInACellOrOfATextBox) {
  const std::string inner = "<w:tbl><w:tblPr/><w:tr><w:tc>" + kCell + "</w:tc></w:tr></w:tbl><w:p/>";
  const std::string box = "<w:p><w:r><w:pict><w:txbxContent>" + kCell + "</w:txbxContent></w:pict></w:r></w:p>";
  EXPECT_EQ(TableSample("", kBold, {{kCell, inner}}).Bold(), "b.");
  // The run that holds the box stands in the cell.
  EXPECT_EQ(TableSample("", kBold, {{box}}).Bold(), "b.");
}

TEST(Formatting, ATablesStyleColoursAndHidesUnlessTheParagraphsStyleSaysOtherwise) {
  const std::string heavy = "<w:p><w:pPr>" + kHeavy + "</w:pPr><w:r><w:t>a</w:t></w:r></w:p>";
  const TableSample table("<w:tblLook w:val=\"0020\"/>",
                          InPlace("firstRow", "<w:vanish/><w:color w:val=\"0000FF\"/><w:sz w:val=\"40\"/>"),
                          {{kCell, heavy}, {kCell}});
  const auto run = [&](int n) { return Nth(table.part, "r", n); };
  EXPECT_TRUE(table.formatting.Hidden(run(1)));
  EXPECT_FALSE(table.formatting.Hidden(run(2)));
  EXPECT_FALSE(table.formatting.Hidden(run(3)));
  EXPECT_EQ(table.formatting.Color(run(1)), 0xFF0000);
  EXPECT_EQ(table.formatting.Color(run(3)), word::wdColorAutomatic);
  EXPECT_EQ(table.formatting.FontSize(run(1)), 20);
  EXPECT_EQ(table.formatting.FontSize(run(3)), 10);
}

TEST(Formatting, BoldDefaultsAreNotCancelledByStyles) {
  const std::string defaults =
      "<w:docDefaults><w:rPrDefault><w:rPr><w:b/></w:rPr></w:rPrDefault></w:docDefaults>" + kStyles;
  const Sample plain("", "", defaults);
  EXPECT_EQ(plain.formatting.Bold(plain.run), -1);
  const Sample strong("", kStrong, defaults);
  EXPECT_EQ(strong.formatting.Bold(strong.run), -1);
  const Sample direct("", "<w:b w:val=\"0\"/>", defaults);
  EXPECT_EQ(direct.formatting.Bold(direct.run), 0);
}

TEST(Formatting, DirectFormattingOverridesStyles) {
  const Sample off(kHeavy,
                   "<w:b w:val=\"0\"/><w:vanish w:val=\"false\"/><w:color w:val=\"auto\"/>"
                   "<w:highlight w:val=\"none\"/>");
  EXPECT_EQ(off.formatting.Bold(off.run), 0);
  EXPECT_FALSE(off.formatting.Hidden(off.run));
  EXPECT_EQ(off.formatting.Highlight(off.run), word::wdNoHighlight);
  EXPECT_EQ(off.formatting.Color(off.run), word::wdColorAutomatic);
  const Sample on(kHeavy, kStrong + "<w:b/>");
  EXPECT_EQ(on.formatting.Bold(on.run), -1);
}

TEST(Formatting, EveryWayToSayOnAndOffIsRead) {
  for (const char* value : {"1", "true", "on"}) {
    const Sample on("", "<w:b w:val=\"" + std::string(value) + "\"/>");
    EXPECT_EQ(on.formatting.Bold(on.run), -1) << value;
  }
  for (const char* value : {"0", "false", "off"}) {
    const Sample off(kHeavy, "<w:b w:val=\"" + std::string(value) + "\"/>");
    EXPECT_EQ(off.formatting.Bold(off.run), 0) << value;
  }
}

TEST(Formatting, EveryHighlightColorIsRead) {
  const char* names[] = {"none",        "black",   "blue",       "cyan",     "green",    "magenta",
                         "red",         "yellow",  "white",      "darkBlue", "darkCyan", "darkGreen",
                         "darkMagenta", "darkRed", "darkYellow", "darkGray", "lightGray"};
  int index = 0;
  for (const char* name : names) {
    const Sample lit("", "<w:highlight w:val=\"" + std::string(name) + "\"/>");
    EXPECT_EQ(lit.formatting.Highlight(lit.run), index++) << name;
  }
  EXPECT_EQ(index, 17);
}

TEST(Formatting, StartAndEndAreLeftAndRight) {
  const Sample start("<w:jc w:val=\"start\"/>", "");
  EXPECT_EQ(start.formatting.Alignment(start.p), word::wdAlignParagraphLeft);
  const Sample end("<w:jc w:val=\"end\"/>", "");
  EXPECT_EQ(end.formatting.Alignment(end.p), word::wdAlignParagraphRight);
}

TEST(Formatting, ParagraphDefaultsShowWhereNoStyleSaysOtherwise) {
  const Sample plain("", "",
                     "<w:docDefaults><w:pPrDefault><w:pPr><w:spacing w:after=\"160\"/></w:pPr></w:pPrDefault>"
                     "</w:docDefaults>" +
                         kStyles);
  EXPECT_EQ(plain.formatting.SpaceAfter(plain.p), 8);
  const Sample own("<w:spacing w:after=\"30\"/>", "");
  EXPECT_EQ(own.formatting.SpaceAfter(own.p), 1.5);
}

TEST(Formatting, AParagraphMarkHasItsOwnFormatting) {
  const Sample mark("<w:rPr><w:b/><w:color w:val=\"FF0000\"/></w:rPr>", "");
  EXPECT_EQ(mark.formatting.Bold(mark.p), -1);
  EXPECT_EQ(mark.formatting.Color(mark.p), 255);
  EXPECT_EQ(mark.formatting.Bold(mark.run), 0);
}

TEST(Formatting, AStyleSeparatorHidesItsMarkOnly) {
  const Sample separator("<w:rPr><w:specVanish/></w:rPr>", "<w:specVanish/>");
  EXPECT_TRUE(separator.formatting.Hidden(separator.p));
  EXPECT_FALSE(separator.formatting.Hidden(separator.run));
}

TEST(Formatting, OneHiddenRunDoesNotHideItsNeighbours) {
  XmlPart part("word/document.xml",
               Document("<w:p><w:r/><w:hyperlink><w:r><w:rPr><w:vanish/></w:rPr></w:r></w:hyperlink></w:p>"));
  const docx::Styles none(nullptr);
  const Formatting formatting(part, none);
  EXPECT_FALSE(formatting.Hidden(Nth(part, "r", 1)));
  EXPECT_TRUE(formatting.Hidden(Nth(part, "r", 2)));
}

TEST(Formatting, ARunOfATextBoxBelongsToTheInnerParagraph) {
  XmlPart part("word/document.xml", Document("<w:p><w:pPr>" + kHeavy +
                                             "</w:pPr><w:r><w:pict><w:txbxContent><w:p><w:r/></w:p></w:txbxContent>"
                                             "</w:pict></w:r></w:p>"));
  const StylesOf styles(kStyles);
  const Formatting formatting(part, styles.styles);
  EXPECT_EQ(formatting.Bold(Nth(part, "r", 1)), -1);
  EXPECT_EQ(formatting.Bold(Nth(part, "r", 2)), 0);
}

}  // namespace
