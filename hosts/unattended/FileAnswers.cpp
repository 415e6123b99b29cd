#include "hosts/unattended/FileAnswers.h"

#include "hosts/unattended/FormScript.h"

#include <iterator>
#include <utility>

namespace unattended {

namespace {

bool HasButton(os::Buttons buttons, os::Pressed pressed) {
  switch (pressed) {
    case os::Pressed::kOk:
      return buttons == os::Buttons::kOk || buttons == os::Buttons::kOkCancel;
    case os::Pressed::kCancel:
      return buttons == os::Buttons::kOkCancel || buttons == os::Buttons::kYesNoCancel;
    default:
      return buttons == os::Buttons::kYesNo || buttons == os::Buttons::kYesNoCancel;
  }
}

}  // namespace

FileAnswers::FileAnswers(std::vector<Answer> answers, bool strict)
    : answers_(std::make_move_iterator(answers.begin()), std::make_move_iterator(answers.end())), strict_(strict) {}

void FileAnswers::Finish() {
  if (strict_ && !answers_.empty()) {
    Fail(std::to_string(answers_.size()) + " answer(s) left over; " + Describe(answers_.front()) + " never came");
  }
}

bool FileAnswers::NextFits(const Answer& dialog) const {
  if (answers_.empty() || answers_.front().kind != dialog.kind) return false;
  const Answer& next = answers_.front();
  return dialog.kind == Answer::Kind::kForm ? next.form == dialog.form : next.title == dialog.title;
}

Answer FileAnswers::TakeNext() {
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

bool FileAnswers::Refuse(const Answer& dialog) {
  if (!strict_) return false;
  Fail(Describe(dialog) + " came, but " +
       (answers_.empty() ? "no answer was left" : Describe(answers_.front()) + " was expected"));
  return true;
}

os::Pressed FileAnswers::ChooseButton(std::u16string_view title, os::Buttons buttons) {
  Answer dialog;
  dialog.kind = Answer::Kind::kMessage;
  dialog.title = title;
  const bool titleFits = NextFits(dialog);
  if (titleFits && HasButton(buttons, answers_.front().press)) return TakeNext().press;
  if (titleFits && strict_) Fail(Describe(dialog) + " came, but one with another button was expected");
  if (Refuse(dialog)) return AnswerMessage(title, buttons);
  return DefaultButton(title, buttons);
}

std::u16string FileAnswers::ChooseFile(std::u16string_view title) {
  Answer dialog;
  dialog.kind = Answer::Kind::kFile;
  dialog.title = title;
  if (NextFits(dialog)) return TakeNext().path;
  Refuse(dialog);
  return {};
}

void FileAnswers::WorkIn(forms::Form& form, const std::function<void()>& stepDone) {
  Answer dialog;
  dialog.kind = Answer::Kind::kForm;
  dialog.form = form.Name();
  if (!NextFits(dialog)) {
    if (!Refuse(dialog)) WorkByDefault(form, stepDone);
    return;
  }
  const Answer answer = TakeNext();
  for (const Step& step : answer.steps) {
    // A dialog within the last step may have failed.
    if (!Failure().empty()) return;
    if (!form.Visible()) {
      Fail(Describe(answer) + " ended before the last of its steps");
      return;
    }
    try {
      DoStep(form, step);
    } catch (const StepError& error) {
      Fail(error.what());
      return;
    }
    stepDone();
  }
}

}  // namespace unattended
