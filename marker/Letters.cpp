#include "marker/Letters.h"

namespace marker {

// Contracts are nearly all ASCII, and a service call for each character would be most of a scan's time.
Letters::Letters(os::Characters& characters) : characters_(characters) {
  for (char32_t character = 0; character < kTabled; ++character) {
    folded_[character] = characters_.Fold(character);
    isWord_[character] = characters_.IsWordCharacter(character);
  }
}

bool Letters::SplitsPair(std::u16string_view text, std::size_t index) {
  return index > 0 && index < text.size() && IsHigh(text[index - 1]) && IsLow(text[index]);
}

bool Letters::IsWordAt(std::u16string_view text, std::size_t index) const {
  return index < text.size() && IsWord(Next(text, index));
}

bool Letters::IsWordBefore(std::u16string_view text, std::size_t index) const {
  if (index == 0) return false;
  --index;
  if (SplitsPair(text, index)) --index;
  return IsWord(Next(text, index));
}

std::u16string Letters::Fold(std::u16string_view text) const {
  std::u16string folded(text);
  for (std::size_t index = 0; index < text.size();) {
    const std::size_t start = index;
    const char32_t other = FoldOne(Next(text, index));
    const bool sameLength = (other < 0x10000) == (index - start == 1);
    if (!sameLength) continue;
    if (other < 0x10000) {
      folded[start] = static_cast<char16_t>(other);
    } else {
      folded[start] = static_cast<char16_t>(0xD800 + ((other - 0x10000) >> 10));
      folded[start + 1] = static_cast<char16_t>(0xDC00 + ((other - 0x10000) & 0x3FF));
    }
  }
  return folded;
}

}  // namespace marker
