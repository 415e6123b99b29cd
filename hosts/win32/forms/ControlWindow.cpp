#include "hosts/win32/forms/ControlWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "hosts/win32/Wide.h"

namespace win32 {

namespace {

using forms::Kind;

struct WindowClass {
  const wchar_t* name;
  DWORD style;
  DWORD extendedStyle{0};
};

WindowClass ClassOf(const forms::Control& control) {
  switch (control.ControlKind()) {
    case Kind::kLink:
      return {L"STATIC", SS_NOTIFY};
    case Kind::kButton:
      return {L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP};
    case Kind::kCheckBox:
      return {L"BUTTON", BS_CHECKBOX | WS_TABSTOP};
    case Kind::kOptionButton:
      return {L"BUTTON", BS_RADIOBUTTON};
    case Kind::kComboBox:
      return {L"COMBOBOX", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP};
    case Kind::kListBox: {
      constexpr DWORD kList =
          LBS_MULTIPLESEL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP;
      const bool boxes = static_cast<const forms::ListBox&>(control).HasCheckBoxes();
      return {L"LISTBOX", kList | (boxes ? LBS_OWNERDRAWFIXED : 0), WS_EX_CLIENTEDGE};
    }
    case Kind::kTextBox: {
      const bool readOnly = static_cast<const forms::TextBox&>(control).ReadOnly();
      const DWORD kind = readOnly ? ES_READONLY | ES_MULTILINE : ES_AUTOHSCROLL;
      return {L"EDIT", WS_TABSTOP | kind, WS_EX_CLIENTEDGE};
    }
    case Kind::kUpDown:
      return {UPDOWN_CLASSW, 0};
    case Kind::kTabStrip:
      return {WC_TABCONTROLW, WS_TABSTOP};
    case Kind::kFrame:
      if (control.Caption().empty()) return {L"STATIC", SS_ETCHEDFRAME};
      return {L"BUTTON", BS_GROUPBOX};
    case Kind::kStatusBar:
      return {STATUSCLASSNAMEW, CCS_NORESIZE | CCS_NOPARENTALIGN};
    case Kind::kImage:
      return {L"STATIC", SS_ICON | SS_NOTIFY | SS_CENTERIMAGE};
    default:
      return {L"STATIC", 0};
  }
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

int Send(HWND window, UINT message, WPARAM word = 0, LPARAM value = 0) {
  return static_cast<int>(SendMessageW(window, message, word, value));
}

LPARAM Pointer(const std::wstring& text) { return reinterpret_cast<LPARAM>(text.c_str()); }

std::wstring EntryOf(HWND list, int index) {
  std::wstring text(static_cast<std::size_t>(Send(list, LB_GETTEXTLEN, static_cast<WPARAM>(index))) + 1, L'\0');
  const int length = Send(list, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

/// Measures with a font.
class Canvas {
 public:
  explicit Canvas(HFONT font) : context_(GetDC(nullptr)), before_(SelectObject(context_, font)) {}
  ~Canvas() {
    SelectObject(context_, before_);
    ReleaseDC(nullptr, context_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  HDC Context() const { return context_; }

 private:
  HDC context_;
  HGDIOBJ before_;
};

/// Of a sunken edge, above and below together.
int Edges() { return 2 * GetSystemMetrics(SM_CYEDGE); }

HFONT MessageFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace

FormFont::FormFont() : font_(MessageFont()) {
  const Canvas canvas(font_);
  TEXTMETRICW metrics{};
  GetTextMetricsW(canvas.Context(), &metrics);
  lineHeight_ = metrics.tmHeight;
  charWidth_ = metrics.tmAveCharWidth;
  dpi_ = GetDeviceCaps(canvas.Context(), LOGPIXELSY);
}

FormFont::~FormFont() { DeleteObject(font_); }

SIZE FormFont::TextSize(std::u16string_view text) const { return WrappedSize(text, 0); }

int FormFont::EntryWidth(std::u16string_view text) const {
  const Canvas canvas(font_);
  const std::wstring wide = ToWide(text);
  RECT place{};
  DrawTextW(canvas.Context(), wide.c_str(), static_cast<int>(wide.size()), &place,
            DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
  return place.right;
}

SIZE FormFont::WrappedSize(std::u16string_view text, int width) const {
  if (text.empty()) return {0, lineHeight_};
  const Canvas canvas(font_);
  const std::wstring wide = ToWide(text);
  RECT place{0, 0, width, 0};
  const UINT wrap = width > 0 ? DT_WORDBREAK : 0;
  DrawTextW(canvas.Context(), wide.c_str(), static_cast<int>(wide.size()), &place, DT_CALCRECT | wrap);
  return {place.right, std::max<LONG>(place.bottom, lineHeight_)};
}

ControlWindow::ControlWindow(forms::Control& control, HWND form, const FormFont& font, int id)
    : control_(control), font_(font) {
  const WindowClass kind = ClassOf(control);
  window_ =
      CreateWindowExW(kind.extendedStyle, kind.name, L"", kind.style | WS_CHILD | WS_CLIPSIBLINGS, 0, 0, 0, 0, form,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font.Handle()), FALSE);
  if (control.ControlKind() == Kind::kTabStrip) {
    SendMessageW(window_, TCM_SETPADDING, 0, MAKELPARAM(font.Scaled(8), font.Scaled(4)));
    for (const std::u16string& tab : static_cast<forms::TabStrip&>(control).Tabs()) {
      std::wstring text = ToWide(tab);
      TCITEMW item{};
      item.mask = TCIF_TEXT;
      item.pszText = text.data();
      SendMessageW(window_, TCM_INSERTITEMW, static_cast<WPARAM>(Send(window_, TCM_GETITEMCOUNT)),
                   reinterpret_cast<LPARAM>(&item));
    }
  }
  if (control.ControlKind() == Kind::kImage) {
    SendMessageW(window_, STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_INFORMATION)), 0);
  }
}

bool ControlWindow::ShowsUp() const {
  for (const forms::Control* control = &control_; control != nullptr; control = control->Parent()) {
    if (!control->Visible()) return false;
  }
  return true;
}

ControlWindow::Change ControlWindow::Mirror() {
  stale = false;
  Change change;
  const bool enabled = control_.Enabled() && (control_.Parent() == nullptr || control_.Parent()->Enabled());
  if ((IsWindowEnabled(window_) != FALSE) != enabled) EnableWindow(window_, enabled);
  switch (control_.ControlKind()) {
    case Kind::kCheckBox:
      Send(window_, BM_SETCHECK, static_cast<WPARAM>(static_cast<forms::CheckBox&>(control_).Value()));
      MirrorText(control_.Caption());
      break;
    case Kind::kOptionButton:
      Send(window_, BM_SETCHECK, static_cast<forms::OptionButton&>(control_).Value() ? BST_CHECKED : BST_UNCHECKED);
      MirrorText(control_.Caption());
      break;
    case Kind::kComboBox:
      MirrorCombo();
      break;
    case Kind::kListBox:
      MirrorList();
      break;
    case Kind::kTextBox:
      MirrorText(static_cast<forms::TextBox&>(control_).Text());
      break;
    case Kind::kTabStrip:
      Send(window_, TCM_SETCURSEL, static_cast<WPARAM>(static_cast<forms::TabStrip&>(control_).SelectedTab()));
      break;
    case Kind::kStatusBar:
      MirrorText(static_cast<forms::StatusBar&>(control_).SimpleText());
      break;
    case Kind::kUpDown:
    case Kind::kImage:
      break;
    default:
      change.labelText = MirrorText(control_.Caption()) && control_.ControlKind() == Kind::kLabel && !isBarPart_;
      break;
  }
  const bool shows = ShowsUp();
  change.visibility = (GetWindowLongW(window_, GWL_STYLE) & WS_VISIBLE) != (shows ? WS_VISIBLE : 0);
  if (change.visibility) ShowWindow(window_, shows ? SW_SHOWNA : SW_HIDE);
  return change;
}

bool ControlWindow::MirrorText(std::u16string_view text) {
  const std::wstring wide = ToWide(text);
  if (TextOf(window_) == wide) return false;
  SetWindowTextW(window_, wide.c_str());
  if (control_.ControlKind() != Kind::kTextBox) InvalidateRect(window_, nullptr, TRUE);
  return true;
}

void ControlWindow::MirrorList() {
  const auto& list = static_cast<const forms::ListBox&>(control_);
  bool same = Send(window_, LB_GETCOUNT) == list.ListCount();
  for (int i = 0; same && i < list.ListCount(); ++i) same = EntryOf(window_, i) == ToWide(list.List(i));
  if (!same) {
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
    Send(window_, LB_RESETCONTENT);
    for (int i = 0; i < list.ListCount(); ++i) Send(window_, LB_ADDSTRING, 0, Pointer(ToWide(list.List(i))));
    Send(window_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent_ ? *extent_ : ExtentOfEntries()));
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, TRUE);
  }
  // Selecting an entry makes it the current one and brings it into sight.
  const int current = list.ListIndex() >= 0 ? list.ListIndex() : same ? Send(window_, LB_GETCARETINDEX) : 0;
  for (int i = 0; i < list.ListCount(); ++i) {
    const bool selected = Send(window_, LB_GETSEL, static_cast<WPARAM>(i)) > 0;
    if (selected != list.Selected(i)) Send(window_, LB_SETSEL, list.Selected(i) ? TRUE : FALSE, i);
  }
  if (Send(window_, LB_GETCARETINDEX) != current) {
    Send(window_, LB_SETCARETINDEX, static_cast<WPARAM>(current), FALSE);
  }
  if (!same) Send(window_, LB_SETTOPINDEX);
}

int ControlWindow::ExtentOfEntries() const {
  const auto& list = static_cast<const forms::ListBox&>(control_);
  int widest = 0;
  for (int i = 0; i < list.ListCount(); ++i) widest = std::max(widest, font_.EntryWidth(list.List(i)));
  return widest + font_.CharWidth() + (list.HasCheckBoxes() ? BesideBox(BoxSide(Send(window_, LB_GETITEMHEIGHT))) : 0);
}

int ControlWindow::BoxSide(int lineHeight) const { return std::min(lineHeight, font_.Scaled(14)); }

int ControlWindow::BesideBox(int side) const { return 1 + side + font_.Scaled(4); }

void ControlWindow::SetHorizontalExtent(int width) {
  extent_ = width;
  Send(window_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(width));
}

void ControlWindow::MirrorCombo() {
  const auto& combo = static_cast<const forms::ComboBox&>(control_);
  if (Send(window_, CB_GETCOUNT) != combo.ListCount()) {
    Send(window_, CB_RESETCONTENT);
    for (int i = 0; i < combo.ListCount(); ++i) Send(window_, CB_ADDSTRING, 0, Pointer(ToWide(combo.List(i))));
  }
  if (Send(window_, CB_GETCURSEL) != combo.ListIndex()) {
    Send(window_, CB_SETCURSEL, static_cast<WPARAM>(combo.ListIndex()));
  }
}

SIZE ControlWindow::Wanted() const {
  const SIZE text = font_.TextSize(control_.Caption());
  const int line = font_.LineHeight();
  switch (control_.ControlKind()) {
    case Kind::kButton:
      return {std::max<LONG>(text.cx + font_.Scaled(20), font_.Scaled(75)), line + font_.Scaled(10)};
    case Kind::kCheckBox:
    case Kind::kOptionButton:
      return {text.cx + font_.Scaled(22), line + font_.Scaled(4)};
    case Kind::kComboBox: {
      const auto& combo = static_cast<const forms::ComboBox&>(control_);
      LONG widest = 3L * font_.CharWidth();
      for (int i = 0; i < combo.ListCount(); ++i) widest = std::max(widest, font_.TextSize(combo.List(i)).cx);
      return {widest + font_.Scaled(32), line + font_.Scaled(8)};
    }
    case Kind::kListBox:
      return {36L * font_.CharWidth(), 9L * line + Edges()};
    case Kind::kTextBox: {
      const auto& box = static_cast<const forms::TextBox&>(control_);
      if (!box.ReadOnly()) return {8L * font_.CharWidth(), line + Edges() + font_.Scaled(3)};
      const SIZE reading = font_.WrappedSize(box.Text(), 70 * font_.CharWidth());
      return {reading.cx + font_.Scaled(16), reading.cy + font_.Scaled(12)};
    }
    case Kind::kUpDown:
      return {font_.Scaled(18), line + Edges() + font_.Scaled(3)};
    case Kind::kTabStrip: {
      // Its tabs alone: what they show stands below it.
      RECT tab{};
      SendMessageW(window_, TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
      return {30L * font_.CharWidth(), tab.bottom + 1};
    }
    case Kind::kStatusBar:
      return {20L * font_.CharWidth(), line + font_.Scaled(8)};
    case Kind::kImage:
      return {font_.Scaled(32), font_.Scaled(32)};
    case Kind::kLabel:
      if (isBarPart_) return {40L * font_.CharWidth(), line + font_.Scaled(6)};
      return WantedOfLabel();
    default:
      return text;
  }
}

/// A label that was placed in more room than it asks for breaks into fewer lines.
SIZE ControlWindow::WantedOfLabel() const {
  const int narrow = 60 * font_.CharWidth();
  const SIZE wanted = font_.WrappedSize(control_.Caption(), narrow);
  if (width_ <= narrow) return wanted;
  return {wanted.cx, font_.WrappedSize(control_.Caption(), width_).cy};
}

void ControlWindow::MakeBarPart() {
  isBarPart_ = true;
  SetWindowLongW(window_, GWL_STYLE, (GetWindowLongW(window_, GWL_STYLE) & ~SS_TYPEMASK) | SS_OWNERDRAW);
}

void ControlWindow::Place(const RECT& place) {
  width_ = place.right - place.left;
  // The list of a combo box hangs below it.
  const int below = control_.ControlKind() == Kind::kComboBox ? 8 * font_.LineHeight() : 0;
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top + below,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::DrawEntry(const DRAWITEMSTRUCT& entry) const {
  if (entry.itemID == static_cast<UINT>(-1)) return;
  FillRect(entry.hDC, &entry.rcItem, GetSysColorBrush(COLOR_WINDOW));
  const int side = BoxSide(entry.rcItem.bottom - entry.rcItem.top);
  RECT box{entry.rcItem.left + 1, entry.rcItem.top + 1, entry.rcItem.left + 1 + side, entry.rcItem.top + 1 + side};
  const bool ticked = (entry.itemState & ODS_SELECTED) != 0;
  DrawFrameControl(entry.hDC, &box, DFC_BUTTON, static_cast<UINT>(DFCS_BUTTONCHECK | (ticked ? DFCS_CHECKED : 0)));
  RECT text = entry.rcItem;
  text.left += BesideBox(side);
  SetTextColor(entry.hDC, GetSysColor(COLOR_WINDOWTEXT));
  const std::wstring caption = EntryOf(window_, static_cast<int>(entry.itemID));
  DrawTextW(entry.hDC, caption.c_str(), static_cast<int>(caption.size()), &text, DT_SINGLELINE | DT_NOPREFIX);
  if ((entry.itemState & ODS_FOCUS) != 0) DrawFocusRect(entry.hDC, &entry.rcItem);
}

void ControlWindow::TakeSelection() {
  auto& list = static_cast<forms::ListBox&>(control_);
  const int current = Send(window_, LB_GETCARETINDEX);
  for (int i = 0; i < list.ListCount(); ++i) {
    const bool selected = Send(window_, LB_GETSEL, static_cast<WPARAM>(i)) > 0;
    if (selected == list.Selected(i)) continue;
    i == current ? list.UserClickItem(i) : list.UserSetSelected(i, selected);
  }
  // Arrows go to an entry without selecting it.
  if (current < list.ListCount()) list.SetListIndex(current);
}

void ControlWindow::TakeText() { static_cast<forms::TextBox&>(control_).UserSetText(FromWide(TextOf(window_))); }

}  // namespace win32
