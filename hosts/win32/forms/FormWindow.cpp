#include "hosts/win32/forms/FormWindow.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "hosts/unicode/Unicode.h"
#include "hosts/win32/Wide.h"

namespace win32 {

namespace {

using forms::Kind;
using forms::LayoutNode;

constexpr const wchar_t* kClassName = L"KelvarinForm";
constexpr UINT kRefresh = WM_APP + 1;
constexpr UINT kFollowFocus = WM_APP + 2;
constexpr int kFirstControl = 100;
constexpr int kFirstMenuItem = 1000;
constexpr COLORREF kLinkColor = RGB(0, 0x66, 0xCC);

constexpr char16_t kTabKey = 9;
constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;

/// The letter behind "&"; 0: none.
char16_t MnemonicOf(std::u16string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return unicode::ToUpper(caption.substr(i + 1, 1)).front();
    ++i;
  }
  return 0;
}

bool IsBar(const LayoutNode& node) {
  return node.type == LayoutNode::Type::kStack && !node.children.empty() &&
         std::all_of(node.children.begin(), node.children.end(), [](const LayoutNode& child) {
           return child.type == LayoutNode::Type::kControl && child.control->ControlKind() == Kind::kLabel;
         });
}

bool IsPressed(int key) { return GetKeyState(key) < 0; }

}  // namespace

FormWindow::FormWindow(forms::Form& form, HWND owner) : form_(form) {
  static const bool once = [] {
    INITCOMMONCONTROLSEX controls{};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_WIN95_CLASSES | ICC_UPDOWN_CLASS | ICC_TAB_CLASSES | ICC_BAR_CLASSES;
    return InitCommonControlsEx(&controls) != FALSE;
  }();
  static_cast<void>(once);
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&FormWindow::Procedure), &module);
  WNDCLASSEXW known{};
  known.cbSize = sizeof known;
  if (!GetClassInfoExW(module, kClassName, &known)) {
    known.lpfnWndProc = &FormWindow::Procedure;
    known.hInstance = module;
    known.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    known.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    known.lpszClassName = kClassName;
    RegisterClassExW(&known);
  }
  // Frames paint nothing inside them: that is the form's, so it must not leave its children out.
  const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
  window_ = CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, kClassName, ToWide(form.Caption()).c_str(),
                            style, 0, 0, 100, 100, owner, nullptr, module, nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  tips_ = std::make_unique<ToolTips>(window_);
  MakeControls(form.GetLayout());
  MakeMenus();
  layout_ = std::make_unique<FormLayout>(
      form.GetLayout(), font_, [this](forms::Control& control) -> ControlWindow& { return WindowOf(control); });
  if (!form.HasCloseBox()) TakeCloseBoxAway();
  form.SetListener(this);
  mirroring_ = false;
  Refresh();
  SizeToContent();
}

