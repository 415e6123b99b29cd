#include "hosts/qt/document/DocumentAccess.h"

#include <algorithm>

namespace qt {

DocumentAccess::DocumentAccess(DocumentView& view) : QAccessibleWidget(&view, QAccessible::Document), view_(view) {}

void DocumentAccess::Install() {
  static const bool installed = [] {
    QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
      auto* view = dynamic_cast<DocumentView*>(object);
      return view == nullptr ? nullptr : new DocumentAccess(*view);
    });
    return true;
  }();
  static_cast<void>(installed);
}

void DocumentAccess::Moved(DocumentView& view) {
  if (!QAccessible::isActive()) return;
  const auto* access = dynamic_cast<DocumentAccess*>(QAccessible::queryAccessibleInterface(&view));
  if (access == nullptr) return;
  QAccessibleTextCursorEvent moved(&view, access->cursorPosition());
  QAccessible::updateAccessibility(&moved);
  int start = 0;
  int end = 0;
  access->selection(0, &start, &end);
  QAccessibleTextSelectionEvent selected(&view, start, end);
  selected.setCursorPosition(access->cursorPosition());
  QAccessible::updateAccessibility(&selected);
}

void* DocumentAccess::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QAccessible::State DocumentAccess::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  state.multiLine = true;
  state.selectableText = true;
  return state;
}

PagePlaces::Shown DocumentAccess::Shown() const {
  const PagePlaces* places = view_.source_ == nullptr ? nullptr : view_.Page(view_.CurrentPage());
  return places == nullptr ? PagePlaces::Shown{} : places->ShownOf(view_.cursor_.story);
}

int DocumentAccess::OffsetOf(const PagePlaces::Shown& shown, word::Position position) {
  const auto next = std::ranges::find_if(shown.positions, [&](word::Position one) { return one >= position; });
  return static_cast<int>(next - shown.positions.begin());
}

Place DocumentAccess::PlaceOf(const PagePlaces::Shown& shown, int offset) const {
  if (shown.positions.empty()) return view_.cursor_;
  const auto last = static_cast<int>(shown.positions.size()) - 1;
  return {view_.cursor_.story, shown.positions[static_cast<std::size_t>(std::clamp(offset, 0, last))]};
}

void DocumentAccess::selection(int index, int* start, int* end) const {
  *start = *end = 0;
  if (index != 0) return;
  const PagePlaces::Shown shown = Shown();
  const DocumentSource::Selection selection = view_.Selected();
  *start = OffsetOf(shown, selection.start.position);
  *end = OffsetOf(shown, selection.end);
}

int DocumentAccess::selectionCount() const {
  const DocumentSource::Selection selection = view_.Selected();
  return selection.start.position < selection.end ? 1 : 0;
}

void DocumentAccess::addSelection(int start, int end) { setSelection(0, start, end); }

void DocumentAccess::removeSelection(int index) {
  if (index == 0) view_.SelectStretch({view_.cursor_, view_.cursor_.position});
}

void DocumentAccess::setSelection(int index, int start, int end) {
  if (index != 0) return;
  const PagePlaces::Shown shown = Shown();
  view_.SelectStretch({PlaceOf(shown, start), PlaceOf(shown, end).position});
}

int DocumentAccess::cursorPosition() const { return OffsetOf(Shown(), view_.cursor_.position); }

void DocumentAccess::setCursorPosition(int offset) { setSelection(0, offset, offset); }

QString DocumentAccess::text(int start, int end) const { return Shown().text.mid(start, end - start); }

int DocumentAccess::characterCount() const { return static_cast<int>(Shown().text.size()); }

QRect DocumentAccess::characterRect(int offset) const {
  const PagePlaces::Shown shown = Shown();
  const PagePlaces* places = view_.source_ == nullptr ? nullptr : view_.Page(view_.CurrentPage());
  const std::optional<QRectF> at = places == nullptr ? std::nullopt : places->CursorAt(PlaceOf(shown, offset));
  if (!at) return {};
  const QRectF rect(view_.PageOrigin(view_.CurrentPage()) + at->topLeft() * view_.Scale(), at->size() * view_.Scale());
  return {view_.viewport()->mapToGlobal(rect.topLeft().toPoint()), rect.size().toSize()};
}

int DocumentAccess::offsetAtPoint(const QPoint& point) const {
  const std::optional<Place> place = view_.PlaceAt(view_.viewport()->mapFromGlobal(point), view_.cursor_.story);
  return place ? OffsetOf(Shown(), place->position) : -1;
}

void DocumentAccess::scrollToSubstring(int start, int) { view_.PointOf(PlaceOf(Shown(), start)); }

QString DocumentAccess::attributes(int, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

}  // namespace qt
