#include "hosts/qt/document/DocumentView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleHints>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

constexpr double kGap = 14;  ///< between pages, in points
constexpr double kLeastZoom = 0.25;
constexpr double kMostZoom = 4;
/// Pages that are kept.
constexpr std::size_t kKept = 60;
/// Kilobytes of pictures that are kept.
constexpr qsizetype kPictures = 64 * 1024;
/// Pixels: more than a page shows at the highest zoom.
constexpr int kWidestPicture = 3000;
/// Pixels at 100 % for each point.
constexpr double kPixels = 96.0 / 72;

}  // namespace

DocumentView::DocumentView(QWidget* parent)
    : QAbstractScrollArea(parent),
      pictures_(kPictures),
      painter_([this](const std::string& name) { return Picture(name); }) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(QStringLiteral("Document"));
  viewport()->setCursor(Qt::IBeamCursor);
  viewport()->setMouseTracking(true);
  viewport()->setBackgroundRole(QPalette::Mid);
  blinking_.setInterval(std::max(QGuiApplication::styleHints()->cursorFlashTime() / 2, 200));
  QObject::connect(&blinking_, &QTimer::timeout, this, [this] {
    blink_ = !blink_;
    viewport()->update();
  });
  for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
    QObject::connect(bar, &QScrollBar::valueChanged, this, [this] {
      viewport()->update();
      if (onMoved) onMoved();
    });
  }
}

void DocumentView::SetSource(DocumentSource* source) {
  pictures_.clear();
  Reload(source);
  verticalScrollBar()->setValue(0);
  horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2);
  ShowCursor();
}

void DocumentView::Forget() {
  pages_.clear();
  heights_.clear();
  widths_.clear();
  tops_.clear();
  widest_ = 0;
}

void DocumentView::Reload(DocumentSource* source) {
  source_ = source;
  Forget();
  if (source_ != nullptr) {
    for (int page = 1; page <= source_->PageCount(); ++page) {
      const Paper paper = source_->PaperOf(page);
      heights_.push_back(paper.height);
      widths_.push_back(paper.width);
      widest_ = std::max(widest_, paper.width);
    }
    const DocumentSource::Selection selection = source_->Selected();
    anchor_ = selection.start;
    cursor_ = {selection.start.story, selection.end};
  }
  Arrange();
  viewport()->update();
  if (onMoved) onMoved();
}

void DocumentView::SetFrozen(bool frozen) { frozen_ = frozen; }

double DocumentView::Scale() const { return zoom_ * kPixels; }

void DocumentView::Arrange() {
  tops_.assign(1, kGap);
  for (const double height : heights_) tops_.push_back(tops_.back() + height + kGap);
  const QSize room = viewport()->size();
  verticalScrollBar()->setPageStep(room.height());
  verticalScrollBar()->setSingleStep(static_cast<int>(40 * zoom_));
  verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(tops_.back() * Scale())) - room.height()));
  const int side = horizontalScrollBar()->value() - horizontalScrollBar()->maximum() / 2;
  horizontalScrollBar()->setPageStep(room.width());
  horizontalScrollBar()->setRange(
      0, std::max(0, static_cast<int>(std::ceil((widest_ + 2 * kGap) * Scale())) - room.width()));
  horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2 + side);
}

const PagePlaces* DocumentView::Page(int page) const {
  const auto found = pages_.find(page);
  if (found != pages_.end()) return found->second.get();
  if (frozen_ || source_ == nullptr) return nullptr;
  // Those furthest away go first.
  while (pages_.size() >= kKept) {
    pages_.erase(std::abs(pages_.begin()->first - page) > std::abs(pages_.rbegin()->first - page)
                     ? pages_.begin()
                     : std::prev(pages_.end()));
  }
  return (pages_[page] = std::make_unique<PagePlaces>(source_->DrawingOf(page))).get();
}