FormWindow::~FormWindow() {
  form_.SetListener(nullptr);
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

void FormWindow::MakeControls(const LayoutNode& node) {
  if (node.control != nullptr) {
    const int id = kFirstControl + static_cast<int>(controls_.size());
    controls_.push_back(std::make_unique<ControlWindow>(*node.control, window_, font_, id));
  }
  for (const LayoutNode& child : node.children) {
    MakeControls(child);
    if (IsBar(node)) controls_.back()->MakeBarPart();
  }
  // A frame stands behind what is in it.
  if (node.type == LayoutNode::Type::kFrame) {
    SetWindowPos(WindowOf(*node.control).Handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
}

void FormWindow::MakeMenus() {
  HMENU bar = nullptr;
  for (forms::Control* menu : form_.Controls()) {
    if (menu->ControlKind() != Kind::kMenu) continue;
    if (bar == nullptr) bar = CreateMenu();
    const HMENU popup = CreatePopupMenu();
    for (forms::Control* item : form_.Controls()) {
      if (item->ControlKind() != Kind::kMenuItem || item->Parent() != menu) continue;
      const UINT id = static_cast<UINT>(kFirstMenuItem) + static_cast<UINT>(menuItems_.size());
      AppendMenuW(popup, item->Enabled() ? MF_STRING : MF_STRING | MF_GRAYED, id, ToWide(item->Caption()).c_str());
      menuItems_.push_back(item);
    }
    AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), ToWide(menu->Caption()).c_str());
  }
  if (bar != nullptr) SetMenu(window_, bar);
}

void FormWindow::SizeToContent() {
  SIZE wanted = layout_->Wanted();
  // With their widths known, labels may want less height.
  layout_->Arrange({0, 0, wanted.cx, wanted.cy});
  wanted = layout_->Wanted();
  // A small form is wide enough for its title between the boxes of its frame.
  wanted.cx = std::max<LONG>(wanted.cx, font_.TextSize(form_.Caption()).cx + 12L * font_.CharWidth());
  RECT frame{0, 0, wanted.cx, wanted.cy};
  AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)), GetMenu(window_) != nullptr,
                     static_cast<DWORD>(GetWindowLongW(window_, GWL_EXSTYLE)));
  const LONG width = frame.right - frame.left;
  const LONG height = frame.bottom - frame.top;
  RECT screen{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
  SetWindowPos(window_, nullptr, std::max(screen.left, (screen.left + screen.right - width) / 2),
               std::max(screen.top, (screen.top + screen.bottom - height) / 2), width, height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  laidOut_ = wanted;
  RECT client{};
  GetClientRect(window_, &client);
  layout_->Arrange(client);
  PlaceBar();
}

/// A text that became longer gets the lines that it needs.
void FormWindow::GrowWithTexts() {
  const SIZE wanted = layout_->Wanted();
  if (wanted.cx <= laidOut_.cx && wanted.cy <= laidOut_.cy) return;
  SizeToContent();
  Redraw();
}

void FormWindow::Redraw() { RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN); }

void FormWindow::Appear() {
  Refresh();
  ShowWindow(window_, SW_SHOW);
  UpdateWindow(window_);
}

void FormWindow::Disappear() { ShowWindow(window_, SW_HIDE); }

void FormWindow::Act(const std::function<void()>& action) {
  if (mirroring_ || acting_) return;
  acting_ = true;
  const HWND window = window_;
  try {
    action();
  } catch (...) {
    // It cannot pass through a window procedure.
    if (IsWindow(window)) failure_ = std::current_exception();
  }
  // The action may have unloaded the form, and with it this object.
  if (!IsWindow(window)) return;
  acting_ = false;
  for (const auto& control : controls_) control->stale = true;
  Refresh();
}

void FormWindow::Changed(forms::Form&, forms::Control* control) {
  for (const auto& one : controls_) {
    if (&one->Of() == control || (control != nullptr && control->ControlKind() == Kind::kFrame)) one->stale = true;
  }
  if (!std::exchange(refreshDue_, true)) PostMessageW(window_, kRefresh, 0, 0);
}

void FormWindow::Refresh() {
  refreshDue_ = false;
  if (mirroring_) return;
  mirroring_ = true;
  SetWindowTextW(window_, ToWide(form_.Caption()).c_str());
  bool textsChanged = false;
  bool redraws = false;
  for (const auto& control : controls_) {
    if (control->stale) {
      const ControlWindow::Change change = control->Mirror();
      textsChanged = textsChanged || change.labelText;
      redraws = redraws || change.visibility;
      tips_->Set(control->Handle(), control->Of().ToolTip());
    }
    if (control->Of().ControlKind() == Kind::kButton) {
      const WPARAM style = form_.DefaultButton() == &control->Of() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
      SendMessageW(control->Handle(), BM_SETSTYLE, style, TRUE);
    }
  }
  if (textsChanged && laidOut_.cx > 0) GrowWithTexts();
  // What one leaves uncovered may lie in a frame, which would not paint it.
  if (redraws) Redraw();
  PlaceBar();
  RefreshFocus();
  mirroring_ = false;
}

