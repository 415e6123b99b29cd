#include "hosts/win32/forms/WindowsFormHost.h"

#include <windows.h>

#include <vector>

#include "hosts/win32/forms/FormWindow.h"

namespace win32 {

namespace {

HWND FrontWindow() {
  const HWND active = GetActiveWindow();
  return active != nullptr ? GetAncestor(active, GA_ROOT) : nullptr;
}

/// Keeps the other windows of this thread from a person's hands, as long as a dialog stands before them.
class OthersDisabled {
 public:
  explicit OthersDisabled(HWND dialog) : dialog_(dialog), active_(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), &OthersDisabled::Disable, reinterpret_cast<LPARAM>(this));
  }
  ~OthersDisabled() {
    for (const HWND window : disabled_) EnableWindow(window, TRUE);
    // Otherwise another program's window would come to the front.
    if (active_ != nullptr) SetActiveWindow(active_);
  }
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

 private:
  static BOOL CALLBACK Disable(HWND window, LPARAM self) {
    auto& others = *reinterpret_cast<OthersDisabled*>(self);
    if (window == others.dialog_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
    EnableWindow(window, FALSE);
    others.disabled_.push_back(window);
    return TRUE;
  }

  HWND dialog_;
  HWND active_;
  std::vector<HWND> disabled_;
};

}  // namespace

WindowsFormHost::WindowsFormHost() = default;

WindowsFormHost::~WindowsFormHost() = default;

FormWindow* WindowsFormHost::WindowOf(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

void WindowsFormHost::Loaded(forms::Form& form) { windows_[&form] = std::make_unique<FormWindow>(form, FrontWindow()); }

void WindowsFormHost::ShowModal(forms::Form& form) {
  form.Load();
  const OthersDisabled others(WindowOf(form)->Handle());
  WindowOf(form)->Appear();
  form.Shown();
  WaitFor(form);
}

void WindowsFormHost::WaitFor(forms::Form& form) {
  while (form.Visible()) {
    FormWindow* const window = WindowOf(form);
    if (window == nullptr) return;
    if (const std::exception_ptr failure = window->TakeFailure()) std::rethrow_exception(failure);
    MSG message{};
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // The program is to end: its own loop has to hear of it.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (window->TakeKey(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void WindowsFormHost::ShowModeless(forms::Form& form) {
  form.Load();
  WindowOf(form)->Appear();
  form.Shown();
  if (FormWindow* const window = WindowOf(form)) window->Refresh();
}

void WindowsFormHost::Hidden(forms::Form& form) {
  if (FormWindow* const window = WindowOf(form)) window->Disappear();
}

void WindowsFormHost::Unloaded(forms::Form& form) {
  const auto found = windows_.find(&form);
  if (found != windows_.end()) windows_.erase(found);
}

void WindowsFormHost::Repaint(forms::Form& form) {
  FormWindow* const window = WindowOf(form);
  if (window == nullptr || !form.Visible()) return;
  window->Refresh();
  RedrawWindow(window->Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void WindowsFormHost::DoEvents() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

int WindowsFormHost::TextWidth(forms::Form& form, std::u16string_view text) {
  const FormWindow* const window = WindowOf(form);
  return window == nullptr ? FormFont().EntryWidth(text) : window->TextWidth(text);
}

void WindowsFormHost::SetHorizontalExtent(forms::Form& form, std::string_view list, int width) {
  if (FormWindow* const window = WindowOf(form)) window->SetHorizontalExtent(list, width);
}

std::intptr_t WindowsFormHost::RemoveCloseBox(std::u16string_view caption) {
  for (const auto& [form, window] : windows_) {
    if (!form->Visible() || form->Caption() != caption) continue;
    window->Of().TakeCloseBoxAway();
    window->TakeCloseBoxAway();
    return reinterpret_cast<std::intptr_t>(window->Handle());
  }
  return 0;
}

std::intptr_t WindowsFormHost::WindowHandle(forms::Form& form) {
  const FormWindow* const window = WindowOf(form);
  return window == nullptr ? 0 : reinterpret_cast<std::intptr_t>(window->Handle());
}

}  // namespace win32
