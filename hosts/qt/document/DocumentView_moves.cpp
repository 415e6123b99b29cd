#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleHints>

#include <algorithm>
#include <utility>

#include "hosts/qt/document/DocumentView.h"

namespace qt {

std::optional<Place> DocumentView::PlaceAt(QPoint point, int story) const {
  if (heights_.empty()) return {};
  const int page = PageAt((point.y() + verticalScrollBar()->value()) / Scale());
  const PagePlaces* places = Page(page);
  return places == nullptr ? std::nullopt : places->PlaceAt((QPointF(point) - PageOrigin(page)) / Scale(), story);
}

bool DocumentView::IsOnlyShown(QPoint point) const {
  if (heights_.empty()) return false;
  const int page = PageAt((point.y() + verticalScrollBar()->value()) / Scale());
  const PagePlaces* places = Page(page);
  return places != nullptr && places->IsOnlyShown((QPointF(point) - PageOrigin(page)) / Scale());
}

std::optional<Place> DocumentView::FirstOf(int page) const {
  const PagePlaces* places = page >= 1 && page <= LastPage() ? Page(page) : nullptr;
  return places == nullptr ? std::nullopt : places->First();
}

std::optional<Place> DocumentView::LastOf(int page) const {
  const PagePlaces* places = page >= 1 && page <= LastPage() ? Page(page) : nullptr;
  return places == nullptr ? std::nullopt : places->Last();
}

void DocumentView::MoveTo(const Place& place, bool extend) {
  cursor_ = place;
  if (!extend || anchor_.story != place.story) anchor_ = place;
  Moved();
  ShowCursor();
}

void DocumentView::SelectAll() {
  const std::optional<Place> first = FirstOf(1);
  const std::optional<Place> last = LastOf(LastPage());
  if (!first || !last) return;
  anchor_ = *first;
  cursor_ = {anchor_.story, last->position};
  Moved();
}

void DocumentView::GoToPage(int page) {
  page = std::clamp(page, 1, std::max(1, LastPage()));
  if (const std::optional<Place> first = FirstOf(page)) MoveTo(*first, false);
  if (!heights_.empty()) verticalScrollBar()->setValue(static_cast<int>(TopOf(page) * Scale()));
}

bool DocumentView::GoBack() {
  if (linksFrom_.empty() || frozen_) return false;
  const DocumentSource::Selection from = linksFrom_.back();
  linksFrom_.pop_back();
  SelectStretch(from);
  return true;
}

std::optional<Place> DocumentView::StepFrom(const Place& place, bool forward, bool words) const {
  if (source_ == nullptr) return {};
  const int page = std::clamp(source_->PageOf(place), 1, std::max(1, LastPage()));
  const PagePlaces* places = Page(page);
  std::optional<Place> next = places == nullptr ? std::nullopt : places->Step(place, forward, words);
  if (!next && place.story == word::wdMainTextStory) next = forward ? FirstOf(page + 1) : LastOf(page - 1);
  return next && next->story == place.story ? next : std::nullopt;
}

void DocumentView::MoveByStep(bool forward, bool words, bool extend) {
  const DocumentSource::Selection selection = Selected();
  if (!extend && !words && selection.start.position != selection.end) {
    return MoveTo({cursor_.story, forward ? selection.end : selection.start.position}, false);
  }
  if (const std::optional<Place> next = StepFrom(cursor_, forward, words)) {
    MoveTo(*next, extend);
  } else if (!extend) {
    MoveTo(cursor_, false);
  }
}

Place DocumentView::ParagraphEdge(const Place& place, bool end) const {
  int page = source_ == nullptr ? 0 : source_->PageOf(place);
  Place at = place;
  while (page >= 1 && page <= LastPage()) {
    const PagePlaces* places = Page(page);
    if (places == nullptr) break;
    const PagePlaces::Edge edge = places->ParagraphEdge(at, end);
    at = edge.place;
    if (!edge.goesOn || place.story != word::wdMainTextStory) break;
    page += end ? 1 : -1;
    const std::optional<Place> there = end ? FirstOf(page) : LastOf(page);
    if (!there || there->story != place.story) break;
    // The page before ends with a paragraph of its own.
    if (!end && Page(page)->ParagraphEdge(*there, true).goesOn == false) break;
    at = *there;
  }
  return at;
}

void DocumentView::MoveByParagraph(bool forward, bool extend) {
  Place target = ParagraphEdge(cursor_, forward);
  if (forward || target == cursor_) {
    const std::optional<Place> beyond = StepFrom(target, forward, false);
    if (beyond) target = forward ? *beyond : ParagraphEdge(*beyond, false);
  }
  MoveTo(target, extend);
}

void DocumentView::MoveByLine(bool down, bool extend) {
  const std::optional<QRectF> rect = CursorRect();
  if (!rect) return;
  const double x = column_ >= 0 ? column_ : rect->left();
  const auto further = [&](const std::optional<Place>& place) {
    return place && (down ? place->position > cursor_.position : place->position < cursor_.position);
  };
  const auto move = [&](const Place& place) {
    MoveTo(place, extend);
    column_ = x;
  };
  // Past the white between lines to the next one.
  const int page = CurrentPage();
  const double edge = PageOrigin(page).y() + (down ? heights_[static_cast<std::size_t>(page - 1)] * Scale() : 0);
  const double step = (down ? 1 : -1) * rect->height() / 2;
  for (double y = rect->center().y() + 2 * step; down ? y < edge : y > edge; y += step) {
    const std::optional<Place> place = PlaceAt(QPointF(x, y).toPoint(), cursor_.story);
    if (further(place)) return move(*place);
  }
  const PagePlaces* beyond = nullptr;
  const int other = page + (down ? 1 : -1);
  if (cursor_.story == word::wdMainTextStory && other >= 1 && other <= LastPage()) beyond = Page(other);
  const std::optional<Place> there = beyond == nullptr ? std::nullopt : down ? beyond->First() : beyond->Last();
  if (!there || there->story != cursor_.story) return;
  const std::optional<QRectF> line = beyond->CursorAt(*there);
  const double across = (x - PageOrigin(other).x()) / Scale();
  const std::optional<Place> place = beyond->PlaceAt({across, line->center().y()}, cursor_.story);
  move(further(place) ? *place : *there);
}

void DocumentView::MoveByScreen(bool down, bool extend) {
  const std::optional<QRectF> rect = CursorRect();
  if (!rect) return;
  QScrollBar& bar = *verticalScrollBar();
  const int before = bar.value();
  const double x = column_ >= 0 ? column_ : rect->left();
  const bool inSight = rect->top() >= 0 && rect->bottom() <= viewport()->height();
  const double y = inSight ? rect->center().y() : viewport()->height() / 2.0;
  const int screen = std::max(1, viewport()->height() - static_cast<int>(2 * rect->height()));
  bar.setValue(before + (down ? screen : -screen));
  const bool moved = bar.value() != before;
  std::optional<Place> place = down ? LastOf(LastPage()) : FirstOf(1);
  if (moved) place = PlaceAt(QPointF(x, y).toPoint(), cursor_.story);
  if (!place || place->story != cursor_.story) return;
  // Where only white is in sight the next text follows on another page.
  const bool further = down ? place->position > cursor_.position : place->position < cursor_.position;
  if (moved && !further) {
    const std::optional<Place> there = down ? FirstOf(CurrentPage() + 1) : LastOf(CurrentPage() - 1);
    if (there && there->story == cursor_.story) place = there;
  }
  MoveTo(*place, extend);
  column_ = x;
}

void DocumentView::MoveToEdge(bool end, bool extend) {
  const std::optional<Place> place = end ? LastOf(LastPage()) : FirstOf(1);
  if (place) MoveTo(*place, extend);
}

void DocumentView::keyPressEvent(QKeyEvent* event) {
  if (source_ == nullptr || frozen_) return;
  const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const bool onwards = event->key() == Qt::Key_Right || event->key() == Qt::Key_Down ||
                       event->key() == Qt::Key_PageDown || event->key() == Qt::Key_End;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      return MoveByStep(onwards, control, extend);
    case Qt::Key_Up:
    case Qt::Key_Down:
      return control ? MoveByParagraph(onwards, extend) : MoveByLine(onwards, extend);
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return control ? GoToPage(CurrentPage() + (onwards ? 1 : -1)) : MoveByScreen(onwards, extend);
    case Qt::Key_Home:
    case Qt::Key_End: {
      if (control) return MoveToEdge(onwards, extend);
      const PagePlaces* places = Page(CurrentPage());
      if (places != nullptr) MoveTo(places->LineEdge(cursor_, onwards), extend);
      return;
    }
    default: {
      const bool printable = !event->text().isEmpty() && event->text().at(0).isPrint();
      const bool command = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
      const bool erases = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
      if (onTyped && !command && (printable || erases)) onTyped();
      QAbstractScrollArea::keyPressEvent(event);
    }
  }
}

