#pragma once

#include <functional>

#include "addin/frmProgressForm.h"
#include "platform/Host.h"

/// The progress form behind which capitalised words are searched for. It is shown modally; when it is activated it does
/// the search, then closes itself. A person may close it meanwhile, which the search is to ask for.
class frmKVXProgressFormGetCappedList : public frmProgressForm {
 public:
  /// The host outlives the form.
  /// @param search what it throws leaves through the modal show; the form is closed all the same
  frmKVXProgressFormGetCappedList(const Host& host, std::function<void()> search);

  /// A person closed it.
  bool Closed() const { return closed_; }

 protected:
  void OnActivate() override;
  /// F1 opens the topic about making an index, while the search goes on.
  void OnHelp(forms::Control& control) override;
  void OnQueryUnload(forms::UnloadReason reason) override;

 private:
  const Host& host_;
  std::function<void()> search_;
  bool closed_{false};
};
