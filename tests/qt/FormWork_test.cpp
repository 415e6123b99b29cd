#include <QCheckBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QScrollBar>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "addin/frmKVXProgressFormGetCappedList.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "platform/word/HostError.h"
#include "tests/qt/Windows.h"

namespace {

const QString kReminder =
    "You'll need to click the 'Find terms and refresh list' button to refresh the 'Terms found in document' list.";

class FormWork : public Windows {
 protected:
  static std::string Focused(const QWidget& window) {
    return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
  }
  static std::vector<int> Selected(const forms::ListBox& list) {
    std::vector<int> selected;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.Selected(i)) selected.push_back(i);
    }
    return selected;
  }
};

TEST_F(FormWork, TabGoesThroughTheFormInItsOrderAndBack) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    const std::vector<std::string> order = {
        "optSearchType(0)", "chkBold",           "cmbOpenQuote",       "cmbCloseQuote",
        "chkCaseSensitive", "chkIndexCaps",      "chkIgnoreNums",      "chkHighlight",
        "optIndexWhat(0)",  "chkIncludeNotUsed", "chkIncludeNotFound", "txtCols",
        "txtSep",           "chkTabSep",         "cmdSetDefaults",     "cmdOK",
        "cmdCancel"};
    for (const std::string& name : order) {
      EXPECT_EQ(Focused(window), name);
      Person::Press(window, Qt::Key_Tab);
    }
    EXPECT_EQ(Focused(window), order.front());
    Person::Press(window, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Focused(window), order.back());
  });
}

TEST_F(FormWork, TabPassesWhatIsDisabled) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    Person::Press(window, Qt::Key_Down);
    EXPECT_TRUE(form.optSearchType[1].Value());
    Person::Press(window, Qt::Key_Tab);
    Person::Press(window, Qt::Key_Tab);
    EXPECT_EQ(Focused(window), "chkCaseSensitive");
  });
}

TEST_F(FormWork, EnterPressesTheDefaultButton) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    Person::Press(window, Qt::Key_Return);
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(form.Tag(), u"OK");
}

TEST_F(FormWork, EnterPressesTheButtonThatHasTheFocus) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    form.cmdCancel.SetFocus();
    windows.Repaint(form);
    Person::Press(window, Qt::Key_Return);
  });
  EXPECT_EQ(form.Tag(), u"Cancel");
}

TEST_F(FormWork, EscapePressesTheCancelButton) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) { Person::Press(window, Qt::Key_Escape); });
  EXPECT_EQ(form.Tag(), u"Cancel");
}

TEST_F(FormWork, F1OpensHelpWhereNothingHasTheFocus) {
  frmKVXProgressFormGetCappedList form(
      services, [&] { Person::Press(*FindWindow("frmKVXProgressFormGetCappedList"), Qt::Key_F1); });
  windows.ShowModal(form);
  ASSERT_EQ(fake.help.shown.size(), 1u);
  EXPECT_EQ(fake.help.shown[0].data, 11);
}

TEST_F(FormWork, TheCloseBoxEndsAFormThatHasOne) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    window.close();
    EXPECT_FALSE(form.Loaded());
  });
  EXPECT_EQ(form.Tag(), u"Cancel");
}

