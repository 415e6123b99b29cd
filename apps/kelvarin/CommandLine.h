#pragma once

#include <optional>

#include "apps/kelvarin/Options.h"

/// Reads the command line. @param status what to exit with where there is no result: help and version were printed, or
/// what is wrong was said on standard error
std::optional<Options> ReadCommandLine(int argc, const char* const* argv, int& status);
