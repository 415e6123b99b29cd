#pragma once

#include <string>
#include <string_view>

/// Text between the program and Windows, whose characters are of another type of the same size.
namespace win32 {

inline std::wstring ToWide(std::u16string_view text) { return {text.begin(), text.end()}; }
inline std::u16string FromWide(std::wstring_view text) { return {text.begin(), text.end()}; }

}  // namespace win32
