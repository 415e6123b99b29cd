#pragma once

#include "platform/os/Characters.h"

namespace win32 {

/// Unicode's rules from tables of our own: those of Windows differ from version to version and know simple mappings
/// only.
class UnicodeCharacters : public os::Characters {
 public:
  std::u16string ToUpper(std::u16string_view text) override;
  std::u16string ToLower(std::u16string_view text) override;
  char32_t Fold(char32_t character) override;
  bool IsWordCharacter(char32_t character) override;
};

}  // namespace win32
