#pragma once

#include <QAccessibleWidget>

#include "hosts/qt/document/DocumentView.h"

namespace qt {

/// Tells a screen reader what the page with the cursor says. Offsets count the characters that the page shows of the
/// story that the cursor is in, with a line feed behind each paragraph.
class DocumentAccess : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit DocumentAccess(DocumentView& view);
  /// Has document views found through this class from now on.
  static void Install();
  /// Tells of a cursor or selection that has moved.
  static void Moved(DocumentView& view);

  void* interface_cast(QAccessible::InterfaceType type) override;
  QAccessible::State state() const override;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override;
  void addSelection(int start, int end) override;
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int offset) override;
  QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }
  QString text(int start, int end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int end) override;
  QString attributes(int offset, int* start, int* end) const override;

 private:
  PagePlaces::Shown Shown() const;
  static int OffsetOf(const PagePlaces::Shown& shown, word::Position position);
  Place PlaceOf(const PagePlaces::Shown& shown, int offset) const;

  DocumentView& view_;
};

}  // namespace qt
