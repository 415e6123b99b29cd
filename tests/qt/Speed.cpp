// Measures the windows, for scripts/bench-window: qt_speed DOCUMENT

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "apps/desktop/Desktop.h"
#include "tests/qt/Windows.h"

namespace {

std::string document;

/// @return milliseconds
double Timed(const std::function<void()>& work) {
  QElapsedTimer clock;
  clock.start();
  work();
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void Say(const std::string& what, double milliseconds) {
  std::cout << std::left << std::setw(56) << what << std::right << std::setw(10) << std::fixed << std::setprecision(1)
            << milliseconds << " ms" << std::endl;
}

void SayEach(const std::string& what, std::vector<double> times) {
  if (times.empty()) return;
  std::ranges::sort(times);
  Say(what + ", the middle one of " + std::to_string(times.size()), times[times.size() / 2]);
  Say(what + ", the slowest", times.back());
}

class Speed : public Windows {};

TEST_F(Speed, OfTwoThousandTerms) {
  std::vector<std::u16string> many;
  for (int i = 0; i < 2000; ++i) many.push_back(u"Defined Term " + QString::number(i).toStdU16String());
  frmKVX_COM& form = MakeTerms(many);
  QElapsedTimer since;
  since.start();
  person.Expect([&](QWidget& window) {
    window.grab();
    Say("terms dialog with 2,000 terms: opened and drawn", static_cast<double>(since.nsecsElapsed()) / 1e6);
    for (const auto& [what, button] :
         {std::pair("deselect all", "cmdDeselectAllTermsInDoc"), std::pair("select all", "cmdSelectAllTermsInDoc")}) {
      Say(std::string("terms dialog: ") + what, Timed([&] {
            Person::Click(window, button);
            window.grab();
          }));
    }
    auto& list = Person::At<QListView>(window, "lstTermsInDoc");
    std::vector<double> clicks;
    for (int entry = 0; entry < 2000; entry += 100) {
      clicks.push_back(Timed([&] {
        Person::ClickEntry(window, "lstTermsInDoc", entry);
        window.grab();
      }));
    }
    SayEach("terms dialog: a click on a term", clicks);
    std::vector<double> keys;
    for (int step = 0; step < 40; ++step) {
      keys.push_back(Timed([&] {
        QTest::keyClick(&list, Qt::Key_PageDown);
        window.grab();
      }));
    }
    SayEach("terms dialog: a screen further", keys);
    form.Hide();
  });
  windows.ShowModal(form);
}

TEST(WindowSpeed, OfALongDocument) {
  QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
  qt::DocumentWindow window;
  Desktop desktop(window);
  window.SetProgram(desktop);
  window.show();
  QTest::qWait(50);
  bool opened = false;
  Say("document: opened and drawn", Timed([&] {
        opened = window.Open(document);
        window.grab();
      }));
  ASSERT_TRUE(opened);
  const int pages = desktop.Document()->PageCount();
  std::cout << "document: " << pages << " pages" << std::endl;
  qt::DocumentView& view = window.View();
  const auto screens = [&](int most) {
    std::vector<double> times;
    while (view.verticalScrollBar()->value() < view.verticalScrollBar()->maximum() &&
           times.size() < static_cast<std::size_t>(most)) {
      times.push_back(Timed([&] {
        view.verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
        view.viewport()->grab();
      }));
    }
    return times;
  };
  SayEach("document: a screen further", screens(200));
  std::vector<double> jumps;
  for (int step = 0; step < 50; ++step) {
    jumps.push_back(Timed([&] {
      const int largest = view.verticalScrollBar()->maximum();
      view.verticalScrollBar()->setValue(static_cast<int>(static_cast<qint64>(largest) * (step * 37 % 50) / 50));
      view.viewport()->grab();
    }));
  }
  SayEach("document: the scroll bar's handle moved", jumps);
  const auto key = [&](const char* what, Qt::Key pressed, Qt::KeyboardModifiers modifiers) {
    Say(std::string("document: ") + what, Timed([&] {
          QTest::keyClick(&view, pressed, modifiers);
          view.viewport()->grab();
        }));
  };
  key("to the end", Qt::Key_End, Qt::ControlModifier);
  key("select back to the beginning", Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
  key("to the beginning", Qt::Key_Home, Qt::ControlModifier);
  std::vector<double> lines;
  for (int step = 0; step < 200; ++step) {
    lines.push_back(Timed([&] {
      QTest::keyClick(&view, Qt::Key_Down);
      view.viewport()->grab();
    }));
  }
  SayEach("document: a line down", lines);
  Say("document: a text that is not there",
      Timed([&] { EXPECT_FALSE(desktop.Document()->Find(u"there is no such text", {}, true, false).has_value()); }));
  Say("document: zoom", Timed([&] {
        view.SetZoom(0.5);
        view.viewport()->grab();
      }));
  view.SetZoom(1);
  Person person;
  QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
  for (const char* button : {"cmdOK", "cmdOK", "cmdNo", "cmdOK", "cmdOK"}) {
    person.Expect([button](QWidget& form) { Person::Click(form, button); });
  }
  Say("document: Find and index, until it is drawn", Timed([&] {
        for (QAction* action : window.findChildren<QAction*>()) {
          if (action->text() == QStringLiteral("&Find and index")) action->trigger();
        }
        view.viewport()->grab();
      }));
  std::vector<double> moves;
  for (int y = 0; y < view.viewport()->height(); y += 7) {
    moves.push_back(Timed([&] { QTest::mouseMove(view.viewport(), QPoint(view.viewport()->width() / 3, y)); }));
  }
  SayEach("document: the mouse moved over the index", moves);
  view.SetSource(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  if (argc != 2) {
    std::cerr << "usage: qt_speed DOCUMENT\n";
    return 2;
  }
  document = argv[1];
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
