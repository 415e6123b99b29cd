#include "drafting/DefinitionPlace.h"

#include <algorithm>
#include <array>
#include <string>

#include "discovery/LineText.h"
#include "marker/PlainText.h"

namespace drafting {

namespace {

constexpr std::u16string_view kBlanks = u" \u00A0";
/// More words between a bracket and a term are a sentence in brackets.
constexpr std::ptrdiff_t kMostWordsInBracket = 12;

bool IsLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }

std::u16string Lower(std::u16string_view text) {
  std::u16string lower(text);
  for (char16_t& unit : lower) {
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
  }
  return lower;
}

std::u16string_view TrimFront(std::u16string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::u16string_view TrimBack(std::u16string_view text) { return text.substr(0, text.find_last_not_of(kBlanks) + 1); }

bool BeginsWithWords(std::u16string_view text, std::u16string_view words) {
  return text.starts_with(words) && (text.size() == words.size() || !IsLetter(text[words.size()]));
}

template <std::size_t kCount>
bool BeginsWithOneOf(std::u16string_view text, const std::array<std::u16string_view, kCount>& words) {
  return std::any_of(words.begin(), words.end(), [&](std::u16string_view one) { return BeginsWithWords(text, one); });
}

/// Index of the opening quotation mark of a term at `begin`, which an article may come behind.
std::size_t OpeningOf(std::u16string_view line, std::size_t begin) {
  while (begin > 0 && !IsDoubleQuote(line[begin - 1])) --begin;
  return begin > 0 ? begin - 1 : 0;
}

/// Passes over terms that are defined together: "Group" and "Group Company" mean.
std::u16string_view BehindJoined(std::u16string_view after) {
  constexpr std::array<std::u16string_view, 3> kJoints{u"and", u"or", u"and/or"};
  while (true) {
    std::u16string_view rest = after;
    if (rest.starts_with(u",")) rest = TrimFront(rest.substr(1));
    for (const std::u16string_view joint : kJoints) {
      if (!BeginsWithWords(rest, joint)) continue;
      rest = TrimFront(rest.substr(joint.size()));
      break;
    }
    if (rest.data() == after.data() || rest.empty() || !IsDoubleQuote(rest.front())) return after;
    const std::size_t close = FindDoubleQuote(rest, 1);
    if (close == std::u16string_view::npos) return after;
    after = TrimFront(rest.substr(close + 1));
  }
}

/// Passes over a remark in brackets and a comma: "Buyer" (or "we"), for this clause, means.
std::u16string_view BehindRemark(std::u16string_view after) {
  if (!after.starts_with(u"(")) return after;
  const std::size_t close = after.find(u')');
  return close == std::u16string_view::npos ? after : TrimFront(after.substr(close + 1));
}

Role RoleByVerb(std::u16string_view after) {
  constexpr std::array<std::u16string_view, 9> kPointers{
      u"has the meaning",      u"have the meaning",        u"shall have the meaning",
      u"has the same meaning", u"have the same meaning",   u"is defined",
      u"are defined",          u"shall have the meanings", u"have the meanings"};
  constexpr std::array<std::u16string_view, 12> kVerbs{u"means",    u"mean",      u"shall mean",    u"will mean",
                                                       u"shall be", u"refers to", u"refer to",      u"shall refer to",
                                                       u"includes", u"include",   u"shall include", u"is as follows"};
  if (after.starts_with(u",")) after = TrimFront(after.substr(1));
  for (const std::u16string_view filler :
       {std::u16string_view(u"each "), std::u16string_view(u"also "), std::u16string_view(u"respectively ")}) {
    if (after.starts_with(filler)) after = TrimFront(after.substr(filler.size()));
  }
  if (BeginsWithOneOf(after, kPointers)) return Role::kPointer;
  if (BeginsWithOneOf(after, kVerbs)) return Role::kListed;
  return Role::kMention;
}

/// Whether a definition is as good as the words "see there".
bool OnlyPoints(std::u16string_view content) {
  constexpr std::ptrdiff_t kMostWords = 16;
  constexpr auto kThere = std::to_array<std::u16string_view>(
      {u"clause ", u"clauses ", u"section ", u"sections ", u"paragraph ", u"article ", u"schedule ", u"recital "});
  if (content.find(u"the meaning given") != std::u16string_view::npos) return true;
  if (std::count(content.begin(), content.end(), u' ') > kMostWords) return false;
  return std::any_of(kThere.begin(), kThere.end(), [content](std::u16string_view there) {
    const std::size_t at = content.find(there);
    const std::size_t number = at + there.size();
    return at != std::u16string_view::npos && number < content.size() &&
           (content[number] == marker::kBarrier || (content[number] >= u'0' && content[number] <= u'9'));
  });
}

/// What stands between the bracket around a term and the term; data() is nullptr when there is no bracket.
std::u16string_view InBracketBefore(std::u16string_view line, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i-- > 0;) {
    if (line[i] == u')') ++depth;
    if (line[i] == u'(' && depth-- == 0) return line.substr(i + 1, open - i - 1);
  }
  return {};
}

bool DefinesInBracket(std::u16string_view line, std::size_t open) {
  const std::u16string_view before = InBracketBefore(line, open);
  if (before.data() == nullptr) return false;
  const std::u16string lower = Lower(before);
  // Of other texts, or of what is defined elsewhere.
  constexpr std::array<std::u16string_view, 6> kSpeaking{u"as defined", u"defined in", u"meaning of",
                                                         u"the term",   u"the word",   u"reference"};
  const bool speaks = std::any_of(kSpeaking.begin(), kSpeaking.end(), [&lower](std::u16string_view words) {
    return lower.find(words) != std::u16string::npos;
  });
  // Terms before it in the bracket are not counted: (the "Parties" and each a "Party").
  const std::size_t quote = before.find_last_of(u"\"\u201D\u00BB\u201C");
  const std::u16string_view own = quote == std::u16string_view::npos ? before : before.substr(quote + 1);
  return !speaks && std::count(own.begin(), own.end(), u' ') <= kMostWordsInBracket;
}

bool DefinesByWordsBefore(std::u16string_view before) {
  std::u16string lower = Lower(TrimBack(before));
  for (const std::u16string_view article : {std::u16string_view(u" the"), std::u16string_view(u" a"),
                                            std::u16string_view(u" an"), std::u16string_view(u" each")}) {
    if (lower.ends_with(article))
      lower.resize(TrimBack(std::u16string_view(lower).substr(0, lower.size() - article.size())).size());
  }
  while (lower.ends_with(u",") || lower.ends_with(u":")) lower.pop_back();
  constexpr auto kWords = std::to_array<std::u16string_view>({u"referred to as", u"referred to herein as", u"called",
                                                              u"defined as", u"designated as", u"hereinafter",
                                                              u"hereafter", u"hereinafter known as", u"collectively"});
  return std::any_of(kWords.begin(), kWords.end(),
                     [&lower](std::u16string_view words) { return lower.ends_with(words); });
}

}  // namespace

