#pragma once

#include <string>
#include <string_view>

namespace unattended {

/// Between UTF-8, in which answers and transcripts are kept, and the system's UTF-16. What is not valid becomes
/// U+FFFD.
std::u16string FromUtf8(std::string_view text);
std::string ToUtf8(std::u16string_view text);

}  // namespace unattended
