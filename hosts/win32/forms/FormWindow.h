#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/win32/forms/ControlWindow.h"
#include "hosts/win32/forms/FormLayout.h"
#include "hosts/win32/forms/ToolTips.h"
#include "platform/forms/Form.h"

namespace win32 {

/// The window of one loaded form. The form holds the truth: the window shows it, and tells the form what a person does,
/// one thing at a time.
class FormWindow : private forms::Form::Listener {
 public:
  /// @param owner the window that it stands before; may be nullptr
  FormWindow(forms::Form& form, HWND owner);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  HWND Handle() const { return window_; }
  forms::Form& Of() const { return form_; }
  void Appear();
  void Disappear();
  /// Brings the window to the form's state.
  void Refresh();
  int TextWidth(std::u16string_view text) const { return font_.EntryWidth(text); }
  void SetHorizontalExtent(std::string_view list, int width);
  /// Takes the close box away, and with it Alt+F4.
  void TakeCloseBoxAway();

  /// Keys that belong to the form and not to the control: Tab, Enter, Escape, F1, accelerators.
  /// @return whether the message was one of those, and is done with
  bool TakeKey(const MSG& message);
  /// What a handler threw since this was asked last.
  std::exception_ptr TakeFailure() { return std::exchange(failure_, nullptr); }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM value);
  LRESULT Handle(UINT message, WPARAM word, LPARAM value);
  void Changed(forms::Form& form, forms::Control* control) override;
  void MakeControls(const forms::LayoutNode& node);
  void MakeMenus();
  void SizeToContent();
  void GrowWithTexts();
  void Redraw();
  void Act(const std::function<void()>& action);
  void Command(WORD notification, WORD id, HWND from);
  LRESULT Notify(const NMHDR& header);
  LRESULT ColorOf(HDC context, HWND child) const;
  /// @return whether the cursor is another than the form's
  bool PointAt(HWND child, UINT message);
  void RefreshFocus();
  void PlaceBar();
  void DrawBar(const ControlWindow& part, const DRAWITEMSTRUCT& item) const;
  bool KeyDown(ControlWindow& focused, WPARAM key);
  bool Character(ControlWindow& focused, char16_t character);
  bool Accelerator(char16_t letter);
  forms::Control* AcceleratorTarget(std::size_t index) const;
  ControlWindow* WindowOf(HWND child) const;
  ControlWindow& WindowOf(const forms::Control& control) const;

  forms::Form& form_;
  FormFont font_;
  HWND window_{nullptr};
  std::vector<std::unique_ptr<ControlWindow>> controls_;
  std::vector<forms::Control*> menuItems_;
  std::unique_ptr<FormLayout> layout_;
  std::unique_ptr<ToolTips> tips_;
  /// The least that its content needed when it was laid out.
  SIZE laidOut_{};
  std::exception_ptr failure_;
  bool acting_{false};
  bool mirroring_{true};
  bool refreshDue_{false};
};

}  // namespace win32
