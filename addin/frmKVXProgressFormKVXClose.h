#pragma once

#include <functional>
#include <utility>

#include "addin/WorkProgressForm.h"

/// Covers the work after the terms dialog has closed.
class frmKVXProgressFormKVXClose : public WorkProgressForm {
 public:
  frmKVXProgressFormKVXClose(forms::FormHost& host, std::function<void()> work)
      : WorkProgressForm(host, "frmKVXProgressFormKVXClose", std::move(work)) {}
};
