#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>

#include "hosts/qt/QtFileDialogs.h"
#include "hosts/qt/Text.h"
#include "hosts/qt/forms/QtFormHost.h"
#include "tests/qt/Person.h"

namespace {

namespace fs = std::filesystem;

/// File dialogs over a folder of the test, in which names of the system begin with "C:".
class FileDialogsTest : public ::testing::Test {
 protected:
  FileDialogsTest() {
    dialog_.initialFolder = u"C:" + qt::FromQt(folder_.path());
    dialog_.filter =
        std::u16string(u"Text file (.txt)") + u'\0' + u"*.txt" + u'\0' + u"All files (*.*)" + u'\0' + u"*.*";
    dialog_.flags = os::kOverwritePrompt;
  }

  static void Accept(QWidget& window) { window.findChild<QDialogButtonBox*>()->button(Button(window))->click(); }
  static void Name(QWidget& window, const QString& name) {
    auto& box = Person::At<QLineEdit>(window, "fileNameEdit");
    box.clear();
    QTest::keyClicks(&box, name);
  }
  std::u16string Inside(std::u16string_view name) const {
    return u"C:" + qt::FromQt(folder_.path()) + u"/" + std::u16string(name);
  }
  fs::path OnDisk(const char* name) const { return fs::path(folder_.path().toStdString()) / name; }

  QTemporaryDir folder_;
  Person person_;
  qt::QtFormHost windows_;
  qt::QtFileDialogs dialogs_{
      windows_,
      {.toSystem = [](std::string_view name) { return u"C:" + qt::FromQt(qt::ToQt(name)); },
       .toMachine = [](std::u16string_view name) { return qt::ToQt(name.substr(2)).toStdString(); }}};
  os::FileDialog dialog_;

 private:
  static QDialogButtonBox::StandardButton Button(QWidget& window) {
    return dynamic_cast<QFileDialog&>(window).acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                                      : QDialogButtonBox::Open;
  }
};

TEST_F(FileDialogsTest, ShowTheFolderTheFiltersAndTheNameThatAreProposed) {
  dialog_.mode = os::FileDialogMode::kSave;
  dialog_.title = u"Save terms";
  dialog_.fileName = u"terms.txt";
  dialog_.filterIndex = 2;
  person_.Expect([this](QWidget& window) {
    auto& box = dynamic_cast<QFileDialog&>(window);
    EXPECT_EQ(box.windowTitle().toStdString(), "Save terms");
    EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(QDir(box.directory()).canonicalPath(), QDir(folder_.path()).canonicalPath());
    EXPECT_EQ(box.nameFilters(), (QStringList{"Text file (*.txt)", "All files (*.*)"}));
    EXPECT_EQ(box.selectedNameFilter().toStdString(), "All files (*.*)");
    EXPECT_EQ(Person::At<QLineEdit>(window, "fileNameEdit").text().toStdString(), "terms.txt");
    box.reject();
  });
  EXPECT_TRUE(dialogs_.Choose(dialog_).empty()) << "nothing was chosen";
}

TEST_F(FileDialogsTest, GiveTheChosenFileUnderTheSystemsName) {
  std::ofstream(OnDisk("list.txt")) << "Agreement";
  person_.Expect([](QWidget& window) {
    Name(window, "list.txt");
    Accept(window);
  });
  EXPECT_EQ(dialogs_.Choose(dialog_), Inside(u"list.txt"));
}

TEST_F(FileDialogsTest, LeaveAFileThatIsNotThereToTheSystem) {
  person_.Expect([](QWidget& window) {
    Name(window, "missing.txt");
    Accept(window);
  });
  EXPECT_EQ(dialogs_.Choose(dialog_), Inside(u"missing.txt"));
}

TEST_F(FileDialogsTest, AskBeforeAnotherFileIsReplaced) {
  std::ofstream(OnDisk("list.txt")) << "Agreement";
  dialog_.mode = os::FileDialogMode::kSave;
  for (const bool yes : {false, true}) {
    person_.Expect([](QWidget& window) {
      Name(window, "list.txt");
      Accept(window);
    });
    person_.Expect([yes](QWidget& window) {
      auto* question = qobject_cast<QMessageBox*>(&window);
      ASSERT_NE(question, nullptr);
      EXPECT_TRUE(question->text().contains(QLatin1String("list.txt"))) << question->text().toStdString();
      question->button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
    });
    // The dialog stays for another name.
    if (!yes) person_.Expect([](QWidget& window) { dynamic_cast<QFileDialog&>(window).reject(); });
    EXPECT_EQ(dialogs_.Choose(dialog_), yes ? Inside(u"list.txt") : std::u16string());
  }
}

TEST_F(FileDialogsTest, DoNotAskWhereTheSystemAsksItself) {
  std::ofstream(OnDisk("list.txt")) << "Agreement";
  dialog_.mode = os::FileDialogMode::kSave;
  dialog_.flags = 0;
  person_.Expect([](QWidget& window) {
    Name(window, "list.txt");
    Accept(window);
  });
  EXPECT_EQ(dialogs_.Choose(dialog_), Inside(u"list.txt"));
}

}  // namespace
