#pragma once

#include <optional>
#include <string>

#include "hosts/docx/story/Story.h"

namespace docx {

/// Where a field stands in its story.
struct FieldSpan {
  Position begin{0};      ///< of the begin mark
  Position separator{0};  ///< of the separator mark; equals end in a field without a result
  Position end{0};        ///< of the end mark

  bool HasResult() const { return separator != end; }
  Position CodeStart() const { return begin + 1; }
  Position Behind() const { return end + 1; }
};

/// The field whose begin mark stands at a place; nothing when its end mark is missing.
std::optional<FieldSpan> FieldAt(const AtomSequence& atoms, const AtomSequence::Place& begin);

/// The code with its blanks; of a nested field in it the result, or its code when it has none.
std::u16string FieldCodeText(const Story& story, const FieldSpan& field);

}  // namespace docx