/// The parts of a bar lie in one place, as wide as their controls say.
void FormWindow::PlaceBar() {
  const ControlWindow* whole = nullptr;
  for (const auto& control : controls_) {
    if (!control->IsBarPart()) continue;
    if (whole == nullptr) {
      whole = control.get();
      continue;
    }
    const int of = std::max(static_cast<const forms::Label&>(whole->Of()).Width(), 1);
    RECT place{};
    GetWindowRect(whole->Handle(), &place);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
    place.right = place.left + MulDiv(place.right - place.left, static_cast<forms::Label&>(control->Of()).Width(), of);
    SetWindowPos(control->Handle(), HWND_TOP, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOACTIVATE);
  }
}

/// The text stands in the middle of the whole bar, and each part draws its piece of it.
void FormWindow::DrawBar(const ControlWindow& part, const DRAWITEMSTRUCT& item) const {
  std::u16string text;
  const ControlWindow* whole = nullptr;
  for (const auto& control : controls_) {
    if (!control->IsBarPart()) continue;
    if (whole == nullptr) whole = control.get();
    if (!control->Of().Caption().empty()) text = control->Of().Caption();
  }
  const bool isWhole = whole == &part;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(isWhole ? COLOR_WINDOW : COLOR_HIGHLIGHT));
  RECT place{};
  GetClientRect(whole->Handle(), &place);
  if (isWhole) FrameRect(item.hDC, &place, GetSysColorBrush(COLOR_BTNSHADOW));
  SelectObject(item.hDC, font_.Handle());
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(isWhole ? COLOR_WINDOWTEXT : COLOR_HIGHLIGHTTEXT));
  const std::wstring wide = ToWide(text);
  DrawTextW(item.hDC, wide.c_str(), static_cast<int>(wide.size()), &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

void FormWindow::RefreshFocus() {
  const forms::Control* const active = form_.ActiveControl();
  if (active == nullptr || !form_.Visible() || GetActiveWindow() != window_) return;
  for (const auto& control : controls_) {
    if (&control->Of() == active && GetFocus() != control->Handle()) SetFocus(control->Handle());
  }
}

void FormWindow::SetHorizontalExtent(std::string_view list, int width) {
  for (const auto& control : controls_) {
    if (control->Of().Name() == list) control->SetHorizontalExtent(width);
  }
}

void FormWindow::TakeCloseBoxAway() {
  const HMENU menu = GetSystemMenu(window_, FALSE);
  const int count = GetMenuItemCount(menu);
  for (const int place : {count - 1, count - 2}) RemoveMenu(menu, static_cast<UINT>(place), MF_BYPOSITION | MF_REMOVE);
  DrawMenuBar(window_);
}

ControlWindow* FormWindow::WindowOf(HWND child) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [child](const auto& control) {
    return control->Handle() == child || IsChild(control->Handle(), child);
  });
  return child == nullptr || found == controls_.end() ? nullptr : found->get();
}

ControlWindow& FormWindow::WindowOf(const forms::Control& control) const {
  return **std::find_if(controls_.begin(), controls_.end(), [&](const auto& one) { return &one->Of() == &control; });
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT message, WPARAM word, LPARAM value) {
  auto* const self = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcW(window, message, word, value);
  return self->Handle(message, word, value);
}

