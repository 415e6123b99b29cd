#pragma once

#include "platform/word/Types.h"

/// Walks a story page by page. A page here is a stretch of the story: it begins where the one before ended, and a word
/// that the end of a page would cut belongs to it whole. Where pages do not ascend, as in a table whose row a page
/// break divides, a stretch ends at the first place found that is on a later page.
class StoryPages {
 public:
  /// @param story the whole story
  explicit StoryPages(const word::RangePtr& story);

  /// Goes to the next page. @return false behind the last
  bool Next();

  /// Counted from 1 through the whole document.
  int Number() const { return number_; }
  word::Position Start() const { return start_; }
  word::Position End() const { return end_; }

 private:
  bool IsBeyond(word::Position position);
  bool CutsWord(word::Position position);

  /// Moved from place to place to be asked; nothing in the story changes.
  word::RangePtr probe_;
  word::Position storyEnd_;
  int number_{0};
  word::Position start_{0};
  word::Position end_{0};
};
