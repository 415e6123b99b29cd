#include <QAbstractButton>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QStyle>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "addin/frmKVXProgressFormGetCappedList.h"
#include "addin/frmKVXProgressFormKVXClose.h"
#include "addin/frmKVXProgressFormKVXPreparing.h"
#include "addin/frmProgressForm.h"
#include "dialogs/frmKVXAbout_COM.h"
#include "dialogs/frmKVXChangeQuotes.h"
#include "dialogs/frmKVXFormatInstrux.h"
#include "dialogs/frmKVXRemoveArticles.h"
#include "dialogs/frmKVXSearchChooser.h"
#include "dialogs/frmKVXShowHelp.h"
#include "discovery/FoundTermsLabel.h"
#include "hosts/qt/OutlinedStyle.h"
#include "hosts/qt/Text.h"
#include "hosts/qt/forms/ControlView.h"
#include "platform/forms/Dump.h"
#include "tests/qt/Windows.h"

namespace {

std::string Expected(const forms::Form& form) { return qt::ToQt(forms::Dump(form)).toStdString(); }

class FormContract : public Windows {
 protected:
  void ExpectShownAsItIs(const forms::Form& form) {
    QWidget* window = FindWindow(QString::fromStdString(form.Name()));
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(ShownForm(*window).toStdString(), Expected(form));
  }

  /// Shows each form that there is, with something in it, and looks at it.
  void InEachForm(const std::function<void(forms::Form&, QWidget&)>& look) {
    frmKVXOptions& first = MakeOptions();
    Show(first, [&](QWidget& window) { look(first, window); });
    frmKVX_COM& second = MakeTerms({u"Buyer", u"Completion Date", u"Seller"});
    second.lstAddTerms.AddItem(u"Escrow");
    second.lblTermsInDoc.SetCaption(FoundTermsLabel(TermKind::kQuoted, true));
    Show(second, [&](QWidget& window) {
      for (const int tab : {0, 1, 2}) {
        second.tbcTabs.SetSelectedTab(tab);
        windows.Repaint(second);
        look(second, window);
      }
    });
    frmKVXSearchChooser chooser(services, ini);
    Show(chooser, [&](QWidget& window) { look(chooser, window); });
    frmKVXFormatInstrux reminder(services, ini);
    Show(reminder, [&](QWidget& window) { look(reminder, window); });
    frmKVXShowHelp offer(services, ini);
    Show(offer, [&](QWidget& window) { look(offer, window); });
    frmKVXChangeQuotes quotes(services, ini);
    Show(quotes, [&](QWidget& window) { look(quotes, window); });
    frmKVXRemoveArticles articles(services, {u"the Bank", u"a Loan"});
    articles.Load();
    articles.lstTerms.SetSelected(1, true);
    Show(articles, [&](QWidget& window) { look(articles, window); });
    frmKVXAbout_COM about(services);
    Show(about, [&](QWidget& window) { look(about, window); });
    frmProgressForm progress(windows);
    windows.ShowModeless(progress);
    progress.SetCaption(u"Indexing");
    progress.lblLabel1.SetCaption(u"Please wait");
    progress.lblLabel2.SetCaption(u"Marking occurrences of Completion Date");
    progress.SetPosition(45, 100);
    windows.Repaint(progress);
    look(progress, *FindWindow("frmProgressForm"));
    frmKVXProgressFormGetCappedList capitals(services, [&] {
      capitals.SetCaption(u"Searching");
      capitals.lblLabel1.SetCaption(u"Searching page:  3");
      capitals.SetPosition(3, 4);
      windows.Repaint(capitals);
      LookAtWork(capitals, look);
    });
    windows.ShowModal(capitals);
    frmKVXProgressFormKVXPreparing preparing(windows, [&] { LookAtWork(preparing, look); });
    ShowAtWork(preparing);
    frmKVXProgressFormKVXClose closing(windows, [&] { LookAtWork(closing, look); });
    ShowAtWork(closing);
  }

  /// From within the work that the form does.
  static void LookAtWork(forms::Form& form, const std::function<void(forms::Form&, QWidget&)>& look) {
    QWidget* window = FindWindow(QString::fromStdString(form.Name()));
    ASSERT_NE(window, nullptr) << "it works behind a window that is not there";
    look(form, *window);
  }

