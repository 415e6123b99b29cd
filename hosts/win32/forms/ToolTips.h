#pragma once

#include <windows.h>

#include <string_view>

namespace win32 {

/// The tool tips of a form's controls, in a window that goes with the form's.
class ToolTips {
 public:
  explicit ToolTips(HWND form);
  /// @param text empty: the control has none
  void Set(HWND control, std::u16string_view text) const;

 private:
  HWND form_;
  HWND window_;
};

}  // namespace win32
