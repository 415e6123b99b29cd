#include "tests/windows/forms/ShownForm.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "hosts/win32/Wide.h"

namespace {

using win32::FromWide;

/// The number of the first control's window; the others follow in the order of the layout.
constexpr int kFirstControl = 100;

std::u16string Plain(std::string_view text) { return {text.begin(), text.end()}; }
std::u16string Number(LRESULT number) { return Plain(std::to_string(number)); }
std::u16string Quoted(const std::u16string& text) { return u'"' + text + u'"'; }

std::u16string TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return FromWide(text);
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

/// What a kind of window shows: the name of the kind, the value with its sign, the caption, and entries.
struct Face {
  std::u16string kind;
  std::u16string value{};
  std::u16string caption{};
  std::vector<std::u16string> entries{};
  bool isDefault{false};
};

std::u16string Entry(bool marked, const std::u16string& text) { return (marked ? u"* " : u"  ") + text; }

Face FaceOfButton(HWND window) {
  const LRESULT ticked = SendMessageW(window, BM_GETCHECK, 0, 0);
  switch (GetWindowLongW(window, GWL_STYLE) & BS_TYPEMASK) {
    case BS_CHECKBOX:
      return {u"CheckBox", u'=' + Number(ticked), TextOf(window)};
    case BS_RADIOBUTTON:
      return {u"OptionButton", u'=' + Number(ticked), TextOf(window)};
    case BS_GROUPBOX:
      return {u"Frame", u"", TextOf(window)};
    case BS_DEFPUSHBUTTON:
      return {u"Button", u"", TextOf(window), {}, true};
    default:
      return {u"Button", u"", TextOf(window)};
  }
}

Face FaceOfStatic(HWND window) {
  const LONG style = GetWindowLongW(window, GWL_STYLE);
  if ((style & SS_TYPEMASK) == SS_ICON) return {u"Image"};
  if ((style & SS_TYPEMASK) == SS_ETCHEDFRAME) return {u"Frame"};
  return {(style & SS_NOTIFY) != 0 ? u"Link" : u"Label", u"", TextOf(window)};
}

std::u16string EntryText(HWND window, UINT lengthMessage, UINT textMessage, LRESULT index) {
  const auto place = static_cast<WPARAM>(index);
  std::wstring text(static_cast<std::size_t>(SendMessageW(window, lengthMessage, place, 0)) + 1, L'\0');
  const LRESULT length = SendMessageW(window, textMessage, place, reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return FromWide(text);
}

Face FaceOfCombo(HWND window) {
  const LRESULT chosen = SendMessageW(window, CB_GETCURSEL, 0, 0);
  Face face{u"ComboBox", u'=' + Number(chosen)};
  for (LRESULT i = 0; i < SendMessageW(window, CB_GETCOUNT, 0, 0); ++i) {
    face.entries.push_back(Entry(i == chosen, EntryText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, i)));
  }
  return face;
}

/// Windows has a current entry from the start; a form's list has one when somebody chose it.
LRESULT CurrentOf(HWND window, const forms::Control& control) {
  const LRESULT current = SendMessageW(window, LB_GETCARETINDEX, 0, 0);
  const bool untouched = static_cast<const forms::ListBox&>(control).ListIndex() < 0 && current == 0;
  return untouched || SendMessageW(window, LB_GETCOUNT, 0, 0) == 0 ? -1 : current;
}

Face FaceOfList(HWND window, const forms::Control& control) {
  Face face{u"ListBox", u'=' + Number(CurrentOf(window, control))};
  for (LRESULT i = 0; i < SendMessageW(window, LB_GETCOUNT, 0, 0); ++i) {
    const bool selected = SendMessageW(window, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0;
    face.entries.push_back(Entry(selected, EntryText(window, LB_GETTEXTLEN, LB_GETTEXT, i)));
  }
  return face;
}

Face FaceOfTabs(HWND window) {
  const LRESULT chosen = SendMessageW(window, TCM_GETCURSEL, 0, 0);
  Face face{u"TabStrip", u'=' + Number(chosen)};
  for (LRESULT i = 0; i < SendMessageW(window, TCM_GETITEMCOUNT, 0, 0); ++i) {
    wchar_t text[128] = {};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 128;
    SendMessageW(window, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    face.entries.push_back(Entry(i == chosen, FromWide(item.pszText)));
  }
  return face;
}

Face FaceOf(HWND window, const forms::Control& control) {
  const std::wstring name = ClassOf(window);
  if (name == L"Button") return FaceOfButton(window);
  if (name == L"Static") return FaceOfStatic(window);
  if (name == L"ComboBox") return FaceOfCombo(window);
  if (name == L"ListBox") return FaceOfList(window, control);
  if (name == L"Edit") return {u"TextBox", u'=' + Quoted(TextOf(window))};
  if (name == WC_TABCONTROLW) return FaceOfTabs(window);
  if (name == STATUSCLASSNAMEW) return {u"StatusBar", u'=' + Quoted(TextOf(window))};
  if (name == UPDOWN_CLASSW) return {u"UpDown"};
  return {FromWide(name)};
}

/// The tip that comes up over a control; empty when there is none.
std::u16string TipOf(HWND form, HWND control) {
  struct Search {
    HWND form;
    HWND tips;
  } search{form, nullptr};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM value) {
        auto& found = *reinterpret_cast<Search*>(value);
        if (ClassOf(window) != TOOLTIPS_CLASSW || GetWindow(window, GW_OWNER) != found.form) return TRUE;
        found.tips = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  wchar_t text[512] = {};
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = text;
  SendMessageW(search.tips, TTM_GETTEXTW, 512, reinterpret_cast<LPARAM>(&tool));
  return FromWide(text);
}

class Reader {
 public:
  Reader(const forms::Form& form, HWND window) : form_(form), window_(window) {}

  std::u16string Read() {
    text_ = Plain(form_.Name()) + u' ' + Quoted(TextOf(window_)) + u'\n';
    InEachControl(form_, window_, [this](const forms::Control& control, HWND child) { Write(control, child); });
    int children = 0;
    for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) ++children;
    if (children != written_) text_ += u"and windows of no control\n";
    WriteMenus();
    return text_;
  }

 private:
  bool IsShown(HWND window) const { return (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0; }

  void Write(const forms::Control& control, HWND child) {
    ++written_;
    int depth = 0;
    bool enabledAround = true;
    bool shownAround = true;
    for (const forms::Control* frame = control.Parent(); frame != nullptr; frame = frame->Parent()) {
      ++depth;
      enabledAround = enabledAround && frame->Enabled();
      shownAround = shownAround && frame->Visible();
    }
    const Face face = FaceOf(child, control);
    text_.append(static_cast<std::size_t>(depth) * 2, u' ');
    text_ += face.kind + u' ' + Plain(control.Name());
    if (control.Index() >= 0) text_ += u'(' + Number(control.Index()) + u')';
    text_ += face.value;
    // In a frame that is disabled or hidden all is, and only the form knows what each would be.
    if (enabledAround ? !IsWindowEnabled(child) : !control.Enabled()) text_ += u" disabled";
    if (shownAround ? !IsShown(child) : !control.Visible()) text_ += u" hidden";
    if (!enabledAround && IsWindowEnabled(child)) text_ += u" enabled in a disabled frame";
    if (!shownAround && IsShown(child)) text_ += u" shown in a hidden frame";
    if (face.isDefault) text_ += u" default";
    if (form_.CancelButton() == &control) text_ += u" cancel";
    if (!face.caption.empty()) text_ += u' ' + Quoted(face.caption);
    if (const std::u16string tip = TipOf(window_, child); !tip.empty()) text_ += u" tip " + Quoted(tip);
    text_ += u'\n';
    for (const std::u16string& entry : face.entries) {
      text_.append(static_cast<std::size_t>(depth) * 2 + 2, u' ');
      text_ += entry + u'\n';
    }
  }

  void WriteMenus() {
    const HMENU bar = GetMenu(window_);
    const int count = bar == nullptr ? 0 : GetMenuItemCount(bar);
    auto control = form_.Controls().begin();
    const auto write = [&](const char16_t* kind, HMENU menu, int place) {
      control = std::find_if(control, form_.Controls().end(), [&](const forms::Control* one) {
        return Plain(forms::KindName(one->ControlKind())) == kind;
      });
      wchar_t caption[128] = {};
      GetMenuStringW(menu, static_cast<UINT>(place), caption, 128, MF_BYPOSITION);
      text_ += std::u16string(kind) + u' ' + Plain((*control)->Name());
      if ((GetMenuState(menu, static_cast<UINT>(place), MF_BYPOSITION) & MF_GRAYED) != 0) text_ += u" disabled";
      text_ += u' ' + Quoted(FromWide(caption)) + u'\n';
      ++control;
    };
    for (int i = 0; i < count; ++i) {
      write(u"Menu", bar, i);
      const HMENU popup = GetSubMenu(bar, i);
      for (int item = 0; item < GetMenuItemCount(popup); ++item) write(u"MenuItem", popup, item);
    }
  }

  const forms::Form& form_;
  HWND window_;
  std::u16string text_;
  int written_{0};
};

void Walk(const forms::LayoutNode& node, HWND window, int& number,
          const std::function<void(const forms::Control&, HWND)>& work) {
  if (node.control != nullptr) work(*node.control, GetDlgItem(window, number++));
  for (const forms::LayoutNode& child : node.children) Walk(child, window, number, work);
}

}  // namespace

std::u16string ShownForm(const forms::Form& form, HWND window) { return Reader(form, window).Read(); }

void InEachControl(const forms::Form& form, HWND window,
                   const std::function<void(const forms::Control& control, HWND child)>& work) {
  int number = kFirstControl;
  Walk(form.GetLayout(), window, number, work);
}
