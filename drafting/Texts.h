#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drafting/Findings.h"
#include "marker/StoryText.h"
#include "platform/os/Characters.h"

namespace drafting {

/// One of the stories that are checked.
struct Text {
  int story;
  marker::StoryText content;  ///< what is searched: hidden text, fields and an index of defined terms are not in it
  marker::StoryText shown;    ///< what people are shown: with the results of fields, such as the numbers of clauses
};

/// Main text, footnotes and endnotes of a document.
std::vector<Text> ReadTexts(const word::DocumentPtr& document);

/// The line that holds an index of a text, without what ends it.
struct Line {
  std::size_t begin{0};
  std::size_t end{0};
};
Line LineAt(std::u16string_view text, std::size_t index);
/// The same where the line reaches no further than so many characters to either side; otherwise empty.
std::optional<Line> ShortLineAt(std::u16string_view text, std::size_t index, std::size_t farthest);

/// What is said at a stretch of a text.
Place PlaceOf(const Text& text, std::size_t begin, std::size_t end, os::Characters& characters);

}  // namespace drafting
