#include "hosts/unattended/DialogAnswers.h"

#include <array>
#include <utility>

namespace unattended {

namespace {

/// The button that answers a form nobody said anything about; every other form is cancelled.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kDefaultButtons = {{
    {"frmKVXOptions", "cmdOK"},
    {"frmKVX_COM", "cmdOK"},
    {"frmKVXFormatInstrux", "cmdOK"},
    {"frmKVXAbout_COM", "cmdOK"},
    {"frmKVXShowHelp", "cmdNo"},
}};

os::Pressed DecliningButton(os::Buttons buttons) {
  switch (buttons) {
    case os::Buttons::kOk:
      return os::Pressed::kOk;
    case os::Buttons::kYesNo:
      return os::Pressed::kNo;
    default:
      return os::Pressed::kCancel;
  }
}

}  // namespace

void DialogAnswers::Fail(const std::string& reason) {
  if (failure_.empty()) failure_ = reason;
}

os::Pressed DialogAnswers::AnswerMessage(std::u16string_view title, os::Buttons buttons) {
  return failure_.empty() ? ChooseButton(title, buttons) : DecliningButton(buttons);
}

std::u16string DialogAnswers::AnswerFile(std::u16string_view title) {
  return failure_.empty() ? ChooseFile(title) : std::u16string();
}

void DialogAnswers::AnswerForm(forms::Form& form, const std::function<void()>& stepDone) {
  const int outer = formsWorkedIn_;
  // Also when the host's own error leaves the form.
  struct Restored {
    int& count;
    int value;
    ~Restored() { count = value; }
  };
  {
    const Restored restored{formsWorkedIn_, outer};
    formsWorkedIn_ = outer + 1;
    try {
      if (failure_.empty()) WorkIn(form, stepDone);
    } catch (const RunEnded&) {
      // The failure is noted; the form is ended below.
    }
    // What comes while the form is ended is clean-up, which is not left.
    formsWorkedIn_ = 0;
    if (form.Visible()) EndForm(form, stepDone);
  }
  LeaveFailedStep();
}

void DialogAnswers::LeaveFailedStep() const {
  if (!failure_.empty() && formsWorkedIn_ > 0) throw RunEnded();
}

void DialogAnswers::EndForm(forms::Form& form, const std::function<void()>& stepDone) {
  forms::Control* cancel = form.Find("cmdCancel");
  if (cancel != nullptr && cancel->UserClick()) stepDone();
  if (form.Visible()) form.UserClose();
  if (form.Visible()) {
    Fail(form.Name() + " was left open and cannot be ended");
    form.Hide();
  }
}

os::Pressed DialogAnswers::DefaultButton(std::u16string_view title, os::Buttons buttons) {
  const bool yesNo = buttons == os::Buttons::kYesNo || buttons == os::Buttons::kYesNoCancel;
  if (!yesNo) return os::Pressed::kOk;
  return title == u"Mis-matched double quotes" ? os::Pressed::kNo : os::Pressed::kYes;
}

void DialogAnswers::WorkByDefault(forms::Form& form, const std::function<void()>& stepDone) {
  for (const auto& [name, button] : kDefaultButtons) {
    if (form.Name() != name) continue;
    forms::Control* control = form.Find(button);
    if (control != nullptr && control->UserClick()) stepDone();
  }
}

}  // namespace unattended
