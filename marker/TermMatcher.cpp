#include "marker/TermMatcher.h"

#include "marker/PlainText.h"
#include "platform/Quotes.h"
#include "platform/word/Constants.h"

#include <algorithm>
#include <array>
#include <future>
#include <numeric>

namespace marker {
namespace {

constexpr std::size_t kNoForm = static_cast<std::size_t>(-1);

/// Below it a thread costs more than it saves.
constexpr std::size_t kWorthThread = 64 << 10;

/// The place of a unit among branches.
template <typename Branches>
auto FirstNotBefore(Branches& branches, char16_t unit) {
  return std::lower_bound(branches.begin(), branches.end(), unit,
                          [](const auto& branch, char16_t wanted) { return branch.unit < wanted; });
}

constexpr std::array<std::u16string_view, 4> kArticles{u"a ", u"an ", u"any ", u"the "};

bool EndsWithQuote(std::u16string_view text) { return !text.empty() && IsDoubleQuote(text.back()); }

}  // namespace

bool StandsInQuotes(const Letters& letters, std::u16string_view text, std::size_t begin, std::size_t end) {
  while (end < text.size() && text[end] == word::kNoteReference) ++end;
  if (end >= text.size() || !IsDoubleQuote(text[end])) return false;
  std::u16string_view before = text.substr(0, begin);
  if (EndsWithQuote(before)) return true;
  // One blank behind an article says as much as more of them.
  while (before.ends_with(u"  ")) before.remove_suffix(1);
  return std::any_of(kArticles.begin(), kArticles.end(), [&](std::u16string_view article) {
    if (before.size() <= article.size()) return false;
    const std::size_t start = before.size() - article.size();
    return letters.Fold(before.substr(start)) == article && EndsWithQuote(before.substr(0, start));
  });
}

std::size_t ArticleLength(const Letters& letters, std::u16string_view text) {
  const auto article = std::find_if(kArticles.begin(), kArticles.end(), [&](std::u16string_view one) {
    return letters.Fold(text.substr(0, one.size())) == one;
  });
  return article == kArticles.end() ? 0 : article->size();
}

std::size_t PossessiveEnd(const Letters& letters, std::u16string_view text, std::size_t end) {
  if (end + 1 >= text.size()) return end;
  const bool apostrophe = text[end] == u'\'' || text[end] == u'\u2019';
  const bool letter = text[end + 1] == u's' || text[end + 1] == u'S';
  return apostrophe && letter && !letters.IsWordAt(text, end + 2) ? end + 2 : end;
}

TermMatcher::TermMatcher(const Letters& letters, std::vector<Form> forms)
    : letters_(letters), forms_(std::move(forms)) {
  for (std::size_t form = 0; form < forms_.size(); ++form) {
    const std::u16string& text = forms_[form].text;
    if (!text.empty() && std::none_of(text.begin(), text.end(), PartsTerms)) Insert(form);
  }
  for (std::size_t unit = 0; unit < roots_.size(); ++unit) roots_[unit] = Child(kRoot, static_cast<char16_t>(unit));
}

void TermMatcher::Insert(std::size_t form) {
  Node node = kRoot;
  longest_ = std::max(longest_, forms_[form].text.size());
  for (const char16_t unit : letters_.Fold(forms_[form].text)) {
    Node child = Child(node, unit);
    if (child == kNone) {
      child = static_cast<Node>(children_.size());
      std::vector<Branch>& branches = children_[node];
      branches.insert(FirstNotBefore(branches, unit), {unit, child});
      children_.emplace_back();
      formsAt_.emplace_back();
    }
    node = child;
  }
  formsAt_[node].push_back(form);
}

TermMatcher::Node TermMatcher::Child(Node parent, char16_t unit) const {
  const std::vector<Branch>& branches = children_[parent];
  const auto found = FirstNotBefore(branches, unit);
  return found == branches.end() || found->unit != unit ? kNone : found->child;
}

std::size_t TermMatcher::Choose(const std::vector<std::size_t>& forms, std::u16string_view found) const {
  std::size_t alike = kNoForm;
  std::size_t first = kNoForm;
  for (const std::size_t form : forms) {
    if (forms_[form].text == found) return form;
    if (alike == kNoForm && DifferInQuotesAtMost(forms_[form].text, found)) alike = form;
    if (first == kNoForm && !forms_[form].matchCase) first = form;
  }
  return alike != kNoForm ? alike : first;
}

void TermMatcher::Collect(std::u16string_view text, std::u16string_view folded, std::size_t begin,
                          std::vector<Match>& candidates) const {
  Node node = kRoot;
  for (std::size_t length = 1; length <= folded.size(); ++length) {
    const char16_t unit = folded[length - 1];
    node = length == 1 ? Begin(unit) : Child(node, unit);
    if (node == kNone) return;
    const std::size_t end = begin + length;
    if (formsAt_[node].empty() || Letters::SplitsPair(text, end) || letters_.IsWordAt(text, end)) continue;
    const std::size_t form = Choose(formsAt_[node], text.substr(begin, length));
    if (form != kNoForm) candidates.push_back({.form = form, .begin = begin, .end = end, .entry = end});
  }
}

std::vector<Match> TermMatcher::Candidates(std::u16string_view text, std::size_t begin, std::size_t end) const {
  const std::u16string folded = letters_.Fold(text.substr(begin, end - begin + longest_));
  std::vector<Match> candidates;
  bool behindWord = letters_.IsWordBefore(text, begin);
  for (std::size_t index = begin; index < end;) {
    const std::size_t at = index;
    const char32_t character = Letters::Next(text, index);
    if (!behindWord) Collect(text, std::u16string_view(folded).substr(at - begin), at, candidates);
    behindWord = letters_.IsWord(character);
  }
  return candidates;
}

std::vector<Match> TermMatcher::Find(std::u16string_view text) const {
  std::size_t middle = text.size() / 2;
  if (Letters::SplitsPair(text, middle)) ++middle;
  const auto policy = text.size() < kWorthThread ? std::launch::deferred : std::launch::async | std::launch::deferred;
  auto behind = std::async(policy, [&] { return Candidates(text, middle, text.size()); });
  std::vector<Match> candidates = Candidates(text, 0, middle);
  const std::vector<Match> others = behind.get();
  candidates.insert(candidates.end(), others.begin(), others.end());
  return Resolve(text, std::move(candidates));
}

std::vector<Match> TermMatcher::Resolve(std::u16string_view text, std::vector<Match> candidates) const {
  // Each length's are left in their order: there are few lengths, and many candidates.
  std::vector<std::size_t> from(longest_ + 2);
  const auto length = [](const Match& match) { return match.end - match.begin; };
  for (const Match& match : candidates) ++from[longest_ - length(match) + 1];
  std::partial_sum(from.begin(), from.end(), from.begin());
  std::vector<std::size_t> fromTheLongest(candidates.size());
  for (std::size_t i = 0; i < candidates.size(); ++i) fromTheLongest[from[longest_ - length(candidates[i])]++] = i;

  std::vector<bool> taken(text.size(), false);
  std::vector<bool> won(candidates.size(), false);
  for (const std::size_t candidate : fromTheLongest) {
    Match& match = candidates[candidate];
    // Whatever was taken before is no shorter, so it cannot lie between the two ends.
    if (taken[match.begin] || taken[match.end - 1]) continue;
    std::fill(taken.begin() + static_cast<std::ptrdiff_t>(match.begin),
              taken.begin() + static_cast<std::ptrdiff_t>(match.end), true);
    const std::size_t possessive = PossessiveEnd(letters_, text, match.end);
    if (possessive != match.end && !taken[match.end] && !taken[match.end + 1]) {
      taken[match.end] = taken[match.end + 1] = true;
      match.entry = possessive;
    }
    match.definition = StandsInQuotes(letters_, text, match.begin, match.end);
    won[candidate] = true;
  }
  std::vector<Match> matches;
  matches.reserve(static_cast<std::size_t>(std::count(won.begin(), won.end(), true)));
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (won[i]) matches.push_back(candidates[i]);
  }
  return matches;
}

}  // namespace marker
