// Makes pictures of every form and of the document window, for scripts/screenshots: qt_pictures FOLDER light|dark

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPalette>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <filesystem>
#include <iostream>
#include <string>

#include "apps/desktop/Desktop.h"
#include "hosts/qt/OutlinedStyle.h"
#include "tests/qt/Windows.h"

namespace {

QString folder;

QPalette DarkPalette() {
  // With the shades of an edge, which a theme sets too.
  QPalette palette(QColor(0x3c, 0x3c, 0x40), QColor(0x2d, 0x2d, 0x30));
  palette.setColor(QPalette::Window, QColor(0x2d, 0x2d, 0x30));
  palette.setColor(QPalette::WindowText, Qt::white);
  palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
  palette.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2d, 0x30));
  palette.setColor(QPalette::Text, Qt::white);
  palette.setColor(QPalette::Button, QColor(0x3c, 0x3c, 0x40));
  palette.setColor(QPalette::ButtonText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor(0x3c, 0x3c, 0x40));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x6c, 0xb4, 0xff));
  palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xc0));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  }
  return palette;
}

void Keep(QWidget& window, const QString& name) {
  QTest::qWait(50);
  const QString path = folder + '/' + name + ".png";
  EXPECT_TRUE(window.grab().save(path)) << path.toStdString();
}

class Pictures : public Windows {};

TEST_F(Pictures, OfEachForm) {
  InEachWindow(
      [](forms::Form&, const std::string& name, QWidget& window) { Keep(window, QString::fromStdString(name)); });
}

TEST_F(Pictures, OfMessages) {
  for (const Message& message : Messages()) {
    person.Expect([&message](QWidget& window) {
      Keep(window, QString::fromStdString(message.name));
      window.hide();
    });
    messages.Show(message.title, message.text, message.icon, message.buttons);
  }
}

TEST_F(Pictures, OfTheHelpMenu) {
  Show(MakeOptions(), [](QWidget& window) {
    auto& menu = Person::At<QMenu>(window, "mnuHelp");
    menu.popup(window.mapToGlobal(QPoint(0, 30)));
    Keep(menu, "options_help");
    menu.hide();
  });
}

/// Follows one run on a sample, and takes the window at each step.
TEST(WindowPictures, OfARun) {
  QTemporaryDir home;
  qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
  const std::string path = (home.path() + "/agreement.docx").toStdString();
  std::filesystem::copy_file(std::filesystem::path(KVX_SAMPLES) / "share_purchase_agreement.docx", path);
  qt::DocumentWindow window;
  Desktop desktop(window);
  Person person;
  window.SetProgram(desktop);
  window.show();
  Keep(window, "window_empty");
  ASSERT_TRUE(window.Open(path));
  Keep(window, "window");
  const auto trigger = [&](const char* caption) {
    for (QAction* action : window.findChildren<QAction*>()) {
      if (action->text() == caption) return action->trigger();
    }
    ADD_FAILURE() << caption;
  };
  trigger("&Find...");
  auto& text = Person::At<QLineEdit>(window, "findText");
  QTest::keyClicks(&text, "Completion Date");
  QTest::keyClick(&text, Qt::Key_Return);
  Keep(window, "window_find");
  text.setText("Complexion Date");
  QTest::keyClick(&text, Qt::Key_Return);
  Keep(window, "window_not_found");
  QTest::keyClick(&text, Qt::Key_Escape);
  person.Expect([](QWidget& dialog) {
    Keep(dialog, "window_go_to_page");
    dialog.hide();
  });
  trigger("&Go to page...");
  QTest::keyClick(&window.View(), Qt::Key_End, Qt::ControlModifier);
  for (const char* button : {"cmdOK", "cmdOK", "cmdNo"}) {
    person.Expect([button](QWidget& prompt) { Person::Click(prompt, button); });
  }
  person.Expect([](QWidget& options) {
    Keep(options, "run_options");
    Person::Click(options, "cmdOK");
  });
  person.Expect([](QWidget& terms) {
    Keep(terms, "run_terms");
    Person::Click(terms, "cmdOK");
  });
  trigger("&Find and index");
  Keep(window, "window_index");
  QMenu* tools = window.findChild<QMenu*>("tools");
  QMenu* commands = tools->actions().front()->menu();
  ASSERT_NE(commands, nullptr);
  commands->popup(window.mapToGlobal(QPoint(100, 30)));
  Keep(*commands, "window_tools");
  commands->hide();
  for (int step = 0; step < 12; ++step) QTest::keyClick(&window.View(), Qt::Key_PageUp);
  Keep(window, "window_highlights");
  trigger("Zoom &out");
  trigger("Zoom &out");
  trigger("Zoom &out");
  Keep(window, "window_small");
  person.Expect([](QWidget& dialog) {
    Keep(dialog, "window_save_changes");
    dialog.hide();
  });
  window.close();
  person.Expect([](QWidget& dialog) {
    Keep(dialog, "window_cannot_open");
    dialog.hide();
  });
  EXPECT_FALSE(window.Open("no_such_file.docx"));
  QMenu* help = window.findChild<QMenu*>("help");
  help->popup(window.mapToGlobal(QPoint(150, 30)));
  Keep(*help, "window_help");
  help->hide();
  window.View().SetSource(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  if (argc != 3) {
    std::cerr << "usage: qt_pictures FOLDER light|dark\n";
    return 2;
  }
  folder = QString::fromLocal8Bit(argv[1]);
  QDir().mkpath(folder);
  QApplication::setStyle(QStringLiteral("Fusion"));
  qt::UseOutlinedStyle();
  QApplication::setQuitOnLastWindowClosed(false);
  if (QString::fromLocal8Bit(argv[2]) == "dark") QApplication::setPalette(DarkPalette());
  return RUN_ALL_TESTS();
}
