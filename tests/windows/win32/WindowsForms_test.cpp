#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <functional>

#include "hosts/win32/forms/ControlWindow.h"
#include "hosts/win32/forms/WindowsFormHost.h"
#include "platform/forms/Form.h"

namespace {

/// One control of each kind that a person works.
class SampleForm : public forms::Form {
 public:
  explicit SampleForm(forms::FormHost& host) : Form(host, "frmSample") {
    list.AddItem(u"one");
    list.AddItem(u"two");
    combo.AddItem(u"a");
    combo.AddItem(u"b");
    ok.onClick = [this] {
      SetTag(u"OK");
      Hide();
    };
    cancel.onClick = [this] { Hide(); };
    text.onKeyPress = [](char16_t key) { return key != u'x'; };
  }

  forms::Label label{*this, "lblText"};
  forms::TextBox text{*this, "txtText"};
  forms::CheckBox box{*this, "chkBox"};
  forms::ListBox list{*this, "lstList"};
  forms::ComboBox combo{*this, "cmbCombo"};
  forms::Button ok{*this, "cmdOK"};
  forms::Button cancel{*this, "cmdCancel"};

 private:
  forms::Layout MakeLayout() override {
    using namespace forms;
    SetCaption(u"Sample");
    label.SetCaption(u"&Text:");
    box.SetCaption(u"&Box");
    ok.SetCaption(u"OK");
    cancel.SetCaption(u"Cancel");
    SetDefaultButton(&ok);
    SetCancelButton(&cancel);
    return Column(
        {Row({Item(label), Item(text)}), Item(box), Item(list), Item(combo), Buttons({Item(ok), Item(cancel)})});
  }
};

/// Works a modal form step by step: each step has its messages handled before the next.
class Steps {
 public:
  using Step = std::function<void(HWND form)>;
  explicit Steps(std::vector<Step> steps) : steps_(std::move(steps)) {
    current = this;
    timer_ = SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) { current->Next(); });
  }
  ~Steps() { KillTimer(nullptr, timer_); }
  Steps(const Steps&) = delete;
  Steps& operator=(const Steps&) = delete;
  std::size_t Left() const { return steps_.size() - next_; }

 private:
  void Next() {
    const HWND form = FindWindowW(L"KelvarinForm", L"Sample");
    if (form == nullptr || !IsWindowVisible(form) || next_ == steps_.size()) return;
    steps_[next_++](form);
  }
  static Steps* current;
  std::vector<Step> steps_;
  std::size_t next_{0};
  UINT_PTR timer_{0};
};
Steps* Steps::current = nullptr;

HWND Focused(HWND form) { return IsChild(form, GetFocus()) ? GetFocus() : form; }

Steps::Step Key(WPARAM key) {
  return [key](HWND form) { PostMessageW(Focused(form), WM_KEYDOWN, key, 0); };
}
Steps::Step Type(wchar_t character) {
  return [character](HWND form) { PostMessageW(Focused(form), WM_CHAR, static_cast<WPARAM>(character), 0); };
}
Steps::Step Accelerator(wchar_t letter) {
  return [letter](HWND form) { PostMessageW(Focused(form), WM_SYSCHAR, static_cast<WPARAM>(letter), 1 << 29); };
}

class WindowsForms : public testing::Test {
 protected:
  void Work(std::vector<Steps::Step> steps) {
    Steps person(std::move(steps));
    host.ShowModal(form);
    EXPECT_EQ(person.Left(), 0u);
  }
  win32::WindowsFormHost host;
  SampleForm form{host};
};

TEST_F(WindowsForms, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
  Work({Key(VK_RETURN)});
  EXPECT_EQ(form.Tag(), u"OK");
  form.SetTag(u"");
  Work({Key(VK_ESCAPE)});
  EXPECT_EQ(form.Tag(), u"");
}

TEST_F(WindowsForms, TheFocusFollowsTheFormsTabOrder) {
  std::vector<const forms::Control*> focused;
  const auto note = [&](HWND) { focused.push_back(form.ActiveControl()); };
  Work({note, Key(VK_TAB), note, Key(VK_TAB), note, Key(VK_TAB), note, Key(VK_TAB), note, Key(VK_ESCAPE)});
  EXPECT_EQ(focused, (std::vector<const forms::Control*>{&form.text, &form.box, &form.list, &form.combo, &form.ok}));
}

TEST_F(WindowsForms, ATextBoxTakesWhatIsTypedUnlessTheFormRefusesIt) {
  Work({Type(L'a'), Type(L'x'), Type(L'b'), Key(VK_ESCAPE)});
  EXPECT_EQ(form.text.Text(), u"ab");
}

