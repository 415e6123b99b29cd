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
void Shorten(Excerpt& excerpt) {
  std::u16string& sentence = excerpt.sentence;
  if (sentence.size() > excerpt.end + kMostContext) {
    const std::size_t cut = sentence.rfind(u' ', excerpt.end + kMostContext);
    if (cut != std::u16string::npos && cut >= excerpt.end) sentence = sentence.substr(0, cut) + u" " + kEllipsis;
  }
  if (excerpt.begin > kMostContext) {
    const std::size_t cut = sentence.find(u' ', excerpt.begin - kMostContext);
    if (cut == std::u16string::npos || cut >= excerpt.begin) return;
    sentence = std::u16string(1, kEllipsis) + sentence.substr(cut);
    excerpt.begin = excerpt.begin - cut + 1;
    excerpt.end = excerpt.end - cut + 1;
  }
}

char16_t Shown(char16_t unit) { return unit == marker::kBarrier ? kEllipsis : marker::ShownAs(unit); }

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

Excerpt ExcerptOf(std::u16string_view line, const LineCapitals& capitals, std::size_t begin, std::size_t end) {
  // More than is shown, and less than a sentence that is as long as a document.
  constexpr std::size_t kMostRead = 4 * kMostContext;
  std::u16string_view sentence = capitals.SentenceAt(begin);
  std::size_t offset = sentence.empty() ? 0 : static_cast<std::size_t>(sentence.data() - line.data());
  if (begin > offset + kMostRead) {
    const std::size_t left = std::min(begin - offset - kMostRead, sentence.size());
    sentence.remove_prefix(left);
    offset += left;
  }
  if (offset + sentence.size() > end + kMostRead) sentence = sentence.substr(0, end + kMostRead - offset);
  Excerpt excerpt;
  std::transform(sentence.begin(), sentence.end(), std::back_inserter(excerpt.sentence), Shown);
  excerpt.begin = std::min(begin - std::min(offset, begin), sentence.size());
  excerpt.end = std::min(end - std::min(offset, end), sentence.size());
  Shorten(excerpt);
  return excerpt;
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
