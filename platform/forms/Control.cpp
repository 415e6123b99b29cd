#include "platform/forms/Control.h"

#include "platform/Text.h"
#include "platform/forms/Form.h"

#include <algorithm>
#include <stdexcept>

namespace forms {

namespace {

constexpr char16_t kBackspace = 8;
constexpr char16_t kTabKey = 9;
constexpr char16_t kEnter = 13;
constexpr char16_t kEscape = 27;

bool Contains(int count, int index) { return index >= 0 && index < count; }

void CheckListIndex(int count, int index) {
  if (index != -1 && !Contains(count, index)) throw std::out_of_range("no such list entry");
}

/// The number that a text of digits stands for.
/// @return false when it is empty, holds anything else, or is too long to be a number that a person steps
bool ParseNumber(const std::u16string& text, int& number) {
  constexpr std::size_t kMostDigits = 6;
  if (text.empty() || text.size() > kMostDigits) return false;
  number = 0;
  for (const char16_t unit : text) {
    if (unit < u'0' || unit > u'9') return false;
    number = number * 10 + (unit - u'0');
  }
  return true;
}

}  // namespace

std::string_view KindName(Kind kind) {
  switch (kind) {
    case Kind::kLabel:
      return "Label";
    case Kind::kLink:
      return "Link";
    case Kind::kButton:
      return "Button";
    case Kind::kCheckBox:
      return "CheckBox";
    case Kind::kOptionButton:
      return "OptionButton";
    case Kind::kComboBox:
      return "ComboBox";
    case Kind::kListBox:
      return "ListBox";
    case Kind::kTextBox:
      return "TextBox";
    case Kind::kUpDown:
      return "UpDown";
    case Kind::kTabStrip:
      return "TabStrip";
    case Kind::kFrame:
      return "Frame";
    case Kind::kStatusBar:
      return "StatusBar";
    case Kind::kImage:
      return "Image";
    case Kind::kMenu:
      return "Menu";
    case Kind::kMenuItem:
      return "MenuItem";
  }
  return "Control";
}

Control::Control(Form& form, std::string name, Kind kind, int index)
    : form_(form), name_(std::move(name)), kind_(kind), index_(index) {
  form_.Add(*this);
}

void Control::SetCaption(std::u16string_view value) {
  if (caption_ == value) return;
  caption_ = value;
  Changed();
}

void Control::SetToolTip(std::u16string_view value) {
  if (toolTip_ == value) return;
  toolTip_ = value;
  Changed();
}

void Control::SetEnabled(bool value) {
  if (enabled_ == value) return;
  enabled_ = value;
  Changed();
}

void Control::SetVisible(bool value) {
  if (visible_ == value) return;
  visible_ = value;
  Changed();
}

bool Control::Usable() const {
  if (!form_.Visible()) return false;
  for (const Control* control = this; control != nullptr; control = control->parent_) {
    if (!control->visible_ || !control->enabled_) return false;
  }
  return true;
}

bool Control::TakesFocus() const {
  switch (kind_) {
    case Kind::kButton:
    case Kind::kCheckBox:
    case Kind::kOptionButton:
    case Kind::kComboBox:
    case Kind::kListBox:
    case Kind::kTextBox:
    case Kind::kTabStrip:
      return true;
    default:
      return false;
  }
}

void Control::SetFocus() {
  if (TakesFocus() && Usable()) form_.MoveFocus(this);
}

bool Control::UserFocus() {
  if (!TakesFocus() || !Usable()) return false;
  form_.MoveFocus(this);
  return true;
}

bool Control::Approach() {
  if (!Usable()) return false;
  if (TakesFocus()) form_.MoveFocus(this);
  return Usable();
}

bool Control::UserClick() {
  if (!Usable()) return false;
  if (Approach()) RaiseClick();
  return true;
}

bool Control::UserKey(char16_t character) {
  if (!TakesFocus() || !Usable()) return false;
  if (!Approach()) return true;
  if (!onKeyPress || onKeyPress(character)) TakeKey(character);
  return true;
}

void Control::TakeKey(char16_t character) {
  const auto press = [](Control* button) {
    if (button != nullptr && button->Usable()) button->RaiseClick();
  };
  switch (character) {
    case kTabKey:
      form_.UserTab(1);
      break;
    case kEnter:
      press(kind_ == Kind::kButton ? this : form_.DefaultButton());
      break;
    case kEscape:
      press(form_.CancelButton());
      break;
    case u' ':
      UserClick();
      break;
    default:
      break;
  }
}

void Control::Changed() { form_.NotifyChanged(this); }

void Control::RaiseClick() {
  if (onClick) onClick();
}

void Control::RaiseChange() {
  if (onChange) onChange();
}

void Label::SetWidth(int value) {
  if (width_ == value) return;
  width_ = value;
  Changed();
}

void StatusBar::SetSimpleText(std::u16string_view value) {
  if (text_ == value) return;
  text_ = value;
  Changed();
}

void CheckBox::SetValue(int value) {
  const int wanted = value == 0 ? 0 : 1;
  if (value_ == wanted) return;
  value_ = wanted;
  Changed();
  RaiseClick();
}

bool CheckBox::UserSetValue(int value) {
  if (!Usable()) return false;
  if (Approach()) SetValue(value);
  return true;
}

bool CheckBox::UserClick() { return UserSetValue(value_ == 0 ? 1 : 0); }

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  Changed();
  if (!value) return;
  for (Control* control : Owner().Controls()) {
    if (control == this || control->Name() != Name()) continue;
    auto& other = static_cast<OptionButton&>(*control);
    if (!other.value_) continue;
    other.value_ = false;
    other.Changed();
  }
  RaiseClick();
}

