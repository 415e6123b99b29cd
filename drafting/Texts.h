#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "discovery/LineCapitals.h"
#include "drafting/Findings.h"
#include "marker/StoryText.h"
#include "platform/os/Characters.h"

namespace drafting {

/// A line of a text, without what ends it.
struct Line {
  std::size_t begin{0};
  std::size_t end{0};
};

/// A story's text and its lines, of which each is found and read once however often it is asked for: one can be as long
/// as a document.
class LinedText {
 public:
  explicit LinedText(marker::StoryText content);

  const std::u16string& Plain() const { return content_.Plain(); }
  word::Position PositionOf(std::size_t plain) const { return content_.PositionOf(plain); }
  std::size_t PlainAt(word::Position position) const { return content_.PlainAt(position); }

  /// The line that holds an index, or that ends there.
  Line LineAt(std::size_t index) const;
  std::u16string_view TextOf(const Line& line) const {
    return std::u16string_view(Plain()).substr(line.begin, line.end - line.begin);
  }
  /// The object must not be moved any more, and characters outlives it.
  const LineCapitals& CapitalsOf(const Line& line, os::Characters& characters) const;

 private:
  marker::StoryText content_;
  std::vector<std::size_t> begins_;
  mutable std::unordered_map<std::size_t, LineCapitals> capitals_;
};

/// One of the stories that are checked.
struct Text {
  int story;
  LinedText content;  ///< what is searched: hidden text, fields and an index of defined terms are not in it
  LinedText shown;    ///< what people are shown: with the results of fields, such as the numbers of clauses
};

/// Main text, footnotes and endnotes of a document.
std::vector<Text> ReadTexts(const word::DocumentPtr& document);

/// What is said at a stretch of a text.
Place PlaceOf(const Text& text, std::size_t begin, std::size_t end, os::Characters& characters);

}  // namespace drafting
