#include "hosts/qt/forms/FormWindow.h"

#include <QCloseEvent>
#include <QLayout>
#include <QPushButton>
#include <QWindow>

#include <algorithm>
#include <utility>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/FormBuilder.h"
#include "hosts/qt/forms/ListView.h"

namespace qt {

namespace {

constexpr char16_t kTabKey = 9;
constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;

/// 0: none of those that every control hands to its form.
char16_t DialogKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Tab:
      return kTabKey;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kEnter;
    case Qt::Key_Escape:
      return kEscape;
    default:
      return 0;
  }
}

/// The letter pressed with Alt; 0: no such key.
char16_t AcceleratorOf(const QKeyEvent& event) {
  if (!event.modifiers().testFlag(Qt::AltModifier) || event.modifiers().testFlag(Qt::ControlModifier)) return 0;
  return event.key() > 0x20 && event.key() < 0x2000 ? static_cast<char16_t>(event.key()) : u'\0';
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, QWidget* owner) : QDialog(owner), form_(&form) {
  setObjectName(ToQt(form.Name()));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  if (!form.HasCloseBox()) setWindowFlag(Qt::WindowCloseButtonHint, false);
  views_ = FormBuilder(form, *this, *this).Build();
  for (const std::unique_ptr<ControlView>& view : views_) {
    view->Widget().installEventFilter(this);
    if (view->MouseArea() != nullptr) view->MouseArea()->installEventFilter(this);
  }
  form.SetListener(this);
  mirroring_ = false;
  Refresh();
}

FormWindow::~FormWindow() {
  if (form_ != nullptr) form_->SetListener(nullptr);
}

void FormWindow::Leave() {
  form_ = nullptr;
  Disappear();
  deleteLater();
}

void FormWindow::Appear(bool modal) {
  if (form_ == nullptr) return;
  Refresh();
  // Left to itself, a window takes two thirds of the screen at most, whatever that cuts off.
  if (!testAttribute(Qt::WA_Resized)) resize(layout()->totalSizeHint().expandedTo(RoomForTitle()));
  setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  show();
  raise();
  if (modal) activateWindow();
}

/// A small form is wide enough for its title between the boxes of its frame.
QSize FormWindow::RoomForTitle() const {
  return {fontMetrics().horizontalAdvance(windowTitle()) + 12 * fontMetrics().averageCharWidth(), 0};
}

void FormWindow::WaitUntilHidden() {
  if (form_ != nullptr && form_->Visible() && !failure_) loop_.exec();
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void FormWindow::Disappear() {
  hide();
  loop_.quit();
}

void FormWindow::Act(const std::function<void()>& action) {
  if (mirroring_) return;
  if (form_ != nullptr && !acting_) {
    acting_ = true;
    try {
      action();
    } catch (...) {
      // It cannot pass through the event loop.
      failure_ = std::current_exception();
      loop_.quit();
    }
    acting_ = false;
  }
  if (form_ == nullptr) return;
  // The widgets may have followed a person where the form did not; lists do so only when they are mirrored.
  for (const std::unique_ptr<ControlView>& view : views_) {
    if (view->Of().ControlKind() != forms::Kind::kListBox) view->stale = true;
  }
  Refresh();
}

void FormWindow::Changed(forms::Form&, forms::Control* control) {
  const auto view = std::find_if(views_.begin(), views_.end(), [&](const auto& one) { return &one->Of() == control; });
  if (view != views_.end()) (*view)->stale = true;
  RefreshLater();
}

void FormWindow::RefreshLater() {
  if (std::exchange(refreshDue_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { Refresh(); }, Qt::QueuedConnection);
}

void FormWindow::Refresh() {
  refreshDue_ = false;
  if (form_ == nullptr || mirroring_) return;
  mirroring_ = true;
  setWindowTitle(ToQt(form_->Caption()));
  RefreshControls();
  RefreshFocus();
  mirroring_ = false;
}

void FormWindow::RefreshControls() {
  for (const std::unique_ptr<ControlView>& view : views_) {
    if (view->stale) view->Mirror();
    if (auto* button = qobject_cast<QPushButton*>(&view->Widget())) {
      const bool isDefault = form_->DefaultButton() == &view->Of();
      if (button->isDefault() != isDefault) button->setDefault(isDefault);
      button->setProperty("cancel", form_->CancelButton() == &view->Of());
    }
  }
}

void FormWindow::RefreshFocus() {
  if (!form_->Visible() || form_->ActiveControl() == nullptr) return;
  for (const std::unique_ptr<ControlView>& view : views_) {
    if (&view->Of() == form_->ActiveControl() && focusWidget() != &view->Widget()) view->Widget().setFocus();
  }
}

void FormWindow::TakeCloseBoxAway() {
  // The window stays where it is, which setWindowFlag does not grant.
  overrideWindowFlags(windowFlags() & ~Qt::WindowCloseButtonHint);
  if (windowHandle() != nullptr) windowHandle()->setFlags(windowFlags());
}

void FormWindow::SetHorizontalExtent(std::string_view list, int width) {
  for (const std::unique_ptr<ControlView>& view : views_) {
    if (view->Of().Name() != list) continue;
    if (auto* shown = dynamic_cast<ListView*>(view.get())) shown->SetHorizontalExtent(width);
  }
}

ControlView* FormWindow::ViewOf(const QObject* widget) const {
  const auto view = std::find_if(views_.begin(), views_.end(), [&](const auto& one) {
    return &one->Widget() == widget || (one->MouseArea() != nullptr && one->MouseArea() == widget);
  });
  return view == views_.end() ? nullptr : view->get();
}

bool FormWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) ++blocked_;
  return QDialog::event(event);
}

