#include "hosts/win32/forms/ToolTips.h"

#include <commctrl.h>

#include <string>

#include "hosts/win32/Wide.h"

namespace win32 {

ToolTips::ToolTips(HWND form)
    : form_(form),
      window_(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, nullptr,
                              nullptr)) {}

void ToolTips::Set(HWND control, std::u16string_view text) const {
  std::wstring wide = ToWide(text);
  TTTOOLINFOW tool{};
  // Older common controls know no longer one.
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = form_;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  const auto send = [&](UINT message) { return SendMessageW(window_, message, 0, reinterpret_cast<LPARAM>(&tool)); };
  TTTOOLINFOW known = tool;
  known.lpszText = nullptr;
  const bool has = SendMessageW(window_, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&known)) != FALSE;
  if (wide.empty()) {
    if (has) send(TTM_DELTOOLW);
    return;
  }
  send(has ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW);
}

}  // namespace win32
