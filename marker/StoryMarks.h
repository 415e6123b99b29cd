#pragma once

#include "marker/StoryText.h"
#include "marker/TermMatcher.h"
#include "platform/word/Types.h"

#include <cstddef>
#include <vector>

namespace marker {

/// The occurrences of all forms in one story, found once. Entries are written behind them in any order; each
/// occurrence's present position is told from what was inserted before it so far, so that no range has to be kept for
/// it. How long entries became is told from the story's end, once for many.
class StoryMarks {
 public:
  struct Occurrence {
    std::vector<Stretch> stretches{};  ///< the text it is made of
    std::vector<Stretch> before{};     ///< the text right before it that was yellow before marking
    word::Position entry{0};           ///< where its entry goes
    bool definition{false};
    bool highlighted{false};  ///< some of it, or of what is right before it, may have had a highlight before marking
  };

  StoryMarks(const word::DocumentPtr& document, const word::RangePtr& story, const TermMatcher& matcher,
             std::size_t forms);

  /// The numbers of a form's occurrences, in their order in the story.
  const std::vector<std::size_t>& Of(std::size_t form) const { return byForm_[form]; }

  bool IsDefinition(std::size_t number) const { return found_[number].definition; }
  /// An occurrence where it stood when Settle() was called last.
  Occurrence At(std::size_t number) const;
  /// To be told after an entry with this code was written behind an occurrence.
  void EntryWritten(std::size_t number, std::size_t codeLength);
  /// Places what was written.
  /// @param storyEnd where the story ends now
  /// @return false when somebody else has changed the story: what was found holds no more
  bool Settle(word::Position storyEnd);

 private:
  struct Found {
    std::size_t firstBefore;  ///< of the stretches; those up to the next are the text before it
    std::size_t firstStretch;
    word::Position entry;
    bool definition;
    bool highlighted;
  };

  struct Written {
    std::size_t number;
    word::Position codeLength;
  };

  word::Position InsertedBefore(std::size_t number) const;

  std::vector<Found> found_;
  std::vector<Stretch> stretches_;
  std::vector<std::vector<std::size_t>> byForm_;
  std::vector<word::Position> inserted_;  ///< a binary indexed tree of inserted lengths, by occurrence
  std::vector<Written> written_;          ///< and not placed yet
  word::Position aroundCode_{-1};         ///< what an entry has beside its code; below 0 until one was placed
  word::Position storyEnd_{0};
};

}  // namespace marker