bool FormWindow::eventFilter(QObject* target, QEvent* event) {
  ControlView* view = form_ == nullptr ? nullptr : ViewOf(target);
  if (view == nullptr) return QDialog::eventFilter(target, event);
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!IsOwnKey(static_cast<QKeyEvent&>(*event))) break;
      event->accept();
      return true;
    case QEvent::KeyPress:
      return Key(view, static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
      // The press of a blank has clicked already.
      return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return view->FocusOnPress() && !Press(*view);
    case QEvent::MouseMove:
      if (view->Of().onMouseMove) Act([view] { view->Of().onMouseMove(); });
      break;
    case QEvent::Wheel:
      // Turning the wheel over a box on the way down a form is no choice.
      if (view->Of().ControlKind() == forms::Kind::kComboBox || view->Of().ControlKind() == forms::Kind::kTabStrip) {
        return true;
      }
      break;
    case QEvent::FocusIn: {
      const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
      const bool follows = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
      if (mirroring_ || follows || !form_->Visible() || form_->ActiveControl() == &view->Of()) break;
      // A help for those who do not see the screen moves the focus by itself.
      QMetaObject::invokeMethod(
          this,
          [this, view] {
            if (form_ != nullptr && focusWidget() == &view->Widget()) Act([view] { view->Of().UserFocus(); });
          },
          Qt::QueuedConnection);
      break;
    }
    default:
      break;
  }
  return QDialog::eventFilter(target, event);
}

/// @return whether the widget goes on with the press
bool FormWindow::Press(ControlView& view) {
  const int before = blocked_;
  bool focused = false;
  Act([&] { focused = view.Of().UserFocus(); });
  // What came up meanwhile, a message, has ended the press.
  return focused && form_ != nullptr && form_->ActiveControl() == &view.Of() && blocked_ == before;
}

bool FormWindow::IsOwnKey(const QKeyEvent& event) const {
  if (DialogKey(event) != 0) return true;
  const char16_t letter = AcceleratorOf(event);
  return letter != 0 && std::any_of(views_.begin(), views_.end(), [&](const auto& view) {
           return MnemonicOf(view->Of().Caption()) == letter && view->Of().Usable();
         });
}

bool FormWindow::Key(ControlView* view, QKeyEvent& event) {
  if (const char16_t letter = AcceleratorOf(event)) return Accelerator(letter);
  forms::Control& control = view->Of();
  if (event.key() == Qt::Key_F1) {
    Act([&] { form_->UserHelp(control); });
    return true;
  }
  if (event.key() == Qt::Key_Backtab) {
    Act([&] {
      if (!control.onKeyPress || control.onKeyPress(kTabKey)) form_->UserTab(-1);
    });
    return true;
  }
  if (const char16_t key = DialogKey(event)) {
    Act([&] { control.UserKey(key); });
    return true;
  }
  return view->TakeKey(event);
}

/// What a letter reaches: the control, or what stands behind a label or in a frame.
forms::Control* FormWindow::AcceleratorTarget(std::size_t view) const {
  const forms::Kind kind = views_[view]->Of().ControlKind();
  if (kind != forms::Kind::kLabel && kind != forms::Kind::kFrame) return &views_[view]->Of();
  for (std::size_t i = view + 1; i < views_.size(); ++i) {
    if (views_[i]->Of().TakesFocus() && views_[i]->Of().Usable()) return &views_[i]->Of();
  }
  return nullptr;
}

bool FormWindow::Accelerator(char16_t letter) {
  std::vector<forms::Control*> targets;
  bool clicks = true;
  for (std::size_t i = 0; i < views_.size(); ++i) {
    const forms::Control& control = views_[i]->Of();
    if (MnemonicOf(control.Caption()) != letter || !control.Usable()) continue;
    forms::Control* target = AcceleratorTarget(i);
    if (target == nullptr) continue;
    targets.push_back(target);
    clicks = target == &control;
  }
  if (targets.empty()) return false;
  // Of several, the next one gets the focus and waits.
  auto next = std::find(targets.begin(), targets.end(), form_->ActiveControl());
  if (next == targets.end() || ++next == targets.end()) next = targets.begin();
  const bool click = clicks && targets.size() == 1;
  Act([&] { click ? (*next)->UserClick() : (*next)->UserFocus(); });
  return true;
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (form_ == nullptr) return;
  if (event->key() == Qt::Key_F1) return HelpWithoutFocus();
  forms::Control* button = nullptr;
  if (DialogKey(*event) == kEnter) button = form_->DefaultButton();
  if (DialogKey(*event) == kEscape) button = form_->CancelButton();
  if (button != nullptr) Act([&] { button->UserClick(); });
}

/// A form of nothing but labels has no control that the focus, and so F1, could be in.
void FormWindow::HelpWithoutFocus() {
  const auto view = std::find_if(views_.begin(), views_.end(), [](const auto& one) { return one->Of().Usable(); });
  if (view != views_.end()) Act([&] { form_->UserHelp((*view)->Of()); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Act([&] { form_->UserClose(); });
}

}  // namespace qt
