#pragma once

#include <string>
#include <string_view>

namespace docx {

/// Whether a text is written between tags as it is, with nothing to escape.
bool IsWrittenAsIs(std::string_view text);
/// Text as it is written between tags.
std::string EscapedText(std::string_view text);
/// The same between double quotes.
bool IsWrittenAsIsInValue(std::string_view text);
/// Text as it is written between double quotes.
std::string EscapedValue(std::string_view text);

/// Whether Unescaped() would change a text or an attribute's value.
bool IsEscapedText(std::string_view raw);
bool IsEscapedValue(std::string_view raw);
/// The reverse for what is well-formed XML: entities are resolved, and line ends become LF. In an attribute's value
/// every blank counts as a space.
std::string Unescaped(std::string_view raw, bool value);

/// The decimal number that a text begins with, 0 without one; never infinite or no number, whatever the locale.
double NumberIn(std::string_view text);

struct RawAttribute {
  std::string_view text;  ///< with the blanks before it
  std::string_view name;
  std::string_view value;  ///< without its quotes
};
/// Reads the next attribute of a well-formed tag.
/// @param at behind the attribute before or the element's name; goes behind the attribute
/// @return false when there is none
bool NextAttribute(const char*& at, const char* end, RawAttribute& attribute);

}  // namespace docx