bool OptionButton::UserClick() {
  if (!Usable()) return false;
  if (Approach()) SetValue(true);
  return true;
}

void ComboBox::Clear() {
  if (items_.empty()) return;
  items_.clear();
  listIndex_ = -1;
  Changed();
}

void ComboBox::AddItem(std::u16string_view text, int itemData) {
  items_.push_back({std::u16string(text), itemData, false});
  Changed();
}

void ComboBox::SetListIndex(int index) {
  CheckListIndex(ListCount(), index);
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed();
  RaiseClick();
}

bool ComboBox::UserSetListIndex(int index) {
  if (!Usable() || !Contains(ListCount(), index)) return false;
  if (Approach()) SetListIndex(index);
  return true;
}

void ListBox::Clear() {
  if (items_.empty()) return;
  items_.clear();
  listIndex_ = -1;
  Changed();
}

void ListBox::AddItem(std::u16string_view text) {
  items_.push_back({std::u16string(text), 0, false});
  Changed();
}

void ListBox::RemoveItem(int index) {
  if (!Contains(ListCount(), index)) throw std::out_of_range("no such list entry");
  items_.erase(items_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  Changed();
}

void ListBox::SetSelected(int index, bool value) {
  ListItem& item = items_.at(static_cast<std::size_t>(index));
  if (item.selected == value) return;
  item.selected = value;
  Changed();
  RaiseClick();
}

int ListBox::SelCount() const {
  return static_cast<int>(
      std::count_if(items_.begin(), items_.end(), [](const ListItem& item) { return item.selected; }));
}

void ListBox::SetListIndex(int index) {
  CheckListIndex(ListCount(), index);
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed();
  RaiseClick();
}

bool ListBox::UserSetSelected(int index, bool value) {
  if (!Usable() || !Contains(ListCount(), index)) return false;
  // The focus change may have altered the list.
  if (Approach() && Contains(ListCount(), index)) SetSelected(index, value);
  return true;
}

bool ListBox::UserClickItem(int index) {
  if (!Usable() || !Contains(ListCount(), index)) return false;
  if (Approach() && Contains(ListCount(), index)) {
    listIndex_ = index;
    SetSelected(index, !Selected(index));
  }
  return true;
}

void ListBox::TakeKey(char16_t character) {
  if (character != u' ') {
    Control::TakeKey(character);
  } else if (Contains(ListCount(), listIndex_)) {
    SetSelected(listIndex_, !Selected(listIndex_));
  }
}

void TextBox::SetText(std::u16string_view value) {
  if (text_ == value) return;
  text_ = value;
  Changed();
  RaiseChange();
}

bool TextBox::UserSetText(std::u16string_view value) {
  if (readOnly_ || !Usable()) return false;
  if (Approach()) SetText(value);
  return true;
}

void TextBox::TakeKey(char16_t character) {
  if (character == kBackspace) {
    if (!readOnly_ && !text_.empty()) SetText(std::u16string_view(text_).substr(0, text_.size() - 1));
  } else if (character >= u' ') {
    if (!readOnly_) SetText(text_ + character);
  } else {
    Control::TakeKey(character);
  }
}

bool UpDown::UserStep(int direction) {
  if (!Usable() || (direction != 0 && direction != 1)) return false;
  buddy_.SetFocus();
  if (!Usable()) return true;
  int number = minimum_;
  if (ParseNumber(buddy_.Text(), number)) number += direction == 1 ? 1 : -1;
  buddy_.SetText(Decimal(std::clamp(number, minimum_, maximum_)));
  RaiseClick();
  return true;
}

void TabStrip::SetSelectedTab(int index) {
  if (!Contains(static_cast<int>(tabs_.size()), index)) throw std::out_of_range("no such tab");
  if (selected_ == index) return;
  selected_ = index;
  Changed();
  RaiseClick();
}

bool TabStrip::UserSelectTab(int index) {
  if (!Usable() || !Contains(static_cast<int>(tabs_.size()), index)) return false;
  if (Approach()) SetSelectedTab(index);
  return true;
}

}  // namespace forms
