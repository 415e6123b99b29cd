#pragma once

#include <string>
#include <string_view>

namespace os {

/// The system speaks of files in Windows form, UTF-16 with "\" between names; the two functions map that to POSIX names
/// and back. Every POSIX path comes back as it was, but for doubled separators: a "\" inside a name is U+F05C in
/// Windows form, and a byte that is no UTF-8 a lone surrogate U+DC80 to U+DCFF.

/// "\" and "/" are separators, doubled ones count once.
std::string ToPosixPath(std::u16string_view windowsPath);
std::u16string ToWindowsPath(std::string_view posixPath);

/// The folder of the running program, in POSIX form; empty when the system does not say.
std::string ProgramFolder();

}  // namespace os
