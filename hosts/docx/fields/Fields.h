#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "hosts/docx/story/Story.h"

namespace docx {

/// Where a field stands in its story. Only what has both its marks is a field.
struct FieldSpan {
  Position begin{0};      ///< of the begin mark
  Position separator{0};  ///< of the separator mark; equals end in a field without a result
  Position end{0};        ///< of the end mark

  bool HasResult() const { return separator != end; }
  Position CodeStart() const { return begin + 1; }
  Position Behind() const { return end + 1; }
};

/// Pairs the marks of fields, given a story's atoms one after the other.
class FieldScanner {
 public:
  /// @return the field that the atom completes
  std::optional<FieldSpan> Feed(const Atom& atom, Position start);
  /// How many fields are begun and not yet ended.
  std::size_t Depth() const { return open_.size(); }
  /// Where those begin, outermost first.
  std::vector<Position> Unended() const;

 private:
  struct Open {
    FieldSpan span;
    bool simple;
  };
  std::vector<Open> open_;
};

/// The field that begins at a place; nothing when its end is missing.
/// @pre the place holds a field begin, complex or simple
std::optional<FieldSpan> FieldAt(const AtomSequence& atoms, const AtomSequence::Place& begin);
/// All fields of a story in the order of their begin, nested ones included, in one pass.
std::vector<FieldSpan> AllFields(const AtomSequence& atoms);
/// The fields that a position is inside, outermost first: behind the begin mark's start, up to the end mark.
std::vector<FieldSpan> EnclosingFields(const AtomSequence& atoms, Position position);
/// The code with its blanks; of a nested field in it the result, or its code when it has none.
std::u16string FieldCodeText(const Story& story, const FieldSpan& field);

/// The code's first word in capitals, such as XE; empty when there is none. Cheaper than the whole code.
std::u16string FieldKeyword(const AtomSequence& atoms, const FieldSpan& field);

/// The same as FieldAt for many fields of a story that does not change: what one search for an end mark comes by is
/// remembered, so that a story costs its length once, however its fields are nested or broken.
class FieldFinder {
 public:
  explicit FieldFinder(const AtomSequence& atoms) : atoms_(atoms) {}
  std::optional<FieldSpan> At(const AtomSequence::Place& begin);

 private:
  const AtomSequence& atoms_;
  std::unordered_map<Position, FieldSpan> known_;  // end -1 for what is no field
};

}  // namespace docx