TEST_F(WindowsForms, AcceleratorsReachTheirControlOrWhatStandsBehindTheirLabel) {
  const forms::Control* focused = nullptr;
  Work({Accelerator(L'b'), Accelerator(L't'), [&](HWND) { focused = form.ActiveControl(); }, Key(VK_ESCAPE)});
  EXPECT_EQ(form.box.Value(), 1);
  EXPECT_EQ(focused, &form.text);
}

TEST_F(WindowsForms, AChangeByCodeShowsInTheWindow) {
  std::wstring shown;
  Work({[&](HWND) { form.ok.SetCaption(u"Search"); },
        [&](HWND window) {
          wchar_t text[32] = {};
          GetWindowTextW(FindWindowExW(window, nullptr, L"Button", L"Search"), text, 32);
          shown = text;
        },
        Key(VK_ESCAPE)});
  EXPECT_EQ(shown, L"Search");
}

TEST_F(WindowsForms, SelectingInAListIsTheFormsSelection) {
  Work({[](HWND window) {
          const HWND list = FindWindowExW(window, nullptr, L"ListBox", nullptr);
          RECT second{};
          SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
          const LPARAM place = MAKELPARAM(second.left + 4, second.top + 2);
          PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
          PostMessageW(list, WM_LBUTTONUP, 0, place);
        },
        Key(VK_ESCAPE)});
  EXPECT_FALSE(form.list.Selected(0));
  EXPECT_TRUE(form.list.Selected(1));
  EXPECT_EQ(form.list.ListIndex(), 1);
}

/// Keeps how far the list scrolls.
Steps::Step Extent(std::vector<LRESULT>& extents) {
  return [&extents](HWND window) {
    const HWND list = FindWindowExW(window, nullptr, L"ListBox", nullptr);
    extents.push_back(SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0));
  };
}

TEST_F(WindowsForms, AListScrollsAsFarAsTheFormSays) {
  form.Load();
  host.SetHorizontalExtent(form, "lstList", 777);
  form.box.onClick = [this] {
    form.list.AddItem(u"three");
    host.SetHorizontalExtent(form, "lstList", 333);
  };
  std::vector<LRESULT> extents;
  Work({Extent(extents), Accelerator(L'b'), Extent(extents), [this](HWND) { form.list.AddItem(u"four"); },
        Extent(extents), Key(VK_ESCAPE)});
  EXPECT_EQ(extents, (std::vector<LRESULT>{777, 333, 333}));
}

TEST_F(WindowsForms, AListOfWhichTheFormSaysNothingScrollsAsFarAsItsEntries) {
  form.list.AddItem(u"Research && Development && Marketing");
  std::vector<LRESULT> extents;
  Work({Extent(extents), Key(VK_ESCAPE)});
  EXPECT_GT(extents.at(0), host.TextWidth(form, u"Research && Development && Marketing"));
}

class TicksForm : public forms::Form {
 public:
  explicit TicksForm(forms::FormHost& host) : Form(host, "frmTicks") { list.AddItem(u"the Bank"); }
  forms::ListBox list{*this, "lstTicks", true};

 private:
  forms::Layout MakeLayout() override { return forms::Item(list); }
};

TEST_F(WindowsForms, AListWithBoxesScrollsAsFarAsItsEntriesBehindThem) {
  TicksForm ticks(host);
  host.ShowModeless(ticks);
  const HWND list = FindWindowExW(reinterpret_cast<HWND>(host.WindowHandle(ticks)), nullptr, L"ListBox", nullptr);
  const win32::FormFont font;
  const int box = std::min(static_cast<int>(SendMessageW(list, LB_GETITEMHEIGHT, 0, 0)), font.Scaled(14));
  EXPECT_GT(SendMessageW(list, LB_GETHORIZONTALEXTENT, 0, 0), box + font.Scaled(4) + font.EntryWidth(u"the Bank"));
  ticks.Hide();
}

TEST_F(WindowsForms, AnAmpersandIsMeasuredAsTheCharacterThatAListShows) {
  EXPECT_GT(host.TextWidth(form, u"R&D"), host.TextWidth(form, u"RD"));
  EXPECT_GT(host.TextWidth(form, u"R&&D"), host.TextWidth(form, u"R&D"));
}

TEST_F(WindowsForms, WhatAHandlerThrowsLeavesThroughTheShow) {
  form.ok.onClick = [] { throw std::runtime_error("handler"); };
  EXPECT_THROW(Work({Key(VK_RETURN)}), std::runtime_error);
  form.Hide();
}

TEST_F(WindowsForms, TheCloseBoxUnloadsAndIsDeafWhereItWasTakenAway) {
  Work({[](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }});
  EXPECT_FALSE(form.Loaded());
  bool stayed = false;
  Work({[&](HWND) { EXPECT_NE(host.RemoveCloseBox(u"Sample"), 0); },
        [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }, [&](HWND) { stayed = form.Visible(); },
        Key(VK_ESCAPE)});
  EXPECT_TRUE(stayed);
}

}  // namespace
