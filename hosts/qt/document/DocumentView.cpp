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
#include "hosts/qt/document/DocumentAccess.h"

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
constexpr int kScrollStep = 50;  ///< milliseconds
/// Pixels at 100 % for each point.
constexpr double kPixels = 96.0 / 72;

}  // namespace

DocumentView::DocumentView(QWidget* parent)
    : QAbstractScrollArea(parent),
      pictures_(kPictures),
      painter_([this](const std::string& name) { return Picture(name); }) {
  DocumentAccess::Install();
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
  scrolling_.setInterval(kScrollStep);
  QObject::connect(&scrolling_, &QTimer::timeout, this,
                   [this] { SelectTo(viewport()->mapFromGlobal(QCursor::pos())); });
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
  linksFrom_.clear();
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
  if (heights_.empty()) {
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(0.7F);
    painter.setPen(color);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, hint_);
    return;
  }
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
    painter.fillRect(QRectF(cursor->topLeft(), cursor->size().expandedTo(QSizeF(1.5, 1.5))), Qt::black);
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

int DocumentView::PageInSight() const {
  const std::optional<QRectF> cursor = CursorRect();
  if (heights_.empty() || (cursor && viewport()->rect().intersects(cursor->toAlignedRect()))) return CurrentPage();
  return PageAt((verticalScrollBar()->value() + viewport()->height() / 2.0) / Scale());
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

void DocumentView::Copy() const {
  const DocumentSource::Selection selection = Selected();
  if (source_ == nullptr || frozen_ || selection.start.position == selection.end) return;
  QGuiApplication::clipboard()->setText(ToQt(source_->CopyText(selection)));
}

void DocumentView::Moved() {
  column_ = -1;
  blink_ = true;
  if (source_ != nullptr && !frozen_) source_->Select(Selected());
  DocumentAccess::Moved(*this);
  viewport()->update();
  if (onMoved) onMoved();
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
