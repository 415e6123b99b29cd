#include "marker/StoryMarks.h"

#include "platform/word/Range.h"

namespace marker {

StoryMarks::StoryMarks(const word::DocumentPtr& document, const word::RangePtr& story, const TermMatcher& matcher,
                       std::size_t forms)
    : byForm_(forms), storyEnd_(story->End()), hasAuthorsHighlight_(story->HighlightColorIndex() != 0) {
  const StoryText text(document, story, StoryText::Hidden::kLeftOut);
  const std::vector<Match> matches = matcher.Find(text.Plain());
  found_.reserve(matches.size());
  stretches_.reserve(matches.size());
  for (const Match& match : matches) {
    byForm_[match.form].push_back(found_.size());
    found_.push_back({stretches_.size(), text.PositionOf(match.entry - 1) + 1, match.definition});
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
  Occurrence occurrence{.stretches = {}, .entry = found.entry + shift, .definition = found.definition};
  const std::size_t last = number + 1 < found_.size() ? found_[number + 1].firstStretch : stretches_.size();
  for (std::size_t index = found.firstStretch; index < last; ++index) {
    occurrence.stretches.push_back({stretches_[index].begin + shift, stretches_[index].end + shift});
  }
  return occurrence;
}

void StoryMarks::EntryWritten(std::size_t number, word::Position length) {
  for (std::size_t node = number + 1; node < inserted_.size(); node += node & (~node + 1)) inserted_[node] += length;
  storyEnd_ += length;
}

}  // namespace marker
