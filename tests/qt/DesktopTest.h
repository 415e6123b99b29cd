#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "apps/desktop/Desktop.h"
#include "hosts/qt/Text.h"
#include "tests/qt/Person.h"

namespace fs = std::filesystem;

inline constexpr page::Color kYellow = 0xffff00;

inline std::string Bytes(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The whole program in its window, over a copy of a sample and settings of its own.
class DesktopTest : public ::testing::Test {
 protected:
  DesktopTest() {
    qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
    path_ = (folder_.path() + "/contract.docx").toStdString();
    fs::copy_file(fs::path(KVX_SAMPLES) / "mutual_nda.docx", path_);
    // Someone who has used it before.
    const fs::path settings = fs::path(folder_.path().toStdString()) / "Brantholt/Kelvarin";
    fs::create_directories(settings);
    settings_ = settings / "kvx.ini";
    std::ofstream(settings_)
        << "[Defaults]\r\nShowSearchChooser=False\r\nShowFormatReminder=False\r\nShowHelp=False\r\n";
    Start();
  }

  void Start() {
    desktop_.reset();
    window_ = std::make_unique<qt::DocumentWindow>();
    desktop_ = std::make_unique<Desktop>(*window_);
    window_->SetProgram(*desktop_);
    window_->show();
    QTest::qWait(10);
  }

  ~DesktopTest() override {
    // The window holds the program's pages.
    window_->View().SetSource(nullptr);
    window_->hide();
    desktop_.reset();
  }

  void Open() { ASSERT_TRUE(window_->Open(path_)); }
  qt::DocumentView& View() { return window_->View(); }
  std::string State() const { return window_->statusBar()->findChild<QLabel*>()->text().toStdString(); }

  /// Chooses a command below "Tools" by its caption.
  void Choose(const QString& caption) {
    QMenu* tools = window_->findChild<QMenu*>("tools");
    QList<QMenu*> menus = tools->findChildren<QMenu*>();
    menus << tools;
    for (QMenu* menu : menus) {
      for (QAction* action : menu->actions()) {
        if (action->text() == caption) return action->trigger();
      }
    }
    FAIL() << "no such command: " << caption.toStdString();
  }
  void Shortcut(const char* caption) {
    for (QAction* action : window_->findChildren<QAction*>()) {
      if (action->text() == caption) return action->trigger();
    }
    FAIL() << caption;
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&View(), key, modifiers); }
  QString Copied() {
    View().Copy();
    return QApplication::clipboard()->text();
  }
  void FindText(const QString& text) {
    Shortcut("&Find...");
    auto& box = Person::At<QLineEdit>(*window_, "findText");
    box.clear();
    QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_Return);
  }
  qt::Place PlaceOf(std::u16string_view text) {
    const auto found = desktop_->Document()->Find(text, {}, true, true);
    EXPECT_TRUE(found.has_value()) << qt::ToQt(text).toStdString();
    return found ? found->start : qt::Place{};
  }

  /// "Find and index" with the options as they are, by the keyboard in the first dialog and the mouse in the second.
  void Index(bool highlight = false) {
    person_.Expect([highlight](QWidget& window) {
      EXPECT_EQ(window.objectName().toStdString(), "frmKVXOptions");
      if (Person::At<QCheckBox>(window, "chkHighlight").isChecked() != highlight) Person::Click(window, "chkHighlight");
      Person::Press(window, Qt::Key_Return);
    });
    person_.Expect([this](QWidget& window) {
      EXPECT_EQ(window.objectName().toStdString(), "frmKVX_COM");
      termsFound_ = Person::At<QListView>(window, "lstTermsInDoc").model()->rowCount();
      Person::Click(window, "txtAddTerm");
      Person::Type(window, "premises");
      Person::Click(window, "cmdAddTerm");
      Person::Click(window, "cmdOK");
    });
    Choose("&Find and index");
  }

  /// A paragraph of the main text as it is drawn, with its number.
  struct Drawn {
    int page{1};
    word::Position start{0};
    word::Position end{0};
    word::Position shown{0};  ///< where what shows begins
    std::string text;
    bool highlighted{false};
  };
  std::vector<Drawn> Paragraphs() {
    std::vector<Drawn> all;
    bool goesOn = false;
    for (int page = 1; page <= desktop_->Document()->PageCount(); ++page) {
      const page::Display drawing = desktop_->Document()->DrawingOf(page);
      for (const page::Line& line : drawing.lines) {
        if (line.story != word::wdMainTextStory) continue;
        if (!goesOn) {
          const auto first = std::ranges::find_if(line.runs, &page::Run::places);
          const word::Position mark = line.endsParagraph ? line.end : line.start;
          all.push_back({page, line.start, line.end, first == line.runs.end() ? mark : first->position, {}, false});
        }
        for (const page::Run& run : line.runs) {
          all.back().text += qt::ToQt(run.text).toStdString();
          all.back().highlighted = all.back().highlighted || run.background == kYellow;
        }
        all.back().end = line.end;
        goesOn = !line.endsParagraph;
      }
    }
    return all;
  }
  std::string WholeText() {
    std::string text;
    for (const Drawn& paragraph : Paragraphs()) text += paragraph.text + '\n';
    return text;
  }
  bool Highlighted() {
    return std::ranges::any_of(Paragraphs(), [](const Drawn& paragraph) { return paragraph.highlighted; });
  }
  /// The paragraph of the index about a term; empty when there is none.
  Drawn IndexParagraph(const std::string& term) {
    Drawn found;
    for (const Drawn& paragraph : Paragraphs()) {
      const bool numbered = !paragraph.text.empty() && paragraph.text.back() >= '0' && paragraph.text.back() <= '9';
      if (paragraph.text.starts_with(term) && numbered) found = paragraph;
    }
    return found;
  }
  std::string IndexEntry(const std::string& term) { return IndexParagraph(term).text; }

  static void SaysYesToUpdating(QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Update only?");
    auto* box = qobject_cast<QMessageBox*>(&window);
    ASSERT_NE(box, nullptr);
    QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
  }

  QTemporaryDir folder_;
  std::string path_;
  fs::path settings_;
  Person person_;
  std::unique_ptr<qt::DocumentWindow> window_;
  std::unique_ptr<Desktop> desktop_;
  int termsFound_{0};
};
