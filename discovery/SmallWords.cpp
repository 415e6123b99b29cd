#include "discovery/SmallWords.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

/// In the order of their code units.
constexpr std::array<std::u16string_view, 191> kSmallWords = {
    u"a",         u"about",       u"above",      u"accordingly", u"after",
    u"against",   u"all",         u"also",       u"although",    u"am",
    u"among",     u"an",          u"and",        u"another",     u"any",
    u"are",       u"as",          u"at",         u"be",          u"because",
    u"been",      u"before",      u"behind",     u"being",       u"below",
    u"beside",    u"besides",     u"between",    u"beyond",      u"both",
    u"but",       u"by",          u"can",        u"cannot",      u"concerning",
    u"could",     u"despite",     u"did",        u"do",          u"does",
    u"during",    u"each",        u"either",     u"every",       u"except",
    u"few",       u"for",         u"from",       u"further",     u"furthermore",
    u"had",       u"has",         u"have",       u"having",      u"he",
    u"hence",     u"her",         u"here",       u"hereafter",   u"hereby",
    u"herein",    u"hereinafter", u"hereof",     u"hereto",      u"hereunder",
    u"him",       u"his",         u"how",        u"however",     u"i",
    u"if",        u"in",          u"including",  u"inside",      u"instead",
    u"into",      u"is",          u"it",         u"its",         u"itself",
    u"less",      u"like",        u"many",       u"may",         u"me",
    u"might",     u"mine",        u"more",       u"moreover",    u"most",
    u"much",      u"must",        u"my",         u"myself",      u"near",
    u"neither",   u"no",          u"nor",        u"not",         u"notwithstanding",
    u"of",        u"off",         u"on",         u"once",        u"only",
    u"onto",      u"or",          u"otherwise",  u"our",         u"ours",
    u"ourselves", u"outside",     u"over",       u"per",         u"please",
    u"provided",  u"pursuant",    u"regarding",  u"respecting",  u"same",
    u"several",   u"shall",       u"she",        u"should",      u"since",
    u"so",        u"some",        u"such",       u"than",        u"that",
    u"the",       u"their",       u"theirs",     u"them",        u"themselves",
    u"then",      u"there",       u"thereafter", u"therefore",   u"therein",
    u"thereof",   u"thereto",     u"thereunder", u"these",       u"they",
    u"this",      u"those",       u"though",     u"through",     u"throughout",
    u"thus",      u"till",        u"to",         u"toward",      u"towards",
    u"under",     u"unless",      u"until",      u"upon",        u"us",
    u"versus",    u"via",         u"was",        u"we",          u"were",
    u"what",      u"whatever",    u"when",       u"whenever",    u"where",
    u"whereas",   u"wherever",    u"whether",    u"which",       u"whichever",
    u"while",     u"who",         u"whoever",    u"whom",        u"whose",
    u"why",       u"will",        u"with",       u"within",      u"without",
    u"would",     u"yet",         u"you",        u"your",        u"yours",
    u"yourself"};

constexpr std::size_t kLongest = 15;

/// Where the words with each initial begin.
constexpr auto kInitials = [] {
  std::array<std::size_t, 27> begins{};
  for (const std::u16string_view word : kSmallWords) {
    for (std::size_t next = static_cast<std::size_t>(word.front() - u'a') + 1; next < begins.size(); ++next) {
      ++begins[next];
    }
  }
  return begins;
}();

}  // namespace

bool IsSmallWord(std::u16string_view word) {
  if (word.empty() || word.size() > kLongest) return false;
  std::array<char16_t, kLongest> letters{};
  std::transform(word.begin(), word.end(), letters.begin(), [](char16_t unit) {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
  });
  const std::u16string_view small(letters.data(), word.size());
  if (small.front() < u'a' || small.front() > u'z') return false;
  const auto* const begin = kInitials.begin() + (small.front() - u'a');
  return std::any_of(kSmallWords.begin() + begin[0], kSmallWords.begin() + begin[1],
                     [small](std::u16string_view known) { return known == small; });
}
