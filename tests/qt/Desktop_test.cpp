#include "tests/qt/DesktopTest.h"

#include <QMenuBar>
#include <QMimeData>

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace {

/// For as long as it lives, no file grows beyond so many bytes.
class SmallFiles {
 public:
  explicit SmallFiles(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(DesktopTest, WhatItRemembersLiesBesideTheSettings) {
  Open();
  EXPECT_TRUE(fs::exists(settings_.parent_path() / "kvxuser.ini"));
  const fs::path home = folder_.path().toStdString();
  for (const fs::directory_entry& entry : fs::directory_iterator(home.parent_path())) {
    const std::string path = entry.path().string();
    EXPECT_TRUE(path == home || !path.starts_with(home.string())) << path;
  }
}

TEST_F(DesktopTest, ADocumentIsShownWithItsPages) {
  Open();
  EXPECT_EQ(window_->windowTitle().toStdString(), "contract.docx[*] \u2013 Kelvarin");
  EXPECT_EQ(State().find("Page 1 (1 of "), 0u) << State();
  EXPECT_FALSE(window_->isWindowModified());
  const page::Display first = desktop_->Document()->DrawingOf(1);
  EXPECT_GT(first.lines.size(), 20u);
  EXPECT_GT(Paragraphs().size(), 5u);
}

TEST_F(DesktopTest, EachCharacterStandsOnThePageThatItsNumberSays) {
  Open();
  qt::DocumentSource& pages = *desktop_->Document();
  std::size_t characters = 0;
  for (int page = 1; page <= pages.PageCount(); ++page) {
    for (const page::Line& line : pages.DrawingOf(page).lines) {
      if (line.story != word::wdMainTextStory) continue;
      for (const page::Run& run : line.runs) {
        if (!run.places) continue;
        const word::Position last = run.position + (run.solid ? 0 : static_cast<int>(run.text.size()) - 1);
        EXPECT_EQ(pages.PageOf({1, run.position}), page);
        EXPECT_EQ(pages.PageOf({1, last}), page);
        characters += run.text.size();
      }
    }
  }
  EXPECT_GT(characters, 3000u);
}

TEST_F(DesktopTest, AClickPlacesTheCursorAndADragSelects) {
  Open();
  const qt::Place word = PlaceOf(u"Confidential Information");
  const QPoint from = View().PointOf(word);
  const QPoint to = View().PointOf({word.story, word.position + 12});
  QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, from);
  EXPECT_EQ(View().Selected().start, word);
  EXPECT_EQ(View().Selected().end, word.position);
  QTest::mousePress(View().viewport(), Qt::LeftButton, {}, from);
  QTest::mouseMove(View().viewport(), to);
  QTest::mouseRelease(View().viewport(), Qt::LeftButton, {}, to);
  EXPECT_EQ(Copied().toStdString(), "Confidential");
  EXPECT_EQ(desktop_->Document()->Selected().end, word.position + 12);
}

TEST_F(DesktopTest, AClickOnADrawnCharacterPutsTheCursorBesideIt) {
  for (const char* sample : {"mutual_nda.docx", "share_purchase_agreement.docx", "awkward_licence.docx"}) {
    SCOPED_TRACE(sample);
    ASSERT_TRUE(window_->Open((fs::path(KVX_SAMPLES) / sample).string()));
    int clicks = 0;
    for (int page = 1; page <= std::min(3, desktop_->Document()->PageCount()); ++page) {
      const page::Display drawing = desktop_->Document()->DrawingOf(page);
      for (std::size_t l = 0; l < drawing.lines.size(); l += 3) {
        const page::Line& line = drawing.lines[l];
        if (line.story == 0) continue;
        for (const page::Run& run : line.runs) {
          const std::size_t unit = run.text.size() / 2;
          if (!run.places || run.solid || run.rightToLeft || run.edges[unit + 1] - run.edges[unit] < 2) continue;
          const double width = run.edges[unit + 1] - run.edges[unit];
          const word::Position position = run.position + static_cast<word::Position>(unit);
          const QPointF left(run.edges[unit] + width / 4, line.area.y + line.area.height / 2);
          QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().PointOn(page, left));
          EXPECT_EQ(View().Selected().start, (qt::Place{line.story, position}));
          ++clicks;
          if (unit + 1 == run.text.size()) continue;
          const QPointF right(left.x() + width / 2, left.y());
          QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().PointOn(page, right));
          EXPECT_EQ(View().Selected().start, (qt::Place{line.story, position + 1}));
        }
      }
    }
    EXPECT_GT(clicks, 20);
  }
}

