#pragma once

#include "apps/kelvarin/Options.h"

/// Whether every file that a run writes is one of its own: no two results have one name, and none replaces what is
/// read, or what something else is written to.
/// @param options with their inputs found @throws CLI::ValidationError
void CheckWrittenFiles(const Options& options);
