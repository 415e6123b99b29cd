#include "marker/HighlightedEntries.h"

#include "marker/Entries.h"
#include "marker/Highlights.h"
#include "marker/PlainText.h"
#include "marker/TermMatcher.h"
#include "platform/word/Constants.h"
#include "platform/word/Range.h"

#include <algorithm>

namespace marker {

HighlightedEntries::HighlightedEntries(const Letters& letters, const StoryText& text)
    : letters_(letters), text_(text) {}

const HighlightedEntries::Spellings& HighlightedEntries::SpellingsOf(std::u16string_view entryText) {
  const auto [found, isNew] = spellings_.try_emplace(std::u16string(entryText));
  if (isNew) {
    const std::u16string plain = PlainTerm(entryText);
    found->second = {letters_.Fold(plain), letters_.Fold(letters_.ToUpper(plain))};
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

std::size_t HighlightedEntries::LengthBefore(std::size_t end, const Spellings& spellings) const {
  for (const std::u16string& spelling : {spellings.plain, spellings.upper}) {
    if (spelling.empty() || spelling.size() > end) continue;
    if (Shown(end - spelling.size(), end) == spelling) return spelling.size();
  }
  return 0;
}

std::size_t HighlightedEntries::LengthOfCutBefore(std::size_t end, const Spellings& spellings) const {
  std::size_t begin = end;
  while (begin > 0 && !PartsTerms(text_.Plain()[begin - 1])) --begin;
  const std::u16string before = Shown(begin, end);
  for (const std::u16string& spelling : {spellings.plain, spellings.upper}) {
    const std::size_t found = before.rfind(spelling);
    if (!spelling.empty() && found != std::u16string::npos) return before.size() - found;
  }
  return 0;
}

std::vector<Stretch> HighlightedEntries::Yellow(const word::RangePtr& range, std::size_t begin, std::size_t end) const {
  std::vector<Stretch> yellow;
  for (const Stretch& stretch : text_.Stretches(begin, end)) {
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

std::vector<Stretch> HighlightedEntries::YellowTail(const word::RangePtr& range, std::size_t end,
                                                    std::size_t longest) const {
  std::size_t begin = end;
  while (begin > 0 && end - begin < longest && !PartsTerms(text_.Plain()[begin - 1])) --begin;
  std::vector<Stretch> yellow = Yellow(range, begin, end);
  if (yellow.empty() || yellow.back().end != text_.PositionOf(end - 1) + 1) return {};
  // What lies before a stretch without highlight is not the occurrence any more.
  std::size_t first = yellow.size() - 1;
  while (first > 0 && text_.PlainAt(yellow[first].begin) == text_.PlainAt(yellow[first - 1].end)) --first;
  yellow.erase(yellow.begin(), yellow.begin() + static_cast<std::ptrdiff_t>(first));
  return yellow;
}

std::size_t HighlightedEntries::WordEnd(std::size_t end) const {
  constexpr std::size_t kPossessive = 2;
  const bool isPossessive = end > kPossessive && PossessiveEnd(letters_, text_.Plain(), end - kPossessive) == end;
  return isPossessive ? end - kPossessive : end;
}

std::optional<std::vector<Stretch>> HighlightedEntries::Exactly(const word::RangePtr& range, word::Position entry,
                                                                std::u16string_view entryText) {
  const Spellings& spellings = SpellingsOf(entryText);
  const std::size_t end = text_.PlainAt(entry);
  if (const std::size_t length = LengthBefore(end, spellings)) return Yellow(range, end - length, end);
  const std::size_t wordEnd = WordEnd(end);
  if (const std::size_t length = LengthBefore(wordEnd, spellings)) return Yellow(range, wordEnd - length, wordEnd);
  // An entry that was cut says how its occurrence begins; the cut may have spared half a surrogate pair.
  if (entryText.size() + 1 >= kLongestEntry) {
    if (const std::size_t length = LengthOfCutBefore(end, spellings)) return Yellow(range, end - length, end);
  }
  return std::nullopt;
}

std::vector<Stretch> HighlightedEntries::Roughly(const word::RangePtr& range, word::Position entry,
                                                 std::u16string_view entryText) const {
  const std::size_t end = WordEnd(text_.PlainAt(entry));
  return end == 0 ? std::vector<Stretch>{} : YellowTail(range, end, entryText.size());
}

}  // namespace marker
