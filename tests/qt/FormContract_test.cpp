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

#include "dialogs/frmKVXChangeQuotes.h"
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
};

TEST_F(FormContract, EachFormIsShownAsItIs) {
  int looked = 0;
  InEachForm([&](forms::Form& form, const std::string&) {
    ExpectShownAsItIs(form);
    ++looked;
  });
  EXPECT_EQ(looked, kLooks);
}

TEST_F(FormContract, WhatCodeChangesIsShown) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Seller", u"Target"});
  Show(form, [&](QWidget&) {
    ChangeByCode(form);
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
  InEachWindow([](forms::Form& form, const std::string&, QWidget& window) {
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
  InEachWindow([](forms::Form& form, const std::string&, QWidget& window) {
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
  InEachWindow([](forms::Form& form, const std::string&, QWidget& window) {
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
