#include "hosts/qt/QtMessages.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/QtFormHost.h"

namespace qt {

namespace {

QMessageBox::Icon IconOf(os::Icon icon) {
  switch (icon) {
    case os::Icon::kInformation:
      return QMessageBox::Information;
    case os::Icon::kExclamation:
      return QMessageBox::Warning;
    case os::Icon::kQuestion:
      return QMessageBox::Question;
    case os::Icon::kCritical:
      return QMessageBox::Critical;
    case os::Icon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(os::Buttons buttons) {
  switch (buttons) {
    case os::Buttons::kOkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case os::Buttons::kYesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case os::Buttons::kYesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case os::Buttons::kOk:
      break;
  }
  return QMessageBox::Ok;
}

/// A question for Yes or No has to be answered: it cannot be closed.
class Box : public QMessageBox {
 public:
  Box(QWidget* owner, bool mayClose) : QMessageBox(owner), mayClose_(mayClose) {
    setWindowFlag(Qt::WindowCloseButtonHint, mayClose);
  }

 protected:
  void closeEvent(QCloseEvent* event) override { mayClose_ ? QMessageBox::closeEvent(event) : event->ignore(); }
  void keyPressEvent(QKeyEvent* event) override {
    if (!mayClose_ && event->key() == Qt::Key_Escape) return;
    QMessageBox::keyPressEvent(event);
  }

 private:
  bool mayClose_;
};

}  // namespace

os::Pressed QtMessages::Show(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons) {
  Box box(windows_.Owner(0), buttons != os::Buttons::kYesNo);
  box.setObjectName(QStringLiteral("message"));
  box.setWindowTitle(ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  box.setIcon(IconOf(icon));
  box.setStandardButtons(ButtonsOf(buttons));
  for (QAbstractButton* button : box.buttons()) button->setIcon({});
  for (const QMessageBox::StandardButton first : {QMessageBox::Ok, QMessageBox::Yes}) {
    if (box.button(first) != nullptr) box.setDefaultButton(first);
  }
  switch (box.exec()) {
    case QMessageBox::Yes:
      return os::Pressed::kYes;
    case QMessageBox::No:
      return os::Pressed::kNo;
    case QMessageBox::Cancel:
      return os::Pressed::kCancel;
    default:
      return os::Pressed::kOk;
  }
}

}  // namespace qt
