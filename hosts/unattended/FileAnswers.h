#pragma once

#include <deque>

#include "hosts/unattended/Answers.h"
#include "hosts/unattended/DialogAnswers.h"

namespace unattended {

/// Answers from an answers file, in its order. A dialog that the next answer does not fit gets the default answer and
/// leaves the answer for the next dialog; in strict mode it is a failure, and so is one that comes when no answer is
/// left. A step that cannot be done is always a failure.
class FileAnswers : public DialogAnswers {
 public:
  FileAnswers(std::vector<Answer> answers, bool strict);

  /// The run is over: in strict mode an answer that no dialog took is a failure.
  void Finish();

 protected:
  os::Pressed ChooseButton(std::u16string_view title, os::Buttons buttons) override;
  std::u16string ChooseFile(std::u16string_view title) override;
  void WorkIn(forms::Form& form, const std::function<void()>& stepDone) override;

 private:
  bool NextFits(const Answer& dialog) const;
  Answer TakeNext();
  /// Notes in strict mode that a dialog came for which there was no answer. @return whether that is a failure
  bool Refuse(const Answer& dialog);

  std::deque<Answer> answers_;
  bool strict_;
};

}  // namespace unattended
