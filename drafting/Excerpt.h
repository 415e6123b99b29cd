#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "discovery/LineCapitals.h"

namespace drafting {

/// What is said somewhere.
struct Excerpt {
  std::u16string sentence{};
  /// Where the words in question stand in the sentence, which may be cut short around them.
  std::size_t begin{0};
  std::size_t end{0};
};

/// What is said at a stretch of a line, without what does not show.
Excerpt ExcerptOf(std::u16string_view line, const LineCapitals& capitals, std::size_t begin, std::size_t end);

}  // namespace drafting
