#include "hosts/docx/find/FindCodes.h"

#include <array>
#include <string>

#include "hosts/docx/find/FindSettings.h"
#include "platform/AnsiText.h"
#include "platform/word/HostError.h"

namespace docx {

namespace {

struct NamedCode {
  char16_t letter;
  FindCode code;
  char16_t value;
  bool withWildcards;
};

constexpr std::array kCodes{
    NamedCode{u'^', FindCode::kCharacter, u'^', true},
    NamedCode{u't', FindCode::kCharacter, word::kTab, true},
    NamedCode{u'l', FindCode::kCharacter, word::kLineBreak, true},
    NamedCode{u'n', FindCode::kCharacter, word::kColumnBreak, true},
    NamedCode{u's', FindCode::kCharacter, word::kNonBreakingSpace, true},
    NamedCode{u'=', FindCode::kCharacter, u'\u2013', true},
    NamedCode{u'+', FindCode::kCharacter, u'\u2014', true},
    NamedCode{u'~', FindCode::kCharacter, word::kNonBreakingHyphen, true},
    NamedCode{u'-', FindCode::kCharacter, word::kOptionalHyphen, true},
    NamedCode{u'p', FindCode::kCharacter, word::kParagraphMark, false},
    NamedCode{u'g', FindCode::kCharacter, word::kInlineObject, false},
    NamedCode{u'a', FindCode::kCharacter, word::kCommentMark, false},
    NamedCode{u'd', FindCode::kCharacter, word::kFieldBegin, false},
    NamedCode{u'm', FindCode::kPageBreak, 0, false},
    NamedCode{u'b', FindCode::kSectionBreak, 0, false},
    NamedCode{u'f', FindCode::kFootnoteMark, 0, false},
    NamedCode{u'e', FindCode::kEndnoteMark, 0, false},
    NamedCode{u'w', FindCode::kWhiteSpace, 0, false},
    NamedCode{u'?', FindCode::kAnyCharacter, 0, false},
    NamedCode{u'#', FindCode::kAnyDigit, 0, false},
    NamedCode{u'$', FindCode::kAnyLetter, 0, false},
};

/// The last code unit that is a character.
constexpr int kLastUnit = 0xFFFD;

bool IsAsciiDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

/// Reads up to `most` digits. @return how many there were
std::size_t ReadNumber(std::u16string_view text, std::size_t most, int& number) {
  std::size_t count = 0;
  number = 0;
  while (count < most && count < text.size() && IsAsciiDigit(text[count])) {
    number = number * 10 + (text[count++] - u'0');
  }
  return count;
}

}  // namespace

void ThrowBadPattern() {
  throw word::HostError(word::kBadPattern,
                        u"The Find What text contains a Pattern Match expression which is not valid.", "Find.Execute");
}

void ThrowTooComplex() {
  throw word::HostError(word::kBadPattern, u"The Pattern Match expression is too complex.", "Find.Execute");
}

void CheckFindText(std::u16string_view text) {
  if (text.size() > kMaxFindText) {
    throw word::HostError(word::kStringTooLong, u"String parameter too long.", "Find.Text");
  }
}

ParsedCode ParseFindCode(std::u16string_view rest, bool wildcards) {
  if (rest.size() < 2) return {FindCode::kCharacter, U'^', 1};
  const char16_t letter = rest[1];
  int number = 0;
  if (letter == u'u') {
    const std::size_t digits = ReadNumber(rest.substr(2), 5, number);
    if (digits == 0 || number == 0 || number > kLastUnit) ThrowBadPattern();
    return {FindCode::kCharacter, static_cast<char32_t>(number), 2 + digits};
  }
  if (IsAsciiDigit(letter)) {
    const std::size_t digits = ReadNumber(rest.substr(1), letter == u'0' ? 4 : 3, number);
    if (number == 0 || number > 255) ThrowBadPattern();
    return {FindCode::kCharacter, CharFromAnsiCode(number), 1 + digits};
  }
  for (const NamedCode& named : kCodes) {
    if (named.letter != letter) continue;
    if (wildcards && !named.withWildcards) break;
    return {named.code, named.value, 2};
  }
  ThrowBadPattern();
}

}  // namespace docx
