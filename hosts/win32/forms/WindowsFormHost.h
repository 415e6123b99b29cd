#pragma once

#include <map>
#include <memory>

#include "platform/forms/Form.h"
#include "platform/forms/FormHost.h"

namespace win32 {

class FormWindow;

/// Shows forms as windows of Windows, before the window of the program that they run in.
class WindowsFormHost : public forms::FormHost {
 public:
  WindowsFormHost();
  ~WindowsFormHost() override;
  WindowsFormHost(const WindowsFormHost&) = delete;
  WindowsFormHost& operator=(const WindowsFormHost&) = delete;

  void ShowModal(forms::Form& form) override;
  void ShowModeless(forms::Form& form) override;
  void Loaded(forms::Form& form) override;
  void Hidden(forms::Form& form) override;
  void Unloaded(forms::Form& form) override;
  void Repaint(forms::Form& form) override;
  void DoEvents() override;
  int TextWidth(forms::Form& form, std::u16string_view text) override;
  void SetHorizontalExtent(forms::Form& form, std::string_view list, int width) override;
  std::intptr_t RemoveCloseBox(std::u16string_view caption) override;
  std::intptr_t WindowHandle(forms::Form& form) override;

 private:
  /// Until the form is hidden or unloaded.
  void WaitFor(forms::Form& form);
  FormWindow* WindowOf(const forms::Form& form) const;

  /// One that is unloaded by its own message goes at once; its code then touches nothing of it any more.
  std::map<const forms::Form*, std::unique_ptr<FormWindow>> windows_;
};

}  // namespace win32
