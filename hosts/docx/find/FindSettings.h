#pragma once

#include <string>
#include <vector>

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace docx {

/// Texts beyond this many code units are refused, as in Word.
inline constexpr std::size_t kMaxFindText = 255;

/// What one search looks for and how: Word's Find properties.
struct FindSettings {
  std::u16string text{};  ///< empty finds nothing
  bool matchCase{false};
  bool wholeWord{false};
  bool wildcards{false};
  bool forward{true};
  int wrap{word::wdFindStop};

  bool operator==(const FindSettings&) const = default;
};

/// What a group of a wildcard pattern matched. -1 and -1 for one that took no part.
struct GroupSpan {
  word::Position start{-1};
  word::Position end{-1};
};

/// A hit. It may span characters that the search passes over (hidden text, field codes, tracked deletions), but it
/// begins and ends with characters that it found.
struct Match {
  word::Position start{0};
  word::Position end{0};
  std::vector<GroupSpan> groups{};  ///< \1 first; empty for plain searches
};

}  // namespace docx
