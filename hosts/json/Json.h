#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

/// JSON as results, messages and answers use it. The library's reader and writer are compiled in this folder only: they
/// take seconds in each source that calls them.
namespace json {

/// Its members keep the order in which they were set. One that is to have members or items is made as an object or an
/// array: where there is no memory, one that becomes it by its first member is left without what its destructor needs.
using Value = nlohmann::ordered_json;

/// @param text UTF-8, whole; blanks around the value do not matter
/// @throws Value::parse_error where text is no JSON, or empty; its byte counts from 1
/// @throws Value::exception where a number is out of range
Value Read(std::string_view text);

/// As Read, but what cannot be read is a value that is neither an object nor anything else, `is_discarded()`.
Value ReadOrDiscard(std::string_view text);

/// In one line, without its end. What is no UTF-8 in a text becomes U+FFFD.
std::string Written(const Value& value);

/// As Written, with each member and item in a line of its own, two blanks deeper than what holds it.
std::string Indented(const Value& value);

/// As Written, with every character outside of ASCII as its number.
std::string InAscii(const Value& value);

}  // namespace json
