#pragma once

#include <map>
#include <vector>

#include "hosts/unattended/DialogAnswers.h"
#include "hosts/unattended/Transcript.h"
#include "platform/forms/Form.h"
#include "platform/forms/FormHost.h"
#include "platform/os/Messages.h"

namespace unattended {

/// Told of what a person at the screen would see.
class UnattendedObserver {
 public:
  virtual ~UnattendedObserver() = default;
  virtual void FormShown(const forms::Form& form) { static_cast<void>(form); }
  /// The form was hidden or unloaded; its controls still hold their last values.
  virtual void FormEnded(const forms::Form& form) { static_cast<void>(form); }
  virtual void MessageShown(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons,
                            os::Pressed pressed) {
    static_cast<void>(title), static_cast<void>(text), static_cast<void>(icon);
    static_cast<void>(buttons), static_cast<void>(pressed);
  }
  /// A progress form appears, changes, or goes away.
  virtual void ProgressShown(const ProgressState& state, Transcript::Phase phase) {
    static_cast<void>(state), static_cast<void>(phase);
  }
};

/// Shows nothing: dialogs are answered in a person's place as soon as they come, and everything is written to the
/// transcript. Forms that show progress are told as progress, those of them that are modal as forms too.
class UnattendedHost : public forms::FormHost, public os::Messages, private forms::Form::Listener {
 public:
  /// All outlive the host. @param transcript, observer nullptr: none
  UnattendedHost(DialogAnswers& answers, Transcript* transcript, UnattendedObserver* observer);
  UnattendedHost(const UnattendedHost&) = delete;
  UnattendedHost& operator=(const UnattendedHost&) = delete;

  void ShowModal(forms::Form& form) override;
  void ShowModeless(forms::Form& form) override;
  void Loaded(forms::Form& form) override;
  void Hidden(forms::Form& form) override;
  void Unloaded(forms::Form& form) override;
  void Repaint(forms::Form& form) override;
  void DoEvents() override {}
  int TextWidth(forms::Form& form, std::u16string_view text) override;
  void SetHorizontalExtent(forms::Form&, std::string_view, int) override {}
  std::intptr_t RemoveCloseBox(std::u16string_view caption) override;
  std::intptr_t WindowHandle(forms::Form&) override { return 0; }

  os::Pressed Show(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons) override;

 private:
  void Changed(forms::Form& form, forms::Control* control) override;
  /// A form that a person would see.
  struct ShownForm {
    forms::Form* form;
    /// Told of as a form, not only as progress.
    bool toldAsForm;
  };

  bool IsShown(const forms::Form& form) const;
  void Begin(forms::Form& form, bool modal);
  void End(forms::Form& form);
  /// Writes the controls that changed since they were written last.
  void WriteChanges(forms::Form& form);
  void WriteProgress(const forms::Form& form, Transcript::Phase phase);

  DialogAnswers& answers_;
  Transcript* transcript_;
  UnattendedObserver* observer_;
  /// In the order in which they came.
  std::vector<ShownForm> shown_;
  std::map<const forms::Form*, std::vector<const forms::Control*>> changed_;
};

}  // namespace unattended
