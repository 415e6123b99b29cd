#include "marker/StoryText.h"

#include "marker/Entries.h"
#include "marker/PlainText.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/FindUnit.h"
#include "platform/word/Format.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

#include <algorithm>

namespace marker {
namespace {

void SortByBegin(std::vector<Stretch>& stretches) {
  std::sort(stretches.begin(), stretches.end(),
            [](const Stretch& left, const Stretch& right) { return left.begin < right.begin; });
}

/// Halves a range until each part is hidden or not: few calls, since hidden text is rare.
void CollectHidden(const word::RangePtr& range, word::Position begin, word::Position end,
                   std::vector<Stretch>& hidden) {
  if (begin >= end) return;
  range->SetRange(begin, end);
  const int state = range->Font()->Hidden();
  if (state == 0) return;
  if (state != word::wdUndefined || end - begin == 1) {
    hidden.push_back({begin, end});
    return;
  }
  const word::Position middle = begin + (end - begin) / 2;
  CollectHidden(range, begin, middle, hidden);
  CollectHidden(range, middle, end, hidden);
}

void CollectDeleted(const word::RangePtr& story, std::vector<Stretch>& deleted) {
  const word::RevisionsPtr revisions = story->Revisions();
  const int count = revisions->Count();
  for (int index = 1; index <= count; ++index) {
    const word::RevisionPtr revision = revisions->Item(index);
    const int type = revision->Type();
    if (type != word::wdRevisionDelete && type != word::wdRevisionMovedFrom) continue;
    const word::RangePtr range = revision->Range();
    deleted.push_back({range->Start(), range->End()});
  }
}

void CollectOurOwn(const word::DocumentPtr& document, const word::RangePtr& story, std::vector<Stretch>& own) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  for (const std::u16string_view name : {kIndexBookmark, kNotUsedListBookmark, kNotFoundListBookmark}) {
    if (!bookmarks->Exists(name)) continue;
    const word::RangePtr range = bookmarks->Item(name)->Range();
    if (range->StoryType() == story->StoryType()) own.push_back({range->Start(), range->End()});
  }
}

/// What of a stretch is left out when the characters that part its neighbours stay.
template <typename Parts>
void CollectBetween(Parts parts, std::u16string_view text, word::Position start, const Stretch& stretch,
                    std::vector<Stretch>& gaps) {
  const auto end = static_cast<std::size_t>(stretch.end - start);
  for (auto from = static_cast<std::size_t>(stretch.begin - start); from < end; ++from) {
    const std::size_t to = std::min(word::FindUnit(text, from, parts), end);
    if (to > from) gaps.push_back({start + static_cast<word::Position>(from), start + static_cast<word::Position>(to)});
    from = to;
  }
}

/// Where the index will go: no occurrence is to be torn apart by it. -1 when that is not in the story.
word::Position IndexPlace(const word::DocumentPtr& document, const word::RangePtr& story) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (!bookmarks->Exists(kIndexStartBookmark)) return -1;
  const word::RangePtr place = bookmarks->Item(kIndexStartBookmark)->Range();
  return place->StoryType() == story->StoryType() ? place->Start() : -1;
}

/// Walks sorted stretches, which may overlap, along ascending positions.
class StretchWalk {
 public:
  explicit StretchWalk(const std::vector<Stretch>& stretches) : stretches_(stretches) {}

  bool Covers(word::Position position) {
    while (next_ < stretches_.size() && stretches_[next_].begin <= position) {
      end_ = std::max(end_, stretches_[next_++].end);
    }
    return position < end_;
  }
  /// Up to where that holds at least, for the position asked about last. @param last where the walk ends
  word::Position HoldsUntil(word::Position position, word::Position last) const {
    if (position < end_) return std::min(end_, last);
    return next_ < stretches_.size() ? std::min(stretches_[next_].begin, last) : last;
  }

 private:
  const std::vector<Stretch>& stretches_;
  std::size_t next_{0};
  word::Position end_{0};
};

}  // namespace

std::u16string TextByPosition(const word::RangePtr& range) {
  const word::RangePtr reader = range->Duplicate();
  const word::TextRetrievalModePtr mode = reader->TextRetrievalMode();
  mode->SetIncludeFieldCodes(true);
  mode->SetIncludeHiddenText(true);
  std::u16string text = reader->Text();
  std::size_t kept =
      word::FindUnit(std::u16string_view(text), 0, [](char16_t unit) { return unit == word::kCellMark; });
  for (std::size_t index = kept; index < text.size(); ++index) {
    if (text[index] == word::kCellMark && kept > 0 && text[kept - 1] == word::kParagraphMark) --kept;
    text[kept++] = text[index];
  }
  text.resize(kept);
  if (static_cast<word::Position>(kept) != reader->End() - reader->Start()) {
    throw word::HostError(word::kCommandFailed, u"The text of the document does not agree with its positions.",
                          "Range.Text");
  }
  return text;
}

