#pragma once

#include <QLabel>

namespace qt {

/// A part of a bar, which is as wide as its label says, in units of its own.
class BarPart : public QLabel {
 public:
  explicit BarPart(QWidget* parent) : QLabel(parent) {}
  int share{0};

 protected:
  void paintEvent(QPaintEvent*) override {}
};

/// Labels in one place of which the widest is an empty box and another its filled share: a progress bar. The text
/// stands in the middle of the whole, so that it can be read from the first step on.
class BarWidget : public QWidget {
 public:
  explicit BarWidget(QWidget* parent);
  /// Gives the parts the places that their shares say.
  void Arrange();
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt
