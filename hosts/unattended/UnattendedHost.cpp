#include "hosts/unattended/UnattendedHost.h"

#include "hosts/unattended/ControlState.h"
#include "platform/forms/ProgressView.h"

#include <algorithm>

namespace unattended {

namespace {

/// Any width that grows with the text will do where nothing is drawn.
constexpr int kCharacterWidth = 7;

const forms::ProgressView* AsProgress(const forms::Form& form) {
  return dynamic_cast<const forms::ProgressView*>(&form);
}

}  // namespace

UnattendedHost::UnattendedHost(DialogAnswers& answers, Transcript* transcript, UnattendedObserver* observer)
    : answers_(answers), transcript_(transcript), observer_(observer) {}

void UnattendedHost::ShowModal(forms::Form& form) {
  form.Load();
  Begin(form, true);
  form.Shown();
  // A form that did its work when it was activated has ended already.
  if (form.Visible()) answers_.AnswerForm(form, [&] { WriteChanges(form); });
}

void UnattendedHost::ShowModeless(forms::Form& form) {
  form.Load();
  Begin(form, false);
  form.Shown();
}

void UnattendedHost::Loaded(forms::Form& form) { form.SetListener(this); }

void UnattendedHost::Begin(forms::Form& form, bool modal) {
  if (IsShown(form)) return;
  const bool progress = AsProgress(form) != nullptr;
  shown_.push_back({&form, modal || !progress});
  changed_.erase(&form);
  if (shown_.back().toldAsForm) {
    if (transcript_ != nullptr) transcript_->Form(form);
    if (observer_ != nullptr) observer_->FormShown(form);
  }
  if (progress) WriteProgress(form, Transcript::Phase::kBegin);
}

void UnattendedHost::End(forms::Form& form) {
  const auto place =
      std::find_if(shown_.begin(), shown_.end(), [&form](const ShownForm& shown) { return shown.form == &form; });
  if (place == shown_.end()) return;
  const bool toldAsForm = place->toldAsForm;
  shown_.erase(place);
  changed_.erase(&form);
  if (AsProgress(form) != nullptr) WriteProgress(form, Transcript::Phase::kEnd);
  if (!toldAsForm) return;
  if (transcript_ != nullptr) transcript_->FormEnd(form);
  if (observer_ != nullptr) observer_->FormEnded(form);
}

void UnattendedHost::Hidden(forms::Form& form) { End(form); }

void UnattendedHost::Unloaded(forms::Form& form) {
  End(form);
  form.SetListener(nullptr);
  changed_.erase(&form);
}

void UnattendedHost::Repaint(forms::Form& form) {
  if (!IsShown(form)) return;
  if (AsProgress(form) != nullptr) {
    WriteProgress(form, Transcript::Phase::kUpdate);
  } else {
    WriteChanges(form);
  }
}

int UnattendedHost::TextWidth(forms::Form&, std::u16string_view text) {
  return kCharacterWidth * static_cast<int>(text.size());
}

std::intptr_t UnattendedHost::RemoveCloseBox(std::u16string_view caption) {
  const auto found = std::find_if(shown_.rbegin(), shown_.rend(),
                                  [&](const ShownForm& shown) { return shown.form->Caption() == caption; });
  if (found == shown_.rend()) return 0;
  found->form->TakeCloseBoxAway();
  return static_cast<std::intptr_t>(shown_.rend() - found);
}

os::Pressed UnattendedHost::Show(std::u16string_view title, std::u16string_view text, os::Icon icon,
                                 os::Buttons buttons) {
  const os::Pressed pressed = answers_.AnswerMessage(title, buttons);
  if (transcript_ != nullptr) transcript_->Message(title, text, icon, buttons, pressed);
  if (observer_ != nullptr) observer_->MessageShown(title, text, icon, buttons, pressed);
  answers_.LeaveFailedStep();
  return pressed;
}

void UnattendedHost::Changed(forms::Form& form, forms::Control* control) {
  if (transcript_ == nullptr || control == nullptr || AsProgress(form) != nullptr) return;
  if (control->ControlKind() == forms::Kind::kStatusBar) {
    transcript_->Status(static_cast<const forms::StatusBar*>(control)->SimpleText());
  }
  if (!IsShown(form)) return;
  std::vector<const forms::Control*>& changed = changed_[&form];
  if (std::find(changed.begin(), changed.end(), control) == changed.end()) changed.push_back(control);
}

bool UnattendedHost::IsShown(const forms::Form& form) const {
  return std::any_of(shown_.begin(), shown_.end(), [&form](const ShownForm& shown) { return shown.form == &form; });
}

void UnattendedHost::WriteChanges(forms::Form& form) {
  const auto changed = changed_.find(&form);
  if (changed == changed_.end()) return;
  const std::vector<const forms::Control*> controls = std::move(changed->second);
  changed_.erase(changed);
  if (transcript_ != nullptr) transcript_->Controls(form, ControlStates(form, controls));
}

void UnattendedHost::WriteProgress(const forms::Form& form, Transcript::Phase phase) {
  const forms::ProgressView* view = AsProgress(form);
  const ProgressState state{form.Caption(), view->Lines(), view->Completed(), view->Total(), view->BarText()};
  if (transcript_ != nullptr) transcript_->Progress(state, phase);
  if (observer_ != nullptr) observer_->ProgressShown(state, phase);
}

}  // namespace unattended