DocumentSource::Selection DocumentView::UnitAt(const Place& place) const {
  if (unit_ == Unit::kParagraph) return {ParagraphEdge(place, false), ParagraphEdge(place, true).position};
  if (unit_ == Unit::kCharacter) return {place, place.position};
  const Place end = StepFrom(place, true, true).value_or(place);
  return {StepFrom(end, false, true).value_or(place), end.position};
}

void DocumentView::BeginSelecting(const Place& place, bool extend) {
  selecting_ = true;
  moved_ = unit_ != Unit::kCharacter;
  if (unit_ == Unit::kCharacter) {
    MoveTo(place, extend);
    origin_ = {anchor_, anchor_.position};
    return;
  }
  origin_ = UnitAt(place);
  anchor_ = origin_.start;
  cursor_ = {place.story, origin_.end};
  Moved();
}

void DocumentView::SelectTo(QPoint point) {
  const std::optional<Place> place = PlaceAt(point, origin_.start.story);
  if (!place) return;
  const DocumentSource::Selection unit = UnitAt(*place);
  const bool backwards = unit.start.position < origin_.start.position;
  const Place target{place->story, backwards ? unit.start.position : unit.end};
  const Place anchor{place->story, backwards ? origin_.end : origin_.start.position};
  if (target == cursor_ && anchor == anchor_) return;
  moved_ = true;
  anchor_ = anchor;
  MoveTo(target, true);
}

