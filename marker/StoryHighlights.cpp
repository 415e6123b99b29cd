#include "marker/StoryHighlights.h"

namespace marker {

StoryHighlights::StoryHighlights(const Letters& letters, const word::DocumentPtr& document, const word::RangePtr& story)
    : text_(document, story, StoryText::Hidden::kLeftOut), highlighted_(letters, text_) {
  if (!text_.HasHidden()) return;
  withHidden_.emplace(document, story, StoryText::Hidden::kKept);
  highlightedWithHidden_.emplace(letters, *withHidden_);
}

std::vector<Stretch> StoryHighlights::Before(const word::RangePtr& range, word::Position entry,
                                             std::u16string_view entryText) {
  if (const auto exact = highlighted_.Exactly(range, entry, entryText)) return *exact;
  if (!highlightedWithHidden_) return highlighted_.Roughly(range, entry);
  if (const auto exact = highlightedWithHidden_->Exactly(range, entry, entryText)) return *exact;
  const std::vector<Stretch> rough = highlighted_.Roughly(range, entry);
  return rough.empty() ? highlightedWithHidden_->Roughly(range, entry) : rough;
}

}  // namespace marker
