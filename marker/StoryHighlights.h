#pragma once

#include "marker/HighlightedEntries.h"
#include "marker/Letters.h"
#include "marker/StoryText.h"
#include "platform/word/Types.h"

#include <optional>
#include <string_view>
#include <vector>

namespace marker {

/// What marking highlighted in one story as it stands.
class StoryHighlights {
 public:
  /// @param letters must outlive this object
  StoryHighlights(const Letters& letters, const word::DocumentPtr& document, const word::RangePtr& story);
  StoryHighlights(const StoryHighlights&) = delete;
  StoryHighlights& operator=(const StoryHighlights&) = delete;

  /// In order of their position.
  const std::vector<OurEntry>& Entries() const { return text_.Entries(); }
  /// The yellow stretches of an entry's occurrence, as marking reads the text; where that does not agree with the
  /// entry, as it reads with the hidden text, which may have been hidden since.
  /// @param range a range of the story, which is moved about
  std::vector<Stretch> Before(const word::RangePtr& range, word::Position entry, std::u16string_view entryText);

 private:
  StoryText text_;
  HighlightedEntries highlighted_;
  std::optional<StoryText> withHidden_;  ///< where there is any
  std::optional<HighlightedEntries> highlightedWithHidden_;
};

}  // namespace marker
