#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace marker {

/// The entry type that sets our entries and our index apart from the author's.
inline constexpr std::u16string_view kEntryType = u"DefinedTermsIndex";

/// The longest entry text, in code units: Word's own for an entry made by its dialog. Longer entries that agree
/// so far merge in Word's index without a word.
inline constexpr std::size_t kLongestEntry = 255;

/// What an entry shows for a term: PlainTerm() with a blank for each control character, cut at kLongestEntry.
std::u16string EntryText(std::u16string_view term);

/// The code of an entry, without the blanks around it.
/// @param entryText as EntryText() gives it
/// @param boldPage tells the page from the others by Word's own switch
std::u16string EntryCode(std::u16string_view entryText, bool boldPage);

/// The code of the index, without the blanks around it.
/// @param separator stands between a term and its pages. Word keeps five characters: of a longer one the tab at
///     its end stays and the text before it is cut
/// @param columns 1 to 4; 0 leaves the switch out, and the index in the section it stands in
std::u16string IndexCode(std::u16string_view separator, int columns);

/// What a field code says, as far as marking needs it.
struct FieldCode {
  std::u16string keyword{};  ///< its first word
  std::u16string text{};     ///< the argument behind the keyword, escapes resolved
  std::u16string type{};     ///< the argument of \f
};
FieldCode ParseFieldCode(std::u16string_view code);

/// Whether marking wrote this code. Word compares an entry type's first character only; the whole of it is ours.
bool IsOurEntry(const FieldCode& code);
bool IsOurIndex(const FieldCode& code);

}  // namespace marker
