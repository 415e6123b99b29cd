#pragma once

#include <QDialog>
#include <QEventLoop>

#include <exception>
#include <memory>
#include <vector>

#include "hosts/qt/forms/ControlView.h"
#include "platform/forms/Form.h"

namespace qt {

/// The window of one loaded form. The form holds the truth: the window shows it, and tells the form what a person does.
class FormWindow : public QDialog, public ActionGate, private forms::Form::Listener {
 public:
  /// @param owner the window that it stands before; may be nullptr
  FormWindow(forms::Form& form, QWidget* owner);
  ~FormWindow() override;

  /// The form has gone: the window goes as soon as it can.
  void Leave();
  void Appear(bool modal);
  /// Returns when the form was hidden or unloaded. What a handler threw leaves through it.
  void WaitUntilHidden();
  void Disappear();
  /// Brings the window to the form's state.
  void Refresh();
  void TakeCloseBoxAway();
  void SetHorizontalExtent(std::string_view list, int width);
  /// nullptr after the form has gone.
  forms::Form* ShownForm() const { return form_; }

  void Act(const std::function<void()>& action) override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* target, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override {}
  void accept() override {}

 private:
  void Changed(forms::Form& form, forms::Control* control) override;
  QSize RoomForTitle() const;
  void RefreshLater();
  void RefreshControls();
  void RefreshFocus();
  ControlView* ViewOf(const QObject* widget) const;
  bool Press(ControlView& view);
  bool Key(ControlView* view, QKeyEvent& event);
  bool IsOwnKey(const QKeyEvent& event) const;
  bool Accelerator(char16_t letter);
  void HelpWithoutFocus();
  forms::Control* AcceleratorTarget(std::size_t view) const;

  forms::Form* form_;
  std::vector<std::unique_ptr<ControlView>> views_;
  QEventLoop loop_;
  std::exception_ptr failure_;
  bool acting_{false};
  bool mirroring_{true};  ///< until the window is made
  bool refreshDue_{false};
  /// How often another window has come before this one.
  int blocked_{0};
};

}  // namespace qt