void DocumentView::Press(QMouseEvent& event, Unit unit) {
  const QPoint point = event.position().toPoint();
  if (event.button() != Qt::LeftButton) return;
  if (IsOnlyShown(point)) {
    if (onOnlyShown) onOnlyShown();
    return;
  }
  const std::optional<Place> place = PlaceAt(point);
  if (!place) return;
  unit_ = unit;
  BeginSelecting(*place, event.modifiers().testFlag(Qt::ShiftModifier));
}

void DocumentView::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  const QStyleHints& hints = *QGuiApplication::styleHints();
  const bool third = sinceDouble_.isValid() && sinceDouble_.elapsed() < hints.mouseDoubleClickInterval() &&
                     (point - doubled_).manhattanLength() < hints.startDragDistance();
  sinceDouble_.invalidate();
  Press(*event, third ? Unit::kParagraph : Unit::kCharacter);
}

void DocumentView::mouseDoubleClickEvent(QMouseEvent* event) {
  doubled_ = event->position().toPoint();
  sinceDouble_.start();
  Press(*event, Unit::kWord);
}

void DocumentView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  if (selecting_) {
    const bool inside = viewport()->rect().contains(point);
    inside ? scrolling_.stop() : scrolling_.start();
    return SelectTo(point);
  }
  const std::optional<Place> place = PlaceAt(point);
  const bool only = IsOnlyShown(point);
  const bool link = place && !only && source_ != nullptr && !frozen_ && source_->LinkAt(*place).has_value();
  viewport()->setCursor(link ? Qt::PointingHandCursor : only ? Qt::ArrowCursor : Qt::IBeamCursor);
}

void DocumentView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  scrolling_.stop();
  if (!std::exchange(selecting_, false) || moved_) return;
  if (source_ == nullptr || frozen_ || event->modifiers() != Qt::NoModifier) return;
  const std::optional<DocumentSource::Selection> link = source_->LinkAt(cursor_);
  if (!link) return;
  linksFrom_.push_back(Selected());
  SelectStretch(*link);
}

}  // namespace qt
