#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "hosts/win32/WindowsServices.h"
#include "hosts/win32/forms/WindowsFormHost.h"
#include "tests/forms/ShownDialogs.h"

/// What shows forms and messages on Windows.
struct NativeWindows {
  win32::WindowsFormHost windows;
  win32::WindowsMessages messages;
};

/// The dialogs in windows of Windows.
class DialogWindows : protected NativeWindows, public ShownDialogs {
 protected:
  DialogWindows() : ShownDialogs(NativeWindows::windows, NativeWindows::messages) {}

  void ShowFor(forms::Form& form, const std::function<void()>& work) override;

  /// With the window of each form.
  void InEachWindow(const std::function<void(forms::Form& form, const std::string& name, HWND window)>& look);
  HWND WindowOf(forms::Form& form) { return reinterpret_cast<HWND>(windows.WindowHandle(form)); }
};

/// Does something as soon as the thread has no message to handle, once.
void WhenIdle(const std::function<void()>& work);
