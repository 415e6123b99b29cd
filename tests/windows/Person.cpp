#include "tests/windows/Person.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "tests/windows/Picture.h"

namespace {

Person* person = nullptr;
constexpr UINT kLookEvery = 10;
/// A window that nobody expects is closed after so many looks, and the test fails.
constexpr int kPatience = 300;

/// Windows that only tell how far something is have nothing to press.
bool WantsAnAnswer(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window) && FindWindowExW(window, nullptr, L"Button", nullptr);
}

/// The window of this thread that takes a person's doing: the one in front.
HWND FrontWindow() {
  HWND front = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM found) {
        if (!WantsAnAnswer(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&front));
  return front;
}

std::wstring WithoutMnemonic(const std::wstring& text) {
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) ++i;
    result += text[i];
  }
  return result;
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM list) {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

bool ClickButton(HWND window, const std::wstring& text) {
  for (const HWND child : ChildrenOf(window)) {
    if (ClassOf(child) != L"Button" || WithoutMnemonic(Person::TextOf(child)) != text || !IsWindowVisible(child) ||
        !IsWindowEnabled(child)) {
      continue;
    }
    PostMessageW(child, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    PostMessageW(child, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    return true;
  }
  return false;
}

/// Lists without an entry: there is nothing to confirm.
bool HasNothingToChoose(HWND window) {
  bool hasLists = false;
  for (const HWND child : ChildrenOf(window)) {
    if (ClassOf(child) != L"ListBox") continue;
    hasLists = true;
    if (SendMessageW(child, LB_GETCOUNT, 0, 0) > 0) return false;
  }
  return hasLists;
}

}  // namespace

Person::Person() {
  person = this;
  timer_ = SetTimer(nullptr, 0, kLookEvery, &Person::Look);
}

Person::~Person() {
  KillTimer(nullptr, timer_);
  person = nullptr;
}

void CALLBACK Person::Look(HWND, UINT, UINT_PTR, DWORD) {
  if (person != nullptr) person->LookAround();
}

void Person::LookAround() {
  const HWND window = FrontWindow();
  if (window == nullptr) answered_ = nullptr;
  // An answer that was given needs its time.
  if (window == nullptr || (window == answered_ && ++looks_ < kPatience)) return;
  const bool isExpected = !expected_.empty() && expected_.front().caption == TextOf(window);
  if (window == answered_ || (!isExpected && !otherwise_)) return GiveUp(window);
  answered_ = window;
  looks_ = 0;
  std::wstring text = TextOf(window);
  if (const HWND label = Child(window, L"Static", 0); label != nullptr && ClassOf(window) == L"#32770") {
    for (const HWND child : ChildrenOf(window)) {
      if (ClassOf(child) == L"Static" && !TextOf(child).empty()) text += L": " + TextOf(child);
    }
  }
  seen_.push_back(text);
  KeepPicture(window);
  const Answer answer = isExpected ? expected_.front().answer : otherwise_;
  if (isExpected) expected_.pop_front();
  answer(window);
}

/// For whoever wants to look at the windows: KVX_PICTURES is a folder.
void Person::KeepPicture(HWND window) const {
  const char* const folder = std::getenv("KVX_PICTURES");
  if (folder == nullptr) return;
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  SavePicture(window, std::string("Z:") + folder + "/" + std::to_string(seen_.size()) + ".png");
}

void Person::GiveUp(HWND window) {
  const std::wstring caption = TextOf(window);
  ADD_FAILURE() << "nobody answers " << std::string(caption.begin(), caption.end());
  for (const HWND child : ChildrenOf(window)) {
    const std::wstring text = ClassOf(child) + L" " + TextOf(child);
    std::cerr << "  " << std::string(text.begin(), text.end()) << "\n";
  }
  // Whatever it is, it must not wait for ever.
  std::exit(3);
}

void Person::Press(HWND window, WPARAM key) {
  const HWND focus = GetFocus();
  const HWND target = focus != nullptr && IsChild(window, focus) ? focus : window;
  PostMessageW(target, WM_KEYDOWN, key, 0);
  PostMessageW(target, WM_KEYUP, key, 0);
}

void Person::PressAlt(HWND window, wchar_t letter) {
  const HWND focus = GetFocus();
  PostMessageW(focus != nullptr && IsChild(window, focus) ? focus : window, WM_SYSCHAR, letter, 1 << 29);
}

void Person::Click(HWND window, const std::wstring& text) {
  if (!ClickButton(window, text)) ADD_FAILURE() << "there is no button " << std::string(text.begin(), text.end());
}

void Person::GoOn(HWND window) {
  if (HasNothingToChoose(window)) return Click(window, L"Cancel");
  for (const auto* text : {L"Search", L"OK", L"No thanks", L"No", L"Cancel"}) {
    if (ClickButton(window, text)) return;
  }
}

HWND Person::Child(HWND window, const std::wstring& className, int index) {
  for (const HWND child : ChildrenOf(window)) {
    if (ClassOf(child) == className && index-- == 0) return child;
  }
  return nullptr;
}

std::wstring Person::TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}