TEST_F(DesktopTest, KeysMoveTheCursorAndSelect) {
  Open();
  View().SelectStretch({PlaceOf(u"Confidential Information"), PlaceOf(u"Confidential Information").position});
  const qt::Place start = View().Selected().start;
  Key(Qt::Key_Right);
  Key(Qt::Key_Left);
  EXPECT_EQ(View().Selected().start, start);
  Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Copied().trimmed().toStdString(), "Confidential");
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(View().Selected().end, 0);
  Key(Qt::Key_Down);
  const word::Position below = View().Selected().end;
  EXPECT_GT(below, 0);
  Key(Qt::Key_Up);
  EXPECT_EQ(View().Selected().end, 0);
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(View().CurrentPage(), desktop_->Document()->PageCount());
  Key(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(View().Selected().start.position, 0);
}

TEST_F(DesktopTest, FindGoesFromPlaceToPlaceAndAroundTheEnd) {
  Open();
  FindText("confidential information");
  const qt::Place first = View().Selected().start;
  EXPECT_EQ(Copied().toLower().toStdString(), "confidential information");
  Shortcut("Find &next");
  EXPECT_GT(View().Selected().start.position, first.position);
  Shortcut("Find &previous");
  EXPECT_EQ(View().Selected().start, first);
  Shortcut("Find &previous");
  EXPECT_GT(View().Selected().start.position, first.position);
  QTest::keyClick(&Person::At(*window_, "findText"), Qt::Key_Escape);
  EXPECT_FALSE(Person::At(*window_, "findBar").isVisible());
  FindText("there is no such text");
  EXPECT_EQ(Person::At<QLabel>(*window_, "findResult").text().toStdString(), "Not found");
}

TEST_F(DesktopTest, ZoomKeepsThePlaceInSight) {
  Open();
  View().SelectStretch({PlaceOf(u"Confidential Information"), 0});
  Shortcut("Zoom &in");
  EXPECT_NEAR(View().Zoom(), 1.2, 0.01);
  Shortcut("&Whole size");
  EXPECT_EQ(View().Zoom(), 1);
}

TEST_F(DesktopTest, AWholeRunByKeysAndMouseLeavesAnIndexThatLeadsToItsPlaces) {
  Open();
  const std::string before = Bytes(path_);
  Key(Qt::Key_End, Qt::ControlModifier);
  fs::remove(settings_);
  for (const char* prompt : {"frmKVXSearchChooser", "frmKVXFormatInstrux"}) {
    person_.Expect([prompt](QWidget& window) {
      EXPECT_EQ(window.objectName().toStdString(), prompt);
      Person::Click(window, "cmdOK");
    });
  }
  person_.Expect([](QWidget& window) { Person::Click(window, "cmdNo"); });
  Index(true);
  EXPECT_GT(termsFound_, 3);
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_EQ(Bytes(path_), before) << "nothing is saved without being asked";

  // The cursor stands at the index, whose first entry is a link to the term.
  qt::DocumentSource& pages = *desktop_->Document();
  const qt::Place index = View().Selected().start;
  const QPoint cursor = View().PointOf(index);
  const QPoint below = View().PointOf({1, index.position + 40});
  EXPECT_LT(std::abs(cursor.y() - below.y()), 60) << "the cursor is drawn away from the index";
  const Drawn entry = IndexParagraph("premises");
  ASSERT_FALSE(entry.text.empty());
  QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, View().PointOf({1, entry.start + 1}));
  EXPECT_EQ(Copied().toStdString(), "premises");
  EXPECT_LT(View().Selected().start.position, index.position);
  const std::optional<qt::DocumentSource::Selection> page = pages.LinkAt({1, entry.end - 1});
  ASSERT_TRUE(page.has_value()) << entry.text;
  const std::string label = qt::ToQt(pages.LabelOf(pages.PageOf(page->start))).toStdString();
  EXPECT_TRUE(entry.text.ends_with(label)) << entry.text;
  EXPECT_TRUE(Highlighted());
}

TEST_F(DesktopTest, CapitalisedWordsAreFoundPageByPage) {
  Open();
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.objectName().toStdString(), "frmKVXOptions");
    Person::Click(window, "optSearchType(1)");
    Person::Press(window, Qt::Key_Return);
  });
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Save document");
    Person::Press(window, Qt::Key_Return);
  });
  person_.Expect([this](QWidget& window) {
    EXPECT_EQ(window.objectName().toStdString(), "frmKVX_COM");
    termsFound_ = Person::At<QListView>(window, "lstTermsInDoc").model()->rowCount();
    Person::Press(window, Qt::Key_Escape);
  });
  Choose("&Find and index");
  EXPECT_GT(termsFound_, 30);
}

