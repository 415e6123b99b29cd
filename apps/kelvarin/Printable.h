#pragma once

#include <string>
#include <string_view>

/// A name, or a message with names in it, in UTF-8: names are bytes, and those that are no UTF-8 become "\xE9", so that
/// two names stay two.
std::string InUtf8(std::string_view text);

/// The same as it can be written to a terminal whoever made it: control characters, which a terminal may take for
/// orders, become "\u001B", which reads the same in JSON. Line ends and tabs stay.
std::string Printable(std::string_view text);
