#include "marker/Letters.h"

namespace marker {
namespace {

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

// Contracts are nearly all ASCII, and a service call for each character would be most of a scan's time.
Letters::Letters(os::Characters& characters) : characters_(characters) {
  for (char32_t character = 0; character < kTabled; ++character) {
    folded_[character] = characters_.Fold(character);
    isWord_[character] = characters_.IsWordCharacter(character);
  }
}

char32_t Letters::Next(std::u16string_view text, std::size_t& index) {
  const char16_t unit = text[index++];
  if (!IsHigh(unit) || index >= text.size() || !IsLow(text[index])) return unit;
  const char16_t low = text[index++];
  return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
}

bool Letters::SplitsPair(std::u16string_view text, std::size_t index) {
  return index > 0 && index < text.size() && IsHigh(text[index - 1]) && IsLow(text[index]);
}

char32_t Letters::FoldOne(char32_t character) const {
  return character < kTabled ? folded_[character] : characters_.Fold(character);
}

bool Letters::IsWord(char32_t character) const {
  return character < kTabled ? isWord_[character] : characters_.IsWordCharacter(character);
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
  std::u16string folded;
  folded.reserve(text.size());
  for (std::size_t index = 0; index < text.size();) {
    const std::size_t start = index;
    const char32_t character = Next(text, index);
    const char32_t other = FoldOne(character);
    const bool sameLength = (other < 0x10000) == (index - start == 1);
    if (!sameLength) {
      folded.append(text.substr(start, index - start));
    } else if (other < 0x10000) {
      folded.push_back(static_cast<char16_t>(other));
    } else {
      folded.push_back(static_cast<char16_t>(0xD800 + ((other - 0x10000) >> 10)));
      folded.push_back(static_cast<char16_t>(0xDC00 + ((other - 0x10000) & 0x3FF)));
    }
  }
  return folded;
}

}  // namespace marker
