#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace forms {

class Form;

/// What a control is, by which renderers choose a window for it.
enum class Kind {
  kLabel,
  kLink,
  kButton,
  kCheckBox,
  kOptionButton,
  kComboBox,
  kListBox,
  kTextBox,
  kUpDown,
  kTabStrip,
  kFrame,
  kStatusBar,
  kImage,
  kMenu,
  kMenuItem
};

/// "CheckBox" for kCheckBox, and so on.
std::string_view KindName(Kind kind);

/// One control of a form. It holds the state that a window mirrors, and lives as long as its form.
///
/// Every value can be set in two ways. Set...() is code's way: it works on disabled and hidden controls and
/// raises Click (text boxes: Change) as a person's action does, when the value changes. User...() is a person's (or a
/// script's) way: it is refused (returns false, nothing happens) when the control or its form cannot be used, and first
/// gives the control the focus; where the focus change itself makes the control unusable, nothing more happens. A
/// handler that is not set means nothing happens.
class Control {
 public:
  /// @param name unique in the form, but for elements of a control array, which share it
  /// @param index the element's number from 0; -1 for a control of its own
  Control(Form& form, std::string name, Kind kind, int index = -1);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& Owner() const { return form_; }
  const std::string& Name() const { return name_; }
  Kind ControlKind() const { return kind_; }
  int Index() const { return index_; }

  /// "&" stands before the letter that is the accelerator.
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string_view value);
  const std::u16string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::u16string_view value);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool value);
  bool Visible() const { return visible_; }
  void SetVisible(bool value);
  /// Visible and enabled, and so is every frame around it, on a form that is shown.
  bool Usable() const;
  /// Whether a person can give it the focus at all.
  virtual bool TakesFocus() const;

  /// Gives the focus from code; the same events as a person's. Nothing when it cannot take it.
  void SetFocus();
  /// A person goes to the control (mouse or Tab).
  bool UserFocus();
  /// A person clicks it: buttons, links, images, menu items; boxes and options through their own members too.
  virtual bool UserClick();
  /// A person types a character. onKeyPress may discard it. Else Tab (9) moves the focus on, Enter (13) presses the
  /// button that has the focus or the default one, Escape (27) the cancel button, and a blank presses or turns over
  /// what can be clicked. False also for a control that never has the focus.
  bool UserKey(char16_t character);

  std::function<void()> onClick;
  std::function<void()> onChange;
  std::function<void()> onGotFocus;
  /// When it runs, Form::ActiveControl() is already the control that receives the focus.
  std::function<void()> onLostFocus;
  /// @return false to discard the key
  std::function<bool(char16_t)> onKeyPress;
  std::function<void()> onMouseMove;

  /// The frame that holds it; set by the layout; nullptr directly on the form.
  Control* Parent() const { return parent_; }
  void SetParent(Control* frame) { parent_ = frame; }

 protected:
  void Changed();
  void RaiseClick();
  void RaiseChange();
  /// Gives it the focus as a person does. @return whether it can be used, before and after that
  bool Approach();
  /// A key that was not discarded.
  virtual void TakeKey(char16_t character);

 private:
  Form& form_;
  std::string name_;
  Kind kind_;
  int index_;
  std::u16string caption_;
  std::u16string toolTip_;
  bool enabled_{true};
  bool visible_{true};
  Control* parent_{nullptr};
};

class Label : public Control {
 public:
  Label(Form& form, std::string name, int index = -1) : Control(form, std::move(name), Kind::kLabel, index) {}
  /// For labels that draw a bar, in units of their own; 0: as wide as its text.
  int Width() const { return width_; }
  void SetWidth(int value);

 private:
  int width_{0};
};

class LinkLabel : public Control {
 public:
  LinkLabel(Form& form, std::string name) : Control(form, std::move(name), Kind::kLink) {}
};

class Button : public Control {
 public:
  Button(Form& form, std::string name, int index = -1) : Control(form, std::move(name), Kind::kButton, index) {}
};

class Image : public Control {
 public:
  Image(Form& form, std::string name) : Control(form, std::move(name), Kind::kImage) {}
};

class Frame : public Control {
 public:
  Frame(Form& form, std::string name, int index = -1) : Control(form, std::move(name), Kind::kFrame, index) {}
};

class StatusBar : public Control {
 public:
  StatusBar(Form& form, std::string name) : Control(form, std::move(name), Kind::kStatusBar) {}
  const std::u16string& SimpleText() const { return text_; }
  void SetSimpleText(std::u16string_view value);

 private:
  std::u16string text_;
};

/// A menu of the form's menu bar; its items are MenuItems that name it.
class Menu : public Control {
 public:
  Menu(Form& form, std::string name) : Control(form, std::move(name), Kind::kMenu) {}
};

class MenuItem : public Control {
 public:
  MenuItem(Form& form, std::string name, Menu& menu) : Control(form, std::move(name), Kind::kMenuItem) {
    SetParent(&menu);
  }
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name) : Control(form, std::move(name), Kind::kCheckBox) {}
  /// 0 cleared, 1 ticked.
  int Value() const { return value_; }
  void SetValue(int value);
  bool UserSetValue(int value);
  bool UserClick() override;

 private:
  int value_{0};
};

