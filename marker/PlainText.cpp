#include "marker/PlainText.h"

#include "platform/word/Constants.h"

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

std::u16string PlainTerm(std::u16string_view term) {
  std::u16string text;
  text.reserve(term.size());
  for (const char16_t character : term) {
    char16_t plain = 0;
    if (ReadsAs(character, plain) && plain != kBarrier) text.push_back(plain);
  }
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == std::u16string::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace marker
