#include "marker/PlainText.h"

#include "platform/word/Constants.h"

#include <algorithm>
#include <iterator>

namespace marker {

bool ReadsAs(char16_t character, char16_t& plain) {
  constexpr char16_t kNarrowNonBreakingSpace = 0x202F;
  constexpr char16_t kSoftHyphen = 0x00AD;
  constexpr char16_t kUnicodeNonBreakingHyphen = 0x2011;
  switch (character) {
    case word::kCommentMark:
    case word::kOptionalHyphen:
    case kSoftHyphen:
      return false;
    case word::kNonBreakingSpace:
    case kNarrowNonBreakingSpace:
      plain = u' ';
      return true;
    case word::kNonBreakingHyphen:
    case kUnicodeNonBreakingHyphen:
      plain = u'-';
      return true;
    default:
      plain = character;
      return true;
  }
}

bool PartsTerms(char16_t character) {
  switch (character) {
    case kBarrier:
    case word::kCellMark:
    case word::kPageBreak:
    case word::kParagraphMark:
    case word::kColumnBreak:
      return true;
    default:
      return false;
  }
}

char16_t ShownAs(char16_t character) {
  constexpr char16_t kDelete = 0x7F;
  constexpr char16_t kLastControl = 0x9F;
  const bool isControl = character < u' ' || (character >= kDelete && character <= kLastControl);
  return isControl ? u' ' : character;
}

std::u16string PlainTerm(std::u16string_view term) {
  std::u16string text;
  text.reserve(term.size());
  for (const char16_t character : term) {
    char16_t plain = 0;
    if (ReadsAs(character, plain) && plain != kBarrier) text.push_back(plain);
  }
  const auto isInside = [](char16_t character) { return PartsTerms(character) || ShownAs(character) != u' '; };
  const auto first = std::find_if(text.begin(), text.end(), isInside);
  const auto last = std::find_if(text.rbegin(), std::make_reverse_iterator(first), isInside).base();
  return {first, last};
}

}  // namespace marker