TEST_F(FormWork, TheTermsDialogHasNoCloseBox) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  Show(form, [&](QWidget& window) {
    EXPECT_NE(form.CloseBoxWindow(), 0);
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    window.close();
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_F(FormWork, AltAndALetterClickOrGoThere) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    const int bold = form.chkBold.Value();
    Person::Press(window, Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(form.chkBold.Value(), 1 - bold);
    Person::Press(window, Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(Focused(window), "cmbOpenQuote");
    Person::Press(window, Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(Focused(window), "txtCols");
    Person::Press(window, Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(form.optSearchType[1].Value());
  });
}

TEST_F(FormWork, ALetterThatTwoControlsHaveOnlyGoesFromOneToTheOther) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  form.cmdDeleteTerm.SetCaption(u"&Select");
  Show(form, [&](QWidget& window) {
    Person::Press(window, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Focused(window), "cmdSelectAllTermsInDoc");
    Person::Press(window, Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(Focused(window), "cmdDeleteTerm");
  });
}

TEST_F(FormWork, ABlankTurnsBoxesOverAndPressesButtonsOnce) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Seller"});
  Show(form, [&](QWidget& window) {
    form.chkHighlight.SetFocus();
    windows.Repaint(form);
    const int before = form.chkHighlight.Value();
    Person::Press(window, Qt::Key_Space);
    EXPECT_EQ(form.chkHighlight.Value(), 1 - before);
    form.cmdDeselectAllTermsInDoc.SetFocus();
    windows.Repaint(form);
    Person::Press(window, Qt::Key_Space);
    EXPECT_EQ(form.lstTermsInDoc.SelCount(), 0);
  });
}

TEST_F(FormWork, AListIsWorkedByTheKeyboard) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Completion", u"Seller", u"Target"});
  Show(form, [&](QWidget& window) {
    form.lstTermsInDoc.SetFocus();
    windows.Repaint(form);
    Person::Press(window, Qt::Key_Home);
    Person::Press(window, Qt::Key_Space);
    EXPECT_EQ(Selected(form.lstTermsInDoc), (std::vector<int>{1, 2, 3}));
    Person::Press(window, Qt::Key_Down);
    EXPECT_EQ(form.lstTermsInDoc.ListIndex(), 1);
    EXPECT_EQ(Selected(form.lstTermsInDoc), (std::vector<int>{1, 2, 3}));
    Person::Press(window, Qt::Key_T);
    EXPECT_EQ(form.lstTermsInDoc.ListIndex(), 3);
    Person::Press(window, Qt::Key_Space);
    Person::Press(window, Qt::Key_Up, Qt::ShiftModifier);
    Person::Press(window, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(Selected(form.lstTermsInDoc), (std::vector<int>{}));
    Person::Press(window, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.lstTermsInDoc.SelCount(), 4);
  });
}

TEST_F(FormWork, AListIsWorkedByTheMouse) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Completion", u"Seller", u"Target"});
  Show(form, [&](QWidget& window) {
    Person::ClickEntry(window, "lstTermsInDoc", 0);
    Person::ClickEntry(window, "lstTermsInDoc", 2, Qt::ControlModifier);
    EXPECT_EQ(Selected(form.lstTermsInDoc), (std::vector<int>{1, 3}));
    Person::ClickEntry(window, "lstTermsInDoc", 3, Qt::ShiftModifier);
    EXPECT_EQ(Selected(form.lstTermsInDoc), (std::vector<int>{1}));
    EXPECT_EQ(Focused(window), "lstTermsInDoc");
  });
}

TEST_F(FormWork, AListScrollsSidewaysAsFarAsItsWidestEntry) {
  frmKVX_COM& form = MakeTerms({u"Buyer", std::u16string(300, u'W')});
  Show(form, [&](QWidget& window) {
    auto& list = Person::At<QListView>(window, "lstTermsInDoc");
    QTest::qWait(20);
    const int hidden = list.horizontalScrollBar()->maximum();
    EXPECT_NEAR(hidden + list.viewport()->width(), windows.TextWidth(form, std::u16string(300, u'W')), 30);
    form.lstTermsInDoc.RemoveItem(1);
    form.SetHorizontalExtent(form.lstTermsInDoc);
    windows.Repaint(form);
    QTest::qWait(20);
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
  });
}

TEST_F(FormWork, TheColumnsBoxTakesOnlyItsDigitsAndItsArrowsStep) {
  frmKVXOptions& form = MakeOptions();
  Show(form, [&](QWidget& window) {
    Person::Click(window, "txtCols");
    auto& box = Person::At<QLineEdit>(window, "txtCols");
    box.setCursorPosition(static_cast<int>(form.txtCols.Text().size()));
    Person::Press(window, Qt::Key_Backspace);
    EXPECT_EQ(form.txtCols.Text(), u"");
    Person::Type(window, "503");
    EXPECT_EQ(form.txtCols.Text(), u"3");
    EXPECT_EQ(box.text().toStdString(), "3");
    QWidget& arrows = Person::At(window, "updownCols");
    QTest::mouseClick(arrows.childAt(arrows.rect().center() - QPoint(0, 4)), Qt::LeftButton);
    EXPECT_EQ(form.txtCols.Text(), u"4");
    QTest::mouseClick(arrows.childAt(arrows.rect().center() + QPoint(0, 4)), Qt::LeftButton);
    EXPECT_EQ(form.txtCols.Text(), u"3");
    EXPECT_EQ(Focused(window), "txtCols");
  });
}

TEST_F(FormWork, TypingGoesInWhereTheCursorStands) {
  frmKVX_COM& form = MakeTerms();
  Show(form, [&](QWidget& window) {
    Person::Click(window, "txtAddTerm");
    Person::Type(window, "Byer");
    Person::At<QLineEdit>(window, "txtAddTerm").setCursorPosition(1);
    Person::Type(window, "u");
    EXPECT_EQ(form.txtAddTerm.Text(), u"Buyer");
    EXPECT_EQ(Person::At<QLineEdit>(window, "txtAddTerm").cursorPosition(), 2);
  });
}

TEST_F(FormWork, TickingBoldAndGoingToAListShowsTheReminder) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  Show(form, [&](QWidget& window) {
    Person::Click(window, "chkBold");
    EXPECT_EQ(form.chkBold.Value(), 1);
    person.ExpectMessage("Refresh terms list", kReminder, "OK");
    Person::ClickEntry(window, "lstTermsInDoc", 0);
    EXPECT_EQ(form.ActiveControl(), &form.lstTermsInDoc);
  });
}