StoryText::StoryText(const word::DocumentPtr& document, const word::RangePtr& story, Hidden hidden, Results results) {
  const std::u16string text = TextByPosition(story);
  const word::Position start = story->Start();
  std::vector<Stretch> barriers;
  std::vector<Stretch> gaps;
  for (const ScannedField& field : ScanFields(text)) {
    const word::Position begin = start + static_cast<word::Position>(field.begin);
    const word::Position end = start + static_cast<word::Position>(field.end) + 1;
    if (field.HasResult() && results == Results::kKept) {
      gaps.push_back({begin, start + static_cast<word::Position>(field.separator) + 1});
      gaps.push_back({end - 1, end});
      continue;
    }
    if (field.HasResult()) {
      barriers.push_back({begin, end});
      continue;
    }
    gaps.push_back({begin, end});
    FieldCode code = ParseFieldCode(std::u16string_view(text).substr(field.begin + 1, field.end - field.begin - 1));
    if (IsOurEntry(code)) entries_.push_back({begin, std::move(code.text)});
  }
  std::sort(entries_.begin(), entries_.end(),
            [](const OurEntry& left, const OurEntry& right) { return left.begin < right.begin; });
  CollectOurOwn(document, story, barriers);
  std::vector<Stretch> unseen;
  CollectDeleted(story, unseen);
  const auto isCellMark = [](char16_t unit) { return unit == word::kCellMark; };
  for (const Stretch& stretch : unseen) CollectBetween(isCellMark, text, start, stretch, gaps);
  hasHidden_ = hidden == Hidden::kLeftOut && story->Font()->Hidden() != 0;
  if (hasHidden_) {
    unseen.clear();
    CollectHidden(story->Duplicate(), start, story->End(), unseen);
    for (const Stretch& stretch : unseen) CollectBetween(PartsTerms, text, start, stretch, gaps);
  }
  SortByBegin(barriers);
  SortByBegin(gaps);
  Build(text, start, barriers, gaps, IndexPlace(document, story));
}

void StoryText::Build(std::u16string_view text, word::Position start, const std::vector<Stretch>& barriers,
                      const std::vector<Stretch>& gaps, word::Position indexPlace) {
  plain_.reserve(text.size());
  StretchWalk barrier(barriers);
  StretchWalk gap(gaps);
  const word::Position end = start + static_cast<word::Position>(text.size());
  for (word::Position position = start; position < end;) {
    if (position == indexPlace) Append(kBarrier, position);
    const bool isBarrier = barrier.Covers(position);
    const bool isGap = gap.Covers(position);
    word::Position until = std::min(barrier.HoldsUntil(position, end), gap.HoldsUntil(position, end));
    if (position < indexPlace) until = std::min(until, indexPlace);
    if (!isGap && !isBarrier) {
      const auto from = static_cast<std::size_t>(position - start);
      AppendReading(text.substr(from, static_cast<std::size_t>(until - position)), position);
    } else if (!isGap && (plain_.empty() || plain_.back() != kBarrier)) {
      Append(kBarrier, position);
    }
    position = until;
  }
}

void StoryText::Continue(word::Position position) {
  const bool follows = !pieces_.empty() && position - pieces_.back().position ==
                                               static_cast<word::Position>(plain_.size() - pieces_.back().plain);
  if (!follows) pieces_.push_back({plain_.size(), position});
}

void StoryText::Append(char16_t character, word::Position position) {
  Continue(position);
  plain_.push_back(character);
}

void StoryText::AppendReading(std::u16string_view text, word::Position position) {
  for (std::size_t index = 0; index < text.size();) {
    const std::size_t plainEnd = word::FindUnit(text, index, [](char16_t unit) { return !IsPlain(unit); });
    if (plainEnd > index) {
      Continue(position + static_cast<word::Position>(index));
      plain_.append(text.substr(index, plainEnd - index));
      index = plainEnd;
      continue;
    }
    char16_t reading = 0;
    if (ReadsAs(text[index], reading)) Append(reading, position + static_cast<word::Position>(index));
    ++index;
  }
}

word::Position StoryText::PositionOf(std::size_t plain) const {
  const auto next = std::upper_bound(pieces_.begin(), pieces_.end(), plain,
                                     [](std::size_t value, const Piece& piece) { return value < piece.plain; });
  const Piece& piece = *std::prev(next);
  return piece.position + static_cast<word::Position>(plain - piece.plain);
}

std::size_t StoryText::PlainAt(word::Position position) const {
  const auto next = std::upper_bound(pieces_.begin(), pieces_.end(), position,
                                     [](word::Position value, const Piece& piece) { return value < piece.position; });
  if (next == pieces_.begin()) return 0;
  const Piece& piece = *std::prev(next);
  const std::size_t inPiece = piece.plain + static_cast<std::size_t>(position - piece.position);
  return std::min(inPiece, next == pieces_.end() ? plain_.size() : next->plain);
}

std::vector<Stretch> StoryText::Stretches(std::size_t begin, std::size_t end) const {
  std::vector<Stretch> stretches;
  for (auto next = std::upper_bound(pieces_.begin(), pieces_.end(), begin,
                                    [](std::size_t value, const Piece&piece) { return value < piece.plain; });
       begin < end; ++next) {
    const Piece& piece = *std::prev(next);
    const std::size_t pieceEnd = next == pieces_.end() ? end : std::min(end, next->plain);
    const word::Position first = piece.position + static_cast<word::Position>(begin - piece.plain);
    stretches.push_back({first, first + static_cast<word::Position>(pieceEnd - begin)});
    begin = pieceEnd;
    if (next == pieces_.end()) break;
  }
  return stretches;
}

}  // namespace marker