QImage DocumentView::Picture(const std::string& name) {
  const QString key = ToQt(name);
  if (const QImage* known = pictures_.object(key)) return *known;
  if (frozen_ || source_ == nullptr) return {};
  const std::string bytes = source_->PictureOf(name);
  QImage image = QImage::fromData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  if (image.width() > kWidestPicture) image = image.scaledToWidth(kWidestPicture, Qt::SmoothTransformation);
  // One that cannot be read is not tried again.
  pictures_.insert(key, new QImage(image), std::max<qsizetype>(1, image.sizeInBytes() / 1024));
  return image;
}

int DocumentView::PageAt(double y) const {
  const auto next = std::upper_bound(tops_.begin(), tops_.end() - 1, y);
  return std::clamp(static_cast<int>(next - tops_.begin()), 1, static_cast<int>(heights_.size()));
}

QPointF DocumentView::PageOrigin(int page) const {
  // Pages of all widths stand on one axis.
  const double whole = std::max<double>(viewport()->width(), (widest_ + 2 * kGap) * Scale());
  const double left = (whole - widths_[static_cast<std::size_t>(page - 1)] * Scale()) / 2;
  return {left - horizontalScrollBar()->value(), TopOf(page) * Scale() - verticalScrollBar()->value()};
}

void DocumentView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().color(QPalette::Mid));
  if (heights_.empty()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::TextAntialiasing);
  const DocumentSource::Selection selection = Selected();
  const int first = PageAt((verticalScrollBar()->value() + event->rect().top()) / Scale());
  for (int page = first; page <= static_cast<int>(heights_.size()); ++page) {
    const QPointF origin = PageOrigin(page);
    if (origin.y() > event->rect().bottom()) break;
    const std::size_t index = static_cast<std::size_t>(page - 1);
    const QRectF paper(0, 0, widths_[index] * Scale(), heights_[index] * Scale());
    painter.save();
    painter.translate(origin);
    painter.setPen(QPen(palette().color(QPalette::Dark), 0));
    painter.setBrush(Qt::white);
    painter.drawRect(paper);
    painter.setClipRect(paper);
    if (const PagePlaces* shown = Page(page)) painter_.Draw(painter, Scale(), shown->Drawing(), palette(), selection);
    painter.restore();
  }
  if (const std::optional<QRectF> cursor = CursorRect(); cursor && blink_ && hasFocus()) {
    painter.fillRect(QRectF(cursor->topLeft(), QSizeF(std::max(1.5, Scale()), cursor->height())), Qt::black);
  }
}

std::optional<QRectF> DocumentView::CursorRect() const {
  if (source_ == nullptr || heights_.empty() || frozen_) return {};
  const int page = CurrentPage();
  const PagePlaces* places = Page(page);
  const std::optional<QRectF> rect = places == nullptr ? std::nullopt : places->CursorAt(cursor_);
  if (!rect) return {};
  return QRectF(PageOrigin(page) + rect->topLeft() * Scale(), rect->size() * Scale());
}

int DocumentView::CurrentPage() const {
  if (source_ == nullptr) return 1;
  return std::clamp(source_->PageOf(cursor_), 1, std::max(1, static_cast<int>(heights_.size())));
}

void DocumentView::SetZoom(double zoom) {
  const double middle = (verticalScrollBar()->value() + viewport()->height() / 2.0) / Scale();
  zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
  Arrange();
  verticalScrollBar()->setValue(static_cast<int>(middle * Scale() - viewport()->height() / 2.0));
  viewport()->update();
  if (onMoved) onMoved();
}

void DocumentView::FitWidth() {
  if (widest_ > 0) SetZoom(viewport()->width() / ((widest_ + 2 * kGap) * kPixels));
}

DocumentSource::Selection DocumentView::Selected() const {
  return {{cursor_.story, std::min(anchor_.position, cursor_.position)}, std::max(anchor_.position, cursor_.position)};
}

void DocumentView::SelectStretch(const DocumentSource::Selection& selection) {
  anchor_ = selection.start;
  cursor_ = {selection.start.story, selection.end};
  Moved();
  ShowCursor();
}