TEST_F(FormWork, TickingBoldAndRefreshingShowsNoReminder) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  Show(form, [&](QWidget& window) {
    Person::Click(window, "chkBold");
    Person::Click(window, "cmdRefresh");
    EXPECT_EQ(form.ActiveControl(), &form.cmdRefresh);
  });
}

TEST_F(FormWork, ATabShowsItsFrame) {
  frmKVX_COM& form = MakeTerms();
  Show(form, [&](QWidget& window) {
    const QSize before = window.size();
    form.tbcTabs.SetFocus();
    windows.Repaint(form);
    Person::Press(window, Qt::Key_Right);
    EXPECT_EQ(form.tbcTabs.SelectedTab(), 1);
    EXPECT_TRUE(Person::At(window, "fraTab(1)").isVisible());
    EXPECT_FALSE(Person::At(window, "fraTab(0)").isVisible());
    QTest::qWait(20);
    EXPECT_EQ(window.size(), before);
  });
}

TEST_F(FormWork, AMenuEntryIsClicked) {
  frmKVX_COM& form = MakeTerms();
  int clicks = 0;
  form.menu.cmdCreate.onClick = [&] { ++clicks; };
  Show(form, [&](QWidget& window) { window.findChild<QAction*>("cmdCreate")->trigger(); });
  EXPECT_EQ(clicks, 1);
}

TEST_F(FormWork, LinksAndImagesAreClickedAndTellOfTheMouse) {
  frmKVXOptions& form = MakeOptions();
  int clicks = 0;
  int moves = 0;
  form.lblFAQClick.onClick = [&] { ++clicks; };
  form.lblFAQClick.onMouseMove = [&] { ++moves; };
  Show(form, [&](QWidget& window) {
    Person::Click(window, "lblFAQClick");
    QTest::mouseMove(&Person::At(window, "lblFAQClick"), QPoint(3, 3));
    EXPECT_EQ(Person::At(window, "lblFAQClick").cursor().shape(), Qt::PointingHandCursor);
  });
  EXPECT_EQ(clicks, 1);
}

TEST_F(FormWork, AClickWhileAnotherIsBeingHandledDoesNothing) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  int clicks = 0;
  QWidget* shown = nullptr;
  form.cmdRefresh.onClick = [&] {
    ++clicks;
    Person::Click(*shown, "cmdRefresh");
    Person::Click(*shown, "chkHighlight");
    windows.DoEvents();
  };
  const int before = form.chkHighlight.Value();
  Show(form, [&](QWidget& window) {
    shown = &window;
    Person::Click(window, "cmdRefresh");
    EXPECT_EQ(form.chkHighlight.Value(), before);
    EXPECT_EQ(Person::At<QCheckBox>(window, "chkHighlight").isChecked(), before == 1);
  });
  EXPECT_EQ(clicks, 1);
}