  void ShowAtWork(WorkProgressForm& form) {
    form.Load();
    form.lblLabel1.SetCaption(u"Please wait");
    form.lblLabel2.SetCaption(u"Preparing document...");
    form.lblProgBarTotal.SetVisible(false);
    form.lblProgBarCompleted.SetVisible(false);
    windows.ShowModal(form);
  }
};

TEST_F(FormContract, EachFormIsShownAsItIs) {
  int looked = 0;
  InEachForm([&](forms::Form& form, QWidget&) {
    ExpectShownAsItIs(form);
    ++looked;
  });
  EXPECT_EQ(looked, 14);
}

TEST_F(FormContract, WhatCodeChangesIsShown) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Seller", u"Target"});
  Show(form, [&](QWidget&) {
    form.lstTermsInDoc.SetSelected(1, false);
    form.lstTermsInDoc.SetListIndex(2);
    form.lstTermsInDoc.RemoveItem(0);
    form.chkCaseSensitive.SetValue(0);
    form.optSearchType[0].SetEnabled(false);
    form.cmdCancel.SetEnabled(false);
    form.lblLabel2.SetCaption(u"Refreshing list...");
    form.lblLabel2.SetVisible(true);
    form.cmbCloseQuote.SetListIndex(3);
    form.txtCols.SetText(u"4");
    form.StatusBar1.SetSimpleText(u"Looking for terms");
    form.SetDefaultButton(&form.cmdRefresh);
    form.SetCaption(u"Another caption");
    form.chkHighlight.SetToolTip(u"A tip");
    form.Repaint();
    ExpectShownAsItIs(form);
  });
}

TEST_F(FormContract, WhatAPersonChangesIsShownAndHeld) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Seller", u"Target"});
  Show(form, [&](QWidget& window) {
    Person::ClickEntry(window, "lstTermsInDoc", 1);
    Person::Click(window, "chkHighlight");
    Person::Click(window, "txtAddTerm");
    Person::Type(window, "Escrow");
    EXPECT_EQ(form.lstTermsInDoc.ListIndex(), 1);
    EXPECT_FALSE(form.lstTermsInDoc.Selected(1));
    EXPECT_EQ(form.chkHighlight.Value(), 0);
    EXPECT_EQ(form.txtAddTerm.Text(), u"Escrow");
    ExpectShownAsItIs(form);
    Person::Click(window, "cmdAddTerm");
    EXPECT_EQ(form.lstAddTerms.ListCount(), 1);
    ExpectShownAsItIs(form);
  });
}

TEST_F(FormContract, EachControlHasANameForThoseWhoDoNotSeeIt) {
  InEachForm([](forms::Form& form, QWidget& window) {
    for (const forms::Control* control : form.Controls()) {
      QWidget* widget = window.findChild<QWidget*>(qt::WidgetName(*control));
      if (widget == nullptr || control->ControlKind() == forms::Kind::kMenu) continue;
      EXPECT_FALSE(widget->accessibleName().isEmpty()) << control->Name();
    }
  });
  frmKVX_COM& form = MakeTerms();
  Show(form, [](QWidget& window) {
    const auto name = [&](const char* control) { return Person::At(window, control).accessibleName().toStdString(); };
    EXPECT_EQ(name("lstAddTerms"), "Add terms for indexing");
    EXPECT_EQ(name("txtCols"), "Columns (1-4):");
    EXPECT_EQ(name("updownCols"), "Columns (1-4):");
    EXPECT_EQ(name("cmbOpenQuote"), "Open quote:");
    EXPECT_EQ(name("imgAbout"), "About");
    EXPECT_EQ(name("tbcTabs"), "Options");
  });
}

TEST_F(FormContract, EachFormFitsASmallScreen) {
  InEachForm([](forms::Form& form, QWidget& window) {
    EXPECT_LE(window.width(), 1024) << form.Name();
    EXPECT_LE(window.height(), 700) << form.Name();
  });
}

TEST_F(FormContract, ASmallFormHasRoomForItsTitle) {
  frmKVXChangeQuotes quotes(services, ini);
  quotes.Load();
  quotes.SetCaption(u"A title that is longer than anything that stands in the form");
  Show(quotes, [](QWidget& window) {
    EXPECT_GT(window.width(), window.fontMetrics().horizontalAdvance(window.windowTitle()));
  });
}

TEST(OutlinedStyle, ABoxWithoutATickIsSeenInADarkPalette) {
  qt::OutlinedStyle style;
  QCheckBox box;
  box.setStyle(&style);
  box.setPalette(QPalette(QColor(0x3c, 0x3c, 0x40), QColor(0x2d, 0x2d, 0x30)));
  box.resize(box.sizeHint());
  QImage shown(box.size(), QImage::Format_RGB32);
  shown.fill(QColor(0x2d, 0x2d, 0x30));
  box.render(&shown, {}, {}, QWidget::DrawChildren);
  int brightest = 0;
  for (int x = 0; x < shown.width(); ++x) {
    brightest = std::max(brightest, shown.pixelColor(x, shown.height() / 2).lightness());
  }
  EXPECT_GT(brightest, 0x2d + 0x50);
}

TEST_F(FormContract, NothingIsCutOff) {
  InEachForm([](forms::Form& form, QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->objectName().isEmpty()) continue;
      const bool hasText = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLabel*>(widget);
      if (!hasText || widget->minimumSizeHint().width() == 0) continue;
      auto* label = qobject_cast<QLabel*>(widget);
      if (label != nullptr && label->wordWrap()) {
        EXPECT_GE(widget->height(), label->heightForWidth(widget->width())) << widget->objectName().toStdString();
      } else {
        EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << widget->objectName().toStdString();
      }
      EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
          << form.Name() << " " << widget->objectName().toStdString();
    }
  });
}

}  // namespace
