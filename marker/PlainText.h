#pragma once

#include <string>
#include <string_view>

namespace marker {

/// Stands in plain text where something is left out that no term may run across. No text of a document or
/// dialog holds it.
inline constexpr char16_t kBarrier = 0;

/// What a character of a document reads as when terms are looked for: a blank for a non-breaking one, a hyphen
/// for a non-breaking one, nothing for an optional hyphen or a comment mark, otherwise itself. Tabs, breaks and
/// the marks of paragraphs and cells stay, so that only a term that holds one runs across one.
/// @return false when the character reads as nothing
bool ReadsAs(char16_t character, char16_t& plain);

/// A chosen term as it is looked for: every character as it reads, without blanks at either end.
std::u16string PlainTerm(std::u16string_view term);

}  // namespace marker
