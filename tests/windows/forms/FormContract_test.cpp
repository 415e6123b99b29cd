#include <algorithm>
#include <vector>

#include "hosts/win32/Wide.h"
#include "hosts/win32/forms/ControlWindow.h"
#include "platform/forms/Dump.h"
#include "tests/windows/Picture.h"
#include "tests/windows/forms/DialogWindows.h"
#include "tests/windows/forms/ShownForm.h"

namespace {

std::string Narrow(const std::u16string& text) {
  std::string narrow(text.size() * 3, '\0');
  narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, win32::ToWide(text).c_str(),
                                                             static_cast<int>(text.size()), narrow.data(),
                                                             static_cast<int>(narrow.size()), nullptr, nullptr)));
  return narrow;
}

RECT PlaceOf(HWND form, HWND child) {
  RECT place{};
  GetWindowRect(child, &place);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

bool Overlap(const RECT& one, const RECT& other) {
  RECT both{};
  return IntersectRect(&both, &one, &other) != FALSE;
}

class FormContract : public DialogWindows {
 protected:
  void ExpectShownAsItIs(forms::Form& form) {
    EXPECT_EQ(Narrow(ShownForm(form, WindowOf(form))), Narrow(forms::Dump(form)));
  }
};

TEST_F(FormContract, EachFormIsShownAsItIs) {
  int looked = 0;
  InEachForm([&](forms::Form& form, const std::string& name) {
    SCOPED_TRACE(name);
    ExpectShownAsItIs(form);
    ++looked;
  });
  EXPECT_EQ(looked, kLooks);
}

TEST_F(FormContract, WhatCodeChangesIsShown) {
  frmKVX_COM& form = MakeTerms({u"Buyer", u"Seller", u"Target"});
  ShowFor(form, [&] {
    ChangeByCode(form);
    windows.Repaint(form);
    ExpectShownAsItIs(form);
  });
}

TEST_F(FormContract, ControlsStandInTheOrderOfTheLayout) {
  InEachWindow([](forms::Form& form, const std::string& name, HWND window) {
    std::vector<std::pair<const forms::Control*, RECT>> before;
    RECT client{};
    GetClientRect(window, &client);
    InEachControl(form, window, [&](const forms::Control& control, HWND child) {
      if (!IsWindowVisible(child)) return;
      const RECT place = PlaceOf(window, child);
      EXPECT_TRUE(Contains(client, place)) << name << " " << control.Name();
      if (control.Parent() != nullptr) {
        const auto frame =
            std::find_if(before.begin(), before.end(), [&](const auto& one) { return one.first == control.Parent(); });
        ASSERT_NE(frame, before.end());
        EXPECT_TRUE(Contains(frame->second, place)) << name << " " << control.Name();
      }
      // The parts of a bar lie in one place.
      const bool isBarPart = control.Name().starts_with("lblProgBar");
      for (const auto& [other, otherPlace] : before) {
        bool around = false;
        for (const forms::Control* frame = control.Parent(); frame != nullptr; frame = frame->Parent()) {
          around = around || frame == other;
        }
        if (around || (isBarPart && other->Name().starts_with("lblProgBar"))) continue;
        EXPECT_FALSE(Overlap(place, otherPlace)) << name << " " << control.Name() << " " << other->Name();
        if (other->Parent() != control.Parent()) continue;
        EXPECT_TRUE(place.top >= otherPlace.bottom || place.left >= otherPlace.right || place.top > otherPlace.top)
            << name << " " << control.Name() << " before " << other->Name();
      }
      before.emplace_back(&control, place);
    });
  });
}

TEST_F(FormContract, NothingIsCutOff) {
  const win32::FormFont font;
  InEachWindow([&](forms::Form& form, const std::string& name, HWND window) {
    InEachControl(form, window, [&](const forms::Control& control, HWND child) {
      const forms::Kind kind = control.ControlKind();
      const bool hasText = kind == forms::Kind::kButton || kind == forms::Kind::kCheckBox ||
                           kind == forms::Kind::kOptionButton || kind == forms::Kind::kLabel ||
                           kind == forms::Kind::kLink || kind == forms::Kind::kFrame;
      if (!hasText || !IsWindowVisible(child) || control.Name().starts_with("lblProgBar")) return;
      const RECT place = PlaceOf(window, child);
      const bool wraps = kind == forms::Kind::kLabel;
      const SIZE text =
          wraps ? font.WrappedSize(control.Caption(), place.right - place.left) : font.TextSize(control.Caption());
      const bool hasMark = kind == forms::Kind::kCheckBox || kind == forms::Kind::kOptionButton;
      EXPECT_LE(text.cx + (hasMark ? font.Scaled(16) : 0), place.right - place.left) << name << " " << control.Name();
      EXPECT_LE(text.cy, place.bottom - place.top) << name << " " << control.Name();
    });
  });
}

TEST_F(FormContract, EachFormFitsASmallScreen) {
  const int dots = win32::FormFont().Scaled(96);
  InEachWindow([&](forms::Form&, const std::string& name, HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    EXPECT_LE(MulDiv(place.right - place.left, 96, dots), 1024) << name;
    EXPECT_LE(MulDiv(place.bottom - place.top, 96, dots), 700) << name;
  });
}

TEST_F(FormContract, WhatIsHiddenAgainLeavesNothingBehind) {
  frmKVX_COM& form = MakeTerms({u"Buyer"});
  ShowFor(form, [&] {
    const auto pixels = [&] {
      windows.Repaint(form);
      return PixelsOf(WindowOf(form));
    };
    const std::vector<unsigned char> before = pixels();
    form.tbcTabs.SetSelectedTab(2);
    EXPECT_NE(pixels(), before);
    form.tbcTabs.SetSelectedTab(0);
    EXPECT_TRUE(pixels() == before);
  });
}

TEST_F(FormContract, TheFocusGoesThroughEachFormInItsTabOrder) {
  InEachWindow([this](forms::Form& form, const std::string& name, HWND window) {
    // A form that works takes no keys.
    if (form.ActiveControl() == nullptr) return;
    windows.Repaint(form);
    const forms::Control* const first = form.ActiveControl();
    std::vector<HWND> wanted;
    std::vector<HWND> focused;
    for (int i = 0; i < 60; ++i) {
      InEachControl(form, window, [&](const forms::Control& control, HWND child) {
        if (&control == form.ActiveControl()) wanted.push_back(child);
      });
      focused.push_back(GetFocus());
      form.UserTab(1);
      windows.Repaint(form);
      if (form.ActiveControl() == first) break;
    }
    EXPECT_EQ(form.ActiveControl(), first) << name;
    EXPECT_GE(focused.size(), 1u);
    EXPECT_EQ(focused, wanted) << name;
  });
}

}  // namespace
