#pragma once

#include <functional>
#include <utility>

#include "addin/WorkProgressForm.h"

/// Covers the preparation of the document before the terms dialog.
class frmKVXProgressFormKVXPreparing : public WorkProgressForm {
 public:
  frmKVXProgressFormKVXPreparing(forms::FormHost& host, std::function<void()> work)
      : WorkProgressForm(host, "frmKVXProgressFormKVXPreparing", std::move(work)) {}
};
