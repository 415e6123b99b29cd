#include <QAccessible>
#include <QInputDialog>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/qt/DesktopTest.h"

namespace {

/// Where the cursor goes in the document's window, by mouse and keys.
class DesktopCursor : public DesktopTest {
 protected:
  void OpenSample(const char* name) { ASSERT_TRUE(window_->Open((fs::path(KVX_SAMPLES) / name).string())); }
  word::Position Cursor() const { return window_->View().Selected().end; }
  void PutCursor(const qt::Place& place) { View().SelectStretch({place, place.position}); }
  /// Where each paragraph of the main text begins to show.
  std::vector<word::Position> Starts() {
    std::vector<word::Position> starts;
    for (const Drawn& paragraph : Paragraphs()) starts.push_back(paragraph.shown);
    return starts;
  }
  void DoubleClick(const QPoint& point) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, point);
  }
};

TEST_F(DesktopCursor, ControlAndDownGoFromParagraphToParagraphAndUpGoesBack) {
  OpenSample("share_purchase_agreement.docx");
  std::vector<word::Position> starts = Starts();
  starts.resize(120);
  PutCursor({1, starts.front()});
  std::vector<word::Position> down{Cursor()};
  while (down.size() < starts.size()) {
    Key(Qt::Key_Down, Qt::ControlModifier);
    down.push_back(Cursor());
  }
  EXPECT_EQ(down, starts);
  std::vector<word::Position> up{Cursor()};
  while (up.size() < starts.size()) {
    Key(Qt::Key_Up, Qt::ControlModifier);
    up.push_back(Cursor());
  }
  std::ranges::reverse(up);
  EXPECT_EQ(up, starts);
}

TEST_F(DesktopCursor, ControlAndUpGoToTheBeginningOfTheParagraphFirst) {
  Open();
  const word::Position start = Starts()[4];
  PutCursor({1, start + 3});
  Key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(Cursor(), start);
}

TEST_F(DesktopCursor, AnArrowLeavesASelectionAtItsEdge) {
  Open();
  const qt::Place word = PlaceOf(u"Confidential");
  View().SelectStretch({word, word.position + 12});
  Key(Qt::Key_Right);
  EXPECT_EQ(View().Selected().start.position, word.position + 12);
  EXPECT_EQ(Cursor(), word.position + 12);
  View().SelectStretch({word, word.position + 12});
  Key(Qt::Key_Left);
  EXPECT_EQ(Cursor(), word.position);
}

TEST_F(DesktopCursor, TwoClicksSelectAWordAndThreeItsParagraph) {
  Open();
  const Drawn paragraph = Paragraphs()[5];
  const word::Position within = paragraph.start + static_cast<word::Position>(paragraph.text.size()) / 2;
  const QPoint point = View().PointOf({1, within});
  DoubleClick(point);
  const std::string word = Copied().trimmed().toStdString();
  EXPECT_FALSE(word.empty());
  EXPECT_EQ(word.find(' '), std::string::npos);
  EXPECT_LE(View().Selected().start.position, within);
  EXPECT_GE(View().Selected().end, within);
  QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(View().Selected().start.position, paragraph.start);
  EXPECT_EQ(View().Selected().end, paragraph.end);
}

TEST_F(DesktopCursor, ADragAfterTwoClicksSelectsWholeWordsToBothSides) {
  Open();
  const qt::Place word = PlaceOf(u"Confidential Information");
  const QPoint from = View().PointOf({1, word.position + 3});
  const auto drag = [&](word::Position to) {
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, from);
    QTest::mouseEvent(QTest::MouseDClick, View().viewport(), Qt::LeftButton, {}, from);
    const QPoint target = View().PointOf({1, to});
    QTest::mouseMove(View().viewport(), target);
    QMouseEvent move(QEvent::MouseMove, QPointF(target), View().viewport()->mapToGlobal(QPointF(target)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(View().viewport(), &move);
    QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, target);
  };
  drag(word.position + 16);
  EXPECT_EQ(View().Selected().start, word);
  EXPECT_GE(View().Selected().end, word.position + 24);
  drag(word.position - 3);
  EXPECT_LT(View().Selected().start.position, word.position - 2);
  EXPECT_GE(View().Selected().end, word.position + 12);
}

TEST_F(DesktopCursor, ShiftAndAClickExtendTheSelection) {
  Open();
  const qt::Place word = PlaceOf(u"Confidential Information");
  QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().PointOf(word));
  QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ShiftModifier, View().PointOf({1, word.position + 24}));
  EXPECT_EQ(Copied().toStdString(), "Confidential Information");
}

TEST_F(DesktopCursor, DownGoesThroughAllPagesAndUpBack) {
  OpenSample("share_purchase_agreement.docx");
  Key(Qt::Key_Home, Qt::ControlModifier);
  for (int lines = 0; View().CurrentPage() < 5; ++lines) {
    const word::Position before = Cursor();
    Key(Qt::Key_Down);
    ASSERT_GT(Cursor(), before) << "stuck on page " << View().CurrentPage();
    ASSERT_LT(lines, 400);
  }
  while (Cursor() > 0) {
    const word::Position before = Cursor();
    Key(Qt::Key_Up);
    ASSERT_LT(Cursor(), before) << "stuck on page " << View().CurrentPage();
  }
}

