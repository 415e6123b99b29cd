#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/forms/Form.h"
#include "platform/os/Messages.h"

namespace unattended {

/// Answers dialogs in a person's place. Once it has failed, it declines every dialog, so that the run comes to its own
/// orderly end.
class DialogAnswers {
 public:
  DialogAnswers() = default;
  virtual ~DialogAnswers() = default;
  DialogAnswers(const DialogAnswers&) = delete;
  DialogAnswers& operator=(const DialogAnswers&) = delete;

  os::Pressed AnswerMessage(std::u16string_view title, os::Buttons buttons);

  /// Works in a form that is shown, and leaves it ended: hidden or unloaded.
  /// @param stepDone called after each step
  void AnswerForm(forms::Form& form, const std::function<void()>& stepDone);

  /// The first reason why a dialog could not be answered as wanted, one sentence, UTF-8; empty: none.
  const std::string& Failure() const { return failure_; }
  void Fail(const std::string& reason);

 protected:
  virtual os::Pressed ChooseButton(std::u16string_view title, os::Buttons buttons) = 0;
  /// May leave the form shown; it is then ended as a person ends it who gives up.
  virtual void WorkIn(forms::Form& form, const std::function<void()>& stepDone) = 0;

  /// What dialogs get that have no answer of their own.
  static os::Pressed DefaultButton(std::u16string_view title, os::Buttons buttons);
  void WorkByDefault(forms::Form& form, const std::function<void()>& stepDone);

 private:
  std::string failure_;
};

}  // namespace unattended
