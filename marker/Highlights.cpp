#include "marker/Highlights.h"

#include "marker/PlainText.h"
#include "platform/Text.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Find.h"
#include "platform/word/HiddenBookmarks.h"
#include "platform/word/Range.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace marker {
namespace {

constexpr std::u16string_view kLaidOnName = u"_KVXHighlighting";
constexpr std::u16string_view kPrefix = u"_KVXHighlight_";

std::optional<int> Number(std::u16string_view digits) {
  constexpr std::size_t kMostDigits = 9;
  if (digits.empty() || digits.size() > kMostDigits) return std::nullopt;
  int number = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    number = number * 10 + (digit - u'0');
  }
  return number;
}

std::u16string BookmarkName(int colour, int number) {
  return std::u16string(kPrefix).append(Decimal(colour)).append(u"_").append(Decimal(number));
}

}  // namespace

void ForEachColour(const word::RangePtr& range, Stretch stretch,
                   const std::function<void(Stretch, int colour)>& visit) {
  if (stretch.begin >= stretch.end) return;
  range->SetRange(stretch.begin, stretch.end);
  const int colour = range->HighlightColorIndex();
  if (colour != word::wdUndefined || stretch.end - stretch.begin == 1) {
    visit(stretch, colour == word::wdUndefined ? word::wdNoHighlight : colour);
    return;
  }
  const word::Position middle = stretch.begin + (stretch.end - stretch.begin) / 2;
  ForEachColour(range, {stretch.begin, middle}, visit);
  ForEachColour(range, {middle, stretch.end}, visit);
}

std::vector<Stretch> YellowIn(const StoryText& text, const word::RangePtr& range, std::size_t begin, std::size_t end) {
  std::vector<Stretch> yellow;
  for (const Stretch& stretch : text.Stretches(begin, end)) {
    ForEachColour(range, stretch, [&](Stretch part, int colour) {
      if (colour != word::wdYellow) return;
      const bool follows = !yellow.empty() && yellow.back().end == part.begin;
      if (follows) {
        yellow.back().end = part.end;
      } else {
        yellow.push_back(part);
      }
    });
  }
  return yellow;
}

std::vector<Stretch> YellowTail(const StoryText& text, const word::RangePtr& range, std::size_t first,
                                std::size_t end) {
  if (end <= first || YellowIn(text, range, end - 1, end).empty()) return {};
  std::size_t begin = end;
  while (begin > first && !PartsTerms(text.Plain()[begin - 1])) --begin;
  std::vector<Stretch> yellow = YellowIn(text, range, begin, end);
  if (yellow.empty()) return {};
  std::size_t last = yellow.size() - 1;
  while (last > 0 && text.PlainAt(yellow[last].begin) == text.PlainAt(yellow[last - 1].end)) --last;
  yellow.erase(yellow.begin(), yellow.begin() + static_cast<std::ptrdiff_t>(last));
  return yellow;
}

HighlightRecord::HighlightRecord(const word::DocumentPtr& document)
    : document_(document), bookmarks_(document->Bookmarks()) {}

bool HighlightRecord::IsLaidOn() const { return bookmarks_->Exists(kLaidOnName); }

void HighlightRecord::NoteLaidOn() {
  if (isLaidOn_) return;
  if (!IsLaidOn()) bookmarks_->Add(kLaidOnName, document_->Range(0, 0));
  isLaidOn_ = true;
}

void HighlightRecord::KeepApartFrom(const std::vector<word::RangePtr>& inserted) {
  if (inserted.empty() || !IsLaidOn()) return;
  std::vector<Stretch> apart;
  apart.reserve(inserted.size());
  for (const word::RangePtr& range : inserted) apart.push_back({range->Start(), range->End()});
  const auto keepApart = [&](std::u16string_view name, const word::RangePtr& kept) {
    const word::Position before = kept->Start();
    word::Position start = before;
    for (const auto& [begin, end] : apart) {
      if (begin <= start && start < end) start = end;
    }
    if (start == before || kept->StoryType() != inserted.front()->StoryType()) return;
    bookmarks_->Add(name, document_->Range(start, std::max(start, kept->End())));
  };
  keepApart(kLaidOnName, bookmarks_->Item(kLaidOnName)->Range());
  for (const Record& record : Records()) {
    keepApart(BookmarkName(record.colour, record.number), record.bookmark->Range());
  }
}

