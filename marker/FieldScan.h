#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace marker {

/// A field in a story's text, by the offsets of its marks. An end mark belongs to the last field begun.
struct ScannedField {
  std::size_t begin{0};
  std::size_t separator{0};  ///< equals `end` when the field has no result
  std::size_t end{0};        ///< of the end mark itself

  bool HasResult() const { return separator != end; }
};

/// The fields of a text that holds their codes, in the order of their end marks. A field that is never closed
/// is taken to end with its paragraph, with a result, so that no code is mistaken for text.
std::vector<ScannedField> ScanFields(std::u16string_view text);

}  // namespace marker
