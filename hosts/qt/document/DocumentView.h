#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QImage>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "hosts/qt/document/DocumentSource.h"
#include "hosts/qt/document/PagePainter.h"
#include "hosts/qt/document/PagePlaces.h"

namespace qt {

/// Shows the pages of a document one below the other, with a cursor and a selection to place by mouse and keyboard.
/// What a page shows is asked for when it comes into sight.
class DocumentView : public QAbstractScrollArea {
 public:
  explicit DocumentView(QWidget* parent = nullptr);

  /// @param source outlives the view or is replaced; nullptr for none
  void SetSource(DocumentSource* source);
  /// The document has changed; the place in sight stays. @param source as above, perhaps a new one
  void Reload(DocumentSource* source);
  /// While the document is being changed, only what was in sight before is shown.
  void SetFrozen(bool frozen);

  double Zoom() const { return zoom_; }
  /// 1 is the paper's size. Brought into 0.25 to 4.
  void SetZoom(double zoom);
  void FitWidth();

  /// The page that the cursor is on.
  int CurrentPage() const;
  void SelectStretch(const DocumentSource::Selection& selection);
  DocumentSource::Selection Selected() const;
  void SelectAll();
  void Copy() const;

  /// Called when the cursor or the page in sight has changed.
  std::function<void()> onMoved;

  // For tests: where a place stands in the viewport, after it was brought into sight.
  QPoint PointOf(const Place& place);
  /// The same for a point of a page.
  QPoint PointOn(int page, QPointF point);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  const PagePlaces* Page(int page) const;
  QImage Picture(const std::string& name);
  void Arrange();
  double TopOf(int page) const { return tops_[static_cast<std::size_t>(page - 1)]; }
  double Scale() const;
  int PageAt(double y) const;
  QPointF PageOrigin(int page) const;
  std::optional<Place> PlaceAt(QPoint point) const;
  std::optional<QRectF> CursorRect() const;
  void MoveTo(const Place& place, bool extend);
  void MoveByLine(int lines, bool extend);
  void MoveByStep(bool forward, bool words, bool extend);
  void ShowCursor();
  void Moved();
  void Forget();

  DocumentSource* source_{nullptr};
  double zoom_{1};
  bool frozen_{false};
  /// In points, from the top; one more than there are pages, the end.
  std::vector<double> tops_;
  std::vector<double> heights_;
  std::vector<double> widths_;
  double widest_{0};
  mutable std::map<int, std::unique_ptr<PagePlaces>> pages_;
  QCache<QString, QImage> pictures_;
  PagePainter painter_;
  Place anchor_;
  Place cursor_;
  double column_{-1};  ///< where lines up and down keep to; -1: where the cursor stands
  bool selecting_{false};
  bool moved_{false};
  bool blink_{true};
  QTimer blinking_;
};

}  // namespace qt
