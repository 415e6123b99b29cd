#pragma once

#include <string_view>

#include "platform/os/Files.h"

/// Whether a file cannot be opened: another program has locked it, its folder is missing, or access is refused. A
/// missing file is made, empty, so that a new name passes.
bool FileInUse(os::Files& files, std::u16string_view path);
