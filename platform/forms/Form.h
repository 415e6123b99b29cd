#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/forms/Control.h"
#include "platform/forms/Layout.h"

namespace forms {

class FormHost;

/// Who unloads a form: a person by the title bar or control menu, or the program.
enum class UnloadReason { kControlMenu, kCode };

/// A dialog: its controls as members, its rules as their handlers. Creating a form, loading it, showing it,
/// hiding it and unloading it are separate steps; a hidden form is still loaded. Forms are made for one run.
class Form {
 public:
  /// @param name the class name, by which scripts know it. The host outlives the form.
  Form(FormHost& host, std::string name);
  /// A form that is still loaded is unloaded, without OnQueryUnload.
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string_view value);

  /// Makes the form ready to be shown and raises OnLoad; nothing when it is loaded. What OnLoad throws leaves through
  /// it.
  void Load();
  bool Loaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  /// Called by hosts when they show the form: makes it visible, raises OnActivate, and gives the focus to the first
  /// control in tab order unless one has it. The form may hide itself meanwhile. What OnActivate throws leaves through
  /// it.
  void Shown();
  /// Nothing when it is not visible.
  void Hide();
  /// Raises OnQueryUnload with kCode, hides and unloads. The controls keep their last values. Nothing when it is not
  /// loaded.
  void Unload();
  /// A person closes it by its close box: OnQueryUnload with kControlMenu, then it is unloaded. False where the box was
  /// taken away and on a form that is not visible.
  bool UserClose();
  bool HasCloseBox() const { return hasCloseBox_; }
  void TakeCloseBoxAway() { hasCloseBox_ = false; }

  /// What the caller of a modal show reads afterwards, such as "OK", "Cancel" or "Done".
  const std::u16string& Tag() const { return tag_; }
  void SetTag(std::u16string_view value) { tag_ = value; }

  /// In the order of their construction.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// nullptr when there is none. @param index -1 for a control of its own
  Control* Find(std::string_view name, int index = -1) const;
  /// nullptr when none has the focus.
  Control* ActiveControl() const { return active_; }
  /// The focus goes to the control after (1) or before (-1) the active one in tab order, past the ends to the other
  /// side, skipping what cannot take the focus; of a group of options only the chosen one takes it.
  void UserTab(int direction);
  /// A person asks for help on a control (F1), which first gets the focus. False when it cannot be used.
  bool UserHelp(Control& control);
  /// The button that Enter presses; nullptr: none.
  Control* DefaultButton() const { return default_; }
  void SetDefaultButton(Control* button);
  /// The button that Escape presses; nullptr: none.
  Control* CancelButton() const { return cancel_; }
  void SetCancelButton(Control* button) { cancel_ = button; }

  const Layout& GetLayout() const { return layout_; }
  void Repaint();

  /// Told of every change of state, for renderers and transcripts; one listener at a time, nullptr for none.
  class Listener {
   public:
    virtual ~Listener() = default;
    /// @param control nullptr: the form itself (caption, default button)
    virtual void Changed(Form& form, Control* control) = 0;
  };
  void SetListener(Listener* listener) { listener_ = listener; }

 protected:
  /// Captions, tool tips, grouping and tab order; called once, by the first Load.
  virtual Layout MakeLayout() = 0;
  virtual void OnLoad() {}
  virtual void OnActivate() {}
  virtual void OnQueryUnload(UnloadReason) {}
  virtual void OnHelp(Control&) {}

 private:
  friend class Control;
  void Add(Control& control) { controls_.push_back(&control); }
  void MoveFocus(Control* control);
  void NotifyChanged(Control* control);
  void Close(UnloadReason reason);
  bool IsTabStop(const Control& control) const;

  FormHost& host_;
  std::string name_;
  std::u16string caption_;
  std::u16string tag_;
  std::vector<Control*> controls_;
  Layout layout_;
  Control* active_{nullptr};
  Control* default_{nullptr};
  Control* cancel_{nullptr};
  Listener* listener_{nullptr};
  std::vector<Control*> tabOrder_;
  bool layoutMade_{false};
  bool loaded_{false};
  bool visible_{false};
  bool hasCloseBox_{true};
};

}  // namespace forms
