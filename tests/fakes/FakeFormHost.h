#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <stdexcept>
#include <string>

#include "platform/forms/Form.h"
#include "platform/forms/FormHost.h"
#include "tests/fakes/CallLog.h"

namespace fakes {

/// A person at a form, for scripts. What a person could not do fails the test.
class FormDriver {
 public:
  explicit FormDriver(forms::Form& form) : form_(form) {}
  forms::Form& Form() { return form_; }

  template <class Control = forms::Control>
  Control& At(std::string_view name, int index = -1) {
    auto* control = dynamic_cast<Control*>(form_.Find(name, index));
    if (control == nullptr) throw std::logic_error("no such control: " + std::string(name));
    return *control;
  }
  void Click(std::string_view name, int index = -1) {
    EXPECT_TRUE(At(name, index).UserClick()) << "cannot click " << name;
  }
  void Tick(std::string_view name, int value) {
    EXPECT_TRUE(At<forms::CheckBox>(name).UserSetValue(value)) << "cannot tick " << name;
  }
  void Type(std::string_view name, std::u16string_view text) {
    EXPECT_TRUE(At<forms::TextBox>(name).UserSetText(text)) << "cannot type into " << name;
  }
  void Select(std::string_view list, int index, bool value) {
    EXPECT_TRUE(At<forms::ListBox>(list).UserSetSelected(index, value)) << "cannot select in " << list;
  }

 private:
  forms::Form& form_;
};

/// Shows no windows: a modal form is answered by the next script for its name. A form without a script, one
/// that its script leaves open, and a script that no form took fail the test.
class FakeFormHost : public forms::FormHost {
 public:
  using Script = std::function<void(FormDriver&)>;

  explicit FakeFormHost(CallLog& log) : log_(log) {}
  ~FakeFormHost() override {
    for (const auto& [name, scripts] : scripts_) {
      if (!scripts.empty()) ADD_FAILURE() << "form that never came: " << name;
    }
  }
  void On(std::string name, Script script) { scripts_[std::move(name)].push_back(std::move(script)); }

  void ShowModal(forms::Form& form) override {
    const auto prompt = passOver.find(form.Name());
    if (prompt != passOver.end() && scripts_[form.Name()].empty()) return PassOver(form, prompt->second);
    log_.Add("show " + form.Name());
    form.Load();
    form.Shown();
    if (!form.Visible()) return;
    std::deque<Script>& scripts = scripts_[form.Name()];
    if (scripts.empty()) {
      ADD_FAILURE() << "no script for " << form.Name();
    } else {
      const Script script = scripts.front();
      scripts.pop_front();
      FormDriver driver(form);
      script(driver);
    }
    if (form.Visible()) {
      ADD_FAILURE() << form.Name() << " was left open";
      form.UserClose();
    }
  }
  void ShowModeless(forms::Form& form) override {
    log_.Add("show " + form.Name());
    form.Load();
    form.Shown();
  }
  void Hidden(forms::Form& form) override {
    if (passedOver_.count(&form) == 0) log_.Add("hide " + form.Name());
  }
  void Unloaded(forms::Form& form) override {
    if (passedOver_.erase(&form) == 0) log_.Add("unload " + form.Name());
  }
  void Repaint(forms::Form& form) override {
    if (onRepaint) onRepaint(form);
  }
  void DoEvents() override {}
  int TextWidth(forms::Form&, std::u16string_view text) override { return static_cast<int>(text.size()) * 7; }
  void SetHorizontalExtent(forms::Form&, std::string_view list, int width) override {
    extents[std::string(list)] = width;
    if (extentFails) throw word::HostError(word::kCommandFailed, u"Command failed", "SetHorizontalExtent");
  }
  std::intptr_t RemoveCloseBox(std::u16string_view) override { return 0; }
  std::intptr_t WindowHandle(forms::Form&) override { return kWindow; }

  static constexpr std::intptr_t kWindow = 77;
  /// Forms that are no concern of a test that has no script for them, with what closes them; it is as if they had not
  /// been shown. These are the prompts of a first run.
  std::map<std::string, std::string> passOver{
      {"frmKVXSearchChooser", "cmdCancel"}, {"frmKVXFormatInstrux", "cmdOK"}, {"frmKVXShowHelp", "cmdNo"}};
  std::function<void(forms::Form&)> onRepaint;
  std::map<std::string, int> extents;
  bool extentFails{false};

 private:
  void PassOver(forms::Form& form, const std::string& button) {
    passedOver_.insert(&form);
    form.Load();
    form.Shown();
    FormDriver(form).Click(button);
  }

  CallLog& log_;
  std::map<std::string, std::deque<Script>> scripts_;
  std::set<const forms::Form*> passedOver_;
};

}  // namespace fakes
