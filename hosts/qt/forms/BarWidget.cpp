#include "hosts/qt/forms/BarWidget.h"

#include <QPainter>
#include <QResizeEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace qt {

namespace {

QList<BarPart*> PartsOf(const BarWidget& bar) {
  QList<BarPart*> parts;
  for (QObject* child : bar.children()) {
    if (auto* part = dynamic_cast<BarPart*>(child)) parts << part;
  }
  return parts;
}

}  // namespace

BarWidget::BarWidget(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Progress"));
}

QSize BarWidget::sizeHint() const {
  const int line = fontMetrics().height();
  return {fontMetrics().averageCharWidth() * 60, line * 3 / 2};
}

void BarWidget::Arrange() {
  int whole = 0;
  for (const BarPart* part : PartsOf(*this)) whole = std::max(whole, part->share);
  for (BarPart* part : PartsOf(*this)) {
    const int width = whole == 0 ? 0 : static_cast<int>(static_cast<qint64>(this->width()) * part->share / whole);
    part->setGeometry(0, 0, width, height());
  }
  update();
}

void BarWidget::resizeEvent(QResizeEvent*) { Arrange(); }

void BarWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  for (const BarPart* part : PartsOf(*this)) {
    if (part->isHidden()) continue;
    const QRect filled = part->geometry();
    if (part->text().isEmpty()) {
      painter.fillRect(filled, palette().base());
      QStyleOptionFrame frame;
      frame.initFrom(this);
      frame.rect = filled;
      frame.lineWidth = 1;
      frame.state = QStyle::State_Enabled | QStyle::State_Sunken;
      style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
      continue;
    }
    painter.fillRect(filled.adjusted(1, 1, -1, -1), palette().highlight());
    // Each half of the text in the colour that can be read there.
    const auto write = [&](const QRect& half, QPalette::ColorRole role) {
      painter.setClipRect(half);
      painter.setPen(palette().color(role));
      painter.drawText(rect(), Qt::AlignCenter, part->text());
      painter.setClipping(false);
    };
    write(filled, QPalette::HighlightedText);
    write(rect().adjusted(filled.right() + 1, 0, 0, 0), QPalette::Text);
  }
}

}  // namespace qt
