#include "hosts/docx/fields/Fields.h"

#include <vector>

#include "platform/word/Constants.h"

namespace docx {

std::optional<FieldSpan> FieldAt(const AtomSequence& atoms, const AtomSequence::Place& begin) {
  FieldSpan field{begin.start, -1, -1};
  int depth = 0;
  for (AtomSequence::Place place = begin; !atoms.IsEnd(place); place = atoms.Next(place)) {
    const Atom& atom = atoms.Get(place);
    switch (atom.kind) {
      case AtomKind::kFieldBegin:
        ++depth;
        break;
      case AtomKind::kSimpleBegin:
        if (depth++ == 0) field.separator = place.start + static_cast<Position>(atom.length) - 1;
        break;
      case AtomKind::kFieldSeparator:
        if (depth == 1 && field.separator < 0) field.separator = place.start;
        break;
      case AtomKind::kFieldEnd:
      case AtomKind::kSimpleEnd:
        if (--depth > 0) break;
        field.end = place.start;
        if (field.separator < 0) field.separator = field.end;
        return field;
      default:
        break;
    }
  }
  return std::nullopt;
}

std::u16string FieldCodeText(const Story& story, const FieldSpan& field) {
  const std::u16string all = story.Text(field.CodeStart(), field.separator);
  if (all.find(word::kFieldBegin) == std::u16string::npos) return all;
  std::u16string code;
  std::vector<std::size_t> nested;  // where the code of each open nested field began in the text so far
  for (const char16_t unit : all) {
    if (unit == word::kFieldBegin) {
      nested.push_back(code.size());
    } else if (unit == word::kFieldSeparator && !nested.empty()) {
      code.resize(nested.back());
    } else if (unit == word::kFieldEnd && !nested.empty()) {
      nested.pop_back();
    } else {
      code += unit;
    }
  }
  return code;
}

}  // namespace docx