LRESULT FormWindow::Handle(UINT message, WPARAM word, LPARAM value) {
  switch (message) {
    case WM_CLOSE:
      Act([this] { form_.UserClose(); });
      return 0;
    case WM_COMMAND:
      Command(HIWORD(word), LOWORD(word), reinterpret_cast<HWND>(value));
      return 0;
    case WM_NOTIFY:
      return Notify(*reinterpret_cast<const NMHDR*>(value));
    case WM_DRAWITEM: {
      const auto& entry = *reinterpret_cast<const DRAWITEMSTRUCT*>(value);
      if (const ControlWindow* control = WindowOf(entry.hwndItem)) {
        control->IsBarPart() ? DrawBar(*control, entry) : control->DrawEntry(entry);
      }
      return TRUE;
    }
    case WM_CTLCOLORSTATIC:
      if (const LRESULT brush = ColorOf(reinterpret_cast<HDC>(word), reinterpret_cast<HWND>(value))) return brush;
      break;
    case WM_SETCURSOR:
      if (PointAt(reinterpret_cast<HWND>(word), HIWORD(value))) return TRUE;
      break;
    case WM_ACTIVATE:
      if (LOWORD(word) != WA_INACTIVE) PostMessageW(window_, kRefresh, 0, 0);
      break;
    case kRefresh:
      Refresh();
      return 0;
    case kFollowFocus:
      if (ControlWindow* const focused = WindowOf(GetFocus())) {
        if (form_.ActiveControl() != &focused->Of()) Act([focused] { focused->Of().UserFocus(); });
      }
      return 0;
    default:
      break;
  }
  return DefWindowProcW(window_, message, word, value);
}

void FormWindow::Command(WORD notification, WORD id, HWND from) {
  if (from == nullptr) {
    const auto item = static_cast<std::size_t>(id) - kFirstMenuItem;
    if (id >= kFirstMenuItem && item < menuItems_.size()) Act([this, item] { menuItems_[item]->UserClick(); });
    return;
  }
  ControlWindow* const window = WindowOf(from);
  if (window == nullptr || mirroring_) return;
  forms::Control& control = window->Of();
  switch (control.ControlKind()) {
    case Kind::kButton:
    case Kind::kCheckBox:
    case Kind::kOptionButton:
      if (notification == BN_CLICKED) Act([&] { control.UserClick(); });
      break;
    case Kind::kLink:
    case Kind::kImage:
      if (notification == STN_CLICKED) Act([&] { control.UserClick(); });
      break;
    case Kind::kComboBox:
      if (notification == CBN_SELCHANGE) {
        const auto chosen = static_cast<int>(SendMessageW(from, CB_GETCURSEL, 0, 0));
        Act([&] { static_cast<forms::ComboBox&>(control).UserSetListIndex(chosen); });
      }
      if (notification == CBN_SETFOCUS) PostMessageW(window_, kFollowFocus, 0, 0);
      break;
    case Kind::kListBox:
      if (notification == LBN_SELCHANGE) Act([&] { window->TakeSelection(); });
      if (notification == LBN_SETFOCUS) PostMessageW(window_, kFollowFocus, 0, 0);
      break;
    case Kind::kTextBox:
      if (notification == EN_CHANGE) Act([&] { window->TakeText(); });
      if (notification == EN_SETFOCUS) PostMessageW(window_, kFollowFocus, 0, 0);
      break;
    default:
      break;
  }
}

LRESULT FormWindow::Notify(const NMHDR& header) {
  ControlWindow* const window = WindowOf(header.hwndFrom);
  if (window == nullptr) return 0;
  forms::Control& control = window->Of();
  if (header.code == UDN_DELTAPOS && control.ControlKind() == Kind::kUpDown) {
    const int step = reinterpret_cast<const NMUPDOWN*>(&header)->iDelta;
    // Its arrows count from the top down.
    Act([&] { static_cast<forms::UpDown&>(control).UserStep(step < 0 ? 1 : 0); });
    return TRUE;
  }
  if (header.code == static_cast<UINT>(TCN_SELCHANGE) && control.ControlKind() == Kind::kTabStrip) {
    const auto tab = static_cast<int>(SendMessageW(header.hwndFrom, TCM_GETCURSEL, 0, 0));
    Act([&] { static_cast<forms::TabStrip&>(control).UserSelectTab(tab); });
  }
  return 0;
}