TEST_F(DesktopTest, TheToolsMenuHasTheFourCommandsOfTheAddInAndNothingElse) {
  QMenu* tools = window_->findChild<QMenu*>("tools");
  ASSERT_EQ(tools->actions().size(), 1);
  EXPECT_EQ(tools->actions()[0]->text().toStdString(), "&Kelvarin");
  QMenu* popup = tools->actions()[0]->menu();
  ASSERT_NE(popup, nullptr);
  std::vector<std::string> captions;
  for (const QAction* action : popup->actions()) captions.push_back(action->text().toStdString());
  EXPECT_EQ(captions, (std::vector<std::string>{"&Find and index", "&Remove indexing", "Remove &highlighting only",
                                                "&Update index"}));
}

TEST_F(DesktopTest, TheHelpMenuShowsTheAboutBoxAndTellsOfPagesThatAreMissing) {
  std::vector<std::string> captions;
  for (const QAction* action : window_->findChild<QMenu*>("help")->actions()) {
    captions.push_back(action->text().toStdString());
  }
  EXPECT_EQ(captions, (std::vector<std::string>{"The document &window", "&Contents", "&Getting started",
                                                "&Questions and answers", "&About Kelvarin"}));
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.objectName().toStdString(), "frmKVXAbout_COM");
    Person::Click(window, "cmdOK");
  });
  Shortcut("&About Kelvarin");
  // Beside the test there are none.
  for (const char* caption : {"The document &window", "&Contents", "&Getting started", "&Questions and answers"}) {
    person_.Expect([](QWidget& window) {
      EXPECT_EQ(window.windowTitle().toStdString(), "Help");
      Person::Press(window, Qt::Key_Return);
    });
    Shortcut(caption);
  }
}

TEST_F(DesktopTest, HighlightingGoesAtACommandAndTheIndexStays) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  Index(true);
  ASSERT_TRUE(Highlighted());
  person_.ExpectMessage("Done", "Highlighting removed from indexed terms.", "OK");
  Choose("Remove &highlighting only");
  EXPECT_FALSE(Highlighted());
  EXPECT_FALSE(IndexEntry("premises").empty());
}

TEST_F(DesktopTest, IndexingGoesAtACommandAndLeavesTheDocumentAsItWas) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  const std::string before = WholeText();
  Index(true);
  ASSERT_NE(WholeText(), before);
  Choose("&Remove indexing");
  EXPECT_EQ(WholeText(), before);
  EXPECT_FALSE(Highlighted());
}

TEST_F(DesktopTest, TheIndexIsBroughtUpToDateAtACommand) {
  Open();
  Key(Qt::Key_End, Qt::ControlModifier);
  Index();
  const std::string entry = IndexEntry("premises");
  ASSERT_FALSE(entry.empty());
  person_.Expect(SaysYesToUpdating);
  person_.ExpectMessage("Done", "Defined terms index updated.", "OK");
  Choose("&Update index");
  EXPECT_EQ(IndexEntry("premises"), entry);
}

TEST_F(DesktopTest, ADocumentWithoutAnIndexHasNoneToUpdate) {
  Open();
  person_.Expect(SaysYesToUpdating);
  person_.ExpectMessage("No defined terms index found",
                        "No defined terms index found.  Please re-run Kelvarin to create one.", "OK");
  Choose("&Update index");
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(DesktopTest, WithoutADocumentTheCommandsDoNothing) {
  person_.ExpectMessage("No document to index", "At least 1 document needs to be open to run the indexer.", "OK");
  Choose("&Find and index");
  for (const char* command : {"&Remove indexing", "Remove &highlighting only", "&Update index"}) {
    Choose(command);
  }
  EXPECT_EQ(desktop_->Document(), nullptr);
}

TEST_F(DesktopTest, SavingWritesTheWholeResultAndNothingIsLeftToSave) {
  Open();
  Index();
  Shortcut("&Save");
  EXPECT_FALSE(window_->isWindowModified());
  Start();
  Open();
  EXPECT_TRUE(desktop_->Document()->Find(u"Purpose", {}, true, true).has_value());
  EXPECT_GT(desktop_->Document()->PageCount(), 0);
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(DesktopTest, AFileThatCannotBeWrittenIsToldAndNothingIsLost) {
  Open();
  Index();
  const std::string before = Bytes(path_);
  fs::permissions(path_, fs::perms::owner_read);
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Cannot save");
    Person::Press(window, Qt::Key_Return);
  });
  Shortcut("&Save");
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_EQ(Bytes(path_), before);
  desktop_->SaveAs((folder_.path() + "/other.docx").toStdString());
  EXPECT_FALSE(desktop_->Modified());
  EXPECT_EQ(desktop_->Path(), (folder_.path() + "/other.docx").toStdString());
}