void DocumentView::SelectAll() {
  if (source_ == nullptr) return;
  const PagePlaces* first = Page(1);
  const PagePlaces* last = Page(static_cast<int>(heights_.size()));
  if (first == nullptr || last == nullptr || !first->First() || !last->Last()) return;
  anchor_ = *first->First();
  cursor_ = {anchor_.story, last->Last()->position};
  Moved();
}

void DocumentView::Copy() const {
  const DocumentSource::Selection selection = Selected();
  if (source_ == nullptr || frozen_ || selection.start.position == selection.end) return;
  QGuiApplication::clipboard()->setText(ToQt(source_->CopyText(selection)));
}

void DocumentView::Moved() {
  column_ = -1;
  blink_ = true;
  if (source_ != nullptr && !frozen_) source_->Select(Selected());
  viewport()->update();
  if (onMoved) onMoved();
}

void DocumentView::MoveTo(const Place& place, bool extend) {
  cursor_ = place;
  if (!extend || anchor_.story != place.story) anchor_ = place;
  Moved();
  ShowCursor();
}

void DocumentView::ShowCursor() {
  std::optional<QRectF> rect = CursorRect();
  if (!rect) return;
  const double margin = 2 * kGap;
  if (rect->top() < 0) {
    verticalScrollBar()->setValue(static_cast<int>(verticalScrollBar()->value() + rect->top() - margin));
  } else if (rect->bottom() > viewport()->height()) {
    // What is far away comes to the middle.
    const bool far = rect->top() > 2 * viewport()->height();
    const double target = far ? viewport()->height() / 2.0 : viewport()->height() - margin;
    verticalScrollBar()->setValue(static_cast<int>(verticalScrollBar()->value() + rect->bottom() - target));
  }
  rect = CursorRect();
  if (rect && (rect->left() < 0 || rect->left() > viewport()->width())) {
    horizontalScrollBar()->setValue(
        static_cast<int>(horizontalScrollBar()->value() + rect->left() - viewport()->width() / 2.0));
  }
}

QPoint DocumentView::PointOf(const Place& place) {
  const Place before = cursor_;
  cursor_ = place;
  ShowCursor();
  const std::optional<QRectF> rect = CursorRect();
  cursor_ = before;
  return rect ? rect->center().toPoint() : QPoint(-1, -1);
}

QPoint DocumentView::PointOn(int page, QPointF point) {
  verticalScrollBar()->setValue(static_cast<int>((TopOf(page) + point.y()) * Scale() - viewport()->height() / 2.0));
  return (PageOrigin(page) + point * Scale()).toPoint();
}

std::optional<Place> DocumentView::PlaceAt(QPoint point) const {
  if (heights_.empty()) return {};
  const int page = PageAt((point.y() + verticalScrollBar()->value()) / Scale());
  const PagePlaces* places = Page(page);
  return places == nullptr ? std::nullopt : places->PlaceAt((QPointF(point) - PageOrigin(page)) / Scale());
}

void DocumentView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const std::optional<Place> place = PlaceAt(event->position().toPoint());
  if (!place) return;
  selecting_ = true;
  moved_ = false;
  MoveTo(*place, event->modifiers().testFlag(Qt::ShiftModifier));
}

void DocumentView::mouseMoveEvent(QMouseEvent* event) {
  const std::optional<Place> place = PlaceAt(event->position().toPoint());
  if (!place) return;
  if (!selecting_) {
    const bool link = source_ != nullptr && !frozen_ && source_->LinkAt(*place).has_value();
    viewport()->setCursor(link ? Qt::PointingHandCursor : Qt::IBeamCursor);
  } else if (*place != cursor_ && place->story == anchor_.story) {
    moved_ = true;
    MoveTo(*place, true);
  }
}

