#pragma once

#include <cstddef>
#include <string_view>

namespace drafting {

/// What a term in quotes is there for.
enum class Role {
  kListed,   ///< it is defined by what follows, as in a list of definitions
  kInline,   ///< it is defined by what stands before: (the "Buyer")
  kPointer,  ///< it is said where it is defined, or what else counts as it: "Buyer" has the meaning given in clause 2
  kMention,  ///< it is spoken of, or quoted
};

/// Judges a term in quotes by the line that it stands in. The rules are in docs/check.md.
/// @param begin of the term, without an article, in the line; a quotation mark stands before it or its article
/// @param close the quotation mark behind it
Role RoleOf(std::u16string_view line, std::size_t begin, std::size_t close);

/// Whether the line is the term's definition as a whole: it begins with it.
bool BeginsLine(std::u16string_view line, std::size_t begin);

}  // namespace drafting
