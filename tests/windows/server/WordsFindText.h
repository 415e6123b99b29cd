#pragma once

#include <string>
#include <string_view>

namespace server {

/// A search text as our hosts have to be given it to find what Word finds by it: in a plain search Word takes all
/// styles of a quote for one, in a wildcard search each for itself.
std::u16string HostsFindText(std::u16string_view text, bool wildcards);

}  // namespace server
