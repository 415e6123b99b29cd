#pragma once

#include <QAbstractScrollArea>
#include <QCache>
#include <QElapsedTimer>
#include <QImage>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "hosts/qt/document/DocumentSource.h"
#include "hosts/qt/document/PagePainter.h"
#include "hosts/qt/document/PagePlaces.h"

namespace qt {

class DocumentAccess;

/// Shows the pages of a document one below the other, with a cursor and a selection to place by mouse and keyboard.
/// What a page shows is asked for when it comes into sight.
class DocumentView : public QAbstractScrollArea {
  friend class DocumentAccess;

 public:
  explicit DocumentView(QWidget* parent = nullptr);

  /// @param source outlives the view or is replaced; nullptr for none
  void SetSource(DocumentSource* source);
  /// The document has changed; the place in sight stays. @param source as above, perhaps a new one
  void Reload(DocumentSource* source);
  /// While the document is being changed, only what was in sight before is shown.
  void SetFrozen(bool frozen);

  /// What stands in the window while there is no document.
  void SetHint(const QString& hint) { hint_ = hint; }

  double Zoom() const { return zoom_; }
  /// 1 is the paper's size. Brought into 0.25 to 4.
  void SetZoom(double zoom);
  void FitWidth();

  /// The page that the cursor is on.
  int CurrentPage() const;
  /// The same while the cursor is in sight, else the page in the middle of the window.
  int PageInSight() const;
  void SelectStretch(const DocumentSource::Selection& selection);
  DocumentSource::Selection Selected() const;
  void SelectAll();
  void Copy() const;
  /// Brings the cursor to the beginning of a page.
  void GoToPage(int page);
  /// Brings the cursor back to where the last link was followed. @return false when none was
  bool GoBack();

  /// Called when the cursor or the page in sight has changed.
  std::function<void()> onMoved;
  /// Called when somebody clicks on text that no cursor comes to.
  std::function<void()> onOnlyShown;
  /// Called when somebody types.
  std::function<void()> onTyped;

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
  /// What a selection by the mouse grows by, after one, two and three clicks.
  enum class Unit : std::uint8_t { kCharacter, kWord, kParagraph };

  const PagePlaces* Page(int page) const;
  QImage Picture(const std::string& name);
  void Arrange();
  double TopOf(int page) const { return tops_[static_cast<std::size_t>(page - 1)]; }
  double Scale() const;
  int PageAt(double y) const;
  QPointF PageOrigin(int page) const;
  std::optional<Place> PlaceAt(QPoint point, int story = 0) const;
  std::optional<QRectF> CursorRect() const;
  int LastPage() const { return static_cast<int>(heights_.size()); }
  bool IsOnlyShown(QPoint point) const;
  void MoveTo(const Place& place, bool extend);
  void MoveByLine(bool down, bool extend);
  void MoveByScreen(bool down, bool extend);
  void MoveByStep(bool forward, bool words, bool extend);
  void MoveByParagraph(bool forward, bool extend);
  void MoveToEdge(bool end, bool extend);
  std::optional<Place> FirstOf(int page) const;
  std::optional<Place> LastOf(int page) const;
  std::optional<Place> StepFrom(const Place& place, bool forward, bool words) const;
  Place ParagraphEdge(const Place& place, bool end) const;
  /// The word or paragraph around a place, or the place.
  DocumentSource::Selection UnitAt(const Place& place) const;
  void Press(QMouseEvent& event, Unit unit);
  void BeginSelecting(const Place& place, bool extend);
  void SelectTo(QPoint point);
  void ShowCursor();
  void Moved();
  void Forget();

  DocumentSource* source_{nullptr};
  QString hint_;
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
  Unit unit_{Unit::kCharacter};
  DocumentSource::Selection origin_;  ///< where it began
  bool selecting_{false};
  bool moved_{false};
  QPoint doubled_;  ///< where a double click was
  QElapsedTimer sinceDouble_;
  QTimer scrolling_;  ///< while a selection is drawn beyond the window's edge
  std::vector<DocumentSource::Selection> linksFrom_;
  bool blink_{true};
  QTimer blinking_;
};

}  // namespace qt
