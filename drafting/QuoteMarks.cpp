#include "drafting/QuoteMarks.h"

#include "discovery/LineText.h"
#include "platform/Quotes.h"
#include "platform/word/Constants.h"

#include <algorithm>
#include <array>

namespace drafting {

namespace {

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

constexpr std::u16string_view kPunctuation = u",.;:";

/// Whether a term ends with the stop of an abbreviation: "Inc.", "Ltd.", "U.S."
bool EndsWithAbbreviation(std::u16string_view term) {
  constexpr std::array<std::u16string_view, 7> kAbbreviations{u"Inc.",  u"Ltd.", u"Co.", u"Corp.",
                                                              u"Bros.", u"No.",  u"St."};
  const std::size_t blank = term.rfind(u' ');
  const std::u16string_view word = blank == std::u16string_view::npos ? term : term.substr(blank + 1);
  return std::find(kAbbreviations.begin(), kAbbreviations.end(), word) != kAbbreviations.end() ||
         std::count(word.begin(), word.end(), u'.') > 1;
}

/// The balance of the marks of a stretch.
struct Balance {
  int straight{0};
  int curly{0};  ///< opening less closing ones
  std::size_t first{std::u16string_view::npos};
  std::size_t last{0};

  bool PairsUp() const { return straight % 2 == 0 && curly == 0; }
};

Balance BalanceOf(std::u16string_view text, Line line) {
  Balance balance;
  bool open = false;
  bool low = false;
  for (std::size_t i = line.begin; i < line.end; ++i) {
    const char16_t unit = text[i];
    if (unit == u'"') {
      if (!open && i > line.begin && IsDigit(text[i - 1])) continue;
      open = !open;
      ++balance.straight;
    } else if (unit == u'\u201C' && low) {
      low = false;
      --balance.curly;
    } else if (unit == u'\u201C' || unit == u'\u201E') {
      low = unit == u'\u201E';
      ++balance.curly;
    } else if (unit == u'\u201D') {
      --balance.curly;
    } else {
      continue;
    }
    if (balance.first == std::u16string_view::npos) balance.first = i;
    balance.last = i;
  }
  return balance;
}

}  // namespace

QuoteStyle StyleOf(char16_t open, char16_t close) {
  if (open == u'"' && close == u'"') return QuoteStyle::kStraight;
  if (open == u'\u201C' && close == u'\u201D') return QuoteStyle::kCurly;
  if (open == u'\u201E' && (close == u'\u201C' || close == u'\u201D')) return QuoteStyle::kLow;
  if ((open == u'\u00AB' && close == u'\u00BB') || (open == u'\u00BB' && close == u'\u00AB'))
    return QuoteStyle::kAngled;
  return QuoteStyle::kMixed;
}

std::u16string_view WithoutPunctuation(std::u16string_view term) {
  while (!term.empty() && kPunctuation.find(term.back()) != std::u16string_view::npos && !EndsWithAbbreviation(term)) {
    term.remove_suffix(1);
  }
  return term;
}

std::size_t ClosingMark(std::u16string_view text, std::size_t end) {
  if (end < text.size() && kPunctuation.find(text[end]) != std::u16string_view::npos) ++end;
  while (end < text.size() && text[end] == word::kNoteReference) ++end;
  return end < text.size() && IsDoubleQuote(text[end]) ? end : text.size();
}

std::vector<Finding> FindUnpairedQuotes(const std::vector<Text>& texts, os::Characters& characters) {
  std::vector<Finding> findings;
  for (const Text& text : texts) {
    const std::u16string_view plain = text.content.Plain();
    Balance whole;
    std::vector<Finding> here;
    for (std::size_t begin = 0; begin < plain.size();) {
      const Line line{begin, LineEnd(plain, begin)};
      const Balance balance = BalanceOf(plain, line);
      whole.straight += balance.straight;
      whole.curly += balance.curly;
      if (!balance.PairsUp()) {
        const std::size_t at = balance.curly < 0 ? balance.last : balance.first;
        here.push_back({.kind = Kind::kUnpairedQuotes,
                        .term = {},
                        .text = std::u16string(plain.substr(at, 1)),
                        .place = PlaceOf(text, at, at + 1, characters)});
      }
      begin = line.end + 1;
    }
    if (!whole.PairsUp()) findings.insert(findings.end(), here.begin(), here.end());
  }
  return findings;
}

}  // namespace drafting
