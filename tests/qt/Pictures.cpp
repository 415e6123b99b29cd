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

#include "addin/frmKVXProgressFormGetCappedList.h"
#include "addin/frmKVXProgressFormKVXClose.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "addin/frmProgressForm.h"
#include "apps/desktop/Desktop.h"
#include "dialogs/frmKVXAbout_COM.h"
#include "dialogs/frmKVXChangeQuotes.h"
#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXRemoveArticles.h"
#include "dialogs/frmKVXSearchChooser.h"
#include "dialogs/frmKVXShowHelp.h"
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

class Pictures : public Windows {
 protected:
  /// As the run command shows its forms that work.
  void ShowAtWork(WorkProgressForm& form, std::u16string_view task) {
    form.Load();
    form.SetCaption(u"Kelvarin");
    form.lblLabel1.SetCaption(u"Please wait");
    form.lblLabel2.SetCaption(task);
    form.lblProgBarTotal.SetVisible(false);
    form.lblProgBarCompleted.SetVisible(false);
    windows.ShowModal(form);
  }
};

TEST_F(Pictures, OfTheOptions) {
  Show(MakeOptions(), [](QWidget& window) { Keep(window, "options"); });
}

TEST_F(Pictures, OfTheTerms) {
  frmKVX_COM& form = MakeTerms({u"Accounts", u"Agreement", u"Business Day", u"Buyer", u"Completion", u"Completion Date",
                                u"Confidential Information", u"Disclosure Letter", u"Encumbrance", u"Escrow Account",
                                u"Long Stop Date", u"Purchase Price", u"Seller", u"Seller's Solicitors", u"Shares"});
  form.lstTermsInDoc.SetSelected(2, false);
  form.lstAddTerms.AddItem(u"Escrow");
  form.lstAddTerms.AddItem(u"Target Group Company");
  Show(form, [&](QWidget& window) {
    for (const int tab : {0, 1, 2}) {
      form.tbcTabs.SetSelectedTab(tab);
      form.Repaint();
      Keep(window, QString("terms_%1").arg(tab + 1));
    }
    form.tbcTabs.SetSelectedTab(0);
    for (forms::Label* line : {&form.lblLabel1, &form.lblLabel2, &form.lblLabel3}) line->SetVisible(true);
    form.SetStatusText(u"Looking for terms in quotes");
    form.Repaint();
    Keep(window, "terms_searching");
  });
}

TEST_F(Pictures, OfThePrompts) {
  frmKVXSearchChooser chooser(services, ini);
  Show(chooser, [](QWidget& window) { Keep(window, "search_chooser"); });
  frmKVXFormatInstrux reminder(services, ini);
  Show(reminder, [](QWidget& window) { Keep(window, "format_reminder"); });
  frmKVXShowHelp offer(services, ini);
  Show(offer, [](QWidget& window) { Keep(window, "help_offer"); });
}

TEST_F(Pictures, OfTheChoiceOfQuotes) {
  frmKVXChangeQuotes quotes(services, ini);
  Show(quotes, [](QWidget& window) { Keep(window, "change_quotes"); });
}

TEST_F(Pictures, OfTheArticles) {
  frmKVXRemoveArticles articles(services,
                                {u"a Loan", u"any Permitted Assignee", u"the Bank", u"The Royal Bank of York"});
  articles.Load();
  articles.lstTerms.SetSelected(2, true);
  Show(articles, [](QWidget& window) { Keep(window, "remove_articles"); });
}

TEST_F(Pictures, OfTheAboutBox) {
  frmKVXAbout_COM about(services);
  Show(about, [](QWidget& window) { Keep(window, "about"); });
}

TEST_F(Pictures, OfTheProgressForms) {
  clsProgForm progress(windows);
  progress.ShowProgress(0);
  progress.UpdateProgress(u"Please wait", u"Marking occurrences", u"Term 45 of 100: Confidential Information", 45, 100,
                          u"Indexing document");
  Keep(*FindWindow("frmProgressForm"), "progress");
  progress.CloseProgress();
  frmKVXProgressFormGetCappedList capitals(services, [&] {
    capitals.SetCaption(u"Searching for terms");
    capitals.lblLabel1.SetCaption(u"Searching page:  3");
    capitals.lblLabel2.SetCaption(u"Processing main document page 3");
    capitals.SetPosition(3, 12);
    windows.Repaint(capitals);
    Keep(*FindWindow("frmKVXProgressFormGetCappedList"), "progress_capitals");
  });
  windows.ShowModal(capitals);
  frmKVXProgressFormKVXPreparing preparing(windows,
                                           [] { Keep(*FindWindow("frmKVXProgressFormKVXPreparing"), "preparing"); });
  ShowAtWork(preparing, u"Preparing document...");
  frmKVXProgressFormKVXClose closing(windows, [] { Keep(*FindWindow("frmKVXProgressFormKVXClose"), "closing"); });
  ShowAtWork(closing, u"Restoring document...");
}

TEST_F(Pictures, OfMessages) {
  const auto show = [&](const char* name, os::Icon icon, os::Buttons buttons, std::u16string_view title,
                        std::u16string_view text) {
    person.Expect([name](QWidget& window) {
      Keep(window, name);
      window.hide();
    });
    messages.Show(title, text, icon, buttons);
  };
  show("message_information", os::Icon::kInformation, os::Buttons::kOk, u"Refresh terms list",
       u"You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms found in document' list.");
  show("message_exclamation", os::Icon::kExclamation, os::Buttons::kOk, u"Nothing deleted",
       u"No items were selected for deletion.");
  show("message_question", os::Icon::kQuestion, os::Buttons::kYesNoCancel, u"Save all or selected?",
       u"Save selected items only?  Click Yes to save only the selected items, click No to save all items in the "
       u"additional terms list.");
  show("message_critical", os::Icon::kCritical, os::Buttons::kOk, u"Error setting defaults", u"Error: 5 Cannot write");
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
  QTest::keyClick(&text, Qt::Key_Escape);
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
