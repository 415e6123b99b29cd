#pragma once

#include <string>
#include <string_view>

namespace docx {

/// Between the XML's UTF-8 and the object model's UTF-16. What is not valid becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
void AppendUtf16(std::string_view utf8, std::u16string& utf16);
std::string ToUtf8(std::u16string_view utf16);

/// The bytes that the first `units` UTF-16 code units of a UTF-8 text take; a position inside a surrogate pair counts
/// as behind it. @pre the text has that many
std::size_t Utf8Prefix(std::string_view utf8, std::size_t units);

}  // namespace docx
