#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "platform/word/FindUnit.h"

namespace docx {

/// The code units that a match may begin with, so that a search need not try the others.
class FirstUnits {
 public:
  FirstUnits() = default;
  /// @param may whether one may
  template <class May>
  explicit FirstUnits(May may) {
    std::size_t count = 0;
    for (char16_t unit = 0; unit < kAscii; ++unit) {
      ascii_[unit] = may(unit);
      if (!ascii_[unit]) continue;
      only_ = unit;
      ++count;
    }
    few_ = count <= 1;
  }

  /// Where the next of them stands in a text; the text's size when there is none. @param may as before
  template <class May>
  std::size_t FindIn(std::u16string_view text, std::size_t from, May may) const {
    while (from < text.size()) {
      const char16_t unit = text[from];
      if (unit < kAscii) {
        from = PassAscii(text, from);
        if (from < text.size() && text[from] < kAscii) break;
      } else if (may(unit)) {
        break;
      } else {
        ++from;
      }
    }
    return from;
  }

 private:
  static constexpr char16_t kAscii = 128;

  std::size_t PassAscii(std::u16string_view text, std::size_t from) const {
    if (few_)
      return word::FindUnit(text, from, [only = only_](char16_t unit) { return unit >= kAscii || unit == only; });
    while (from < text.size() && text[from] < kAscii && !ascii_[text[from]]) ++from;
    return from;
  }

  std::array<bool, kAscii> ascii_{};
  char16_t only_{kAscii};
  bool few_{true};
};

}  // namespace docx