LRESULT FormWindow::ColorOf(HDC context, HWND child) const {
  const ControlWindow* const window = WindowOf(child);
  if (window == nullptr) return 0;
  if (window->Of().ControlKind() == Kind::kLink) {
    SetTextColor(context, kLinkColor);
    SetBkMode(context, TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
  }
  return 0;
}

bool FormWindow::PointAt(HWND child, UINT message) {
  ControlWindow* const window = WindowOf(child);
  if (window == nullptr) return false;
  forms::Control& control = window->Of();
  const Kind kind = control.ControlKind();
  if (message == WM_MOUSEMOVE && control.onMouseMove) Act([&] { control.onMouseMove(); });
  const bool pointsOn = kind == Kind::kLink || kind == Kind::kImage;
  if (pointsOn) SetCursor(LoadCursorW(nullptr, IDC_HAND));
  return pointsOn;
}

bool FormWindow::TakeKey(const MSG& message) {
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  const auto typed = static_cast<char16_t>(message.wParam);
  if (message.message == WM_SYSCHAR) return Accelerator(unicode::ToUpper(std::u16string_view(&typed, 1)).front());
  if (message.message != WM_KEYDOWN && message.message != WM_CHAR) return false;
  ControlWindow* const focused = WindowOf(message.hwnd);
  if (focused != nullptr) {
    return message.message == WM_KEYDOWN ? KeyDown(*focused, message.wParam) : Character(*focused, typed);
  }
  forms::Control* const button = message.wParam == VK_ESCAPE   ? form_.CancelButton()
                                 : message.wParam == VK_RETURN ? form_.DefaultButton()
                                                               : nullptr;
  if (message.message != WM_KEYDOWN || button == nullptr) return false;
  Act([&] { button->UserClick(); });
  return true;
}

bool FormWindow::KeyDown(ControlWindow& focused, WPARAM key) {
  forms::Control& control = focused.Of();
  const bool dropped =
      control.ControlKind() == Kind::kComboBox && SendMessageW(focused.Handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
  switch (key) {
    case VK_TAB:
      Act([&] {
        if (!IsPressed(VK_SHIFT)) {
          control.UserKey(kTabKey);
        } else if (!control.onKeyPress || control.onKeyPress(kTabKey)) {
          form_.UserTab(-1);
        }
      });
      return true;
    case VK_RETURN:
    case VK_ESCAPE:
      // It closes the list of a combo box first.
      if (dropped) return false;
      Act([&] { control.UserKey(key == VK_RETURN ? kEnter : kEscape); });
      return true;
    case VK_F1:
      Act([&] { form_.UserHelp(control); });
      return true;
    default:
      return false;
  }
}

/// A box may refuse a character; the others reach its window.
bool FormWindow::Character(ControlWindow& focused, char16_t character) {
  forms::Control& control = focused.Of();
  if (control.ControlKind() != Kind::kTextBox || !control.onKeyPress) return false;
  bool takes = false;
  Act([&] { takes = control.onKeyPress(character); });
  return !takes;
}

/// What a letter reaches: the control, or what stands behind a label or in a frame.
forms::Control* FormWindow::AcceleratorTarget(std::size_t index) const {
  const Kind kind = controls_[index]->Of().ControlKind();
  if (kind != Kind::kLabel && kind != Kind::kFrame) return &controls_[index]->Of();
  for (std::size_t i = index + 1; i < controls_.size(); ++i) {
    if (controls_[i]->Of().TakesFocus() && controls_[i]->Of().Usable()) return &controls_[i]->Of();
  }
  return nullptr;
}

bool FormWindow::Accelerator(char16_t letter) {
  std::vector<forms::Control*> targets;
  bool clicks = true;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const forms::Control& control = controls_[i]->Of();
    if (MnemonicOf(control.Caption()) != letter || !control.Usable()) continue;
    forms::Control* const target = AcceleratorTarget(i);
    if (target == nullptr) continue;
    targets.push_back(target);
    clicks = target == &control;
  }
  if (targets.empty()) return false;
  // Of several, the next one gets the focus and waits.
  auto next = std::find(targets.begin(), targets.end(), form_.ActiveControl());
  if (next == targets.end() || ++next == targets.end()) next = targets.begin();
  const bool click = clicks && targets.size() == 1;
  Act([&] { click ? (*next)->UserClick() : (*next)->UserFocus(); });
  return true;
}

}  // namespace win32
