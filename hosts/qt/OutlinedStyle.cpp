#include "hosts/qt/OutlinedStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace qt {

namespace {

QString PlainStyle() { return QStringLiteral("fusion"); }

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// Halfway between the text and what it stands on.
QColor LineColor(const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Window);
  return {(text.red() + ground.red()) / 2, (text.green() + ground.green()) / 2, (text.blue() + ground.blue()) / 2};
}

}  // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(PlainStyle()) {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  // The plain style marks the field that has the focus itself, but not a list.
  const bool focused = option->state.testFlag(State_HasFocus);
  const bool isField = element == PE_Frame || (element == PE_FrameLineEdit && !focused);
  const bool isBox = element == PE_IndicatorCheckBox;
  const bool isCircle = element == PE_IndicatorRadioButton;
  const bool dark = IsDark(option->palette);
  // A frame's edge falls between the pixels of a scale that is no whole number, and is lost there.
  if ((!isField && !isBox && !isCircle) || (!dark && element != PE_Frame)) return;
  if (isField && widget != nullptr && !widget->isEnabled()) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setBrush(Qt::NoBrush);
  QColor color = LineColor(option->palette);
  if (isField) color.setAlphaF(dark ? 0.5F : 0.35F);
  painter->setPen(color);
  const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (isCircle) {
    painter->drawEllipse(edge);
  } else {
    painter->drawRect(edge);
  }
  painter->restore();
}

int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* returned) const {
  return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

QSize OutlinedStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                      const QWidget* widget) const {
  constexpr int kRoomBeside = 6;
  const QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
  return type == CT_PushButton ? whole + QSize(2 * kRoomBeside, 0) : whole;
}

void UseOutlinedStyle() {
  if (QApplication::style()->name() == PlainStyle()) QApplication::setStyle(new OutlinedStyle);
}

}  // namespace qt
