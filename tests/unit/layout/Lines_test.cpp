#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/layout/LaidOut.h"

using laid::Document;
using laid::P;
using laid::Text;

namespace {

std::string Fonts(const std::string& name, int halfPoints, const std::string& more = {}) {
  return "<w:rPr><w:rFonts w:ascii=\"" + name + "\" w:hAnsi=\"" + name + "\"/>" + more + "<w:sz w:val=\"" +
         std::to_string(halfPoints) + "\"/></w:rPr>";
}

/// A paragraph whose text and mark are in one font.
std::string InFont(const std::string& text, const std::string& name, int halfPoints,
                   const std::string& properties = {}) {
  const std::string run = Fonts(name, halfPoints);
  return "<w:p><w:pPr>" + properties + run + "</w:pPr><w:r>" + run + Text(text) + "</w:r></w:p>";
}

double HeightOf(const std::string& paragraph) { return Document(paragraph).Lines().front().height; }
std::size_t CountOf(const std::string& paragraph) { return Document(paragraph).Lines().size(); }

std::string Repeated(const std::string& word, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += word;
  return text;
}

// Single lines as Word spaces them: the clipping area of the font and what its own leading has beyond that.
TEST(Lines, AreAsHighAsWordMakesThemForEachFont) {
  EXPECT_NEAR(HeightOf(InFont("x", "Times New Roman", 24)), 276, 0.5);
  EXPECT_NEAR(HeightOf(InFont("x", "Arial", 20)), 230, 0.5);
  EXPECT_NEAR(HeightOf(InFont("x", "Calibri", 22)), 268.5, 0.5);
  EXPECT_NEAR(HeightOf(InFont("x", "Courier New", 20)), 226.5, 0.5);
}

TEST(Lines, GrowWithTheirLargestText) {
  const std::string mixed = "<w:p><w:r>" + Fonts("Arial", 20) + Text("small ") + "</w:r><w:r>" + Fonts("Arial", 40) +
                            Text("large") + "</w:r></w:p>";
  EXPECT_NEAR(HeightOf(mixed), 460, 1);
}

TEST(Lines, TakeTheirHeightFromTheRule) {
  const auto spaced = [](const std::string& line) {
    return HeightOf(InFont("x", "Times New Roman", 24, "<w:spacing " + line + "/>"));
  };
  EXPECT_NEAR(spaced("w:line=\"360\" w:lineRule=\"auto\""), 414, 1);
  EXPECT_DOUBLE_EQ(spaced("w:line=\"200\" w:lineRule=\"exact\""), 200);
  EXPECT_DOUBLE_EQ(spaced("w:line=\"400\" w:lineRule=\"atLeast\""), 400);
  EXPECT_NEAR(spaced("w:line=\"200\" w:lineRule=\"atLeast\""), 276, 0.5);
}

// In Courier New every character has 0.6 of the font size: at 10 points 77 of them fit into the 468 points of the
// line.
TEST(Lines, EndWhereTheNextWordDoesNotFit) {
  EXPECT_EQ(CountOf(InFont(Repeated("a", 38) + " " + Repeated("b", 38), "Courier New", 20)), 1U);
  EXPECT_EQ(CountOf(InFont(Repeated("a", 39) + " " + Repeated("b", 38), "Courier New", 20)), 2U);
}

TEST(Lines, LetBlanksHangOverTheirEnd) {
  EXPECT_EQ(CountOf(InFont(Repeated("a", 77) + Repeated(" ", 20), "Courier New", 20)), 1U);
}

TEST(Lines, EndBehindHyphensAndDashesOnly) {
  EXPECT_EQ(CountOf(InFont(Repeated("a", 70) + "-" + Repeated("b", 30), "Courier New", 20)), 2U);
  Document document(InFont(Repeated("a", 70) + "/" + Repeated("b", 30), "Courier New", 20));
  // Nothing to end behind: the word is cut where the line is full.
  ASSERT_EQ(document.Lines().size(), 2U);
  EXPECT_EQ(document.Lines()[1].position, 77);
}

TEST(Lines, KeepNonBreakingBlanksAndHyphens) {
  Document document(
      InFont(Repeated("a", 40) + " " + Repeated("b", 30) + "\u00A0" + Repeated("c", 30), "Courier New", 20));
  ASSERT_EQ(document.Lines().size(), 2U);
  EXPECT_EQ(document.Lines()[1].position, 41);
}

// Word 2013 fits a word in by making the blanks of a justified line narrower; before, it only made them wider.
TEST(Lines, ShrinkBlanksOfJustifiedTextFromWord2013On) {
  // Ten blanks of six points give up more than the twelve points that are missing.
  const std::string words = Repeated("aaaaaa ", 10) + "bbbbbbbbbb";
  const std::string justified = InFont(words, "Courier New", 20, "<w:jc w:val=\"both\"/>");
  Document now(justified);
  now.WithSettings(laid::Compatibility(15));
  EXPECT_EQ(now.Lines().size(), 1U);
  Document before(justified);
  before.WithSettings(laid::Compatibility(14));
  EXPECT_EQ(before.Lines().size(), 2U);
  Document left(InFont(words, "Courier New", 20));
  left.WithSettings(laid::Compatibility(15));
  EXPECT_EQ(left.Lines().size(), 2U);
}

TEST(Lines, AreShorterByTheirIndents) {
  const std::string text = Repeated("a", 60) + " " + Repeated("b", 10);
  EXPECT_EQ(CountOf(InFont(text, "Courier New", 20)), 1U);
  EXPECT_EQ(CountOf(InFont(text, "Courier New", 20, "<w:ind w:left=\"600\" w:right=\"600\"/>")), 2U);
  EXPECT_EQ(CountOf(InFont(text, "Courier New", 20, "<w:ind w:firstLine=\"1440\"/>")), 2U);
  EXPECT_EQ(CountOf(InFont(text, "Courier New", 20, "<w:ind w:left=\"1440\" w:hanging=\"1440\"/>")), 1U);
}

TEST(Lines, GoToTheNextTabStop) {
  const auto tabbed = [](const std::string& tabs, const std::string& behind) {
    const std::string run = Fonts("Courier New", 20);
    return "<w:p><w:pPr><w:tabs>" + tabs + "</w:tabs></w:pPr><w:r>" + run + Text("a") + "<w:tab/>" + Text(behind) +
           "</w:r></w:p>";
  };
  const std::string left = "<w:tab w:val=\"left\" w:pos=\"7200\"/>";
  EXPECT_EQ(CountOf(tabbed(left, Repeated("b", 17))), 1U);
  EXPECT_EQ(CountOf(tabbed(left, Repeated("b", 19))), 2U);
  // At a right tab the text grows to the left.
  const std::string right = "<w:tab w:val=\"right\" w:pos=\"9360\"/>";
  EXPECT_EQ(CountOf(tabbed(right, Repeated("b", 76))), 1U);
}

TEST(Lines, ShowNeitherHiddenNorDeletedTextNorCodes) {
  const std::string hidden = "<w:r><w:rPr><w:vanish/></w:rPr>" + Text(Repeated("hidden ", 60)) + "</w:r>";
  const std::string deleted =
      "<w:del w:id=\"1\"><w:r><w:delText>" + Repeated("gone ", 60) + "</w:delText></w:r></w:del>";
  const std::string code = "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText>XE \"" +
                           Repeated("entry ", 60) +
                           "\"</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"end\"/></w:r>";
  EXPECT_EQ(CountOf("<w:p>" + laid::InRun(Text("a")) + hidden + deleted + code + "</w:p>"), 1U);
  const std::string inserted = "<w:ins w:id=\"2\"><w:r>" + Text(Repeated("new ", 60)) + "</w:r></w:ins>";
  EXPECT_GT(CountOf("<w:p>" + inserted + "</w:p>"), 1U);
}

TEST(Lines, AreWiderInCapitals) {
  const std::string text = Repeated("mill ", 60);
  const auto run = [&](const std::string& properties) {
    return CountOf("<w:p><w:r>" + Fonts("Arial", 20, properties) + Text(text) + "</w:r></w:p>");
  };
  EXPECT_LT(run(""), run("<w:caps/>"));
}

TEST(Lines, SnapToTheGridOfTheirSection) {
  const std::string grid = "<w:sectPr><w:docGrid w:type=\"lines\" w:linePitch=\"312\"/></w:sectPr>";
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Arial", 20) + grid), 312);
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Arial", 40) + grid), 624);
}

// As measured on pages that Word printed: lines in cells do not snap, unless the document says so; a height that is
// more than the grid's counts itself.
TEST(Lines, SnapToTheGridInCellsOnlyWhereTheDocumentSaysSo) {
  const std::string grid = "<w:sectPr><w:docGrid w:type=\"lines\" w:linePitch=\"312\"/></w:sectPr>";
  const std::string table = laid::Table(laid::Row(laid::Cell(InFont("x", "Arial", 20)))) + "<w:p/>" + grid;
  Document plain(table);
  EXPECT_DOUBLE_EQ(plain.Lines()[1].height, 230);
  Document adjusted(table);
  adjusted.WithSettings("<w:compat><w:adjustLineHeightInTable/></w:compat>");
  EXPECT_DOUBLE_EQ(adjusted.Lines()[1].height, 312);
}

TEST(Lines, AreAtLeastAsHighAsTheGridWhateverTheyState) {
  const auto height = [](const std::string& spacing) {
    return HeightOf(InFont("x", "Arial", 20, "<w:spacing " + spacing + "/>") +
                    "<w:sectPr><w:docGrid w:type=\"lines\" w:linePitch=\"360\"/></w:sectPr>");
  };
  EXPECT_DOUBLE_EQ(height("w:line=\"240\" w:lineRule=\"atLeast\""), 360);
  EXPECT_DOUBLE_EQ(height("w:line=\"480\" w:lineRule=\"atLeast\""), 480);
  EXPECT_DOUBLE_EQ(height("w:line=\"240\" w:lineRule=\"exact\""), 240);
}

TEST(Lines, EndBehindOptionalHyphensWhichShowThereOnly) {
  const auto text = [](int before) {
    const std::string run = Fonts("Courier New", 20);
    return "<w:p><w:r>" + run + Text("x " + Repeated("a", before)) + "<w:softHyphen/>" + Text(Repeated("b", 40)) +
           "</w:r></w:p>";
  };
  Document document(text(60));
  ASSERT_EQ(document.Lines().size(), 2U);
  EXPECT_EQ(document.Lines()[1].position, 63);
  // The hyphen itself needs room, too.
  EXPECT_EQ(Document(text(74)).Lines()[1].position, 77);
  EXPECT_EQ(Document(text(75)).Lines()[1].position, 2);
}

// A comma or full stop of eastern Asia does not take the letter before it along to the next line.
TEST(Lines, LetEasternPunctuationHangOverTheirEnd) {
  const auto lines = [](const std::string& properties) {
    // Ten points a letter: 46 of them fit into the 468 points of the line.
    const std::string run = "<w:rPr><w:sz w:val=\"20\"/></w:rPr>";
    Document document("<w:p><w:pPr>" + properties + "</w:pPr><w:r>" + run +
                      Text(Repeated("\u4E00", 46) + "\u3002" + Repeated("\u4E00", 10)) + "</w:r></w:p>");
    return document.Lines();
  };
  EXPECT_EQ(lines("").at(1).position, 47);
  EXPECT_EQ(lines("<w:overflowPunct w:val=\"0\"/>").at(1).position, 45);
}

// Pairs as in "AV" move together from the size on that the document states.
TEST(Lines, KernPairsFromTheSizeThatTheyState) {
  const auto width = [](const std::string& kerning) {
    const std::string run = Fonts("Times New Roman", 24, kerning);
    Document document("<w:p><w:r>" + run + Text(Repeated("AV", 20)) + "</w:r></w:p>");
    docx::layout::DocumentLayout layout(document.Parts());
    const page::Line line = layout.Draw(1).lines.front();
    return line.runs.back().edges.back() - line.runs.front().edges.front();
  };
  const double plain = width("");
  EXPECT_LT(width("<w:kern w:val=\"24\"/>"), plain - 20);
  EXPECT_DOUBLE_EQ(width("<w:kern w:val=\"28\"/>"), plain);
}

// Arabic letters that join are narrower than by themselves.
TEST(Lines, ShapeScriptsWhoseLettersJoin) {
  const auto width = [](const std::string& letters) {
    Document document("<w:p><w:r><w:rPr><w:rtl/><w:szCs w:val=\"24\"/></w:rPr>" + Text(letters) + "</w:r></w:p>");
    docx::layout::DocumentLayout layout(document.Parts());
    const page::Line line = layout.Draw(1).lines.front();
    double least = 1e9;
    double most = 0;
    for (const page::Run& run : line.runs) {
      for (const float edge : run.edges) {
        least = std::min<double>(least, edge);
        most = std::max<double>(most, edge);
      }
    }
    return most - least;
  };
  const std::string beh = "\xD8\xA8";
  EXPECT_LT(width(beh + beh + beh + beh), 0.9 * 4 * width(beh));
}

TEST(Lines, AreWiderByTheSpacingAndTheScaleOfTheirCharacters) {
  const auto lines = [](const std::string& properties) {
    return CountOf("<w:p><w:r>" + Fonts("Courier New", 20, properties) + Text(Repeated("aaa ", 19)) + "</w:r></w:p>");
  };
  EXPECT_EQ(lines(""), 1U);
  EXPECT_EQ(lines("<w:spacing w:val=\"10\"/>"), 2U);
  EXPECT_EQ(lines("<w:w w:val=\"110\"/>"), 2U);
}

/// 200 points high.
const std::string kPicture =
    "<w:r><w:drawing><wp:inline xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\">"
    "<wp:extent cx=\"1270000\" cy=\"2540000\"/></wp:inline></w:drawing></w:r>";

TEST(Lines, AreAsHighAsTheirPictures) { EXPECT_NEAR(HeightOf("<w:p>" + kPicture + "</w:p>"), 4000, 100); }

// Word's own files have pages full of such pictures.
TEST(Lines, AreMultipliedByWhatTheirTextTakesWherePicturesStand) {
  const auto height = [](int line) {
    const std::string run = Fonts("Arial", 20);
    return HeightOf("<w:p><w:pPr><w:spacing w:line=\"" + std::to_string(line) + "\" w:lineRule=\"auto\"/>" + run +
                    "</w:pPr><w:r>" + run + Text("x") + "</w:r>" + kPicture + "</w:p>");
  };
  // Arial at ten points is 230 twips high, and the picture's own run reaches a little farther down.
  EXPECT_NEAR(height(480) - height(240), 230, 5);
}

// Arial at eight points: 183.98 twips, and 1.15 times as much 211.6.
TEST(Lines, AreWholeTwipsHigh) {
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Arial", 16)), 184);
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Arial", 16, "<w:spacing w:line=\"276\" w:lineRule=\"auto\"/>")), 211);
}

// Calibri at eleven points has 268.5 twips: 1.15 times as much is 308.8, and 1.15 times 269 would be 309. In files of
// Word pages hold a line more so.
TEST(Lines, AreMultipliedBeforeTheyAreCounted) {
  const std::string spacing = "<w:spacing w:line=\"276\" w:lineRule=\"auto\"/>";
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Calibri", 22, spacing)), 308);
  EXPECT_DOUBLE_EQ(HeightOf(InFont("x", "Calibri", 22)), 269);
}

// In files of Word 2011 and 2016 with such marks pages hold more than they could otherwise.
TEST(Lines, GrowWithTheParagraphsMarkOnlyWhereNoTextIs) {
  const std::string mark = "<w:p><w:pPr>" + Fonts("Arial", 40) + "</w:pPr>";
  Document document(mark + "<w:r>" + Fonts("Arial", 20) + Text("x") + "</w:r></w:p>" + mark + "</w:p>");
  EXPECT_DOUBLE_EQ(document.Lines()[0].height, 230);
  EXPECT_DOUBLE_EQ(document.Lines()[1].height, 460);
}

}  // namespace
