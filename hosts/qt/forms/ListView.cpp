#include "hosts/qt/forms/ListView.h"

#include <QMouseEvent>
#include <QStyledItemDelegate>

#include <algorithm>

#include "hosts/qt/Text.h"

namespace qt {

/// What the list showed when it was mirrored last.
class ListView::Entries : public QAbstractListModel {
 public:
  Entries(QObject* parent, bool checkBoxes) : QAbstractListModel(parent), checkBoxes_(checkBoxes) {}

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) return texts_.at(index.row());
    if (role == Qt::CheckStateRole && checkBoxes_) {
      return ticks_[static_cast<std::size_t>(index.row())] ? Qt::Checked : Qt::Unchecked;
    }
    return {};
  }
  void Take(const forms::ListBox& list) {
    QStringList texts;
    texts.reserve(list.ListCount());
    for (int i = 0; i < list.ListCount(); ++i) texts << ToQt(list.List(i));
    if (texts != texts_) {
      beginResetModel();
      texts_ = texts;
      endResetModel();
    }
    if (!checkBoxes_) return;
    ticks_.resize(static_cast<std::size_t>(list.ListCount()));
    for (int i = 0; i < list.ListCount(); ++i) ticks_[static_cast<std::size_t>(i)] = list.Selected(i);
    if (!ticks_.empty()) dataChanged(index(0), index(list.ListCount() - 1), {Qt::CheckStateRole});
  }

 private:
  bool checkBoxes_;
  QStringList texts_;
  std::vector<bool> ticks_;
};

class ListView::Window : public QListView {
 public:
  explicit Window(QWidget* parent) : QListView(parent) {
    setUniformItemSizes(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setSelectionMode(MultiSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::TabFocus);
    setItemDelegate(new Delegate(this));
  }

  std::function<void(int entry, Qt::KeyboardModifiers modifiers)> onPress;
  int extent{0};

 protected:
  // The form decides what a press and a key select.
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) onPress(indexAt(event->position().toPoint()).row(), event->modifiers());
  }
  void mouseMoveEvent(QMouseEvent*) override {}
  void mouseReleaseEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
  void focusInEvent(QFocusEvent* event) override {
    // Without making the first entry the current one.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
  }

  QSize viewportSizeHint() const override {
    return {fontMetrics().averageCharWidth() * kUsualWidth, (fontMetrics().height() + kBetween) * kUsualLines};
  }
  QSize sizeHint() const override { return viewportSizeHint() + QSize(2 * frameWidth(), 2 * frameWidth()); }
  QSize minimumSizeHint() const override {
    return {fontMetrics().averageCharWidth() * kUsualWidth / 2, fontMetrics().height() * 3};
  }

 private:
  static constexpr int kUsualWidth = 46;
  static constexpr int kUsualLines = 9;
  static constexpr int kBetween = 4;  ///< two entries, so that their boxes do not touch

  class Delegate : public QStyledItemDelegate {
   public:
    explicit Delegate(Window* window) : QStyledItemDelegate(window), window_(*window) {}
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
      QSize size = QStyledItemDelegate::sizeHint(option, index);
      // The margins of an entry come on top of its text.
      constexpr int kMargins = 8;
      if (window_.extent > 0) size.setWidth(window_.extent + kMargins);
      size.setHeight(window_.fontMetrics().height() + kBetween);
      return size;
    }

   private:
    Window& window_;
  };
};

ListView::ListView(forms::ListBox& list, QWidget& parent, ActionGate& gate)
    : ControlView(list, *new Window(&parent)),
      list_(list),
      gate_(gate),
      entries_(*new Entries(&Widget(), list.HasCheckBoxes())),
      window_(static_cast<Window&>(Widget())) {
  window_.setModel(&entries_);
  window_.onPress = [this](int entry, Qt::KeyboardModifiers modifiers) { gate_.Act([&] { Press(entry, modifiers); }); };
}

ListView::~ListView() = default;

