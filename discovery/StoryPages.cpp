#include "discovery/StoryPages.h"

#include <algorithm>

#include "platform/word/Constants.h"
#include "platform/word/Range.h"

namespace {

/// How far the end of the first page is looked for to begin with; later ones are about as long as the page before.
constexpr word::Position kFirstStep = 2'048;

}  // namespace

StoryPages::StoryPages(const word::RangePtr& story)
    : probe_(story->Duplicate()), storyEnd_(story->End()), start_(story->Start()), end_(story->Start()) {}

bool StoryPages::Next() {
  if (end_ >= storyEnd_) return false;
  word::Position step = std::max(end_ - start_, kFirstStep);
  start_ = end_;
  probe_->SetRange(start_, start_);
  number_ = probe_->Information(word::wdActiveEndPageNumber);

  word::Position on = start_;  // on this page
  word::Position beyond = start_ + step;
  while (beyond < storyEnd_ && !IsBeyond(beyond)) {
    on = beyond;
    step *= 2;
    beyond = on + step;
  }
  // The story's end is beyond every page.
  beyond = std::min(beyond, storyEnd_);
  while (beyond - on > 1) {
    const word::Position middle = on + (beyond - on) / 2;
    (IsBeyond(middle) ? beyond : on) = middle;
  }
  while (beyond < storyEnd_ && CutsWord(beyond)) ++beyond;
  end_ = beyond;
  return true;
}

bool StoryPages::IsBeyond(word::Position position) {
  probe_->SetRange(position, position);
  return probe_->Information(word::wdActiveEndPageNumber) > number_;
}

bool StoryPages::CutsWord(word::Position position) {
  probe_->SetRange(position - 1, position + 1);
  const std::u16string text = probe_->Text();
  constexpr std::size_t kBoth = 2;
  const auto isLetter = [](char16_t unit) {
    constexpr char16_t kFirstLetterBeyondAscii = 0xC0;
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit >= kFirstLetterBeyondAscii;
  };
  return text.size() == kBoth && std::all_of(text.begin(), text.end(), isLetter);
}
