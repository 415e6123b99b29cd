#pragma once

#include <functional>
#include <string>

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"

/// A progress form that is shown modally and does a piece of work itself: when it is activated it works, then closes
/// itself, which returns control to whoever shows it. The caller sets its labels first.
class WorkProgressForm : public forms::Form {
 public:
  forms::Label lblLabel1{*this, "lblLabel1"};
  forms::Label lblLabel2{*this, "lblLabel2"};
  forms::Label lblLabel3{*this, "lblLabel3"};
  forms::Label lblProgBarTotal{*this, "lblProgBarTotal"};
  forms::Label lblProgBarCompleted{*this, "lblProgBarCompleted"};

 protected:
  /// @param work what it throws leaves through the modal show; the form is closed all the same
  WorkProgressForm(forms::FormHost& host, std::string name, std::function<void()> work);

  forms::Layout MakeLayout() override;
  void OnActivate() override;

 private:
  std::function<void()> work_;
};
