#pragma once

#include "platform/os/Characters.h"

namespace os {

/// ICU's tables, under no language.
class IcuCharacters : public Characters {
 public:
  std::u16string ToUpper(std::u16string_view text) override;
  std::u16string ToLower(std::u16string_view text) override;
  char32_t Fold(char32_t character) override;
  /// Letters, decimal digits and combining marks; superscript figures and fractions are none.
  bool IsWordCharacter(char32_t character) override;
};

}  // namespace os
