#include "discovery/SearchedStories.h"

#include "platform/word/Document.h"
#include "platform/word/Range.h"

std::vector<word::RangePtr> SearchedStories(const word::DocumentPtr& document) {
  constexpr word::Position kShortest = 2;
  std::vector<word::RangePtr> stories;
  const word::StoryRangesPtr all = document->StoryRanges();
  for (int i = 1; i <= all->Count(); ++i) {
    for (word::RangePtr story = all->Item(i); story; story = story->NextStoryRange()) {
      // Linked stories are of one type.
      if (story->StoryType() >= word::wdCommentsStory) break;
      if (story->StoryLength() >= kShortest) stories.push_back(story);
    }
  }
  return stories;
}
