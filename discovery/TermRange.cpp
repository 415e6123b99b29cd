#include "discovery/TermRange.h"

#include "platform/TermText.h"
#include "platform/word/Range.h"

#include <cstddef>

namespace {

using word::Position;

/// The last position for which something holds that holds for the first of them and, from some position on, no longer.
template <class Holds>
Position LastThat(Position first, Position end, const Holds& holds) {
  while (end - first > 1) {
    const Position middle = first + (end - first) / 2;
    (holds(middle) ? first : end) = middle;
  }
  return first;
}

}  // namespace

// A range tells what shows by its text alone, so the ends are found by what they add to it.
word::RangePtr TermRange(const word::RangePtr& quoted) {
  const Position start = quoted->Start();
  const Position end = quoted->End();
  const std::size_t length = TermText(quoted->Text()).size();
  if (length == 0 || length == static_cast<std::size_t>(end - start)) return quoted;
  word::RangePtr part = quoted->Duplicate();
  const auto holdsTerm = [&](Position from, Position to) {
    part->SetRange(from, to);
    return TermText(part->Text()).size() == length;
  };
  const Position last = LastThat(start, end, [&](Position to) { return !holdsTerm(start, to); });
  const Position first = LastThat(start, last + 1, [&](Position from) { return holdsTerm(from, last + 1); });
  part->SetRange(first, last + 1);
  return part;
}
