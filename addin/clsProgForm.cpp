#include "addin/clsProgForm.h"

#include "addin/frmProgressForm.h"

#include <utility>

clsProgForm::clsProgForm(forms::FormHost& host) : host_(host) {}

clsProgForm::~clsProgForm() {
  try {
    CloseProgress();
  } catch (...) {
    // A destructor has nobody to tell; the form is gone all the same.
  }
}

void clsProgForm::ShowProgress(int displayMode) { ShowProgress(std::make_unique<frmProgressForm>(host_), displayMode); }

void clsProgForm::ShowProgress(std::unique_ptr<frmProgressForm> form, int displayMode) {
  CloseProgress();
  current_ = std::move(form);
  if (displayMode == 0) {
    host_.ShowModeless(*current_);
  } else {
    host_.ShowModal(*current_);
  }
}

void clsProgForm::UpdateProgress(std::u16string_view line1, std::u16string_view line2, std::u16string_view line3,
                                 std::int32_t completed, std::int32_t total, std::u16string_view caption) {
  if (!current_) return;
  if (!caption.empty()) current_->SetCaption(caption);
  current_->SetPosition(completed, total);
  current_->lblLabel1.SetCaption(line1);
  current_->lblLabel2.SetCaption(line2);
  current_->lblLabel3.SetCaption(line3);
  current_->Repaint();
  host_.DoEvents();
}

void clsProgForm::CloseProgress() {
  // Emptied first: what hiding sets off may ask for progress of its own.
  const std::unique_ptr<frmProgressForm> closing = std::move(current_);
  if (!closing) return;
  closing->Hide();
  closing->Unload();
}