/// One element of an array of option buttons, of which at most one is chosen.
class OptionButton : public Control {
 public:
  OptionButton(Form& form, std::string name, int index) : Control(form, std::move(name), Kind::kOptionButton, index) {}
  bool Value() const { return value_; }
  /// True also clears the others of the array, and only it raises Click. Choosing what is chosen raises nothing.
  void SetValue(bool value);
  /// A click on the option that is already chosen raises nothing.
  bool UserClick() override;

 private:
  bool value_{false};
};

/// The elements of a control array: controls that share a name, numbered from 0.
template <class Element, std::size_t N>
class ControlArray {
 public:
  ControlArray(Form& form, const std::string& name) : ControlArray(form, name, std::make_index_sequence<N>()) {}
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  static constexpr int Count() { return static_cast<int>(N); }
  Element& operator[](int index) { return elements_.at(static_cast<std::size_t>(index)); }
  const Element& operator[](int index) const { return elements_.at(static_cast<std::size_t>(index)); }
  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }

 private:
  template <std::size_t... I>
  ControlArray(Form& form, const std::string& name, std::index_sequence<I...>)
      : elements_{Element(form, name, static_cast<int>(I))...} {}

  std::array<Element, N> elements_;
};

/// An array of option buttons: one group, of which at most one is chosen.
template <std::size_t N>
class OptionButtons : public ControlArray<OptionButton, N> {
 public:
  using ControlArray<OptionButton, N>::ControlArray;
  /// The number of the chosen element; -1: none.
  int Selected() const {
    for (int i = 0; i < this->Count(); ++i) {
      if ((*this)[i].Value()) return i;
    }
    return -1;
  }
};

struct ListItem {
  std::u16string text;
  int itemData{0};
  bool selected{false};
};

/// A drop-down list; entries numbered from 0.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name) : Control(form, std::move(name), Kind::kComboBox) {}
  void Clear();
  void AddItem(std::u16string_view text, int itemData = 0);
  int ListCount() const { return static_cast<int>(items_.size()); }
  /// -1: none chosen.
  int ListIndex() const { return listIndex_; }
  /// @throws std::out_of_range for an index that is neither an entry's nor -1
  void SetListIndex(int index);
  bool UserSetListIndex(int index);
  const std::u16string& List(int index) const { return items_.at(static_cast<std::size_t>(index)).text; }
  int ItemData(int index) const { return items_.at(static_cast<std::size_t>(index)).itemData; }

 private:
  std::vector<ListItem> items_;
  int listIndex_{-1};
};

/// A list of which any number of entries can be selected; with check boxes the ticks are the selection.
class ListBox : public Control {
 public:
  ListBox(Form& form, std::string name, bool checkBoxes = false)
      : Control(form, std::move(name), Kind::kListBox), checkBoxes_(checkBoxes) {}
  bool HasCheckBoxes() const { return checkBoxes_; }
  void Clear();
  void AddItem(std::u16string_view text);
  void RemoveItem(int index);
  int ListCount() const { return static_cast<int>(items_.size()); }
  const std::u16string& List(int index) const { return items_.at(static_cast<std::size_t>(index)).text; }
  bool Selected(int index) const { return items_.at(static_cast<std::size_t>(index)).selected; }
  void SetSelected(int index, bool value);
  int SelCount() const;
  /// The current entry, which need not be selected; -1: none.
  int ListIndex() const { return listIndex_; }
  /// @throws std::out_of_range for an index that is neither an entry's nor -1
  void SetListIndex(int index);
  bool UserSetSelected(int index, bool value);
  /// A click on an entry makes it current and turns its selection over.
  bool UserClickItem(int index);

 protected:
  /// A blank turns the current entry's selection over.
  void TakeKey(char16_t character) override;

 private:
  std::vector<ListItem> items_;
  int listIndex_{-1};
  bool checkBoxes_;
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, bool readOnly = false)
      : Control(form, std::move(name), Kind::kTextBox), readOnly_(readOnly) {}
  bool ReadOnly() const { return readOnly_; }
  const std::u16string& Text() const { return text_; }
  /// Raises Change when the text changes.
  void SetText(std::u16string_view value);
  /// The whole text at once, as when it is pasted: no key presses. Refused by a read-only box.
  bool UserSetText(std::u16string_view value);

 protected:
  /// A character goes to the text's end; Backspace (8) takes the last one away.
  void TakeKey(char16_t character) override;

 private:
  std::u16string text_;
  bool readOnly_;
};

/// Steps the number in its text box within its range; element 0 is down, 1 is up. It never has the focus itself: a
/// person's step gives it to the text box.
class UpDown : public Control {
 public:
  UpDown(Form& form, std::string name, TextBox& buddy, int minimum, int maximum)
      : Control(form, std::move(name), Kind::kUpDown), buddy_(buddy), minimum_(minimum), maximum_(maximum) {}
  /// @param direction 0 down, 1 up. A text that is no number counts as the minimum.
  bool UserStep(int direction);

 private:
  TextBox& buddy_;
  int minimum_;
  int maximum_;
};

class TabStrip : public Control {
 public:
  TabStrip(Form& form, std::string name, std::vector<std::u16string> tabs)
      : Control(form, std::move(name), Kind::kTabStrip), tabs_(std::move(tabs)) {}
  const std::vector<std::u16string>& Tabs() const { return tabs_; }
  /// From 0.
  int SelectedTab() const { return selected_; }
  void SetSelectedTab(int index);
  bool UserSelectTab(int index);

 private:
  std::vector<std::u16string> tabs_;
  int selected_{0};
};

}  // namespace forms
