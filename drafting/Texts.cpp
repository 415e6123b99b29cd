#include "drafting/Texts.h"

#include <algorithm>

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
    texts.push_back(
        {story->StoryType(), read(marker::StoryText::Results::kLeftOut), read(marker::StoryText::Results::kKept)});
  }
  return texts;
}

Line LineAt(std::u16string_view text, std::size_t index) {
  std::size_t begin = index;
  // A line that ends at an index ends before it, too.
  while (begin > 0 && LineEnd(text.substr(begin - 1, 1), 0) != 0) --begin;
  return {begin, LineEnd(text, index)};
}

std::optional<Line> ShortLineAt(std::u16string_view text, std::size_t index, std::size_t farthest) {
  const std::size_t from = index - std::min(index, farthest);
  const std::u16string_view near = text.substr(from, index - from + farthest);
  const Line line = LineAt(near, index - from);
  const bool begins = line.begin > 0 || from == 0;
  const bool ends = line.end < near.size() || from + near.size() == text.size();
  if (!begins || !ends) return {};
  return Line{from + line.begin, from + line.end};
}

Place PlaceOf(const Text& text, std::size_t begin, std::size_t end, os::Characters& characters) {
  const word::Position position = text.content.PositionOf(begin);
  const word::Position last = text.content.PositionOf(std::max(begin + 1, end) - 1);
  begin = text.shown.PlainAt(position);
  end = text.shown.PlainAt(last) + 1;
  const std::u16string_view plain = text.shown.Plain();
  const Line line = LineAt(plain, begin);
  const std::u16string_view whole = plain.substr(line.begin, line.end - line.begin);
  const LineCapitals capitals(whole, characters);
  const std::u16string_view sentence = capitals.SentenceAt(begin - line.begin);
  Place place{.story = text.story, .position = position, .sentence = std::u16string(sentence)};
  const auto offset = sentence.empty() ? 0 : static_cast<std::size_t>(sentence.data() - whole.data());
  place.begin = std::min(begin - line.begin - std::min(offset, begin - line.begin), sentence.size());
  place.end = std::min(end - line.begin - std::min(offset, end - line.begin), sentence.size());
  std::replace(place.sentence.begin(), place.sentence.end(), marker::kBarrier, kEllipsis);
  Shorten(place);
  return place;
}

}  // namespace drafting
