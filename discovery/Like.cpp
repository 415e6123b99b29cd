#include "discovery/Like.h"

#include <cstddef>

namespace {

/// A set reads as "[A-Z]".
constexpr std::size_t kSetLength = 5;

bool IsSet(std::u16string_view pattern) {
  return pattern.size() >= kSetLength && pattern[0] == u'[' && pattern[2] == u'-' && pattern[4] == u']';
}

/// Whether the pattern's first item, which is no "*", takes the character.
bool Takes(std::u16string_view pattern, char16_t character) {
  if (IsSet(pattern)) return character >= pattern[1] && character <= pattern[3];
  return character == pattern[0];
}

}  // namespace

bool Like(std::u16string_view text, std::u16string_view pattern) {
  // Where to try again when what follows the last "*" does not match here.
  std::u16string_view retryPattern;
  std::u16string_view retryText;
  bool retry = false;
  while (true) {
    if (!pattern.empty() && pattern[0] == u'*') {
      pattern.remove_prefix(1);
      retryPattern = pattern;
      retryText = text;
      retry = true;
    } else if (!pattern.empty() && !text.empty() && Takes(pattern, text[0])) {
      pattern.remove_prefix(IsSet(pattern) ? kSetLength : 1);
      text.remove_prefix(1);
    } else if (pattern.empty() && text.empty()) {
      return true;
    } else if (retry && !retryText.empty()) {
      retryText.remove_prefix(1);
      text = retryText;
      pattern = retryPattern;
    } else {
      return false;
    }
  }
}
