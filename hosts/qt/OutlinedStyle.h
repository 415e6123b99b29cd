#pragma once

#include <QProxyStyle>

namespace qt {

/// The plain style of systems that bring none of their own, with a line around boxes, fields and lists that is seen in
/// a dark palette, where that style draws dark on dark, and at every scale.
class OutlinedStyle : public QProxyStyle {
 public:
  OutlinedStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  /// Buttons have words, and no pictures beside them.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
  /// Captions do not touch the edges of their buttons.
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
};

/// Takes it for the whole program where the plain style is the one in use.
void UseOutlinedStyle();

}  // namespace qt
