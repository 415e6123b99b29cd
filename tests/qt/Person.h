#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <set>

/// A person at the screen: the next of their answers works in each modal window that comes to the front. A window that
/// an answer leaves open has the next answer too; windows that nobody expected, and answers that found no window, fail
/// the test.
class Person : public QObject {
 public:
  using Answer = std::function<void(QWidget& window)>;

  Person();
  ~Person() override;
  void Expect(Answer answer) { answers_.push_back(std::move(answer)); }
  /// Presses a button of a message box with this title and text.
  void ExpectMessage(const QString& title, const QString& text, const QString& button);

  template <class Widget = QWidget>
  static Widget& At(QWidget& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QString::fromLatin1(name));
    if (widget == nullptr) throw std::logic_error(std::string("no such widget: ") + name);
    return *widget;
  }
  static void Click(QWidget& window, const char* name);
  static void ClickEntry(QWidget& window, const char* list, int entry, Qt::KeyboardModifiers modifiers = {});
  /// Keys go to the widget that has the focus.
  static void Press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  static void Type(QWidget& window, const QString& text);

 private:
  void LookSoon();
  void Look();

  std::deque<Answer> answers_;
  QWidget* working_{nullptr};
};
