#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// A person at the screen, who answers windows of this program as they come: while a dialog waits for messages, the
/// next answer is given to the window in front when it has the caption that the answer is for.
class Person {
 public:
  using Answer = std::function<void(HWND window)>;

  Person();
  ~Person();
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  /// @param caption of the window, in full
  void Expect(std::wstring caption, Answer answer) { expected_.push_back({std::move(caption), std::move(answer)}); }
  /// Answers every window that nothing was expected for; without it such a window ends the test.
  void Otherwise(Answer answer) { otherwise_ = std::move(answer); }
  /// What was expected and did not come.
  std::size_t Waiting() const { return expected_.size(); }
  /// Captions and texts of the windows that came, in their order.
  const std::vector<std::wstring>& Seen() const { return seen_; }

  // What a person does to a window.
  static void Press(HWND window, WPARAM key);
  static void PressAlt(HWND window, wchar_t letter);
  /// Clicks the button with this text, accelerators left out.
  static void Click(HWND window, const std::wstring& text);
  /// Presses the button that goes on: "Search" or "OK", or else declines.
  static void GoOn(HWND window);
  static void Close(HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }
  /// The first child of a class, from 0; nullptr when there is none.
  static HWND Child(HWND window, const std::wstring& className, int index = 0);
  static std::wstring TextOf(HWND window);

 private:
  struct Expected {
    std::wstring caption;
    Answer answer;
  };
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD);
  void LookAround();
  void KeepPicture(HWND window) const;
  void GiveUp(HWND window);

  std::deque<Expected> expected_;
  Answer otherwise_;
  std::vector<std::wstring> seen_;
  UINT_PTR timer_{0};
  HWND answered_{nullptr};
  int looks_{0};
};
