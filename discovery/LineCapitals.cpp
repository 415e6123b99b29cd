#include "discovery/LineCapitals.h"

#include <algorithm>
#include <array>

#include "discovery/LineText.h"
#include "discovery/SmallWords.h"
#include "platform/Quotes.h"

namespace {

/// A heading is no longer than this.
constexpr std::size_t kMostTitleWords = 15;
/// Fewer words in capitals are a name or a term.
constexpr std::size_t kFewestCapitals = 4;

/// What a full stop behind it does not end a sentence, in small letters; a single letter does not either.
constexpr std::array<std::u16string_view, 22> kAbbreviations = {
    u"no",  u"nos", u"art", u"arts", u"sec", u"cl", u"inc", u"ltd", u"co", u"corp", u"mr",
    u"mrs", u"ms",  u"dr",  u"st",   u"vs",  u"v",  u"cf",  u"g",   u"e",  u"i",    u"approx"};

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsAsciiLetter(char16_t unit) { return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z'); }
bool IsOneOf(char16_t unit, std::u16string_view set) {
  return unit != 0 && set.find(unit) != std::u16string_view::npos;
}

/// Whether titles have the word in small letters: one that ties names together, not one that makes a sentence.
bool StandsInTitles(std::u16string_view word) {
  static constexpr std::array<std::u16string_view, 21> kWords = {
      u"a",  u"an", u"the", u"of", u"and", u"or",   u"nor",  u"for",  u"to",    u"in",     u"on",
      u"by", u"at", u"as",  u"vs", u"via", u"with", u"from", u"upon", u"under", u"between"};
  return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

/// Blanks, the marks of notes and objects, and code 0 where something is left out, such as the index: they stand before
/// a text without being part of it.
bool IsBlank(char16_t unit) { return unit == u' ' || unit <= 2; }

constexpr std::u16string_view kOpening = u"\"\u201C\u201D\u201E\u00AB\u2018([";
constexpr std::u16string_view kClosing = u"\"\u201C\u201D\u2019\u00AB\u00BB)]";
constexpr std::u16string_view kBullets = u"\u2022\u25CF\uF0B7-\u2013\u2014*";
constexpr char16_t kEmDash = u'\u2014';
constexpr char16_t kEnDash = u'\u2013';

/// The first of ascending spans that ends behind an index.
template <class Spans>
typename Spans::const_iterator FirstEndingBehind(const Spans& spans, std::size_t index) {
  return std::upper_bound(spans.begin(), spans.end(), index,
                          [](std::size_t wanted, const auto& span) { return wanted < span.end; });
}

}  // namespace

LineCapitals::LineCapitals(std::u16string_view line, os::Characters& characters)
    : line_(line), characters_(characters) {
  ReadWords();
  ReadCapitals();
  ReadSentences();
  for (const QuotedText& text : FindQuotedTexts(line_, characters_)) {
    quoted_.push_back(AfterArticle(line_, text.begin));
  }
}

CapitalUse LineCapitals::UseAt(std::size_t begin, std::size_t end) const {
  const auto capitals = FirstEndingBehind(capitals_, begin);
  if (capitals != capitals_.end() && capitals->begin <= begin && end <= capitals->end) return CapitalUse::kHeading;
  if (begin > 0 && IsDoubleQuote(line_[begin - 1])) return CapitalUse::kOfItsOwn;
  if (std::binary_search(quoted_.begin(), quoted_.end(), begin)) return CapitalUse::kOfItsOwn;
  const auto sentence = FirstEndingBehind(sentences_, begin);
  if (sentence == sentences_.end()) return CapitalUse::kOfItsOwn;
  if (sentence->title) return CapitalUse::kHeading;
  if (begin <= sentence->text || IsItemStart(begin)) return CapitalUse::kSentenceStart;
  // "(A)" is a list's label.
  const bool label = end - begin <= 2 && begin > 0 && line_[begin - 1] == u'(' && At(end) == u')';
  return label ? CapitalUse::kSentenceStart : CapitalUse::kOfItsOwn;
}

std::u16string_view LineCapitals::SentenceAt(std::size_t index) const {
  const auto sentence = FirstEndingBehind(wholeSentences_, index);
  if (sentence == wholeSentences_.end()) return {};
  std::size_t begin = sentence->begin;
  std::size_t end = sentence->end;
  while (begin < end && IsBlank(line_[begin])) ++begin;
  while (end > begin && IsBlank(line_[end - 1])) --end;
  return line_.substr(begin, end - begin);
}

void LineCapitals::ReadWords() {
  const auto isPart = [this](std::size_t index) {
    return index < line_.size() && IsWordUnit(characters_, line_[index]);
  };
  for (std::size_t i = 0; i < line_.size();) {
    if (!isPart(i)) {
      ++i;
      continue;
    }
    const std::size_t begin = i;
    while (isPart(i) || (isPart(i + 1) && IsOneOf(At(i), u"-'\u2019\u2010"))) ++i;
    if (!IsDigit(line_[begin])) words_.push_back({begin, i});
  }
}

void LineCapitals::ReadCapitals() {
  const auto text = [this](const Span& word) { return line_.substr(word.begin, word.end - word.begin); };
  for (auto first = words_.begin(); first != words_.end();) {
    const auto last = std::find_if(first, words_.end(), [&](const Span& word) { return HasLower(text(word)); });
    const bool sentence = std::any_of(
        first, last, [&](const Span& word) { return word.end - word.begin > 1 && IsSmallWord(text(word)); });
    if (sentence && static_cast<std::size_t>(last - first) >= kFewestCapitals) {
      capitals_.push_back({first->begin, (last - 1)->end});
    }
    first = last == words_.end() ? last : last + 1;
  }
}

void LineCapitals::ReadSentences() {
  for (std::size_t begin = 0; begin < line_.size();) {
    Sentence sentence;
    sentence.begin = begin;
    sentence.end = SentenceEnd(begin, true);
    sentence.text = AfterLabels(begin, sentence.end);
    sentence.title = IsTitle({sentence.text, sentence.end});
    sentences_.push_back(sentence);
    begin = sentence.end;
  }
  for (std::size_t begin = 0; begin < line_.size(); begin = wholeSentences_.back().end) {
    wholeSentences_.push_back({begin, SentenceEnd(begin, false)});
  }
}

/// Behind the sentence that an index stands in. @param clauses colons, semicolons and dashes end one too
std::size_t LineCapitals::SentenceEnd(std::size_t index, bool clauses) const {
  for (std::size_t i = index; i < line_.size(); ++i) {
    const char16_t unit = line_[i];
    if (clauses && unit == kEmDash) return i + 1;
    if (clauses && unit == kEnDash && i > 0 && line_[i - 1] == u' ' && At(i + 1) == u' ') return i + 1;
    if (!IsOneOf(unit, clauses ? u".?!:;" : u".?!")) continue;
    std::size_t behind = i + 1;
    while (IsOneOf(At(behind), kClosing)) ++behind;
    if (!IsBlank(At(behind)) || (unit == u'.' && IsAbbreviated(i))) continue;
    return behind;
  }
  return line_.size();
}

/// Whether the full stop belongs to a word that is shortened.
bool LineCapitals::IsAbbreviated(std::size_t stop) const {
  std::size_t begin = stop;
  while (begin > 0 && IsWordUnit(characters_, line_[begin - 1])) --begin;
  if (stop - begin == 1) return IsAsciiLetter(line_[begin]);
  const std::u16string word = characters_.ToLower(line_.substr(begin, stop - begin));
  return std::find(kAbbreviations.begin(), kAbbreviations.end(), word) != kAbbreviations.end();
}

/// Behind the numbers and bullets at the beginning of a sentence, and what opens behind them.
std::size_t LineCapitals::AfterLabels(std::size_t index, std::size_t end) const {
  while (index < end && IsBlank(line_[index])) ++index;
  while (true) {
    const std::size_t behind = AfterLabel(index);
    if (behind == index || behind > end) break;
    index = behind;
    while (index < end && IsBlank(line_[index])) ++index;
  }
  return std::min(AfterOpening(index), end);
}

std::size_t LineCapitals::AfterLabel(std::size_t index) const {
  if (IsOneOf(At(index), kBullets)) return index + 1;
  constexpr std::size_t kLongest = 6;
  const bool bracket = At(index) == u'(';
  const std::size_t begin = bracket ? index + 1 : index;
  std::size_t end = begin;
  // "1.2.3" and "1.2.3."
  while (IsDigit(At(end)) || (end > begin && At(end) == u'.' && IsDigit(At(end + 1)))) ++end;
  if (end > begin) {
    if (At(end) == u')' || At(end) == u'.') return end + 1;
    return !bracket && At(end) == u' ' ? end : index;
  }
  while (IsAsciiLetter(At(end))) ++end;
  const std::u16string_view letters = line_.substr(std::min(begin, line_.size()), end - begin);
  const bool roman = letters.find_first_not_of(u"ivxlIVXL") == std::u16string_view::npos;
  if (letters.empty() || letters.size() > (roman ? kLongest : 2)) return index;
  if (At(end) == u')') return end + 1;
  return !bracket && At(end) == u'.' && (At(end + 1) == u' ' || end + 1 == line_.size()) ? end + 1 : index;
}

std::size_t LineCapitals::AfterOpening(std::size_t index) const {
  while (IsOneOf(At(index), kOpening)) ++index;
  return index;
}

bool LineCapitals::IsTitle(Span sentence) const {
  std::size_t words = 0;
  std::size_t large = 0;
  for (auto word = FirstEndingBehind(words_, sentence.begin); word != words_.end() && word->begin < sentence.end;
       ++word) {
    ++words;
    const std::u16string_view text = line_.substr(word->begin, word->end - word->begin);
    if (IsLower(text.front())) {
      if (!StandsInTitles(text)) return false;
    } else if (!IsSmallWord(text)) {
      ++large;
    }
  }
  return large > 0 && words <= kMostTitleWords;
}

/// Whether an item of a list within the line begins at an index: "(a) Transfer" does.
bool LineCapitals::IsItemStart(std::size_t index) const {
  while (index > 0 && IsOneOf(line_[index - 1], kOpening)) --index;
  if (index < 3 || line_[index - 1] != u' ' || line_[index - 2] != u')') return false;
  std::size_t begin = index - 2;
  while (begin > 0 && (IsAsciiLetter(line_[begin - 1]) || IsDigit(line_[begin - 1]))) --begin;
  if (begin > 0 && line_[begin - 1] == u'(') --begin;
  return AfterLabel(begin) == index - 1 && (begin == 0 || line_[begin - 1] == u' ');
}

bool LineCapitals::HasLower(std::u16string_view text) const {
  return std::any_of(text.begin(), text.end(), [this](char16_t unit) { return IsLower(unit); });
}

bool LineCapitals::IsLower(char16_t unit) const {
  constexpr char16_t kBeyondAscii = 0x80;
  if (unit < kBeyondAscii) return unit >= u'a' && unit <= u'z';
  const std::u16string_view one(&unit, 1);
  return characters_.ToUpper(one) != one;
}
