#include "hosts/unicode/Unicode.h"

#include <algorithm>

#include "hosts/unicode/UnicodeTables.h"

namespace unicode {

namespace {

bool IsIn(const Range* ranges, std::size_t count, char32_t character) {
  const Range* const found = std::lower_bound(ranges, ranges + count, character,
                                              [](const Range& range, char32_t value) { return range.last < value; });
  return found != ranges + count && found->first <= character;
}

char32_t Map(const CaseRange* ranges, std::size_t count, char32_t character) {
  const CaseRange* const end = ranges + count;
  const CaseRange* const found = std::lower_bound(
      ranges, end, character, [](const CaseRange& range, char32_t value) { return range.last < value; });
  // Stretches of every second character can stand one in the other, never more than two.
  for (const CaseRange* range = found; range != end && range < found + 2; ++range) {
    if (range->first <= character && (character - range->first) % range->step == 0) {
      return static_cast<char32_t>(static_cast<int>(character) + range->delta);
    }
  }
  return character;
}

const char16_t* Special(const SpecialCase* cases, std::size_t count, char32_t character) {
  const SpecialCase* const found = std::lower_bound(
      cases, cases + count, character, [](const SpecialCase& one, char32_t value) { return one.from < value; });
  return found != cases + count && found->from == character ? found->to : nullptr;
}

bool IsCased(char32_t character) { return UpperOf(character) != character || LowerOf(character) != character; }

/// What stands between the letters of a word without being one of them.
bool IsPassedOver(char32_t character) {
  return IsMark(character) || character == U'\'' || character == U'\u2019' || character == U'.' || character == U':' ||
         character == U'\u00AD' || character == U'\u00B7';
}

constexpr char32_t kSigma = U'\u03A3';
constexpr char32_t kFinalSigma = U'\u03C2';

/// A letter with case before it in its word, and none behind it.
bool EndsWord(std::u16string_view text, std::size_t at) {
  bool before = false;
  for (std::size_t i = 0; i < at;) {
    const CodePoint point = CodePointAt(text, i);
    if (!IsPassedOver(point.value)) before = IsCased(point.value);
    i += point.units;
  }
  if (!before) return false;
  for (std::size_t i = at + 1; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    if (!IsPassedOver(point.value)) return !IsCased(point.value);
    i += point.units;
  }
  return true;
}

}  // namespace

bool IsLetter(char32_t character) { return IsIn(kLetters, kLettersCount, character); }
bool IsMark(char32_t character) { return IsIn(kMarks, kMarksCount, character); }
bool IsDecimalDigit(char32_t character) { return IsIn(kDigits, kDigitsCount, character); }
bool IsOtherNumber(char32_t character) { return IsIn(kOtherNumbers, kOtherNumbersCount, character); }
bool IsBlank(char32_t character) { return IsIn(kBlanks, kBlanksCount, character); }

char32_t UpperOf(char32_t character) { return Map(kUpper, kUpperCount, character); }
char32_t LowerOf(char32_t character) { return Map(kLower, kLowerCount, character); }
char32_t Fold(char32_t character) { return Map(kFold, kFoldCount, character); }

std::u16string ToUpper(std::u16string_view text) {
  std::u16string mapped;
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    const char16_t* const special = Special(kUpperSpecial, kUpperSpecialCount, point.value);
    special != nullptr ? static_cast<void>(mapped += special) : Append(mapped, UpperOf(point.value));
    i += point.units;
  }
  return mapped;
}

std::u16string ToLower(std::u16string_view text) {
  std::u16string mapped;
  for (std::size_t i = 0; i < text.size();) {
    const CodePoint point = CodePointAt(text, i);
    const char16_t* const special = Special(kLowerSpecial, kLowerSpecialCount, point.value);
    if (special != nullptr) {
      mapped += special;
    } else {
      Append(mapped, point.value == kSigma && EndsWord(text, i) ? kFinalSigma : LowerOf(point.value));
    }
    i += point.units;
  }
  return mapped;
}

CodePoint CodePointAt(std::u16string_view text, std::size_t at) {
  const char16_t unit = text[at];
  const bool leads = unit >= 0xD800 && unit <= 0xDBFF && at + 1 < text.size();
  if (!leads || text[at + 1] < 0xDC00 || text[at + 1] > 0xDFFF) return {unit, 1};
  return {0x10000U + ((unit - 0xD800U) << 10U) + (text[at + 1] - 0xDC00U), 2};
}

void Append(std::u16string& text, char32_t character) {
  if (character < 0x10000) {
    text += static_cast<char16_t>(character);
    return;
  }
  text += static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10U));
  text += static_cast<char16_t>(0xDC00U + ((character - 0x10000U) & 0x3FFU));
}

}  // namespace unicode
