#pragma once

#include <string_view>

/// Whether a text as a whole matches a pattern: "*" is any run of characters, also none, "[A-Z]" a character in a
/// range of code units, everything else itself. Case counts.
bool Like(std::u16string_view text, std::u16string_view pattern);
