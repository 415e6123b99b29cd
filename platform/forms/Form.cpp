#include "platform/forms/Form.h"

#include "platform/forms/FormHost.h"

#include <algorithm>
#include <utility>

namespace forms {

namespace {

void CollectTabOrder(const LayoutNode& node, std::vector<Control*>& order) {
  if (node.type == LayoutNode::Type::kControl && node.control->TakesFocus()) order.push_back(node.control);
  for (const LayoutNode& child : node.children) CollectTabOrder(child, order);
}

}  // namespace

Form::Form(FormHost& host, std::string name) : host_(host), name_(std::move(name)) {}

Form::~Form() {
  if (!loaded_) return;
  // The controls, members of the derived class, are gone already.
  controls_.clear();
  tabOrder_.clear();
  layout_ = {};
  active_ = default_ = cancel_ = nullptr;
  listener_ = nullptr;
  visible_ = loaded_ = false;
  try {
    host_.Unloaded(*this);
  } catch (...) {
    // A destructor has nobody to tell.
  }
}

void Form::SetCaption(std::u16string_view value) {
  if (caption_ == value) return;
  caption_ = value;
  NotifyChanged(nullptr);
}

void Form::Load() {
  if (loaded_) return;
  if (!layoutMade_) {
    layout_ = MakeLayout();
    CollectTabOrder(layout_, tabOrder_);
    layoutMade_ = true;
  }
  loaded_ = true;
  host_.Loaded(*this);
  OnLoad();
}

void Form::Shown() {
  if (visible_) return;
  visible_ = true;
  OnActivate();
  if (!visible_ || active_ != nullptr) return;
  const auto first =
      std::find_if(tabOrder_.begin(), tabOrder_.end(), [this](const Control* control) { return IsTabStop(*control); });
  if (first != tabOrder_.end()) MoveFocus(*first);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  host_.Hidden(*this);
}

void Form::Unload() {
  if (loaded_) Close(UnloadReason::kCode);
}

bool Form::UserClose() {
  if (!visible_ || !hasCloseBox_) return false;
  Close(UnloadReason::kControlMenu);
  return true;
}

void Form::Close(UnloadReason reason) {
  OnQueryUnload(reason);
  Hide();
  if (!loaded_) return;
  loaded_ = false;
  active_ = nullptr;
  host_.Unloaded(*this);
}

Control* Form::Find(std::string_view name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->Name() == name && control->Index() == index;
  });
  return found == controls_.end() ? nullptr : *found;
}

bool Form::IsTabStop(const Control& control) const {
  if (!control.Usable()) return false;
  if (control.ControlKind() != Kind::kOptionButton) return true;
  if (static_cast<const OptionButton&>(control).Value()) return true;
  return std::none_of(tabOrder_.begin(), tabOrder_.end(), [&](const Control* other) {
    return other->Name() == control.Name() && static_cast<const OptionButton*>(other)->Value();
  });
}

void Form::UserTab(int direction) {
  const int count = static_cast<int>(tabOrder_.size());
  const auto place = std::find(tabOrder_.begin(), tabOrder_.end(), active_);
  int index = place == tabOrder_.end() ? (direction > 0 ? -1 : count) : static_cast<int>(place - tabOrder_.begin());
  for (int step = 0; step < count; ++step) {
    index = (index + (direction > 0 ? 1 : -1) + count) % count;
    Control* control = tabOrder_[static_cast<std::size_t>(index)];
    if (!IsTabStop(*control)) continue;
    MoveFocus(control);
    return;
  }
}

bool Form::UserHelp(Control& control) {
  if (!control.Usable()) return false;
  if (control.TakesFocus()) MoveFocus(&control);
  OnHelp(control);
  return true;
}

void Form::SetDefaultButton(Control* button) {
  if (default_ == button) return;
  default_ = button;
  NotifyChanged(nullptr);
}

void Form::Repaint() { host_.Repaint(*this); }

void Form::MoveFocus(Control* control) {
  if (active_ == control) return;
  Control* left = active_;
  active_ = control;
  if (left != nullptr && left->onLostFocus) left->onLostFocus();
  // The handler may have sent the focus elsewhere.
  if (active_ == control && control->onGotFocus) control->onGotFocus();
}

void Form::NotifyChanged(Control* control) {
  if (listener_ != nullptr) listener_->Changed(*this, control);
}

}  // namespace forms