TEST_F(DesktopCursor, PageDownGoesScreenByScreenToTheEndAndPageUpBack) {
  OpenSample("share_purchase_agreement.docx");
  Key(Qt::Key_Home, Qt::ControlModifier);
  const int last = desktop_->Document()->PageCount();
  int screens = 0;
  for (word::Position before = -1; before != Cursor(); ++screens) {
    before = Cursor();
    Key(Qt::Key_PageDown);
    ASSERT_GE(Cursor(), before);
  }
  EXPECT_EQ(View().CurrentPage(), last);
  const int whole = View().verticalScrollBar()->maximum() / View().verticalScrollBar()->pageStep();
  EXPECT_GT(screens, whole / 2);
  EXPECT_LT(screens, whole * 2);
  for (word::Position before = -1; before != Cursor();) {
    before = Cursor();
    Key(Qt::Key_PageUp);
  }
  EXPECT_EQ(Cursor(), 0);
}

TEST_F(DesktopCursor, ControlAndPageDownGoToTheNextPagesBeginning) {
  OpenSample("share_purchase_agreement.docx");
  Key(Qt::Key_Home, Qt::ControlModifier);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(View().CurrentPage(), 3);
  Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(View().CurrentPage(), 2);
}

TEST_F(DesktopCursor, GoToPageTakesTheNumberThatIsPrinted) {
  OpenSample("share_purchase_agreement.docx");
  const auto answer = [](const char* number) {
    return [number](QWidget& window) {
      auto* dialog = qobject_cast<QInputDialog*>(&window);
      ASSERT_NE(dialog, nullptr);
      dialog->setTextValue(QString::fromLatin1(number));
      dialog->accept();
    };
  };
  person_.Expect(answer("12"));
  Shortcut("&Go to page...");
  const qt::DocumentSource& pages = *desktop_->Document();
  EXPECT_EQ(qt::ToQt(pages.LabelOf(View().CurrentPage())).toStdString(), "12");
  EXPECT_NE(View().CurrentPage(), 12) << "the sample's cover has numbers of its own";
  person_.Expect(answer("II"));
  Shortcut("&Go to page...");
  EXPECT_EQ(View().CurrentPage(), 2);
  person_.Expect(answer("4000"));
  Shortcut("&Go to page...");
  EXPECT_EQ(View().CurrentPage(), 2);
  EXPECT_EQ(window_->statusBar()->currentMessage().toStdString(), "No page has the number 4000");
}

TEST_F(DesktopCursor, AClickInAHeaderMovesNothingAndSaysWhy) {
  OpenSample("share_purchase_agreement.docx");
  const int page = 6;
  const page::Display drawing = desktop_->Document()->DrawingOf(page);
  const auto header =
      std::ranges::find_if(drawing.lines, [](const page::Line& line) { return line.story == 0 && !line.runs.empty(); });
  ASSERT_NE(header, drawing.lines.end());
  PutCursor({1, 10});
  const QPointF letter(header->runs.front().edges.front() + 3, header->area.y + header->area.height / 2);
  QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().PointOn(page, letter));
  EXPECT_EQ(Cursor(), 10);
  EXPECT_EQ(window_->statusBar()->currentMessage().toStdString(),
            "Headers, footers, text boxes and repeated headings are only shown here");
}

TEST_F(DesktopCursor, WhoTypesIsToldThatTheTextIsOnlyShown) {
  Open();
  const std::string before = WholeText();
  Key(Qt::Key_X);
  EXPECT_EQ(window_->statusBar()->currentMessage().toStdString(), "The text is only shown here and cannot be changed");
  Key(Qt::Key_Delete);
  EXPECT_EQ(WholeText(), before);
  EXPECT_FALSE(desktop_->Modified());
}

TEST_F(DesktopCursor, FindGoesThroughTheNotesToo) {
  OpenSample("awkward_licence.docx");
  std::string text;
  for (int page = 1; page <= desktop_->Document()->PageCount() && text.empty(); ++page) {
    for (const page::Line& line : desktop_->Document()->DrawingOf(page).lines) {
      if (line.story != word::wdFootnotesStory || !text.empty()) continue;
      for (const page::Run& run : line.runs) {
        if (run.places && run.text.size() > text.size()) text = qt::ToQt(run.text).trimmed().toStdString();
      }
    }
  }
  ASSERT_GT(text.size(), 5u);
  FindText(QString::fromStdString(text));
  EXPECT_EQ(View().Selected().start.story, word::wdFootnotesStory);
  EXPECT_EQ(Copied().toStdString(), text);
}

