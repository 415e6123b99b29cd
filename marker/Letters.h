#pragma once

#include "platform/Quotes.h"
#include "platform/os/Characters.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace marker {

/// Questions about the characters of UTF-16 texts, asked character by character, so that surrogate pairs are
/// seen whole. An unpaired surrogate stands for itself.
class Letters {
 public:
  /// @param characters must outlive this object
  explicit Letters(os::Characters& characters);

  /// The text without regard to case and to curly or straight quotation marks and apostrophes, in as many code units
  /// as before.
  std::u16string Fold(std::u16string_view text) const;
  std::u16string ToUpper(std::u16string_view text) const { return characters_.ToUpper(text); }

  bool IsWord(char32_t character) const {
    return character < kTabled ? isWord_[character] : characters_.IsWordCharacter(character);
  }
  /// Whether the character that begins at `index` is a letter, digit or combining mark; false at the end.
  bool IsWordAt(std::u16string_view text, std::size_t index) const;
  /// The same of the character that ends before `index`; false at the start.
  bool IsWordBefore(std::u16string_view text, std::size_t index) const;

  /// The character at `index`, which then stands behind it.
  static char32_t Next(std::u16string_view text, std::size_t& index) {
    const char16_t unit = text[index++];
    if (!IsHigh(unit) || index >= text.size() || !IsLow(text[index])) return unit;
    const char16_t low = text[index++];
    return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (static_cast<char32_t>(low) - 0xDC00);
  }
  /// Whether `index` lies between the two halves of a surrogate pair.
  static bool SplitsPair(std::u16string_view text, std::size_t index);

 private:
  static bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
  static bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
  char32_t FoldOne(char32_t character) const {
    return character < kTabled ? folded_[character] : characters_.Fold(StraightQuote(character));
  }

  static constexpr std::size_t kTabled = 128;
  os::Characters& characters_;
  std::array<char32_t, kTabled> folded_{};
  std::array<bool, kTabled> isWord_{};
};

}  // namespace marker