QWidget* ListView::MouseArea() const { return window_.viewport(); }

void ListView::SetHorizontalExtent(int width) {
  if (window_.extent == width) return;
  window_.extent = width;
  window_.doItemsLayout();
}

void ListView::MirrorState() {
  entries_.Take(list_);
  QItemSelection selection;
  if (!list_.HasCheckBoxes()) {
    for (int first = 0; first < list_.ListCount(); ++first) {
      if (!list_.Selected(first)) continue;
      int last = first;
      while (last + 1 < list_.ListCount() && list_.Selected(last + 1)) ++last;
      selection.append(QItemSelectionRange(entries_.index(first), entries_.index(last)));
      first = last;
    }
  }
  QItemSelectionModel& model = *window_.selectionModel();
  model.select(selection, QItemSelectionModel::ClearAndSelect);
  const QModelIndex current = list_.ListIndex() < 0 ? QModelIndex() : entries_.index(list_.ListIndex());
  if (model.currentIndex() == current) return;
  model.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
  if (current.isValid()) window_.scrollTo(current);
}

void ListView::Press(int entry, Qt::KeyboardModifiers modifiers) {
  if (entry < 0) {
    list_.UserFocus();
  } else if (modifiers.testFlag(Qt::ShiftModifier) && list_.ListIndex() >= 0) {
    MoveTo(entry, true);
  } else {
    anchor_ = -1;
    list_.UserClickItem(entry);
  }
}

void ListView::MoveTo(int entry, bool extend) {
  if (list_.ListCount() == 0 || !list_.UserFocus()) return;
  entry = std::clamp(entry, 0, list_.ListCount() - 1);
  const int from = list_.ListIndex();
  if (!extend || from < 0) {
    anchor_ = -1;
  } else {
    if (anchor_ < 0 || anchor_ >= list_.ListCount()) anchor_ = from;
    const bool selected = list_.Selected(anchor_);
    for (int i = std::min(from, entry); i <= std::max(from, entry); ++i) list_.UserSetSelected(i, selected);
  }
  list_.SetListIndex(entry);
}

void ListView::GoToLetter(const QString& text) {
  const int count = list_.ListCount();
  for (int step = 1; step <= count; ++step) {
    const int entry = (std::max(list_.ListIndex(), -1) + step) % count;
    if (!ToQt(list_.List(entry)).startsWith(text, Qt::CaseInsensitive)) continue;
    MoveTo(entry, false);
    return;
  }
}

bool ListView::TakeKey(QKeyEvent& event) {
  const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
  const int current = list_.ListIndex();
  const int page = std::max(1, window_.viewport()->height() / std::max(1, window_.sizeHintForRow(0)) - 1);
  int target = -1;
  switch (event.key()) {
    case Qt::Key_Down:
      target = current + 1;
      break;
    case Qt::Key_Up:
      target = std::max(current, 1) - 1;
      break;
    case Qt::Key_PageDown:
      target = current + page;
      break;
    case Qt::Key_PageUp:
      target = std::max(current - page, 0);
      break;
    case Qt::Key_Home:
      target = 0;
      break;
    case Qt::Key_End:
      target = std::max(list_.ListCount() - 1, 0);
      break;
    case Qt::Key_Space:
      gate_.Act([&] { list_.UserKey(u' '); });
      return true;
    case Qt::Key_A:
      if (!event.modifiers().testFlag(Qt::ControlModifier)) break;
      gate_.Act([&] {
        for (int i = 0; i < list_.ListCount(); ++i) list_.UserSetSelected(i, true);
      });
      return true;
    default:
      break;
  }
  if (target >= 0) {
    gate_.Act([&] { MoveTo(target, extend); });
    return true;
  }
  const bool isLetter = !event.text().isEmpty() && event.text().at(0).isPrint();
  if (!isLetter || event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier)) return false;
  gate_.Act([&] { GoToLetter(event.text()); });
  return true;
}

}  // namespace qt
