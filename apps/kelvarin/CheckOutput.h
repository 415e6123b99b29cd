#pragma once

#include <optional>

#include "apps/kelvarin/Batch.h"
#include "apps/kelvarin/CheckPage.h"
#include "apps/kelvarin/Options.h"

/// Shows what `check` found out, contract by contract: as text or JSON on standard output, and on a page.
class CheckOutput {
 public:
  /// @param options outlive the object  @throws Failure kUnreadable, as all members do
  explicit CheckOutput(const Options& options);

  void Take(const FileResult& result);
  /// Writes the page.
  void Finish();

 private:
  const Options& options_;
  std::optional<CheckPage> page_;
  bool anyShown_{false};
};
