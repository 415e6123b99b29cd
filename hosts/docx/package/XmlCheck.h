#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace docx {

/// What one XML part may cost at most; beyond it the document is refused.
inline constexpr std::size_t kMaxDepth = 4'000;
/// Elements, comments, instructions and CDATA sections together: what a tree has nodes for.
inline constexpr std::size_t kMaxNodes = 8'000'000;
/// Attributes of one element.
inline constexpr std::size_t kMaxAttributes = 100'000;

/// Refuses XML that the parser would choke on or take without complaint although it is broken: document types and the
/// entities they declare, undeclared entities, nesting beyond kMaxDepth, control characters, invalid UTF-8, "<" in
/// attribute values, attributes given twice, constructs that do not end, end tags that do not match, text or elements
/// beside the root.
/// @param bytes UTF-8, with or without a byte order mark
/// @param partName what the message calls it
/// @throws PackageError
void CheckXml(std::string_view bytes, const std::string& partName);

/// The same text in UTF-8, its XML declaration saying so; UTF-8 comes back as it is.
/// @param bytes UTF-8, or UTF-16 by its byte order mark or its first characters
/// @throws PackageError for an encoding that is neither
std::string ToUtf8(std::string bytes, const std::string& partName);

}  // namespace docx
