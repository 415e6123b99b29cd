#pragma once

#include <string>
#include <string_view>

namespace marker {

/// Stands in plain text where something is left out that no term may run across. No text of a document or
/// dialog holds it.
inline constexpr char16_t kBarrier = 0;

/// What a character of a document reads as when terms are looked for: a blank for a non-breaking one, a hyphen
/// for a non-breaking one, nothing for an optional hyphen or a comment mark, otherwise itself. Tabs, breaks and
/// the marks of paragraphs and cells stay, so that only a term that holds a tab or a line break runs across one.
/// @return false when the character reads as nothing
bool ReadsAs(char16_t character, char16_t& plain);

/// Whether a character is one of the many that read as themselves, told at a glance.
inline bool IsPlain(char16_t character) { return character >= u' ' && character < 0x7F; }

/// Whether no term runs across the character: the mark of a paragraph or a cell, a page, section or column break,
/// a barrier. A term that holds one is a misread pair of quotes.
bool PartsTerms(char16_t character);

/// What a character shows as in an entry: a blank for a control character, otherwise itself. No field code holds
/// a control character.
char16_t ShownAs(char16_t character);

/// A chosen term as it is looked for: every character as it reads, without blanks and control characters at either
/// end. Marks and breaks that part terms stay wherever they stand, so that such a term is not found.
std::u16string PlainTerm(std::u16string_view term);

}  // namespace marker
