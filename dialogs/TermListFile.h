#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Files of terms for re-use: text in the ANSI code page, one term a line.

/// The items of a file, read as delimited fields: an item ends at a comma or at the end of a line, which is
/// CR LF, CR or LF. Blanks around an item are dropped, and so are tabs before it. One that begins with a double quote
/// runs to the next one, whatever is in between. A line without text is an empty item; nothing behind a Ctrl-Z counts.
std::vector<std::u16string> ReadTermItems(std::string_view bytes);

/// One line of a file. Nothing is quoted, so a term with a comma comes back as two.
std::string TermLine(std::u16string_view term);
