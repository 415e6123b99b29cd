#include "drafting/DefinitionPlace.h"

#include <algorithm>
#include <array>
#include <string>

#include "discovery/LineText.h"
#include "marker/PlainText.h"
#include "platform/Quotes.h"

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
    if (rest.empty() || !IsDoubleQuote(rest.front())) return after;
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

constexpr auto kPointers = std::to_array<std::u16string_view>(
    {u"has the meaning", u"have the meaning", u"shall have the meaning", u"has the same meaning",
     u"have the same meaning", u"is defined", u"are defined", u"shall have the meanings", u"have the meanings"});

/// Passes over what a term is said of, up to the verb: "Affiliate" of a Party shall mean. The same text when no verb
/// that defines stands behind it.
/// @param begins whether the line is the term's definition as a whole, where weaker verbs define
std::u16string_view BehindQualifier(std::u16string_view after, bool begins) {
  constexpr std::ptrdiff_t kMostWords = 20;
  constexpr auto kQualifiers = std::to_array<std::u16string_view>(
      {u"of", u"as", u"with respect to", u"with regard to", u"in relation to", u"in respect of", u"in this",
       u"in these", u"used", u"when used", u"when applied", u"for the purpose of", u"for the purposes of",
       u"for purposes of", u"for"});
  constexpr auto kVerbs = std::to_array<std::u16string_view>({u"means", u"mean", u"shall mean", u"will mean"});
  constexpr auto kWeakVerbs = std::to_array<std::u16string_view>({u"shall be deemed", u"will be deemed"});
  constexpr auto kNoVerbBehind = std::to_array<std::u16string_view>({u"by", u"all", u"any", u"no", u"the", u"other"});
  const std::u16string_view text = after.starts_with(u",") ? TrimFront(after.substr(1)) : after;
  if (!BeginsWithOneOf(text, kQualifiers)) return after;
  std::u16string_view last;
  std::u16string_view rest = text;
  for (std::ptrdiff_t words = 0; words < kMostWords && !rest.empty(); ++words) {
    if (rest.front() == u'(') {
      const std::u16string_view behind = BehindRemark(rest);
      if (behind.data() == rest.data()) return after;
      rest = behind;
    }
    const bool isVerb = BeginsWithOneOf(rest, kVerbs) || BeginsWithOneOf(rest, kPointers) ||
                        (begins && BeginsWithOneOf(rest, kWeakVerbs));
    if (isVerb && std::find(kNoVerbBehind.begin(), kNoVerbBehind.end(), last) == kNoVerbBehind.end()) return rest;
    const std::size_t blank = std::min(rest.find_first_of(kBlanks), rest.size());
    last = rest.substr(0, blank);
    if (last.find_first_of(u".;:\"\u201C\u201D") != std::u16string_view::npos) return after;
    rest = TrimFront(rest.substr(blank));
  }
  return after;
}

