#pragma once

#include "platform/os/Characters.h"

/// The characters service over ICU.
class IcuCharacters : public os::Characters {
 public:
  std::u16string ToUpper(std::u16string_view text) override;
  std::u16string ToLower(std::u16string_view text) override;
  char32_t Fold(char32_t character) override;
  bool IsWordCharacter(char32_t character) override;
};
