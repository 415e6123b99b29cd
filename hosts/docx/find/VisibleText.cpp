#include "hosts/docx/find/VisibleText.h"

#include <algorithm>

#include "platform/word/Constants.h"
#include "platform/word/FindUnit.h"

namespace docx {

namespace {

/// Reading starts small, since a match is often near, and grows, since it may be far.
constexpr std::size_t kFirstStep = 256;
constexpr std::size_t kLastStep = 1U << 16;

bool IsLead(char16_t unit) { return (unit & 0xFC00U) == 0xD800U; }
bool IsTrail(char16_t unit) { return (unit & 0xFC00U) == 0xDC00U; }

}  // namespace

VisibleText::VisibleText(TextSource& source, Position start, Position limit)
    : source_(source), start_(start), next_(start), limit_(limit), step_(kFirstStep) {}

bool VisibleText::Read(std::size_t index) {
  const std::size_t wanted = std::max(index + 1, text_.size() + step_);
  step_ = std::min(step_ * 2, kLastStep);
  if (step_ == kLastStep) text_.reserve(text_.size() + static_cast<std::size_t>(limit_ - next_));
  while (text_.size() < wanted && next_ < limit_) {
    const TextSource::Stretch stretch = source_.StretchAt(next_);
    const auto skipped = static_cast<std::size_t>(next_ - stretch.start);
    const auto units =
        std::min({stretch.text.size() - skipped, static_cast<std::size_t>(limit_ - next_), wanted - text_.size()});
    if (stretch.treatment == Treatment::kSearched) {
      const std::size_t at = text_.size();
      if (segments_.empty() ||
          segments_.back().position + static_cast<Position>(at - segments_.back().index) != next_) {
        segments_.push_back({at, next_});
      }
      text_.append(stretch.text, skipped, units);
      word::ReplaceUnits(
          text_, at, [](char16_t unit) { return unit == word::kCellMark; }, kBarrier);
    } else if (stretch.treatment == Treatment::kBarrier) {
      segments_.push_back({text_.size(), next_});
      text_ += kBarrier;
    }
    next_ += static_cast<Position>(units);
  }
  return index < text_.size();
}

CodePoint VisibleText::CharacterAt(std::size_t index) {
  const char16_t unit = At(index);
  if (IsLead(unit) && IsTrail(At(index + 1))) return CodePointAt(text_, index);
  return {unit, 1};
}

std::size_t VisibleText::Size() {
  while (next_ < limit_) Read(text_.size());
  return text_.size();
}

Position VisibleText::PositionOf(std::size_t index) const {
  const auto behind =
      std::upper_bound(segments_.begin(), segments_.end(), index,
                       [](std::size_t wanted, const Segment& segment) { return wanted < segment.index; });
  const Segment& segment = *(behind - 1);
  return segment.position + static_cast<Position>(index - segment.index);
}

std::size_t VisibleText::IndexAt(Position position) {
  while (next_ < position && next_ < limit_) Read(text_.size());
  const auto behind =
      std::upper_bound(segments_.begin(), segments_.end(), position,
                       [](Position wanted, const Segment& segment) { return wanted < segment.position; });
  if (behind == segments_.begin()) return 0;
  const Segment& segment = *(behind - 1);
  const std::size_t index = segment.index + static_cast<std::size_t>(position - segment.position);
  return std::min(index, behind == segments_.end() ? text_.size() : behind->index);
}

char32_t VisibleText::Neighbour(Position position, int direction) {
  while (position >= 0 && position < source_.Length()) {
    const TextSource::Stretch stretch = source_.StretchAt(position);
    if (stretch.treatment == Treatment::kBarrier) return kBarrier;
    if (stretch.treatment == Treatment::kSearched) {
      const auto at = static_cast<std::size_t>(position - stretch.start);
      const char16_t unit = stretch.text[at];
      if (unit == word::kCellMark) return kBarrier;
      if (direction < 0 && IsTrail(unit) && at > 0) return CodePointAt(stretch.text, at - 1).value;
      return CodePointAt(stretch.text, at).value;
    }
    position = direction < 0 ? stretch.start - 1 : stretch.start + static_cast<Position>(stretch.text.size());
  }
  return kBarrier;
}

char32_t VisibleText::Before(std::size_t index) {
  if (index == 0) return Neighbour(start_ - 1, -1);
  const std::size_t at = index - 1;
  if (IsTrail(At(at)) && at > 0 && IsLead(At(at - 1))) return CharacterAt(at - 1).value;
  return At(at);
}

char32_t VisibleText::After(std::size_t index) {
  if (Has(index)) return CharacterAt(index).value;
  return Neighbour(limit_, 1);
}

bool VisibleText::SplitsCharacter(std::size_t index) {
  return index > 0 && IsTrail(At(index)) && IsLead(At(index - 1));
}

}  // namespace docx
