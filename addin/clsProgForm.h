#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/forms/FormHost.h"

class frmProgressForm;

/// The one object through which long steps show how far they are. At most one progress form is current; callers pair
/// every ShowProgress with one CloseProgress.
class clsProgForm {
 public:
  /// The host outlives the object.
  explicit clsProgForm(forms::FormHost& host);
  /// Closes a form that is still shown.
  ~clsProgForm();
  clsProgForm(const clsProgForm&) = delete;
  clsProgForm& operator=(const clsProgForm&) = delete;

  /// Shows a new form. One that is current goes away.
  /// @param displayMode 0 modeless, 1 modal
  void ShowProgress(int displayMode);
  /// Makes a form of another kind the current one and shows it.
  void ShowProgress(std::unique_ptr<frmProgressForm> form, int displayMode);

  /// Sets the texts and draws the form; nothing without a current form.
  /// @param total 0: the bar stays as it is
  /// @param caption empty: the caption stays as it is
  void UpdateProgress(std::u16string_view line1, std::u16string_view line2, std::u16string_view line3,
                      std::int32_t completed, std::int32_t total, std::u16string_view caption);

  /// Nothing without a current form.
  void CloseProgress();

  /// nullptr: none is shown.
  const frmProgressForm* Current() const { return current_.get(); }

 private:
  forms::FormHost& host_;
  std::unique_ptr<frmProgressForm> current_;
};
