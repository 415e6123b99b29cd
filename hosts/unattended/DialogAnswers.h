#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/forms/Form.h"
#include "platform/os/Messages.h"

namespace unattended {

/// Leaves a form's step whose work must not go on. No std::exception, so that nothing on the way shows it as an error.
struct RunEnded {};

/// Answers dialogs in a person's place. Once it has failed, it declines every dialog, so that the run comes to its own
/// orderly end.
class DialogAnswers {
 public:
  DialogAnswers() = default;
  virtual ~DialogAnswers() = default;
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  os::Pressed AnswerMessage(std::u16string_view title, os::Buttons buttons);

  /// @param title the one that the dialog shows
  /// @return a path, as the machine spells it; empty: the dialog is cancelled
  std::u16string AnswerFile(std::u16string_view title);

  /// Works in a form that is shown, and leaves it ended: hidden or unloaded.
  /// @param stepDone called after each step
  /// @throws RunEnded when it failed within a step of another form
  void AnswerForm(forms::Form& form, const std::function<void()>& stepDone);

  /// The first reason why a dialog could not be answered as wanted, one sentence, UTF-8; empty: none.
  const std::string& Failure() const { return failure_; }
  void Fail(const std::string& reason);

  /// To be called once a dialog's answer was told of. @throws RunEnded when the run has failed within a form's step;
  /// the form is then cancelled, so that the run still cleans up
  void LeaveFailedStep() const;

 protected:
  virtual os::Pressed ChooseButton(std::u16string_view title, os::Buttons buttons) = 0;
  /// Nothing unless a derived class has a file for the dialog.
  virtual std::u16string ChooseFile(std::u16string_view title) { return static_cast<void>(title), std::u16string(); }
  /// May leave the form shown; it is then ended as a person ends it who gives up.
  virtual void WorkIn(forms::Form& form, const std::function<void()>& stepDone) = 0;

  /// What dialogs get that have no answer of their own.
  static os::Pressed DefaultButton(std::u16string_view title, os::Buttons buttons);
  void WorkByDefault(forms::Form& form, const std::function<void()>& stepDone);

 private:
  void EndForm(forms::Form& form, const std::function<void()>& stepDone);

  std::string failure_;
  /// In how many forms a step may be under way that can be left.
  int formsWorkedIn_{0};
};

}  // namespace unattended
