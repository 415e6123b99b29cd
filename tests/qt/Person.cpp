#include "tests/qt/Person.h"

#include <QAbstractButton>
#include <QApplication>
#include <QListView>
#include <QMessageBox>

Person::Person() { LookSoon(); }

// A timer that is being answered does not fire again below, where a message waits.
void Person::LookSoon() {
  QTimer::singleShot(1, this, [this] {
    LookSoon();
    Look();
  });
}

Person::~Person() { EXPECT_TRUE(answers_.empty()) << answers_.size() << " windows never came"; }

void Person::Look() {
  QWidget* front = QApplication::activeModalWidget();
  if (front == nullptr || front == working_ || !front->isVisible()) return;
  // A form that only tells how far things are has no answer.
  if (front->objectName().contains("ProgressForm")) return;
  if (answers_.empty()) {
    const auto* box = qobject_cast<QMessageBox*>(front);
    ADD_FAILURE() << "nobody expected " << front->windowTitle().toStdString() << ": "
                  << (box == nullptr ? "" : box->text().toStdString());
    front->hide();
    return;
  }
  QWidget* before = working_;
  working_ = front;
  const Answer answer = std::move(answers_.front());
  answers_.pop_front();
  try {
    answer(*front);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
    front->hide();
  }
  working_ = before;
}

void Person::ExpectMessage(const QString& title, const QString& text, const QString& button) {
  Expect([=](QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    ASSERT_NE(box, nullptr) << window.windowTitle().toStdString();
    EXPECT_EQ(box->windowTitle().toStdString(), title.toStdString());
    EXPECT_EQ(box->text().toStdString(), text.toStdString());
    for (QAbstractButton* one : box->buttons()) {
      if (one->text().remove('&') != button) continue;
      QTest::mouseClick(one, Qt::LeftButton);
      return;
    }
    ADD_FAILURE() << "no such button: " << button.toStdString();
    box->reject();
  });
}

void Person::Click(QWidget& window, const char* name) {
  auto& widget = At(window, name);
  EXPECT_TRUE(widget.isVisible() && widget.isEnabled()) << name;
  // Boxes are clicked on their mark.
  const QPoint where = widget.inherits("QCheckBox") || widget.inherits("QRadioButton")
                           ? QPoint(widget.height() / 2, widget.height() / 2)
                           : widget.rect().center();
  QTest::mouseClick(&widget, Qt::LeftButton, {}, where);
}

void Person::ClickEntry(QWidget& window, const char* list, int entry, Qt::KeyboardModifiers modifiers) {
  auto& view = At<QListView>(window, list);
  const QModelIndex index = view.model()->index(entry, 0);
  view.scrollTo(index);
  QPoint where = view.visualRect(index).center();
  where.setX(5);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, where);
}

void Person::Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QWidget* focus = window.focusWidget();
  QTest::keyClick(focus == nullptr ? &window : focus, key, modifiers);
}

void Person::Type(QWidget& window, const QString& text) {
  for (const QChar letter : text) {
    QWidget* focus = window.focusWidget();
    QTest::keyClick(focus == nullptr ? &window : focus, letter.toLatin1());
  }
}
