#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>

#include "platform/word/Constants.h"
#include "tests/unit/layout/Drawn.h"

using laid::Cell;
using laid::Document;
using laid::Drawn;
using laid::InParagraph;
using laid::kBottom;
using laid::kCharacter;
using laid::kLeft;
using laid::kNear;
using laid::kPerPage;
using laid::kRight;
using laid::kTall;
using laid::kTop;
using laid::Lines;
using laid::Row;
using laid::Table;
using laid::Typed;

namespace {

const std::string kTwoColumns = "<w:gridCol w:w=\"4000\"/><w:gridCol w:w=\"4000\"/>";

std::string Note(int id, const std::string& blocks, const std::string& kind = "footnote") {
  return "<w:" + kind + " w:id=\"" + std::to_string(id) + "\">" + blocks + "</w:" + kind + ">";
}
std::string Separator(const std::string& kind = "footnote") {
  return "<w:" + kind + " w:id=\"0\" w:type=\"separator\">" + laid::P("<w:separator/>", kTall) + "</w:" + kind + ">" +
         "<w:" + kind + " w:id=\"1\" w:type=\"continuationSeparator\">" + laid::P("<w:continuationSeparator/>", kTall) +
         "</w:" + kind + ">";
}
std::string Referring(const std::string& text, int id, const std::string& kind = "footnote") {
  return laid::P(laid::Text(text) + "<w:" + kind + "Reference w:id=\"" + std::to_string(id) + "\"/>", kTall);
}

TEST(DrawnPages, HaveTheTextOfCellsInTheirPlaces) {
  Document document(Table(
      Row(Cell(Lines("a", 1)) + Cell(Lines("b", 1))) + Row(Cell(Lines("c", 1)) + Cell(Lines("d", 1))), kTwoColumns));
  document.WithSettings(laid::Compatibility(15));
  const Drawn page(document);
  const double margin = 115 / 20.0;
  EXPECT_NEAR(page.LeftOf(u"a1"), kLeft + margin, kNear);
  EXPECT_NEAR(page.LeftOf(u"b1"), kLeft + 200 + margin, kNear);
  EXPECT_NEAR(page.Line(u"a1").area.y, page.Line(u"b1").area.y, kNear);
  EXPECT_NEAR(page.Line(u"d1").area.y, page.Line(u"b1").area.y + 36, kNear);
  EXPECT_NEAR(page.LeftOf(u"d1"), kLeft + 200 + margin, kNear);
}

TEST(DrawnPages, HaveTheBordersAndShadingOfCells) {
  const std::string properties =
      "<w:tcBorders><w:top w:val=\"single\" w:sz=\"16\" w:color=\"00FF00\"/></w:tcBorders>"
      "<w:shd w:val=\"clear\" w:fill=\"C0C0C0\"/>";
  Document document(Table(Row(Cell(Lines("a", 1), properties) + Cell(Lines("b", 1))), kTwoColumns));
  document.WithSettings(laid::Compatibility(15));
  const Drawn page(document);
  ASSERT_EQ(page.Display().fills.size(), 1U);
  const page::Rect area = page.Display().fills[0].area;
  EXPECT_EQ(page.Display().fills[0].color, 0xC0C0C0);
  EXPECT_NEAR(area.x, kLeft, kNear);
  EXPECT_NEAR(area.y, kTop, kNear);
  EXPECT_NEAR(area.width, 200, kNear);
  EXPECT_NEAR(area.Bottom(), page.Line(u"a1").area.Bottom(), 0.2);
  ASSERT_EQ(page.Display().rules.size(), 1U);
  EXPECT_EQ(page.Display().rules[0].color, 0x00FF00);
  EXPECT_NEAR(page.Display().rules[0].width, 2, kNear);
  EXPECT_NEAR(page.Display().rules[0].toX, kLeft + 200, kNear);
}

TEST(DrawnPages, HaveTheTextOfAMergedCellBesideAllItsRows) {
  Document document(Table(Row(Cell(Lines("m", 2), "<w:vMerge w:val=\"restart\"/>") + Cell(Lines("a", 1))) +
                              Row(Cell("<w:p/>", "<w:vMerge/>") + Cell(Lines("b", 1))),
                          kTwoColumns));
  const Drawn page(document);
  EXPECT_NEAR(page.Line(u"m1").area.y, page.Line(u"a1").area.y, kNear);
  EXPECT_NEAR(page.Line(u"m2").area.y, page.Line(u"b1").area.y, kNear);
  EXPECT_NEAR(page.LeftOf(u"m1"), page.LeftOf(u"m2"), kNear);
  EXPECT_LT(page.LeftOf(u"m1"), page.LeftOf(u"a1") - 100);
}

TEST(DrawnPages, HaveACellsTextInItsMiddleWhereItWantsThat) {
  Document document(Table(Row(Cell(Lines("a", 1), "<w:vAlign w:val=\"center\"/>") + Cell(Lines("b", 3))), kTwoColumns));
  const Drawn page(document);
  EXPECT_NEAR(page.Line(u"a1").area.y, page.Line(u"b2").area.y, kNear);
}

std::string Sideways(const std::string& direction, const std::string& more = {}) {
  return more + "<w:textDirection w:val=\"" + direction + "\"/>";
}
std::string Tall(const std::string& cells) { return Row(cells, "<w:trHeight w:val=\"2000\" w:hRule=\"exact\"/>"); }

TEST(DrawnPages, HaveTextThatRunsUpFromTheFootOfItsCell) {
  Document document(
      Table(Tall(Cell(InParagraph(Typed("upright")), Sideways("btLr")) + Cell(Lines("b", 1))), kTwoColumns));
  document.WithSettings(laid::Compatibility(15));
  const Drawn page(document);
  const page::Line& line = page.Line(u"upright");
  EXPECT_EQ(line.turn, page::Turn::kUp);
  EXPECT_EQ(line.story, word::wdMainTextStory);
  EXPECT_EQ(line.start, 0);
  const page::Rect& own = line.area;
  const page::Rect first = line.OnPage({page.LeftOf(u"upright"), own.y, kCharacter, own.height});
  EXPECT_NEAR(first.Bottom(), kTop + 100, kNear) << "the first letter stands lowest";
  EXPECT_NEAR(first.x, kLeft + 115 / 20.0, 1);
  EXPECT_NEAR(first.height, kCharacter, kNear);
  EXPECT_NEAR(line.OnPage(own).height, 100, 1) << "its line is as long as the cell is high";
  EXPECT_NEAR(page.LeftOf(u"b1"), kLeft + 200 + 115 / 20.0, kNear) << "the other cell is as it was";
}

TEST(DrawnPages, HaveTextThatRunsDownFromTheTopOfItsCell) {
  Document document(
      Table(Tall(Cell(InParagraph(Typed("downright")), Sideways("tbRl")) + Cell(Lines("b", 1))), kTwoColumns));
  document.WithSettings(laid::Compatibility(15));
  const Drawn page(document);
  const page::Line& line = page.Line(u"downright");
  EXPECT_EQ(line.turn, page::Turn::kDown);
  const page::Rect first = line.OnPage({page.LeftOf(u"downright"), line.area.y, kCharacter, line.area.height});
  EXPECT_NEAR(first.y, kTop, kNear);
  EXPECT_NEAR(first.Right(), kLeft + 200 - 115 / 20.0, 1) << "the first line stands on the right";
}

TEST(DrawnPages, HaveTextThatRunsUpBesideAllRowsOfAMergedCell) {
  const std::string centred = "<w:jc w:val=\"center\"/>";
  Document document(
      Table(Tall(Cell(InParagraph(Typed("upright"), centred), Sideways("btLr", "<w:vMerge w:val=\"restart\"/>")) +
                 Cell(Lines("a", 1))) +
                Tall(Cell(InParagraph(""), Sideways("btLr", "<w:vMerge/>")) + Cell(Lines("b", 1))),
            kTwoColumns));
  const Drawn page(document);
  const page::Line& line = page.Line(u"upright");
  const double left = page.LeftOf(u"upright");
  const page::Rect text = line.OnPage({left, line.area.y, page.RightOf(u"upright") - left, line.area.height});
  EXPECT_NEAR(text.y + text.height / 2, kTop + 100, 1) << "its middle is where the rows meet";
}

TEST(DrawnPages, HaveLinesThatRunUpInTheOrderOfTheText) {
  Document document(Lines("x", 1) +
                    Table(Tall(Cell(Lines("a", 1)) + Cell(InParagraph(Typed("up")), Sideways("btLr"))) +
                              Tall(Cell(Lines("c", 1)) + Cell(Lines("d", 1))),
                          kTwoColumns) +
                    Lines("y", 1));
  const Drawn page(document);
  std::u16string order;
  for (const page::Line& line : page.Display().lines) order += laid::TextOf(line) + u" ";
  EXPECT_EQ(order, u"x1 a1 up c1 d1 y1 ");
}

TEST(DrawnPages, CountTextThatRunsUpInARepeatedHeadingWhereItStandsFirst) {
  std::string rows = Row(Cell(InParagraph(Typed("upright")), Sideways("btLr")) + Cell(Lines("h", 1)),
                         "<w:tblHeader/><w:trHeight w:val=\"2000\" w:hRule=\"exact\"/>");
  for (int i = 1; i <= 20; ++i) {
    const std::string number = std::to_string(i);
    rows += Row(Cell(Lines("r" + number + "x", 1)) + Cell(Lines("s" + number + "x", 1)));
  }
  Document document(Table(rows, kTwoColumns));
  EXPECT_EQ(document.PageOf(u"upright"), 1);
  EXPECT_EQ(Drawn(document, 1).Line(u"upright").story, word::wdMainTextStory);
  EXPECT_EQ(Drawn(document, 2).Line(u"upright").story, 0);
}

TEST(DrawnPages, RepeatTheHeadingsOfTablesWithoutTheirPlaces) {
  std::string rows = Row(Cell(Lines("h", 1)), "<w:tblHeader/>");
  for (int i = 1; i <= 20; ++i) rows += Row(Cell(Lines("r" + std::to_string(i) + "x", 1)));
  Document document(Table(rows));
  const Drawn first(document, 1);
  const Drawn second(document, 2);
  EXPECT_EQ(first.Line(u"h1").story, word::wdMainTextStory);
  EXPECT_EQ(second.Line(u"h1").story, 0);
  EXPECT_NEAR(second.Line(u"h1").area.y, kTop, kNear);
  EXPECT_NEAR(second.Line(u"r18x1").area.y, kTop + 36, kNear);
}

TEST(DrawnPages, HaveColumnsSideBySide) {
  Document document(Lines("a", 2 * kPerPage) +
                    "<w:sectPr><w:cols w:num=\"2\" w:space=\"720\" w:sep=\"1\"/></w:sectPr>");
  const Drawn page(document);
  EXPECT_NEAR(page.LeftOf(u"a1"), kLeft, kNear);
  const page::Line& second = page.Line(u"a19");
  EXPECT_NEAR(second.area.x, kLeft + 216 + 36, kNear);
  EXPECT_NEAR(second.area.y, kTop, kNear);
  ASSERT_EQ(page.Display().rules.size(), 1U);
  EXPECT_NEAR(page.Display().rules[0].x, kLeft + 216 + 18, kNear);
}

TEST(DrawnPages, HaveTheirOwnNumberInTheHeader) {
  Document document(Lines("a", kPerPage + 1) +
                    "<w:sectPr><w:headerReference w:type=\"default\" w:id=\"rId1\"/><w:pgNumType w:fmt=\"upperRoman\"/>"
                    "</w:sectPr>");
  const std::string field = "<w:fldSimple w:instr=\" PAGE \">" + Typed("17") + "</w:fldSimple>";
  const std::string count = paged::Code(" NUMPAGES ");
  document.WithHeader(InParagraph(Typed("Page ") + field + Typed(" of ") + paged::FieldMark("begin") + count +
                                      paged::FieldMark("separate") + Typed("1") + paged::FieldMark("end"),
                                  "<w:jc w:val=\"right\"/>"));
  for (const int number : {1, 2}) {
    const Drawn page(document, number);
    const page::Line& line = page.Line(u"Page");
    EXPECT_EQ(laid::TextOf(line), number == 1 ? u"Page I of 2" : u"Page II of 2");
    EXPECT_EQ(line.story, 0) << "no cursor comes to a header";
    EXPECT_NEAR(line.area.y, 36, kNear);
    EXPECT_NEAR(page.RightOf(u"2"), kRight, kNear);
  }
}

TEST(DrawnPages, HaveFootnotesAtTheirFoot) {
  Document document(Referring("r", 2) + Lines("a", 2));
  document.With("footnotes", Separator() + Note(2, Lines("n", 2)));
  const Drawn page(document);
  const page::Line& last = page.Line(u"n2");
  EXPECT_EQ(last.story, word::wdFootnotesStory);
  EXPECT_NEAR(last.area.Bottom(), kBottom, kNear);
  EXPECT_NEAR(page.Line(u"n1").area.Bottom(), last.area.y, kNear);
  ASSERT_EQ(page.Display().rules.size(), 1U);
  const page::Rule& rule = page.Display().rules[0];
  EXPECT_NEAR(rule.toX - rule.x, 144, kNear);
  EXPECT_LT(rule.y, page.Line(u"n1").area.y);
  EXPECT_GT(rule.y, page.Line(u"n1").area.y - 36);
  const page::Run& reference = page.Run(u"1");
  EXPECT_TRUE(reference.solid);
  EXPECT_EQ(reference.position, 1);
}

TEST(DrawnPages, GoOnWithTheNotesOfThePageBefore) {
  Document document(Lines("a", kPerPage - 3) + Referring("r", 2) + Lines("b", kPerPage));
  document.With("footnotes", Separator() + Note(2, Lines("n", 3)));
  const Drawn first(document, 1);
  const Drawn second(document, 2);
  EXPECT_TRUE(first.Has(u"n1"));
  EXPECT_FALSE(first.Has(u"n2"));
  EXPECT_NEAR(first.Line(u"n1").area.Bottom(), kBottom, kNear);
  EXPECT_TRUE(second.Has(u"n2"));
  EXPECT_NEAR(second.Line(u"n3").area.Bottom(), kBottom, kNear);
  // The line above them goes over the whole width there.
  ASSERT_EQ(second.Display().rules.size(), 1U);
  EXPECT_NEAR(second.Display().rules[0].toX, kRight, kNear);
}

TEST(DrawnPages, HaveEndnotesBehindTheText) {
  Document document(Referring("r", 2, "endnote") + Lines("a", 2));
  document.With("endnotes", Separator("endnote") + Note(2, Lines("n", 1), "endnote"));
  const Drawn page(document);
  const page::Line& note = page.Line(u"n1");
  EXPECT_EQ(note.story, word::wdEndnotesStory);
  EXPECT_NEAR(note.area.y, page.Line(u"a2").area.Bottom() + 36, kNear);
  EXPECT_EQ(page.Display().rules.size(), 1U);
}

TEST(DrawnPages, HaveTextInTheMiddleWhereTheSectionWantsThat) {
  Document document(Lines("a", 2) + "<w:sectPr><w:vAlign w:val=\"center\"/></w:sectPr>");
  const Drawn page(document);
  EXPECT_NEAR(page.Line(u"a1").area.y - kTop, kBottom - page.Line(u"a2").area.Bottom(), kNear);
}

TEST(DrawnPages, HaveTheirMarginsTheOtherWayRoundOnTheLeftOfABook) {
  Document document(Lines("a", kPerPage + 1) +
                    "<w:sectPr><w:pgMar w:left=\"2880\" w:right=\"720\" w:top=\"1440\" w:bottom=\"1440\"/></w:sectPr>");
  document.WithSettings("<w:mirrorMargins/>");
  EXPECT_NEAR(Drawn(document, 1).LeftOf(u"a1"), 144, kNear);
  EXPECT_NEAR(Drawn(document, 2).LeftOf(u"a19"), 36, kNear);
}

const std::string kBlip =
    "<a:blip xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" r:embed=\"rId1\"/>";

/// @param kind "inline" or "anchor" @param content of it, before the picture
std::string Picture(const std::string& kind, const std::string& content) {
  return "<w:r><w:drawing><wp:" + kind +
         " xmlns:wp=\"http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing\">" + content + kBlip +
         "</wp:" + kind + "></w:drawing></w:r>";
}
/// 100 by 50 points.
const std::string kExtent = "<wp:extent cx=\"1270000\" cy=\"635000\"/>";

TEST(DrawnPages, HavePicturesInTheirLines) {
  Document document(InParagraph(Typed("ab") + Picture("inline", kExtent) + Typed("cd")));
  document.WithPicture("bytes");
  const Drawn page(document);
  ASSERT_EQ(page.Display().pictures.size(), 1U);
  const page::Picture& picture = page.Display().pictures[0];
  EXPECT_EQ(picture.name, "word/media/one.png");
  EXPECT_EQ(document.Parts().Media(picture.name), "bytes");
  EXPECT_NEAR(picture.area.x, kLeft + 2 * kCharacter, kNear);
  EXPECT_NEAR(picture.area.width, 100, kNear);
  EXPECT_NEAR(picture.area.y, kTop, kNear);
  EXPECT_NEAR(picture.area.Bottom(), page.Line(u"ab").baseline, kNear);
  EXPECT_NEAR(page.LeftOf(u"cd"), kLeft + 2 * kCharacter + 100, kNear);
  EXPECT_EQ(page.Run(u"cd").position, 3);
}

TEST(DrawnPages, HaveFloatingPicturesWhereTheyAreAnchored) {
  const std::string inside =
      "<wp:positionH relativeFrom=\"column\"><wp:posOffset>127000</wp:posOffset></wp:positionH>"
      "<wp:positionV relativeFrom=\"paragraph\"><wp:posOffset>254000</wp:posOffset></wp:positionV>";
  const std::string corner =
      "<wp:positionH relativeFrom=\"margin\"><wp:align>right</wp:align></wp:positionH>"
      "<wp:positionV relativeFrom=\"page\"><wp:align>bottom</wp:align></wp:positionV>";
  Document document(Lines("a", 2) + InParagraph(Picture("anchor", inside + kExtent) + Typed("text")) +
                    InParagraph(Picture("anchor", corner + kExtent)));
  document.WithPicture("bytes");
  const Drawn page(document);
  ASSERT_EQ(page.Display().pictures.size(), 2U);
  const page::Rect& one = page.Display().pictures[0].area;
  EXPECT_NEAR(one.x, kLeft + 10, kNear);
  EXPECT_NEAR(one.y, page.Line(u"text").area.y + 20, kNear);
  const page::Rect& other = page.Display().pictures[1].area;
  EXPECT_NEAR(other.Right(), kRight, kNear);
  EXPECT_NEAR(other.Bottom(), 792, kNear);
}

TEST(DrawnPages, HaveTheTextOfTextBoxes) {
  const std::string place =
      "<wp:positionH relativeFrom=\"page\"><wp:posOffset>1270000</wp:posOffset></wp:positionH>"
      "<wp:positionV relativeFrom=\"page\"><wp:posOffset>2540000</wp:posOffset></wp:positionV>";
  const std::string box =
      "<x:txbx xmlns:x=\"urn:shape\"><w:txbxContent>" + InParagraph(Typed("boxed")) + "</w:txbxContent></x:txbx>";
  Document document(InParagraph(Picture("anchor", place + kExtent + box) + Typed("beside")));
  const Drawn page(document);
  EXPECT_TRUE(page.Display().pictures.empty());
  const page::Line& line = page.Line(u"boxed");
  EXPECT_EQ(line.story, 0) << "no cursor comes to it";
  EXPECT_NEAR(page.LeftOf(u"boxed"), 100 + 7.2, kNear);
  EXPECT_NEAR(line.area.y, 200 + 3.6, kNear);
  EXPECT_NEAR(page.LeftOf(u"beside"), kLeft, kNear);
}

TEST(DrawnPages, HaveABoxForAPictureThatIsNotThere) {
  Document document(InParagraph(Picture("inline", kExtent)));
  const Drawn page(document);
  ASSERT_EQ(page.Display().pictures.size(), 1U);
  EXPECT_TRUE(page.Display().pictures[0].name.empty());
}

TEST(DrawnPages, SayOfPicturesWhatTheDocumentSaysForWhoDoesNotSeeThem) {
  const std::string said = "<wp:docPr id=\"1\" descr=\"The site &amp; its fence\"/>";
  const std::string chart =
      "<a:graphic xmlns:a=\"urn:a\"><a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/chart\"/>"
      "</a:graphic>";
  const std::string place =
      "<wp:positionH relativeFrom=\"page\"><wp:posOffset>0</wp:posOffset></wp:positionH>"
      "<wp:positionV relativeFrom=\"page\"><wp:posOffset>0</wp:posOffset></wp:positionV>";
  Document document(InParagraph(Picture("inline", kExtent + said)) +
                    InParagraph(Picture("anchor", place + kExtent + said)) +
                    InParagraph(Picture("inline", kExtent + chart)));
  const Drawn page(document);
  ASSERT_EQ(page.Display().pictures.size(), 3U);
  EXPECT_EQ(page.Display().pictures[0].instead, u"The site & its fence");
  EXPECT_EQ(page.Display().pictures[1].instead, u"The site & its fence");
  EXPECT_EQ(page.Display().pictures[2].instead, u"Chart");
}

TEST(DrawnPages, BeginInALineWhereWordBeganThem) {
  // Word had the break behind the first word of a line that the layout would not divide.
  const std::string mark = "<w:r><w:lastRenderedPageBreak/></w:r>";
  for (const char* before : {"one ", "one two three four five six seven "}) {
    Document document(Lines("a", kPerPage - 1) +
                      InParagraph(Typed(before) + mark + Typed("here goes on what Word has on the next page"), kTall));
    const Drawn first(document.Parts(), 1, true);
    const Drawn second(document.Parts(), 2, true);
    EXPECT_EQ(first.PageCount(), 2);
    EXPECT_EQ(laid::TextOf(first.Display().lines.back()), std::u16string(before, before + std::string(before).size()));
    ASSERT_FALSE(second.Display().lines.empty());
    const page::Line& line = second.Display().lines.front();
    EXPECT_TRUE(laid::TextOf(line).starts_with(u"here"));
    EXPECT_NEAR(line.runs.front().edges.front(), kLeft, kNear);
    document.source = docx::PageSource::kAuto;
    EXPECT_EQ(document.PageOf(u"here"), 2);
    EXPECT_EQ(document.PageOf(u"one"), 1);
  }
}

TEST(DrawnPages, ShowEachCharacterOnceAndOnItsPage) {
  std::string rows;
  for (int i = 0; i < 30; ++i) rows += Row(Cell(Lines("p", 2)) + Cell(Lines("q", 3)));
  Document document(Lines("a", 20) + Table(rows, kTwoColumns) + laid::Paragraph("b", 40) + Lines("c", 5));
  const docx::layout::DocumentLayout layout(document.Parts());
  std::set<word::Position> seen;
  std::size_t characters = 0;
  for (int number = 1; number <= layout.PageCount(); ++number) {
    for (const page::Line& line : layout.Draw(number).lines) {
      for (const page::Run& run : line.runs) {
        for (std::size_t i = 0; i < run.text.size(); ++i) {
          const auto position = run.position + static_cast<word::Position>(i);
          EXPECT_TRUE(seen.insert(position).second);
          EXPECT_EQ(layout.PageShowing(word::wdMainTextStory, position), number);
          EXPECT_EQ(document.Pages().PageOf(document.Parts().Main(), position), number);
          ++characters;
        }
      }
    }
  }
  // All but the marks of paragraphs, cells and rows, and the line breaks.
  std::u16string text = document.Parts().Main().Text(0, document.Parts().Main().Length());
  std::erase_if(text, [](char16_t c) { return c < u' '; });
  EXPECT_EQ(characters, text.size());
}

}  // namespace
