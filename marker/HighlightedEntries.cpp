#include "marker/HighlightedEntries.h"

#include "marker/Entries.h"
#include "marker/Highlights.h"
#include "marker/PlainText.h"
#include "marker/TermMatcher.h"
#include "platform/word/Constants.h"
#include "platform/word/Range.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace marker {

HighlightedEntries::HighlightedEntries(const Letters& letters, const StoryText& text)
    : letters_(letters), text_(text) {}

const HighlightedEntries::Spellings& HighlightedEntries::SpellingsOf(std::u16string_view entryText) {
  const auto [found, isNew] = spellings_.try_emplace(std::u16string(entryText));
  if (isNew) {
    const std::u16string plain = PlainTerm(entryText);
    found->second = {{letters_.Fold(plain)}, {letters_.Fold(letters_.ToUpper(plain))}};
    const std::size_t article = ArticleLength(letters_, plain);
    if (article > 0) {
      found->second.push_back({letters_.Fold(std::u16string(plain).insert(article, 1, u'"')), article});
    }
  }
  return found->second;
}

// As an entry shows it, but for what parts terms: that is no part of an occurrence.
std::u16string HighlightedEntries::Shown(std::size_t begin, std::size_t end) const {
  std::u16string shown = letters_.Fold(std::u16string_view(text_.Plain()).substr(begin, end - begin));
  for (char16_t& character : shown) {
    if (!PartsTerms(character)) character = ShownAs(character);
  }
  return shown;
}

std::optional<std::vector<Stretch>> HighlightedEntries::YellowBefore(const word::RangePtr& range, std::size_t end,
                                                                     const Spellings& spellings) const {
  for (const auto& [folded, movedQuote] : spellings) {
    if (folded.empty() || folded.size() > end) continue;
    const std::size_t begin = end - folded.size();
    if (Shown(begin, end) != folded) continue;
    if (movedQuote == kNoQuote) return YellowIn(text_, range, begin, end);
    std::vector<Stretch> yellow = YellowIn(text_, range, begin, begin + movedQuote);
    for (const Stretch& stretch : YellowIn(text_, range, begin + movedQuote + 1, end)) yellow.push_back(stretch);
    return yellow;
  }
  return std::nullopt;
}

// Such an entry says how its occurrence begins. A text that repeats itself reads so in many places: the first is meant.
std::optional<std::vector<Stretch>> HighlightedEntries::YellowOfCutBefore(const word::RangePtr& range,
                                                                          std::size_t first, std::size_t end,
                                                                          const Spellings& spellings) const {
  const std::vector<Stretch> yellow = YellowTail(text_, range, first, end);
  if (yellow.empty()) return std::nullopt;
  const std::size_t begin = text_.PlainAt(yellow.front().begin);
  const std::u16string before = Shown(begin, end);
  for (const Spelling& spelling : spellings) {
    const std::size_t found = before.find(spelling.folded);
    if (found != std::u16string::npos) return YellowIn(text_, range, begin + found, end);
  }
  return std::nullopt;
}

std::size_t HighlightedEntries::BehindEntryBefore(word::Position entry) const {
  const std::vector<OurEntry>& entries = text_.Entries();
  const auto own = std::lower_bound(entries.begin(), entries.end(), entry,
                                    [](const OurEntry& one, word::Position position) { return one.begin < position; });
  return own == entries.begin() ? 0 : text_.PlainAt(std::prev(own)->begin);
}

std::size_t HighlightedEntries::WordEnd(std::size_t end) const {
  constexpr std::size_t kPossessive = 2;
  const bool isPossessive = end > kPossessive && PossessiveEnd(letters_, text_.Plain(), end - kPossessive) == end;
  return isPossessive ? end - kPossessive : end;
}

std::optional<std::vector<Stretch>> HighlightedEntries::Exactly(const word::RangePtr& range, word::Position entry,
                                                                std::u16string_view entryText) {
  const Spellings& spellings = SpellingsOf(entryText);
  // The cut may have spared half a surrogate pair.
  const bool isCut = entryText.size() + 1 >= kLongestEntry;
  const std::size_t end = text_.PlainAt(entry);
  const std::size_t wordEnd = WordEnd(end);
  std::optional<std::vector<Stretch>> found;
  // A possessive ending may itself read as an entry says, as the term "s" does.
  for (const std::size_t place : {wordEnd, end}) {
    auto yellow = isCut ? YellowOfCutBefore(range, BehindEntryBefore(entry), place, spellings)
                        : YellowBefore(range, place, spellings);
    if (yellow) found = std::move(yellow);
    if (wordEnd == end || (found && !found->empty())) break;
  }
  return found;
}

std::vector<Stretch> HighlightedEntries::Roughly(const word::RangePtr& range, word::Position entry) const {
  range->SetRange(entry, entry + 1);
  if (range->HighlightColorIndex() == word::wdYellow) return {};
  const std::size_t end = text_.PlainAt(entry);
  const std::size_t first = BehindEntryBefore(entry);
  // The ending of a term that ends in a possessive is ours too.
  const std::vector<Stretch> yellow = YellowTail(text_, range, first, end);
  return yellow.empty() ? YellowTail(text_, range, first, WordEnd(end)) : yellow;
}

}  // namespace marker
