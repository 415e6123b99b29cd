#include "hosts/unattended/FormScript.h"

#include "hosts/unattended/Text.h"

#include <algorithm>

namespace unattended {

namespace {

std::string Print(const ControlName& control) {
  std::string text = control.name;
  if (control.index) text += "(" + std::to_string(*control.index) + ")";
  return text;
}

class StepRunner {
 public:
  StepRunner(forms::Form& form, const Step& step) : form_(form), step_(step) {}

  void Run() {
    switch (step_.kind) {
      case Step::Kind::kClick:
        return Click();
      case Step::Kind::kSet:
        return Set();
      case Step::Kind::kSelect:
        return Select();
      case Step::Kind::kFocus:
        if (!Whole().TakesFocus()) Fail("it never has the focus");
        return Require(Whole().UserFocus());
      case Step::Kind::kKey:
        if (!Whole().TakesFocus()) Fail("it takes no keys");
        return Require(Whole().UserKey(step_.key));
      case Step::Kind::kTab:
        return SelectTab();
      case Step::Kind::kMenu:
        if (Whole().ControlKind() != forms::Kind::kMenuItem) Fail("it is no entry of a menu");
        return Require(Whole().UserClick());
      case Step::Kind::kHelp:
        return Require(form_.UserHelp(Whole()));
      case Step::Kind::kClose:
        if (!form_.UserClose()) throw StepError(form_.Name() + " has no close box");
        return;
    }
  }

 private:
  [[noreturn]] void Fail(const std::string& problem) const {
    throw StepError(Print(step_.control) + " of " + form_.Name() + ": " + problem);
  }

  void Require(bool done) const {
    if (!done) Fail("it is disabled or hidden");
  }

  bool IsArray() const {
    return std::any_of(form_.Controls().begin(), form_.Controls().end(), [this](const forms::Control* control) {
      return control->Name() == step_.control.name && control->Index() >= 0;
    });
  }

  /// The control, or the element of an array, that the step names.
  forms::Control& Whole() const {
    if (step_.control.index && !IsArray()) Fail("it is no array");
    return Named();
  }

  /// The same, where an index may also mean something within the control.
  forms::Control& Named() const {
    const bool array = IsArray();
    if (array && !step_.control.index) Fail("it is an array: name an element");
    forms::Control* control = form_.Find(step_.control.name, array ? *step_.control.index : -1);
    if (control == nullptr) Fail("there is no such control");
    return *control;
  }

  int EntryIndex(int count) const {
    if (*step_.control.index >= count) Fail("there is no such entry");
    return *step_.control.index;
  }

  int IndexValue(int count) const {
    const int index = NumberValue();
    if (index < 0 || index >= count) Fail("there is no such entry");
    return index;
  }

  int NumberValue() const {
    if (!std::holds_alternative<int>(step_.value)) Fail("a number is needed");
    return std::get<int>(step_.value);
  }

  void Click() {
    forms::Control& control = Named();
    if (!step_.control.index || control.Index() >= 0) return Require(control.UserClick());
    if (auto* list = dynamic_cast<forms::ListBox*>(&control)) {
      return Require(list->UserClickItem(EntryIndex(list->ListCount())));
    }
    if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
      return Require(combo->UserSetListIndex(EntryIndex(combo->ListCount())));
    }
    if (auto* arrows = dynamic_cast<forms::UpDown*>(&control)) return Require(arrows->UserStep(EntryIndex(2)));
    if (auto* tabs = dynamic_cast<forms::TabStrip*>(&control)) {
      return Require(tabs->UserSelectTab(EntryIndex(static_cast<int>(tabs->Tabs().size()))));
    }
    Fail("it has no entries");
  }

  void Set() {
    if (IsArray() && !step_.control.index) return SetOption();
    forms::Control& control = Whole();
    if (auto* box = dynamic_cast<forms::CheckBox*>(&control)) {
      const int value = NumberValue();
      if (value != 0 && value != 1) Fail("a check box takes 0 or 1");
      return Require(box->UserSetValue(value));
    }
    if (auto* combo = dynamic_cast<forms::ComboBox*>(&control)) {
      return Require(combo->UserSetListIndex(IndexValue(combo->ListCount())));
    }
    if (auto* text = dynamic_cast<forms::TextBox*>(&control)) {
      if (!std::holds_alternative<std::u16string>(step_.value)) Fail("a text is needed");
      if (text->ReadOnly()) Fail("its text cannot be edited");
      return Require(text->UserSetText(std::get<std::u16string>(step_.value)));
    }
    Fail("it has no value to set");
  }

  void SetOption() {
    forms::Control* element = form_.Find(step_.control.name, NumberValue());
    if (element == nullptr) Fail("there is no such element");
    if (element->ControlKind() != forms::Kind::kOptionButton) Fail("it has no value to set");
    Require(element->UserClick());
  }

  void Select() {
    auto* list = dynamic_cast<forms::ListBox*>(&Whole());
    if (list == nullptr) Fail("it is no list");
    if (!list->UserFocus()) Require(false);
    if (step_.select == Step::Select::kItems) {
      for (const std::u16string& item : step_.items) SelectItem(*list, item);
      return;
    }
    const bool on = step_.select == Step::Select::kAll && step_.on;
    for (int i = 0; i < list->ListCount(); ++i) Require(list->UserSetSelected(i, on));
  }

  void SelectItem(forms::ListBox& list, const std::u16string& item) {
    bool found = false;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.List(i) != item) continue;
      found = true;
      Require(list.UserSetSelected(i, step_.on));
    }
    if (!found) Fail("there is no entry \"" + ToUtf8(item) + "\"");
  }

  void SelectTab() {
    for (forms::Control* control : form_.Controls()) {
      auto* tabs = dynamic_cast<forms::TabStrip*>(control);
      if (tabs == nullptr) continue;
      if (step_.tab >= static_cast<int>(tabs->Tabs().size())) break;
      if (!tabs->UserSelectTab(step_.tab)) throw StepError("the tabs of " + form_.Name() + " are disabled or hidden");
      return;
    }
    throw StepError(form_.Name() + " has no tab " + std::to_string(step_.tab));
  }

  forms::Form& form_;
  const Step& step_;
};

}  // namespace

void DoStep(forms::Form& form, const Step& step) { StepRunner(form, step).Run(); }

}  // namespace unattended
