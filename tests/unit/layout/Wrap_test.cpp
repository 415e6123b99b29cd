#include <gtest/gtest.h>

#include "tests/unit/layout/Drawn.h"
#include "tests/unit/layout/LaidOut.h"

using docx::layout::PageFiller;
using laid::Cell;
using laid::Document;
using laid::kPerPage;
using laid::kTall;
using laid::Lines;
using laid::P;
using laid::Row;
using laid::Text;

namespace {

constexpr int kEmus = 635;  // a twip
constexpr double kLine = 720;
constexpr double kTop = 1440;
constexpr double kColumn = 9360;

/// Where a picture stands and what it leaves to the text. Lengths in twips.
struct Floats {
  int x{0};
  int y{0};
  int width{3000};
  int height{1440};
  std::string wrap{"<wp:wrapSquare wrapText=\"bothSides\"/>"};
  std::string across{"column"};
  std::string down{"paragraph"};
  int distance{0};  ///< on its left and right
};

std::string Emus(int twips) { return std::to_string(static_cast<std::int64_t>(twips) * kEmus); }

std::string Picture(const Floats& floats) {
  const auto place = [](const std::string& direction, const std::string& from, int offset) {
    return "<wp:position" + direction + " relativeFrom=\"" + from + "\"><wp:posOffset>" + Emus(offset) +
           "</wp:posOffset></wp:position" + direction + ">";
  };
  const std::string distance = Emus(floats.distance);
  return "<w:drawing><wp:anchor xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\" "
         "distT=\"0\" distB=\"0\" distL=\"" +
         distance + "\" distR=\"" + distance + "\">" + place("H", floats.across, floats.x) +
         place("V", floats.down, floats.y) + "<wp:extent cx=\"" + Emus(floats.width) + "\" cy=\"" +
         Emus(floats.height) + "\"/>" + floats.wrap + "</wp:anchor></w:drawing>";
}

std::string Anchor(const Floats& floats, const std::string& text = "x") {
  return P(Picture(floats) + Text(text), kTall);
}

/// Lines with letters, in the order of the story.
std::vector<PageFiller::Placed> Letters(const std::string& blocks) {
  Document document(blocks);
  std::vector<PageFiller::Placed> lines = document.Lines();
  std::erase_if(lines,
                [](const PageFiller::Placed& line) { return line.shown.paragraph == nullptr || !line.shown.letters; });
  return lines;
}

TEST(LayoutWrap, ShortensLinesBesideAPictureAndNoOthers) {
  const auto lines = Letters(Anchor({}) + Lines("a", 2));
  ASSERT_EQ(lines.size(), 3U);
  for (const std::size_t beside : {0, 1}) {
    EXPECT_DOUBLE_EQ(lines[beside].left, kTop + 3000);
    EXPECT_DOUBLE_EQ(lines[beside].shown.width, kColumn - 3000);
    EXPECT_DOUBLE_EQ(lines[beside].top, kTop + static_cast<double>(beside) * kLine);
  }
  EXPECT_DOUBLE_EQ(lines[2].left, kTop);
  EXPECT_DOUBLE_EQ(lines[2].shown.width, kColumn);
}

TEST(LayoutWrap, KeepsTheDistanceThatThePictureStates) {
  const auto lines = Letters(Anchor({.distance = 200}));
  EXPECT_DOUBLE_EQ(lines[0].left, kTop + 3200);
}

TEST(LayoutWrap, DividesALineBeforeAndBehindAPicture) {
  // Two lines of Courier New beside each other; a character is 120 twips wide.
  const std::string run =
      "<w:rPr><w:rFonts w:ascii=\"Courier New\" w:hAnsi=\"Courier New\"/><w:sz w:val=\"20\"/></w:rPr>";
  std::string words;
  for (int i = 0; i < 30; ++i) words += "abcde ";
  const auto lines = Letters("<w:p><w:pPr>" + kTall + "</w:pPr><w:r>" + run +
                             Picture({.x = 3600, .width = 2160, .height = 720}) + Text(words) + "</w:r></w:p>");
  ASSERT_GE(lines.size(), 3U);
  EXPECT_DOUBLE_EQ(lines[0].left, kTop);
  EXPECT_DOUBLE_EQ(lines[0].shown.width, 3600);
  EXPECT_DOUBLE_EQ(lines[1].left, kTop + 3600 + 2160);
  EXPECT_DOUBLE_EQ(lines[1].top, lines[0].top);
  EXPECT_EQ(lines[1].shown.from, 30U);  // five words of six characters in 3,600 twips
  EXPECT_DOUBLE_EQ(lines[2].top, kTop + kLine);
  EXPECT_DOUBLE_EQ(lines[2].shown.width, kColumn);
}

TEST(LayoutWrap, HasTextOnTheSideThatThePictureWants) {
  const auto first = [](const std::string& side) {
    return Letters(Anchor({.x = 4000, .width = 2000, .wrap = "<wp:wrapTight wrapText=\"" + side + "\"/>"}))[0];
  };
  EXPECT_DOUBLE_EQ(first("left").shown.width, 4000);
  EXPECT_DOUBLE_EQ(first("left").left, kTop);
  EXPECT_DOUBLE_EQ(first("right").left, kTop + 6000);
  EXPECT_DOUBLE_EQ(first("largest").left, kTop);
}

// A triangle on its tip: the higher a line stands beside it, the shorter it is.
TEST(LayoutWrap, FollowsTheOutlineThatAPictureHas) {
  const std::string triangle =
      "<wp:wrapTight wrapText=\"right\"><wp:wrapPolygon edited=\"1\"><wp:start x=\"0\" y=\"0\"/><wp:lineTo x=\"21600\" "
      "y=\"0\"/>"
      "<wp:lineTo x=\"0\" y=\"10800\"/><wp:lineTo x=\"0\" y=\"0\"/></wp:wrapPolygon></wp:wrapTight>";
  const auto lines =
      Letters(Anchor({.width = 4000, .height = 4 * 1440, .wrap = triangle, .distance = 100}) + Lines("a", 5));
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_DOUBLE_EQ(lines[0].left, kTop + 4000 + 100);
  EXPECT_DOUBLE_EQ(lines[1].left, kTop + 3000 + 100);
  EXPECT_DOUBLE_EQ(lines[3].left, kTop + 1000 + 100);
  EXPECT_DOUBLE_EQ(lines[4].left, kTop);  // below the tip, though not below the picture
  EXPECT_DOUBLE_EQ(lines[5].left, kTop);
}

TEST(LayoutWrap, GoesOnWhereAnOutlineLeavesItRoomAgain) {
  const std::string step =
      "<wp:wrapThrough wrapText=\"bothSides\"><wp:wrapPolygon edited=\"1\"><wp:start x=\"0\" y=\"0\"/><wp:lineTo "
      "x=\"21600\" "
      "y=\"0\"/><wp:lineTo x=\"21600\" y=\"10800\"/><wp:lineTo x=\"10800\" y=\"10800\"/><wp:lineTo x=\"10800\" "
      "y=\"21600\"/>"
      "<wp:lineTo x=\"0\" y=\"21600\"/></wp:wrapPolygon></wp:wrapThrough>";
  const auto lines = Letters(Anchor({.width = 9360, .height = 4 * 720, .wrap = step}) + Lines("a", 2));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_DOUBLE_EQ(lines[0].top, kTop + 2 * kLine);
  EXPECT_DOUBLE_EQ(lines[0].left, kTop + kColumn / 2);
  EXPECT_DOUBLE_EQ(lines[2].left, kTop);
  EXPECT_DOUBLE_EQ(lines[2].top, kTop + 4 * kLine);
}

// Word leaves what is narrower than an inch free.
TEST(LayoutWrap, PutsNoTextIntoLessThanAnInch) {
  const auto narrow = Letters(Anchor({.width = 8000}) + Lines("a", 1));
  EXPECT_DOUBLE_EQ(narrow[0].top, kTop + 1440);
  EXPECT_DOUBLE_EQ(narrow[0].shown.width, kColumn);
  EXPECT_DOUBLE_EQ(narrow[1].top, kTop + 1440 + kLine);
  EXPECT_DOUBLE_EQ(Letters(Anchor({.width = 7920}))[0].top, kTop);
}

TEST(LayoutWrap, GoesOnBelowAPictureThatHasTextAboveAndBelowOnly) {
  const auto lines = Letters(Anchor({.y = 720, .wrap = "<wp:wrapTopAndBottom/>"}) + Lines("a", 2));
  EXPECT_DOUBLE_EQ(lines[0].top, kTop);
  EXPECT_DOUBLE_EQ(lines[1].top, kTop + 720 + 1440);
  EXPECT_DOUBLE_EQ(lines[2].top, kTop + 720 + 1440 + kLine);
}

TEST(LayoutWrap, StandsInFrontOfOrBehindTextWithoutRoom) {
  const auto lines = Letters(Anchor({.wrap = "<wp:wrapNone/>"}));
  EXPECT_DOUBLE_EQ(lines[0].left, kTop);
  EXPECT_DOUBLE_EQ(lines[0].shown.width, kColumn);
}

TEST(LayoutWrap, CountsPlacesFromThePaperAndTheMargins) {
  // Three lines stand above it, though its paragraph is the second one.
  const auto byPage = Letters(Lines("a", 1) + Anchor({.y = 1440 + 3 * 720, .down = "page"}) + Lines("b", 4));
  ASSERT_EQ(byPage.size(), 6U);
  EXPECT_DOUBLE_EQ(byPage[2].left, kTop);
  EXPECT_DOUBLE_EQ(byPage[3].left, kTop + 3000);
  EXPECT_DOUBLE_EQ(byPage[4].left, kTop + 3000);
  EXPECT_DOUBLE_EQ(byPage[5].left, kTop);
  const auto byMargin = Letters(Anchor({.y = 720, .down = "margin"}) + Lines("b", 1));
  EXPECT_DOUBLE_EQ(byMargin[0].left, kTop);
  EXPECT_DOUBLE_EQ(byMargin[1].left, kTop + 3000);
  const auto across = Letters(Anchor({.x = 1440 + 500, .across = "page"}));
  EXPECT_DOUBLE_EQ(across[0].left, kTop + 500 + 3000);
}

TEST(LayoutWrap, TakesMorePagesForTheSameText) {
  EXPECT_EQ(Document(Lines("a", kPerPage)).Count(), 1);
  Document document(Anchor({.wrap = "<wp:wrapTopAndBottom/>"}) + Lines("a", kPerPage - 1));
  EXPECT_EQ(document.PageOf(u"a15"), 1);
  EXPECT_EQ(document.PageOf(u"a16"), 2);
}

TEST(LayoutWrap, GoesAroundFrames) {
  const std::string frame =
      "<w:framePr w:w=\"3000\" w:hSpace=\"100\" w:wrap=\"around\" w:vAnchor=\"text\" w:hAnchor=\"text\"/>";
  const auto lines = Letters(Lines("f", 2, frame) + Lines("a", 3));
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_DOUBLE_EQ(lines[1].top, kTop + kLine);  // the second paragraph of the frame
  EXPECT_DOUBLE_EQ(lines[2].top, kTop);
  EXPECT_DOUBLE_EQ(lines[2].left, kTop + 3100);
  EXPECT_DOUBLE_EQ(lines[3].left, kTop + 3100);
  EXPECT_DOUBLE_EQ(lines[4].left, kTop);
}

TEST(LayoutWrap, LeavesTheSpacesBetweenParagraphsWhereAFrameIsBetweenThem) {
  const std::string frame =
      "<w:framePr w:w=\"3000\" w:wrap=\"around\" w:vAnchor=\"text\" w:hAnchor=\"page\" w:x=\"9000\"/>";
  const std::string spaced = "<w:spacing w:before=\"200\" w:after=\"300\" w:line=\"720\" w:lineRule=\"exact\"/>";
  const auto lines = Letters(P(Text("a"), spaced) + P(Text("f"), frame + spaced) + P(Text("b"), spaced));
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_DOUBLE_EQ(lines[2].top - lines[0].top, kLine + 300);
}

TEST(LayoutWrap, GoesAroundInitialsThatHangIntoTheText) {
  const std::string drop =
      "<w:framePr w:dropCap=\"drop\" w:lines=\"2\" w:wrap=\"around\" w:vAnchor=\"text\" w:hAnchor=\"text\"/>";
  const std::string large =
      "<w:rPr><w:rFonts w:ascii=\"Courier New\" w:hAnsi=\"Courier New\"/><w:sz w:val=\"80\"/></w:rPr>";
  const auto lines = Letters("<w:p><w:pPr>" + drop + "<w:spacing w:line=\"1440\" w:lineRule=\"exact\"/></w:pPr><w:r>" +
                             large + Text("W") + "</w:r></w:p>" + Lines("a", 3));
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_NEAR(lines[1].left, kTop + 480, 1);  // 40 points of Courier New: 24 points wide
  EXPECT_DOUBLE_EQ(lines[1].top, kTop);
  EXPECT_NEAR(lines[2].left, kTop + 480, 1);
  EXPECT_DOUBLE_EQ(lines[3].left, kTop);
}

TEST(LayoutWrap, GoesAroundTablesThatFloat) {
  const std::string table =
      "<w:tbl><w:tblPr><w:tblpPr w:leftFromText=\"200\" w:rightFromText=\"200\" w:vertAnchor=\"text\" "
      "w:tblpX=\"0\" w:tblpY=\"1\"/></w:tblPr><w:tblGrid><w:gridCol w:w=\"3000\"/></w:tblGrid>" +
      Row(Cell(Lines("t", 2))) + "</w:tbl>";
  const auto lines = Letters(table + Lines("a", 3));
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_DOUBLE_EQ(lines[2].top, kTop);
  EXPECT_DOUBLE_EQ(lines[2].left, kTop + 3200);
  EXPECT_DOUBLE_EQ(lines[4].left, kTop);
}

TEST(LayoutWrap, IsDrawnBesideThePicture) {
  Document document(Anchor({.x = 500}, "beside"));
  const laid::Drawn page(document);
  ASSERT_EQ(page.Display().pictures.size(), 1U);
  const page::Rect& picture = page.Display().pictures.front().area;
  EXPECT_NEAR(picture.x, laid::kLeft + 25, laid::kNear);
  EXPECT_NEAR(picture.y, laid::kTop, laid::kNear);
  EXPECT_NEAR(page.LeftOf(u"beside"), picture.Right(), laid::kNear);
}

TEST(LayoutWrap, EndsWhateverStandsInTheWay) {
  std::string blocks;
  for (int i = 0; i < 200; ++i) {
    blocks += Anchor({.x = (i * 997) % 9000 - 2000, .y = (i * 613) % 9000 - 3000, .width = 31000, .height = 31000});
    blocks += Anchor({.x = 31000, .y = -31000, .down = i % 2 == 0 ? "page" : "bottomMargin"});
  }
  EXPECT_GE(Document(blocks).Count(), 1);
}

TEST(LayoutWrap, APictureOfThePageInACellThatRunsUpTakesNoRoomAndEnds) {
  const std::string cell = Cell(Anchor({.down = "page"}), "<w:textDirection w:val=\"btLr\"/>");
  Document document(laid::Table(Row(cell)) + Lines("a", 1));
  EXPECT_EQ(document.PageOf(u"a1"), 1);
}

}  // namespace