/// @param begins whether the line is the term's definition as a whole
Role RoleByVerb(std::u16string_view after, bool begins) {
  constexpr auto kVerbs = std::to_array<std::u16string_view>({u"means", u"mean", u"shall mean", u"will mean",
                                                              u"shall be", u"will be deemed", u"refers to", u"refer to",
                                                              u"shall refer to", u"is as follows"});
  // By themselves they say what else counts as something that is defined elsewhere: "Buyer" includes its heirs.
  constexpr auto kAdding = std::to_array<std::u16string_view>({u"includes", u"include", u"shall include"});
  if (after.starts_with(u",")) after = TrimFront(after.substr(1));
  for (const std::u16string_view filler :
       {std::u16string_view(u"each "), std::u16string_view(u"also "), std::u16string_view(u"respectively ")}) {
    if (after.starts_with(filler)) after = TrimFront(after.substr(filler.size()));
  }
  if (BeginsWithOneOf(after, kPointers)) return Role::kPointer;
  if (BeginsWithOneOf(after, kAdding)) return begins ? Role::kListed : Role::kPointer;
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

/// A text in small letters without the words at its end that come before a name: each such, the.
/// @param found how many there are
std::u16string WithoutNamingWords(std::u16string_view text, int& found) {
  constexpr auto kWords =
      std::to_array<std::u16string_view>({u"the", u"a", u"an", u"each", u"this", u"these", u"such"});
  std::u16string lower = Lower(TrimBack(text));
  found = 0;
  for (bool more = true; more;) {
    more = false;
    for (const std::u16string_view word : kWords) {
      const bool ends =
          lower.ends_with(word) && (lower.size() == word.size() ||
                                    kBlanks.find(lower[lower.size() - word.size() - 1]) != std::u16string_view::npos);
      if (!ends) continue;
      lower.resize(TrimBack(std::u16string_view(lower).substr(0, lower.size() - word.size())).size());
      ++found;
      more = true;
    }
  }
  return lower;
}

/// Whether a remark ends as one that gives a name to what it speaks of: (any of them to which the Buyer agrees, a
bool EndsByNaming(std::u16string_view remark) {
  int found = 0;
  const std::u16string rest = WithoutNamingWords(remark, found);
  return found > 0 && (rest.ends_with(u",") || rest.ends_with(u"collectively") || rest.ends_with(u"together"));
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
  return !speaks && (std::count(own.begin(), own.end(), u' ') <= kMostWordsInBracket || EndsByNaming(own));
}

/// Whether a sentence refers to something "as" what follows: referred to in this deed individually as a
bool RefersToItAs(std::u16string_view lower) {
  constexpr std::ptrdiff_t kMostWordsBetween = 16;
  constexpr std::ptrdiff_t kMostWordsBehind = 3;
  constexpr std::u16string_view kReferred = u"referred to";
  constexpr std::u16string_view kAs = u" as ";
  const std::size_t referred = lower.rfind(kReferred);
  const std::size_t as = lower.rfind(kAs);
  if (referred == std::u16string_view::npos || as == std::u16string_view::npos || as < referred) return false;
  const std::u16string_view between = lower.substr(referred, as - referred);
  const std::u16string_view behind = lower.substr(as + kAs.size());
  return between.find_first_of(u".;") == std::u16string_view::npos &&
         std::count(between.begin(), between.end(), u' ') <= kMostWordsBetween &&
         behind.find_first_of(u".;,\"\u201C\u201D") == std::u16string_view::npos &&
         std::count(behind.begin(), behind.end(), u' ') <= kMostWordsBehind;
}

bool DefinesByWordsBefore(std::u16string_view before) {
  int found = 0;
  std::u16string lower = WithoutNamingWords(before, found);
  while (lower.ends_with(u",") || lower.ends_with(u":")) lower.pop_back();
  constexpr auto kWords =
      std::to_array<std::u16string_view>({u"called", u"defined as", u"designated as", u"hereinafter", u"hereafter",
                                          u"hereinafter known as", u"collectively", u"collectively deemed"});
  return RefersToItAs(Lower(before)) || std::any_of(kWords.begin(), kWords.end(), [&lower](std::u16string_view words) {
           return lower.ends_with(words);
         });
}

}  // namespace

bool BeginsLine(std::u16string_view line, std::size_t begin) {
  const std::u16string_view before = line.substr(0, OpeningOf(line, begin));
  // A number or a letter of the list, and no words.
  std::ptrdiff_t letters = 0;
  for (std::size_t i = 0; i < before.size(); ++i) letters += IsLetter(before[i]) ? 1 : 0;
  return letters <= 4 && before.find_first_of(u"\"\u201C\u201D") == std::u16string_view::npos && before.size() <= 12;
}

Role RoleOf(std::u16string_view line, std::size_t begin, std::size_t close) {
  const std::size_t open = OpeningOf(line, begin);
  const std::u16string lowerAfter = Lower(line.substr(std::min(close + 1, line.size())));
  const std::u16string_view after = TrimFront(lowerAfter);
  const std::u16string_view behind = BehindRemark(BehindJoined(after));
  const bool begins = BeginsLine(line, begin);
  const bool colon =
      !behind.empty() && std::u16string_view(u":\u2013\u2014").find(behind.front()) != std::u16string_view::npos;
  if (begins && (behind.empty() || colon)) return OnlyPoints(behind) ? Role::kPointer : Role::kListed;
  const std::u16string_view verb = BehindQualifier(behind, begins);
  const Role role = RoleByVerb(verb, begins);
  if (role == Role::kListed && OnlyPoints(verb)) return Role::kPointer;
  if (role != Role::kMention) return role;
  if (DefinesInBracket(line, open) || DefinesByWordsBefore(line.substr(0, open))) return Role::kInline;
  return Role::kMention;
}

}  // namespace drafting