TEST_F(DesktopTest, AFullDiskIsToldAndTheOldFileStays) {
  Open();
  Index();
  const std::string before = Bytes(path_);
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Cannot save");
    EXPECT_NE(qobject_cast<QMessageBox*>(&window)->text().indexOf("cannot be written"), -1);
    Person::Press(window, Qt::Key_Return);
  });
  {
    // As on a full disk, a write beyond the limit fails.
    const SmallFiles limit(1000);
    Shortcut("&Save");
  }
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_EQ(Bytes(path_), before);
  Shortcut("&Save");
  EXPECT_FALSE(window_->isWindowModified());
  EXPECT_NE(Bytes(path_), before);
}

TEST_F(DesktopTest, AFolderThatHasGoneIsToldAndTheWorkCanBeSavedElsewhere) {
  const fs::path folder = fs::path(folder_.path().toStdString()) / "stick";
  fs::create_directory(folder);
  fs::copy_file(path_, folder / "contract.docx");
  ASSERT_TRUE(window_->Open((folder / "contract.docx").string()));
  Index();
  fs::remove_all(folder);
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Cannot save");
    Person::Press(window, Qt::Key_Return);
  });
  Shortcut("&Save");
  EXPECT_TRUE(window_->isWindowModified());
  const std::string other = (folder_.path() + "/other.docx").toStdString();
  desktop_->SaveAs(other);
  EXPECT_FALSE(desktop_->Modified());
  Start();
  ASSERT_TRUE(window_->Open(other));
  EXPECT_FALSE(IndexEntry("premises").empty());
}

TEST_F(DesktopTest, ADocumentIsNotSavedUnderTheNameOfAnotherKind) {
  Open();
  const std::string other = (folder_.path() + "/contract.dotx").toStdString();
  EXPECT_THROW(desktop_->SaveAs(other), std::runtime_error);
  EXPECT_FALSE(fs::exists(other));
  EXPECT_EQ(desktop_->Path(), path_);
  EXPECT_NO_THROW(desktop_->SaveAs((folder_.path() + "/OTHER.DOCX").toStdString()));
}

TEST_F(DesktopTest, SavingThroughALinkWritesTheFileThatItLeadsTo) {
  const std::string link = (folder_.path() + "/link.docx").toStdString();
  fs::create_symlink(path_, link);
  const std::string before = Bytes(path_);
  ASSERT_TRUE(window_->Open(link));
  Index();
  Shortcut("&Save");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_NE(Bytes(path_), before);
  EXPECT_EQ(Bytes(link), Bytes(path_));
}

TEST_F(DesktopTest, AFileDroppedOnTheWindowIsOpened) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path_))});
  const QPoint middle = window_->rect().center();
  QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &drop);
  EXPECT_EQ(desktop_->Path(), path_);
}

TEST_F(DesktopTest, AFileThatAnotherProgramChangedIsNotReplacedWithoutAsking) {
  Open();
  Index();
  std::ofstream(path_, std::ios::app) << "changed";
  const std::string before = Bytes(path_);
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Changed meanwhile");
    Person::Press(window, Qt::Key_Escape);
  });
  Shortcut("&Save");
  EXPECT_EQ(Bytes(path_), before);
}

TEST_F(DesktopTest, ClosingUnsavedWorkAsksFirst) {
  Open();
  Index();
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Save changes?");
    Person::Press(window, Qt::Key_Escape);
  });
  window_->close();
  EXPECT_TRUE(window_->isVisible());
  person_.Expect([](QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    ASSERT_NE(box, nullptr);
    QTest::mouseClick(box->button(QMessageBox::Save), Qt::LeftButton);
  });
  window_->close();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_FALSE(desktop_->Modified());
}

TEST_F(DesktopTest, ClosingWithoutChangesAsksNothing) {
  Open();
  window_->close();
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(DesktopTest, DocumentsOpenedLastAreOffered) {
  Open();
  const std::string other = (folder_.path() + "/other.docx").toStdString();
  fs::copy_file(path_, other);
  ASSERT_TRUE(window_->Open(other));
  Start();
  EXPECT_EQ(desktop_->Recent(), (std::vector<std::string>{other, path_}));
}

TEST_F(DesktopTest, AFileThatIsNoDocumentLeavesTheOneThatIsOpen) {
  Open();
  const std::string other = (folder_.path() + "/other.docx").toStdString();
  std::ofstream(other) << "no document";
  person_.Expect([](QWidget& window) {
    EXPECT_EQ(window.windowTitle().toStdString(), "Cannot open");
    Person::Press(window, Qt::Key_Return);
  });
  EXPECT_FALSE(window_->Open(other));
  EXPECT_EQ(desktop_->Path(), path_);
  EXPECT_NE(desktop_->Document(), nullptr);
}

}  // namespace
