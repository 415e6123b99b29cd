#include "drafting/Texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "discovery/LineText.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace drafting {

std::vector<Text> ReadTexts(const word::DocumentPtr& document) {
  std::vector<Text> texts;
  const word::StoryRangesPtr stories = document->StoryRanges();
  for (int i = 1; i <= stories->Count(); ++i) {
    const word::RangePtr story = stories->Item(i);
    if (story->StoryType() > word::wdEndnotesStory) continue;
    const auto read = [&](marker::StoryText::Results results) {
      return marker::StoryText(document, story, marker::StoryText::Hidden::kLeftOut, results);
    };
    texts.push_back({story->StoryType(), LinedText(read(marker::StoryText::Results::kLeftOut)),
                     LinedText(read(marker::StoryText::Results::kKept))});
  }
  return texts;
}

LinedText::LinedText(marker::StoryText content) : content_(std::move(content)) {
  for (std::size_t begin = 0; begin <= Plain().size(); begin = LineEnd(Plain(), begin) + 1) begins_.push_back(begin);
}

Line LinedText::LineAt(std::size_t index) const {
  const auto next = std::upper_bound(begins_.begin(), begins_.end(), index);
  const std::size_t begin = next == begins_.begin() ? 0 : *std::prev(next);
  return {begin, next == begins_.end() ? Plain().size() : *next - 1};
}

const LineCapitals& LinedText::CapitalsOf(const Line& line, os::Characters& characters) const {
  return capitals_.try_emplace(line.begin, TextOf(line), characters).first->second;
}

Place PlaceOf(const Text& text, std::size_t begin, std::size_t end, os::Characters& characters) {
  const word::Position position = text.content.PositionOf(begin);
  const word::Position last = text.content.PositionOf(std::max(begin + 1, end) - 1);
  begin = text.shown.PlainAt(position);
  end = text.shown.PlainAt(last) + 1;
  const Line line = text.shown.LineAt(begin);
  return {
      ExcerptOf(text.shown.TextOf(line), text.shown.CapitalsOf(line, characters), begin - line.begin, end - line.begin),
      text.story, position};
}

}  // namespace drafting
