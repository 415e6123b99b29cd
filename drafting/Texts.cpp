#include "drafting/Texts.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "discovery/LineCapitals.h"
#include "discovery/LineText.h"
#include "marker/PlainText.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace drafting {

namespace {

/// On either side of the words in question; a clause of a contract can be a page long.
constexpr std::size_t kMostContext = 160;
constexpr char16_t kEllipsis = u'\u2026';

/// Cuts a sentence short at blanks.
void Shorten(Place& place) {
  std::u16string& sentence = place.sentence;
  if (sentence.size() > place.end + kMostContext) {
    const std::size_t cut = sentence.rfind(u' ', place.end + kMostContext);
    if (cut != std::u16string::npos && cut >= place.end) sentence = sentence.substr(0, cut) + u" " + kEllipsis;
  }
  if (place.begin > kMostContext) {
    const std::size_t cut = sentence.find(u' ', place.begin - kMostContext);
    if (cut == std::u16string::npos || cut >= place.begin) return;
    sentence = std::u16string(1, kEllipsis) + sentence.substr(cut);
    place.begin = place.begin - cut + 1;
    place.end = place.end - cut + 1;
  }
}

}  // namespace

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
  // More than is shown, and less than a sentence that is as long as a document.
  constexpr std::size_t kMostRead = 4 * kMostContext;
  Place place{.story = text.story, .position = text.content.PositionOf(begin), .sentence = {}};
  const word::Position last = text.content.PositionOf(std::max(begin + 1, end) - 1);
  begin = text.shown.PlainAt(place.position);
  end = text.shown.PlainAt(last) + 1;
  const Line line = text.shown.LineAt(begin);
  const std::u16string_view whole = text.shown.TextOf(line);
  std::u16string_view sentence = text.shown.CapitalsOf(line, characters).SentenceAt(begin - line.begin);
  std::size_t offset = line.begin + (sentence.empty() ? 0 : static_cast<std::size_t>(sentence.data() - whole.data()));
  if (begin > offset + kMostRead) {
    const std::size_t left = std::min(begin - offset - kMostRead, sentence.size());
    sentence.remove_prefix(left);
    offset += left;
  }
  if (offset + sentence.size() > end + kMostRead) sentence = sentence.substr(0, end + kMostRead - offset);
  place.sentence = sentence;
  place.begin = std::min(begin - std::min(offset, begin), sentence.size());
  place.end = std::min(end - std::min(offset, end), sentence.size());
  std::replace(place.sentence.begin(), place.sentence.end(), marker::kBarrier, kEllipsis);
  Shorten(place);
  return place;
}

}  // namespace drafting
