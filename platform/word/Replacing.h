#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace word {

/// Whether a replacement is the searched text with its first character moved on, as when a quotation mark goes past a
/// word. Plain searches; texts with codes, but for "^^", are none.
/// @return the number of characters it is moved past; nothing for any other replacement
std::optional<std::size_t> CharactersMovedPast(std::u16string_view searched, std::u16string_view replacement);

}  // namespace word
