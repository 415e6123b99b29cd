#pragma once

#include <string>
#include <string_view>

/// The ANSI code page, Windows-1252: the only place where text of the system meets its bytes. Settings and
/// term list files hold such bytes; everywhere else text is UTF-16.

/// One character for each byte; the five unassigned ones become the C1 controls of the same number.
std::u16string FromAnsi(std::string_view bytes);

/// One byte for each code unit, so both halves of a surrogate pair become one each. What the code page does
/// not hold is written with its best fit (a letter without its accent, a plain form of a wide one), or "?".
std::string ToAnsi(std::u16string_view text);

/// The character with a code of the code page, such as U+201C for 147.
/// @param code 0 to 255
/// @throws std::out_of_range for any other code
char16_t CharFromAnsiCode(int code);
