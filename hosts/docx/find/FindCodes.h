#pragma once

#include <string_view>

namespace docx {

/// What a code of a search text, such as ^p, stands for.
enum class FindCode {
  kCharacter,     ///< one character: `value`
  kAnyCharacter,  ///< ^?
  kAnyDigit,      ///< ^#
  kAnyLetter,     ///< ^$
  kWhiteSpace,    ///< ^w
  kFootnoteMark,  ///< ^f
  kEndnoteMark,   ///< ^e
  kSectionBreak,  ///< ^b
  kPageBreak,     ///< ^m: a page break that is no section's end
};

struct ParsedCode {
  FindCode code{FindCode::kCharacter};
  char32_t value{0};
  std::size_t units{0};  ///< how long the code is in the search text, the caret included
};

/// Reads the code at the beginning of a text. A caret that ends the text stands for itself.
/// @pre rest[0] is a caret
/// @throws word::HostError kBadPattern for a code that does not exist or, with wildcards, is not allowed
ParsedCode ParseFindCode(std::u16string_view rest, bool wildcards);

/// @throws word::HostError kBadPattern
[[noreturn]] void ThrowBadPattern();
[[noreturn]] void ThrowTooComplex();
/// @throws word::HostError kStringTooLong for a text that no search takes
void CheckFindText(std::u16string_view text);

}  // namespace docx