std::vector<HighlightRecord::Record> HighlightRecord::Records() const {
  std::vector<Record> records;
  word::HiddenBookmarksShown shown(bookmarks_);
  const int count = bookmarks_->Count();
  for (int index = 1; index <= count; ++index) {
    word::BookmarkPtr bookmark = bookmarks_->Item(index);
    const std::u16string name = bookmark->Name();
    if (!name.starts_with(kPrefix)) continue;
    const std::u16string_view rest = std::u16string_view(name).substr(kPrefix.size());
    const std::size_t bar = rest.find(u'_');
    if (bar == std::u16string_view::npos) continue;
    const std::optional<int> colour = Number(rest.substr(0, bar));
    const std::optional<int> number = Number(rest.substr(bar + 1));
    if (colour && number) records.push_back({*colour, *number, std::move(bookmark)});
  }
  shown.End();
  return records;
}

void HighlightRecord::Keep(const word::RangePtr& range, int colour) {
  if (lastNumber_ < 0) {
    lastNumber_ = 0;
    for (const Record& record : Records()) lastNumber_ = std::max(lastNumber_, record.number);
  }
  bookmarks_->Add(BookmarkName(colour, ++lastNumber_), range);
}

void HighlightRecord::KeepQuotes(const word::RangePtr& story, char16_t quote, const std::vector<Stretch>& ours) {
  std::vector<Stretch> kept;
  for (const Record& record : Records()) {
    const word::RangePtr range = record.bookmark->Range();
    if (range->StoryType() == story->StoryType()) kept.push_back({range->Start(), range->End()});
  }
  const auto isIn = [](word::Position position, const std::vector<Stretch>& stretches) {
    return std::any_of(stretches.begin(), stretches.end(),
                       [&](const Stretch& stretch) { return stretch.begin <= position && position < stretch.end; });
  };
  const word::RangePtr range = story->Duplicate();
  const word::FindPtr find = range->Find();
  find->ClearFormatting();
  find->SetText({&quote, 1});
  while (find->Execute()) {
    const word::Position position = range->Start();
    if (isIn(position, kept)) continue;
    const int colour = isIn(position, ours) ? word::wdNoHighlight : range->HighlightColorIndex();
    Keep(range, colour == word::wdUndefined ? word::wdNoHighlight : colour);
  }
}

std::vector<Stretch> HighlightRecord::Authors(int storyType) const { return AuthorsIn(Records(), storyType); }

// Of a text box or header, of which there may be many, the type does not say which it is.
std::vector<Stretch> HighlightRecord::AuthorsIn(const std::vector<Record>& records, int storyType) {
  std::vector<Stretch> authors;
  if (storyType >= word::wdCommentsStory) return authors;
  for (const Record& record : records) {
    if (record.colour == word::wdNoHighlight) continue;
    const word::RangePtr range = record.bookmark->Range();
    if (range->StoryType() == storyType) authors.push_back({range->Start(), range->End()});
  }
  std::sort(authors.begin(), authors.end(),
            [](const Stretch& left, const Stretch& right) { return left.begin < right.begin; });
  return authors;
}

void TakeHighlightOff(const word::RangePtr& range, Stretch stretch, const std::vector<Stretch>& authors) {
  const auto takeOff = [&](word::Position begin, word::Position end) {
    if (begin >= end) return;
    range->SetRange(begin, end);
    range->SetHighlightColorIndex(word::wdNoHighlight);
  };
  auto next = std::upper_bound(authors.begin(), authors.end(), stretch.begin,
                               [](word::Position begin, const Stretch& author) { return begin < author.end; });
  for (; next != authors.end() && next->begin < stretch.end; ++next) {
    takeOff(stretch.begin, next->begin);
    stretch.begin = next->end;
  }
  takeOff(stretch.begin, stretch.end);
}

void HighlightRecord::PutBack() {
  const std::vector<Record> records = Records();
  const bool hasAuthors = std::any_of(records.begin(), records.end(),
                                      [](const Record& record) { return record.colour != word::wdNoHighlight; });
  std::map<int, std::vector<Stretch>> authors;
  for (const Record& record : records) {
    if (record.colour != word::wdNoHighlight) continue;
    const word::RangePtr range = record.bookmark->Range();
    if (!hasAuthors) {
      range->SetHighlightColorIndex(word::wdNoHighlight);
      continue;
    }
    const auto [ofStory, isNew] = authors.try_emplace(range->StoryType());
    if (isNew) ofStory->second = AuthorsIn(records, range->StoryType());
    TakeHighlightOff(range, {range->Start(), range->End()}, ofStory->second);
  }
  // Last, since nothing told which of them lie in a text box or header.
  for (const Record& record : records) {
    if (record.colour != word::wdNoHighlight) record.bookmark->Range()->SetHighlightColorIndex(record.colour);
  }
  for (const Record& record : records) record.bookmark->Delete();
  if (IsLaidOn()) bookmarks_->Item(kLaidOnName)->Delete();
  isLaidOn_ = false;
  lastNumber_ = -1;
}

}  // namespace marker
