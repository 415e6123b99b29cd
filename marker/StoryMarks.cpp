#include "marker/StoryMarks.h"

#include "marker/Highlights.h"
#include "platform/word/Constants.h"
#include "platform/word/Range.h"

#include <numeric>

namespace marker {
namespace {

/// The marks of a field, and the blanks that a host puts around a code.
constexpr word::Position kLeastAround = 2;
constexpr word::Position kMostAround = 4;

/// Tells of each match whether some of it, or of what is right before it, has a highlight: of many at once, since few
/// have.
class HighlightedMatches {
 public:
  /// @param range a range of the story, which is moved about; null when nothing in the story has a highlight
  HighlightedMatches(const word::RangePtr& range, const StoryText& text, const std::vector<Match>& matches)
      : range_(range), text_(text), matches_(matches), highlighted_(matches.size()) {
    if (range_) Ask(0, matches.size(), true);
  }
  bool operator[](std::size_t index) const { return highlighted_[index]; }

 private:
  /// @param some a highlight stands there or between them, for all that is known
  /// @return whether one may stand there
  bool Ask(std::size_t first, std::size_t last, bool some) {
    if (first == last || !(some || IsHighlighted(first, last))) return false;
    if (last - first == 1) {
      highlighted_[first] = true;
      return true;
    }
    const std::size_t middle = first + (last - first) / 2;
    const bool left = Ask(first, middle, false);
    return Ask(middle, last, !left) || left;
  }

  bool IsHighlighted(std::size_t first, std::size_t last) {
    const std::size_t begin = matches_[first].begin;
    range_->SetRange(text_.PositionOf(begin == 0 ? 0 : begin - 1), text_.PositionOf(matches_[last - 1].entry - 1) + 1);
    return range_->HighlightColorIndex() != word::wdNoHighlight;
  }

  word::RangePtr range_;
  const StoryText& text_;
  const std::vector<Match>& matches_;
  std::vector<bool> highlighted_;
};

}  // namespace

StoryMarks::StoryMarks(const word::DocumentPtr& document, const word::RangePtr& story, const TermMatcher& matcher,
                       std::size_t forms)
    : byForm_(forms), storyEnd_(story->End()) {
  const StoryText text(document, story, StoryText::Hidden::kLeftOut);
  const std::vector<Match> matches = matcher.Find(text.Plain());
  found_.reserve(matches.size());
  stretches_.reserve(matches.size());
  const bool isPlain = matches.empty() || story->HighlightColorIndex() == word::wdNoHighlight;
  const word::RangePtr range = isPlain ? nullptr : story->Duplicate();
  const HighlightedMatches highlighted(range, text, matches);
  std::size_t behindLast = 0;
  for (const Match& match : matches) {
    byForm_[match.form].push_back(found_.size());
    const std::size_t firstBefore = stretches_.size();
    const bool isHighlighted = highlighted[found_.size()];
    if (isHighlighted) {
      for (const Stretch& stretch : YellowTail(text, range, behindLast, match.begin)) stretches_.push_back(stretch);
    }
    behindLast = match.entry;
    found_.push_back(
        {firstBefore, stretches_.size(), text.PositionOf(match.entry - 1) + 1, match.definition, isHighlighted});
    for (const Stretch& stretch : text.Stretches(match.begin, match.end)) stretches_.push_back(stretch);
  }
  inserted_.assign(found_.size() + 1, 0);
}

word::Position StoryMarks::InsertedBefore(std::size_t number) const {
  word::Position sum = 0;
  for (std::size_t node = number; node > 0; node &= node - 1) sum += inserted_[node];
  return sum;
}

StoryMarks::Occurrence StoryMarks::At(std::size_t number) const {
  const Found& found = found_[number];
  const word::Position shift = InsertedBefore(number);
  const auto present = [&](std::size_t first, std::size_t last) {
    std::vector<Stretch> stretches;
    for (std::size_t index = first; index < last; ++index) {
      stretches.push_back({stretches_[index].begin + shift, stretches_[index].end + shift});
    }
    return stretches;
  };
  const std::size_t last = number + 1 < found_.size() ? found_[number + 1].firstBefore : stretches_.size();
  return {.stretches = present(found.firstStretch, last),
          .before = present(found.firstBefore, found.firstStretch),
          .entry = found.entry + shift,
          .definition = found.definition,
          .highlighted = found.highlighted};
}

void StoryMarks::EntryWritten(std::size_t number, std::size_t codeLength) {
  written_.push_back({number, static_cast<word::Position>(codeLength)});
}

bool StoryMarks::Settle(word::Position storyEnd) {
  const word::Position codes =
      std::accumulate(written_.begin(), written_.end(), word::Position{0},
                      [](word::Position sum, const Written& one) { return sum + one.codeLength; });
  const word::Position rest = storyEnd - storyEnd_ - codes;
  const auto count = static_cast<word::Position>(written_.size());
  if (count == 0) return rest == 0;
  const word::Position around = rest / count;
  const bool isKnown = aroundCode_ < 0 ? around >= kLeastAround && around <= kMostAround : around == aroundCode_;
  if (!isKnown || rest != around * count) return false;
  for (const auto& [number, codeLength] : written_) {
    for (std::size_t node = number + 1; node < inserted_.size(); node += node & (~node + 1)) {
      inserted_[node] += codeLength + around;
    }
  }
  written_.clear();
  aroundCode_ = around;
  storyEnd_ = storyEnd;
  return true;
}

}  // namespace marker