bool BeginsLine(std::u16string_view line, std::size_t begin) {
  const std::u16string_view before = line.substr(0, OpeningOf(line, begin));
  // A number or a letter of the list, and no words.
  std::ptrdiff_t letters = 0;
  for (std::size_t i = 0; i < before.size(); ++i) letters += IsLetter(before[i]) ? 1 : 0;
  return letters <= 4 && before.find_first_of(u"\"\u201C\u201D") == std::u16string_view::npos && before.size() <= 12;
}

Role RoleOf(std::u16string_view line, std::size_t begin, std::size_t end) {
  const std::size_t open = OpeningOf(line, begin);
  const std::u16string lowerAfter = Lower(line.substr(std::min(end + 1, line.size())));
  const std::u16string_view after = TrimFront(lowerAfter);
  const std::u16string_view behind = BehindRemark(BehindJoined(after));
  const bool begins = BeginsLine(line, begin);
  const bool colon =
      !behind.empty() && std::u16string_view(u":\u2013\u2014").find(behind.front()) != std::u16string_view::npos;
  if (begins && (behind.empty() || colon)) return OnlyPoints(behind) ? Role::kPointer : Role::kListed;
  const Role role = RoleByVerb(behind);
  if (role == Role::kListed && OnlyPoints(behind)) return Role::kPointer;
  if (role != Role::kMention) return role;
  if (DefinesInBracket(line, open) || DefinesByWordsBefore(line.substr(0, open))) return Role::kInline;
  return Role::kMention;
}

}  // namespace drafting
