#pragma once

#include <string>

#include "tests/fakes/FakeWord.h"

namespace fakes {

word::RangePtr MakeFakeRange(FakeWord& word, Place place);

/// Where a range of this fake stands.
Place PlaceOf(const word::Range& range);

/// As the log has it: the story's type, and the positions.
std::string Show(const FakeWord& word, const Place& place);

}  // namespace fakes
