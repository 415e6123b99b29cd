#pragma once

#include <QKeyEvent>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

#include "platform/forms/Control.h"

namespace qt {

/// What a person does in a window passes here, one thing at a time: while one is being handled, or while the window is
/// being brought to the form's state, nothing else reaches the form.
class ActionGate {
 public:
  virtual ~ActionGate() = default;
  /// Does it, unless something is being done, and then brings the window to the form's state.
  virtual void Act(const std::function<void()>& action) = 0;
};

/// A control's window: mirrors the control, and hands on what a person does to it. The widget belongs to its window.
class ControlView {
 public:
  ControlView(forms::Control& control, QWidget& widget);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  forms::Control& Of() const { return control_; }
  QWidget& Widget() const { return widget_; }
  /// Where the mouse is pressed, when that is not the widget itself.
  virtual QWidget* MouseArea() const { return nullptr; }

  /// Brings the widget to the control's state.
  void Mirror();
  /// A key that is neither an accelerator nor one of a dialog's own. @return whether it was taken
  virtual bool TakeKey(QKeyEvent& event);
  /// Whether pressing the mouse gives it the focus; else a click does, when it is complete.
  virtual bool FocusOnPress() const { return false; }

  /// It changed since it was mirrored.
  bool stale{true};

 protected:
  virtual void MirrorState() {}

 private:
  forms::Control& control_;
  QWidget& widget_;
};

/// The name of a control's widget: "cmdOK", and "cmdSaveList(0)" for an element of a control array.
QString WidgetName(const forms::Control& control);

/// What a label is drawn as: a text, a line of changing text in a window that keeps its width, or a part of a bar.
enum class LabelStyle { kText, kLine, kBar };

/// The window for a control, by its kind; a menu and its items have none here.
std::unique_ptr<ControlView> MakeControlView(forms::Control& control, QWidget& parent, ActionGate& gate,
                                             LabelStyle style);

}  // namespace qt
