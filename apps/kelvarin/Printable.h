#pragma once

#include <string>
#include <string_view>

/// A text in UTF-8 as it can be written to a terminal whoever made it: control characters, which a terminal may take
/// for orders, become "\u001B", which reads the same in JSON, and bytes that are no UTF-8 "\xE9". Line ends and tabs
/// stay.
std::string Printable(std::string_view text);
