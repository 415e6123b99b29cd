#include "marker/StoryMarks.h"

#include "marker/Highlights.h"
#include "platform/word/Range.h"

#include <numeric>

namespace marker {
namespace {

/// The marks of a field, and the blanks that a host puts around a code.
constexpr word::Position kLeastAround = 2;
constexpr word::Position kMostAround = 4;

}  // namespace

StoryMarks::StoryMarks(const word::DocumentPtr& document, const word::RangePtr& story, const TermMatcher& matcher,
                       std::size_t forms)
    : byForm_(forms), storyEnd_(story->End()), hasAuthorsHighlight_(story->HighlightColorIndex() != 0) {
  const StoryText text(document, story, StoryText::Hidden::kLeftOut);
  const std::vector<Match> matches = matcher.Find(text.Plain());
  found_.reserve(matches.size());
  stretches_.reserve(matches.size());
  const word::RangePtr range = hasAuthorsHighlight_ ? story->Duplicate() : nullptr;
  std::size_t behindLast = 0;
  for (const Match& match : matches) {
    byForm_[match.form].push_back(found_.size());
    const std::size_t firstBefore = stretches_.size();
    if (range) {
      for (const Stretch& stretch : YellowTail(text, range, behindLast, match.begin)) stretches_.push_back(stretch);
    }
    behindLast = match.entry;
    found_.push_back({firstBefore, stretches_.size(), text.PositionOf(match.entry - 1) + 1, match.definition});
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
          .definition = found.definition};
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
