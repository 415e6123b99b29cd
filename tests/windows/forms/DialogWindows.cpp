#include "tests/windows/forms/DialogWindows.h"

#include <utility>

namespace {

std::function<void()> waiting;

void CALLBACK Run(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  std::exchange(waiting, nullptr)();
}

}  // namespace

// Timers come behind all messages, those of painting among them.
void WhenIdle(const std::function<void()>& work) {
  waiting = work;
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &Run);
}

void DialogWindows::ShowFor(forms::Form& form, const std::function<void()>& work) {
  bool worked = false;
  WhenIdle([&] {
    worked = true;
    EXPECT_TRUE(form.Visible());
    work();
    form.Hide();
    // The show waits for a message.
    PostMessageW(nullptr, WM_NULL, 0, 0);
  });
  windows.ShowModal(form);
  EXPECT_TRUE(worked) << form.Name();
}

void DialogWindows::InEachWindow(
    const std::function<void(forms::Form& form, const std::string& name, HWND window)>& look) {
  InEachForm([&](forms::Form& form, const std::string& name) {
    ASSERT_NE(WindowOf(form), nullptr) << form.Name();
    look(form, name, WindowOf(form));
  });
}
