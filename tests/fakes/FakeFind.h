#pragma once

#include <memory>

#include "tests/fakes/FakeWord.h"

namespace fakes {

/// @param place the range's, which a search moves to what it finds
word::FindPtr MakeFakeFind(FakeWord& word, const std::shared_ptr<Place>& place);

}  // namespace fakes
