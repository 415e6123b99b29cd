#include "marker/Stories.h"

#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <utility>

namespace marker {

std::vector<word::RangePtr> MarkedStories(const word::DocumentPtr& document) {
  std::vector<word::RangePtr> stories;
  const word::StoryRangesPtr all = document->StoryRanges();
  const int count = all->Count();
  for (int index = 1; index <= count; ++index) {
    word::RangePtr story = all->Item(index);
    if (story->StoryType() < word::wdCommentsStory) stories.push_back(std::move(story));
  }
  return stories;
}

std::vector<word::RangePtr> AllStories(const word::DocumentPtr& document) {
  std::vector<word::RangePtr> stories;
  const word::StoryRangesPtr all = document->StoryRanges();
  const int count = all->Count();
  for (int index = 1; index <= count; ++index) {
    for (word::RangePtr story = all->Item(index); story; story = story->NextStoryRange()) stories.push_back(story);
  }
  return stories;
}

}  // namespace marker
