#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "platform/forms/ProgressView.h"

/// The small window that shows how far a long step is: three lines of text and a bar drawn by two labels.
class frmProgressForm : public forms::Form, public forms::ProgressView {
 public:
  /// @param name of the form's class
  explicit frmProgressForm(forms::FormHost& host, std::string name = "frmProgressForm");

  forms::Label lblLabel1{*this, "lblLabel1"};
  forms::Label lblLabel2{*this, "lblLabel2"};
  forms::Label lblLabel3{*this, "lblLabel3"};
  /// The whole bar, an empty box; its width never changes.
  forms::Label lblProgBarTotal{*this, "lblProgBarTotal"};
  /// The filled share of it, with the percentage as its text; hidden until the first share is known.
  forms::Label lblProgBarCompleted{*this, "lblProgBarCompleted"};

  /// How far the step is. @param total 0: not known, and the bar stays as it is
  void SetPosition(std::int32_t completed, std::int32_t total);

  std::array<std::u16string, 3> Lines() const override;
  std::int32_t Completed() const override { return completed_; }
  std::int32_t Total() const override { return total_; }
  std::u16string BarText() const override { return lblProgBarCompleted.Caption(); }

 protected:
  forms::Layout MakeLayout() override;

 private:
  std::int32_t completed_{0};
  std::int32_t total_{0};
};
