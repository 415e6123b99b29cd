#include "hosts/qt/forms/BarWidget.h"

#include <QPainter>
#include <QResizeEvent>

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
      painter.setPen(palette().color(QPalette::Mid));
      painter.setBrush(palette().base());
      painter.drawRect(filled.adjusted(0, 0, -1, -1));
      continue;
    }
    painter.fillRect(filled.adjusted(1, 1, -1, -1), palette().highlight());
    // Each half of the text in the colour that can be read there.
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, part->text());
    painter.setClipRect(filled);
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(rect(), Qt::AlignCenter, part->text());
    painter.setClipping(false);
  }
}

}  // namespace qt