void DocumentView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(selecting_, false) || moved_) return;
  if (source_ == nullptr || frozen_ || event->modifiers() != Qt::NoModifier) return;
  if (const std::optional<DocumentSource::Selection> link = source_->LinkAt(cursor_)) SelectStretch(*link);
}

void DocumentView::mouseDoubleClickEvent(QMouseEvent* event) {
  const std::optional<Place> place = PlaceAt(event->position().toPoint());
  const PagePlaces* places = place ? Page(source_->PageOf(*place)) : nullptr;
  if (places == nullptr) return;
  const Place end = places->Step(*place, true, true).value_or(*place);
  anchor_ = places->Step(end, false, true).value_or(*place);
  cursor_ = end;
  moved_ = true;
  Moved();
}

void DocumentView::MoveByStep(bool forward, bool words, bool extend) {
  const int page = CurrentPage();
  const PagePlaces* places = Page(page);
  if (places == nullptr) return;
  std::optional<Place> next = places->Step(cursor_, forward, words);
  if (!next && cursor_.story == word::wdMainTextStory) {
    const int other = page + (forward ? 1 : -1);
    const bool exists = other >= 1 && other <= static_cast<int>(heights_.size());
    const PagePlaces* beyond = exists ? Page(other) : nullptr;
    if (beyond != nullptr) next = forward ? beyond->First() : beyond->Last();
  }
  if (next && next->story == cursor_.story) MoveTo(*next, extend);
}

void DocumentView::MoveByLine(int lines, bool extend) {
  const std::optional<QRectF> rect = CursorRect();
  if (!rect) return;
  const double x = column_ >= 0 ? column_ : rect->left();
  const double y = rect->center().y() + lines * rect->height();
  // Past the white at a page's end to the next line of text.
  for (double step = 0; step < 400 * Scale(); step += rect->height() / 2) {
    const double there = y + (lines > 0 ? step : -step);
    const std::optional<Place> place = PlaceAt(QPointF(x, there).toPoint());
    const bool further = place && (lines > 0 ? place->position > cursor_.position : place->position < cursor_.position);
    if (!further || place->story != cursor_.story) continue;
    MoveTo(*place, extend);
    column_ = x;
    return;
  }
}

void DocumentView::keyPressEvent(QKeyEvent* event) {
  if (source_ == nullptr || frozen_) return;
  const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const PagePlaces* places = Page(CurrentPage());
  switch (event->key()) {
    case Qt::Key_Left:
      return MoveByStep(false, control, extend);
    case Qt::Key_Right:
      return MoveByStep(true, control, extend);
    case Qt::Key_Up:
      return MoveByLine(-1, extend);
    case Qt::Key_Down:
      return MoveByLine(1, extend);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: {
      const std::optional<QRectF> rect = CursorRect();
      const int lines = rect ? std::max(1, static_cast<int>(viewport()->height() / rect->height()) - 2) : 1;
      return MoveByLine(event->key() == Qt::Key_PageUp ? -lines : lines, extend);
    }
    case Qt::Key_Home:
    case Qt::Key_End: {
      const bool end = event->key() == Qt::Key_End;
      if (!control) {
        if (places != nullptr) MoveTo(places->LineEdge(cursor_, end), extend);
        return;
      }
      const PagePlaces* page = Page(end ? static_cast<int>(heights_.size()) : 1);
      const std::optional<Place> place = page == nullptr ? std::nullopt : end ? page->Last() : page->First();
      if (place) MoveTo(*place, extend);
      return;
    }
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

void DocumentView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QAbstractScrollArea::wheelEvent(event);
  SetZoom(zoom_ * (event->angleDelta().y() > 0 ? 1.1 : 1 / 1.1));
}

void DocumentView::resizeEvent(QResizeEvent*) { Arrange(); }

void DocumentView::focusInEvent(QFocusEvent*) {
  blink_ = true;
  blinking_.start();
  viewport()->update();
}

void DocumentView::focusOutEvent(QFocusEvent*) {
  blinking_.stop();
  viewport()->update();
}

}  // namespace qt
