#include "hosts/unattended/ControlState.h"

#include "hosts/unattended/Text.h"

#include <set>

namespace unattended {

namespace {

using Json = json::Value;
using forms::Kind;

bool HasCaption(Kind kind) {
  switch (kind) {
    case Kind::kLabel:
    case Kind::kLink:
    case Kind::kButton:
    case Kind::kCheckBox:
    case Kind::kOptionButton:
    case Kind::kFrame:
    case Kind::kMenu:
    case Kind::kMenuItem:
      return true;
    default:
      return false;
  }
}

void PutList(const forms::ListBox& list, Json& state) {
  Json items = Json::array();
  Json selected = Json::array();
  for (int i = 0; i < list.ListCount(); ++i) {
    items.push_back(ToUtf8(list.List(i)));
    if (list.Selected(i)) selected.push_back(i);
  }
  state["items"] = std::move(items);
  state["selected"] = std::move(selected);
  state["listIndex"] = list.ListIndex();
}

void PutCombo(const forms::ComboBox& combo, Json& state) {
  Json items = Json::array();
  Json itemData = Json::array();
  for (int i = 0; i < combo.ListCount(); ++i) {
    items.push_back(ToUtf8(combo.List(i)));
    itemData.push_back(combo.ItemData(i));
  }
  const int chosen = combo.ListIndex();
  state["text"] = chosen < 0 ? std::string() : ToUtf8(combo.List(chosen));
  state["items"] = std::move(items);
  state["listIndex"] = chosen;
  state["itemData"] = std::move(itemData);
}

void PutTabs(const forms::TabStrip& tabs, Json& state) {
  Json items = Json::array();
  for (const std::u16string& tab : tabs.Tabs()) items.push_back(ToUtf8(tab));
  state["items"] = std::move(items);
}

}  // namespace

Json ControlState(const forms::Control& control) {
  const Kind kind = control.ControlKind();
  Json state = Json::object();
  state["kind"] = std::string(KindName(kind));
  if (HasCaption(kind)) state["caption"] = ToUtf8(control.Caption());
  if (kind == Kind::kCheckBox) state["value"] = static_cast<const forms::CheckBox&>(control).Value();
  if (kind == Kind::kOptionButton) state["value"] = static_cast<const forms::OptionButton&>(control).Value();
  if (kind == Kind::kTabStrip) state["value"] = static_cast<const forms::TabStrip&>(control).SelectedTab();
  state["enabled"] = control.Enabled();
  state["visible"] = control.Visible();
  if (kind != Kind::kMenu && kind != Kind::kMenuItem) state["toolTip"] = ToUtf8(control.ToolTip());
  if (kind == Kind::kTextBox) state["text"] = ToUtf8(static_cast<const forms::TextBox&>(control).Text());
  if (kind == Kind::kStatusBar) state["text"] = ToUtf8(static_cast<const forms::StatusBar&>(control).SimpleText());
  if (kind == Kind::kListBox) PutList(static_cast<const forms::ListBox&>(control), state);
  if (kind == Kind::kComboBox) PutCombo(static_cast<const forms::ComboBox&>(control), state);
  if (kind == Kind::kTabStrip) PutTabs(static_cast<const forms::TabStrip&>(control), state);
  return state;
}

Json ControlStates(const forms::Form& form, const std::vector<const forms::Control*>& controls) {
  std::set<std::string> names;
  for (const forms::Control* control : controls) names.insert(control->Name());
  Json states = Json::object();
  for (const forms::Control* control : form.Controls()) {
    if (names.count(control->Name()) == 0) continue;
    if (control->Index() < 0) {
      states[control->Name()] = ControlState(*control);
    } else {
      Json& members = states[control->Name()];
      if (members.is_null()) members = Json::array();
      members.push_back(ControlState(*control));
    }
  }
  return states;
}

Json ControlStates(const forms::Form& form) {
  return ControlStates(form, {form.Controls().begin(), form.Controls().end()});
}

}  // namespace unattended
