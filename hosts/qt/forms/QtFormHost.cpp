#include "hosts/qt/forms/QtFormHost.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWindow>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/FormWindow.h"

namespace qt {

QtFormHost::~QtFormHost() {
  for (const auto& [form, shown] : windows_) shown.window->Leave();
}

FormWindow* QtFormHost::WindowOf(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.window;
}

QWidget* QtFormHost::Owner(std::intptr_t handle) const {
  for (const auto& [form, shown] : windows_) {
    if (shown.handle == handle) return shown.window;
  }
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidget* front = mainWindow_;
  std::intptr_t newest = 0;
  for (const auto& [form, shown] : windows_) {
    if (!shown.window->isVisible() || shown.handle < newest) continue;
    newest = shown.handle;
    front = shown.window;
  }
  return front;
}

void QtFormHost::Loaded(forms::Form& form) { windows_[&form] = {++lastHandle_, new FormWindow(form, Owner(0))}; }

void QtFormHost::ShowModal(forms::Form& form) {
  form.Load();
  WindowOf(form)->Appear(true);
  form.Shown();
  // A form that does its work when it is activated has ended already.
  FormWindow* window = WindowOf(form);
  if (window == nullptr || !form.Visible()) return;
  window->Refresh();
  window->WaitUntilHidden();
}

void QtFormHost::ShowModeless(forms::Form& form) {
  form.Load();
  WindowOf(form)->Appear(false);
  form.Shown();
  if (FormWindow* window = WindowOf(form)) window->Refresh();
}

void QtFormHost::Hidden(forms::Form& form) {
  if (FormWindow* window = WindowOf(form)) window->Disappear();
}

void QtFormHost::Unloaded(forms::Form& form) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  form.SetListener(nullptr);
  windows_.erase(&form);
  window->Leave();
}

void QtFormHost::Repaint(forms::Form& form) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr || !window->isVisible()) return;
  window->Refresh();
  // A window that has just come is drawn when the screen asks for it.
  const bool isNew = window->windowHandle() == nullptr || !window->windowHandle()->isExposed();
  if (isNew) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  window->repaint();
}

void QtFormHost::DoEvents() { QCoreApplication::processEvents(); }

int QtFormHost::TextWidth(forms::Form& form, std::u16string_view text) {
  const FormWindow* window = WindowOf(form);
  return QFontMetrics(window == nullptr ? QApplication::font() : window->font()).horizontalAdvance(ToQt(text));
}

void QtFormHost::SetHorizontalExtent(forms::Form& form, std::string_view list, int width) {
  if (FormWindow* window = WindowOf(form)) window->SetHorizontalExtent(list, width);
}

std::intptr_t QtFormHost::RemoveCloseBox(std::u16string_view caption) {
  for (auto shown = windows_.begin(); shown != windows_.end(); ++shown) {
    FormWindow& window = *shown->second.window;
    if (!window.isVisible() || window.ShownForm()->Caption() != caption) continue;
    window.ShownForm()->TakeCloseBoxAway();
    window.TakeCloseBoxAway();
    return shown->second.handle;
  }
  return 0;
}

std::intptr_t QtFormHost::WindowHandle(forms::Form& form) {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? 0 : found->second.handle;
}

}  // namespace qt