TEST_F(FormWork, WhatAHandlerThrowsLeavesThroughTheShow) {
  frmKVX_COM& form = MakeTerms();
  form.cmdOK.onClick = [] { throw word::HostError(word::kCommandFailed, u"Command failed", "test"); };
  person.Expect([](QWidget& window) { Person::Click(window, "cmdOK"); });
  EXPECT_THROW(windows.ShowModal(form), word::HostError);
}

TEST_F(FormWork, WhatTheWorkOfAProgressFormThrowsLeavesThroughTheShow) {
  frmKVXProgressFormKVXPreparing form(windows, [] { throw word::HostError(5, u"Gone", "test"); });
  EXPECT_THROW(windows.ShowModal(form), word::HostError);
  EXPECT_EQ(FindWindow("frmKVXProgressFormKVXPreparing"), nullptr);
}

TEST_F(FormWork, AProgressFormComesAtOnceAndGoesWithItsStep) {
  clsProgForm progress(windows);
  progress.ShowProgress(0);
  progress.UpdateProgress(u"Please wait", u"Counting", u"", 45, 100, u"Indexing");
  QWidget* window = FindWindow("frmProgressForm");
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->windowTitle().toStdString(), "Indexing");
  EXPECT_FALSE(window->isModal());
  const int whole = Person::At(*window, "lblProgBarTotal").width();
  EXPECT_NEAR(Person::At(*window, "lblProgBarCompleted").width(), whole * 0.45, 1);
  progress.CloseProgress();
  EXPECT_EQ(FindWindow("frmProgressForm"), nullptr);
}

TEST_F(FormWork, TwoThousandTermsOpenAndSelectAtOnce) {
  std::vector<std::u16string> many;
  for (int i = 0; i < 2000; ++i) many.push_back(u"Defined Term " + QString::number(i).toStdU16String());
  frmKVX_COM& form = MakeTerms(many);
  Show(form, [&](QWidget& window) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    Person::Click(window, "cmdDeselectAllTermsInDoc");
    Person::Click(window, "cmdSelectAllTermsInDoc");
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    EXPECT_LT(milliseconds, 1000);
    EXPECT_EQ(Person::At<QListView>(window, "lstTermsInDoc").selectionModel()->selectedRows().size(), 2000);
  });
}

TEST_F(FormWork, MessageBoxesAnswerAsTheirButtonsSay) {
  using os::Buttons;
  using os::Icon;
  using os::Pressed;
  person.ExpectMessage("A title", "Line one\nline two", "Yes");
  EXPECT_EQ(messages.Show(u"A title", u"Line one\r\nline two", Icon::kQuestion, Buttons::kYesNoCancel), Pressed::kYes);
  person.ExpectMessage("", "text", "No");
  EXPECT_EQ(messages.Show(u"", u"text", Icon::kQuestion, Buttons::kYesNo), Pressed::kNo);
  person.ExpectMessage("", "text", "Cancel");
  EXPECT_EQ(messages.Show(u"", u"text", Icon::kNone, Buttons::kOkCancel), Pressed::kCancel);
  person.Expect([](QWidget& window) { window.close(); });
  EXPECT_EQ(messages.Show(u"", u"text", Icon::kNone, Buttons::kYesNoCancel), Pressed::kCancel);
  person.Expect([](QWidget& window) { window.close(); });
  EXPECT_EQ(messages.Show(u"", u"text", Icon::kCritical, Buttons::kOk), Pressed::kOk);
}

TEST_F(FormWork, AQuestionForYesOrNoCannotBeClosed) {
  person.Expect([](QWidget& window) {
    window.close();
    Person::Press(window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    Person::Press(window, Qt::Key_Return);
  });
  EXPECT_EQ(messages.Show(u"", u"text", os::Icon::kQuestion, os::Buttons::kYesNo), os::Pressed::kYes);
}

}  // namespace