TEST_F(DesktopCursor, FindTellsWhenItBeginsAgain) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  FindText("confidential");
  EXPECT_EQ(Person::At<QLabel>(*window_, "findResult").text().toStdString(), "From the beginning again");
  Shortcut("Find &next");
  EXPECT_EQ(Person::At<QLabel>(*window_, "findResult").text().toStdString(), "");
  Key(Qt::Key_Home, Qt::ControlModifier);
  QTest::keyClick(&Person::At(*window_, "findText"), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Person::At<QLabel>(*window_, "findResult").text().toStdString(), "From the end again");
}

TEST_F(DesktopCursor, FindPassesOverTheCodesOfEntries) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  Index();
  const std::string text = WholeText();
  int shown = 0;
  for (std::size_t at = text.find("premises"); at != std::string::npos; at = text.find("premises", at + 1)) ++shown;
  ASSERT_GT(shown, 1);
  FindText("premises");
  const word::Position first = View().Selected().start.position;
  int found = 0;
  do {
    ++found;
    Shortcut("Find &next");
  } while (View().Selected().start.position != first && found < 100);
  EXPECT_EQ(found, shown);
}

TEST_F(DesktopCursor, WhatIsCopiedIsWhatShows) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  Index();
  int compared = 0;
  for (const Drawn& paragraph : Paragraphs()) {
    if (paragraph.text.find("premises") == std::string::npos) continue;
    View().SelectStretch({{1, paragraph.start}, paragraph.end});
    EXPECT_TRUE(paragraph.text.ends_with(Copied().toStdString())) << Copied().toStdString();
    EXPECT_GT(Copied().size(), 7);
    ++compared;
  }
  EXPECT_GT(compared, 1);
  View().SelectStretch({PlaceOf(u"“Confidential Information”"), PlaceOf(u"everything").position});
  EXPECT_EQ(Copied().toStdString(), "“Confidential Information” means ");
  View().SelectAll();
  const QString all = Copied();
  for (const QChar c : all) EXPECT_TRUE(c >= u' ' || c == u'\n' || c == u'\t') << static_cast<int>(c.unicode());
  EXPECT_EQ(all.indexOf(QStringLiteral(" XE ")), -1);
}

TEST_F(DesktopCursor, ATableIsCopiedWithTabsBetweenItsCells) {
  OpenSample("share_purchase_agreement.docx");
  FindText("Signed as a deed");
  FindText("Morwenna Pask");
  const qt::Place row = View().Selected().start;
  FindText("Tobias Venn");
  View().SelectStretch({row, View().Selected().start.position});
  EXPECT_EQ(Copied().toStdString(),
            "Morwenna Pask\t\tName, address and occupation:\nIdris Calloway\t\tName, address and occupation:\n");
}

TEST_F(DesktopCursor, WhoFollowedALinkCanGoBack) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  Index();
  const Drawn entry = IndexParagraph("premises");
  ASSERT_FALSE(entry.text.empty());
  const QPoint point = View().PointOf({1, entry.start + 1});
  QTest::mousePress(View().viewport(), Qt::LeftButton, {}, point);
  const word::Position clicked = Cursor();
  ASSERT_GT(clicked, entry.start);
  QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, point);
  ASSERT_LT(Cursor(), entry.start);
  Shortcut("Go &back");
  EXPECT_EQ(Cursor(), clicked);
  Shortcut("Go &back");
  EXPECT_EQ(Cursor(), clicked);
  EXPECT_EQ(window_->statusBar()->currentMessage().toStdString(), "No link was followed");
}

TEST_F(DesktopCursor, AScreenReaderIsToldThePageAndTheCursor) {
  Open();
  const qt::Place word = PlaceOf(u"Confidential Information");
  View().SelectStretch({word, word.position + 12});
  QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&View());
  ASSERT_NE(access, nullptr);
  EXPECT_EQ(access->text(QAccessible::Name).toStdString(), "Document");
  EXPECT_TRUE(access->state().readOnly);
  QAccessibleTextInterface* text = access->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_GT(text->characterCount(), 500);
  int start = 0;
  int end = 0;
  text->selection(0, &start, &end);
  EXPECT_EQ(text->text(start, end).toStdString(), "Confidential");
  EXPECT_EQ(text->selectionCount(), 1);
  EXPECT_EQ(text->cursorPosition(), end);
  text->setCursorPosition(end + 1);
  EXPECT_EQ(Cursor(), word.position + 13);
  EXPECT_EQ(text->selectionCount(), 0);
  const QRect letter = text->characterRect(end + 1);
  EXPECT_EQ(text->offsetAtPoint(letter.center()), end + 1);
  EXPECT_EQ(text->textAtOffset(end + 1, QAccessible::WordBoundary, &start, &end).toStdString(), "Information");
}

TEST_F(DesktopCursor, TheStatusBarTellsThePageInSight) {
  OpenSample("share_purchase_agreement.docx");
  EXPECT_TRUE(State().starts_with("Page i (1 of ")) << State();
  View().verticalScrollBar()->setValue(View().verticalScrollBar()->maximum());
  const std::string last = std::to_string(desktop_->Document()->PageCount());
  EXPECT_NE(State().find("(" + last + " of " + last + ")"), std::string::npos) << State();
  EXPECT_EQ(View().CurrentPage(), 1) << "the cursor stays";
}

}  // namespace
