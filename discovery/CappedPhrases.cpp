#include "discovery/CappedPhrases.h"

#include <algorithm>
#include <utility>

#include "discovery/LineText.h"
#include "discovery/SmallWords.h"
#include "platform/Quotes.h"
#include "platform/word/Constants.h"

namespace {

/// More words in quotes than this are a sentence that is quoted.
constexpr std::ptrdiff_t kMostQuotedWords = 10;
/// More blanks than this are there to set things apart.
constexpr std::size_t kMostBlanks = 2;

bool IsCapital(char16_t unit) { return unit >= u'A' && unit <= u'Z'; }
bool IsAsciiLetter(char16_t unit) { return IsCapital(unit) || (unit >= u'a' && unit <= u'z'); }
bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool IsApostrophe(char16_t unit) { return unit == u'\'' || unit == u'\u2019'; }
bool IsHyphen(char16_t unit) { return unit == u'-' || unit == u'\u2010'; }

/// What an apostrophe ties to a word without being part of it: a possessive ending, a shortened verb.
bool IsTiedOn(std::u16string_view tail) {
  return tail == u"s" || tail == u"S" || tail == u"re" || tail == u"ll" || tail == u"ve" || tail == u"d" ||
         tail == u"m";
}

/// Whether single letters with a full stop between them stand at the end.
bool EndsWithInitials(std::u16string_view text) {
  const auto isLetter = [text](std::size_t fromEnd) {
    return text.size() >= fromEnd && IsAsciiLetter(text[text.size() - fromEnd]);
  };
  return isLetter(1) && isLetter(3) && text[text.size() - 2] == u'.' && !isLetter(4);
}

/// A small word that may stand inside a phrase.
bool Connects(std::u16string_view word) { return word == u"of" || word == u"Of" || word == u"OF"; }

}  // namespace

CappedPhrases::CappedPhrases(os::Characters& characters, bool ignoreNumbers, Take take)
    : characters_(characters), ignoreNumbers_(ignoreNumbers), take_(std::move(take)) {}

void CappedPhrases::Learn(std::u16string_view text) {
  std::size_t end = 0;
  for (std::size_t begin = 0; begin < text.size(); begin = end + 1) {
    end = LineEnd(text, begin);
    const std::u16string_view line = text.substr(begin, end - begin);
    if (FindDoubleQuote(line, 0) == std::u16string_view::npos) continue;
    Append(line);
    ReadQuotes();
    for (const Quoted& quoted : quoted_) {
      if (quoted.end <= quoted.wordEnd) continue;
      KnownPhrases& phrases = known_[WithStraightQuotes(Text({quoted.begin, quoted.wordEnd}))];
      phrases.texts.try_emplace(WithStraightQuotes(Text(quoted)), Text(quoted));
      phrases.lengths.insert(quoted.end - quoted.begin);
    }
    line_.clear();
  }
}

void CappedPhrases::Add(std::u16string_view text, const std::vector<CappedWord>& words) {
  std::size_t at = 0;
  auto word = words.begin();
  while (at < text.size()) {
    const std::size_t end = LineEnd(text, at);
    for (; word != words.end() && word->begin < end; ++word) {
      Append(text.substr(at, word->begin - at));
      const std::size_t begin = line_.size();
      Append(text.substr(word->begin, word->end - word->begin));
      hits_.push_back({begin, line_.size()});
      at = word->end;
    }
    if (at < end) Append(text.substr(at, end - at));
    if (end < text.size()) EndLine();
    at = std::max(at, end + 1);
  }
}

void CappedPhrases::EndStory() { EndLine(); }

void CappedPhrases::Append(std::u16string_view piece) { AppendAsRead(piece, line_); }

void CappedPhrases::EndLine() {
  words_.clear();
  for (const Span& hit : hits_) {
    const bool isNew = words_.empty() || hit.begin >= words_.back().end;
    if (isNew && !EndsWordBefore(hit)) words_.push_back(WholeWord(hit));
  }
  ReadQuotes();
  for (std::size_t i = 0; i < words_.size();) {
    const Word& word = words_[i];
    std::size_t end = QuotedEnd(word.begin);
    const std::u16string_view known = end == 0 ? KnownAt(word) : std::u16string_view();
    const std::size_t knownEnd = word.begin + known.size();
    if (!known.empty()) {
      end = PhraseEnd(i, knownEnd);
    } else if (end == 0 && !(word.digits && ignoreNumbers_)) {
      end = word.small ? word.end : PhraseEnd(i, word.end);
    }
    if (end != 0) take_(std::u16string(known).append(Text({knownEnd, end})));
    do {
      ++i;
    } while (i < words_.size() && words_[i].begin < end);
  }
  line_.clear();
  hits_.clear();
}

bool CappedPhrases::EndsWordBefore(Span hit) const {
  return hit.begin > 1 && IsApostrophe(At(hit.begin - 1)) && IsLetterAt(hit.begin - 2) &&
         IsTiedOn(Text({hit.begin, AfterLetters(hit.end)}));
}

CappedPhrases::Word CappedPhrases::WholeWord(Span hit) const {
  Word word;
  word.begin = hit.begin;
  std::size_t end = AfterLetters(hit.end);
  bool negation = false;
  bool initials = false;
  while (true) {
    const char16_t unit = At(end);
    const bool letterBehind = IsLetterAt(end + 1);
    if (letterBehind && (IsHyphen(unit) || (unit == u'&' && IsCapital(At(end + 1))))) {
      end = AfterLetters(end + 1);
    } else if (letterBehind && IsApostrophe(unit)) {
      const std::size_t behind = AfterLetters(end + 1);
      const std::u16string_view tail = Text({end + 1, behind});
      if (IsTiedOn(tail)) break;
      negation = tail == u"t";
      end = behind;
    } else if (unit == u'.' && IsAsciiLetter(At(end - 1)) && IsAsciiLetter(At(end + 1)) && !IsLetterAt(end + 2) &&
               (end - 1 == word.begin || At(end - 2) == u'.' || IsHyphen(At(end - 2)))) {
      initials = true;
      end += 2;
    } else {
      break;
    }
  }
  if (initials && At(end) == u'.') ++end;
  word.end = end;

  // "10-K": the search begins a word behind the hyphen.
  std::size_t begin = hit.begin;
  while (begin > 1 && IsHyphen(At(begin - 1)) && IsLetterAt(begin - 2)) {
    begin -= 2;
    while (begin > 0 && IsLetterAt(begin - 1)) --begin;
  }
  word.digits = HoldsDigit({begin, end});
  word.small = negation || IsSmallWord(Text(word));
  return word;
}

void CappedPhrases::ReadQuotes() {
  quoted_.clear();
  for (const auto& [begin, end] : FindQuotedTexts(line_, characters_)) TakeQuoted({AfterArticle(line_, begin), end});
}

void CappedPhrases::TakeQuoted(Span inside) {
  if (inside.begin >= inside.end || !IsCapital(At(inside.begin))) return;
  constexpr std::u16string_view kNoPartAtTheEnd{u" ,.;:!?\u0002"};
  static_assert(kNoPartAtTheEnd.back() == word::kNoteReference);
  const std::u16string_view whole = Text(inside);
  std::u16string_view text = whole.substr(0, whole.find_last_not_of(kNoPartAtTheEnd) + 1);
  if (EndsWithInitials(text) && whole.substr(text.size()).starts_with(u'.')) text = whole.substr(0, text.size() + 1);
  inside.end = inside.begin + text.size();
  if (EndsSentenceInside(text) || OpensBracketOnly(text)) return;
  if (std::count(text.begin(), text.end(), u' ') >= kMostQuotedWords) return;
  if (ignoreNumbers_ && HoldsDigit(inside)) return;
  quoted_.push_back({inside, WholeWord({inside.begin, inside.begin + 1}).end});
}

std::size_t CappedPhrases::QuotedEnd(std::size_t begin) const {
  const auto found = std::lower_bound(quoted_.begin(), quoted_.end(), begin,
                                      [](const Span& span, std::size_t wanted) { return span.begin < wanted; });
  return found == quoted_.end() || found->begin != begin ? 0 : found->end;
}

std::u16string_view CappedPhrases::KnownAt(const Word& word) const {
  const std::u16string_view first = Text(word);
  // Nearly every word is straight as it stands.
  const bool curly = first.find(u'\u2019') != std::u16string_view::npos;
  const auto phrases = curly ? known_.find(WithStraightQuotes(first)) : known_.find(first);
  if (phrases == known_.end()) return {};
  const auto& [texts, lengths] = phrases->second;
  const std::u16string rest = WithStraightQuotes(std::u16string_view(line_).substr(word.begin, *lengths.begin()));
  for (const std::size_t length : lengths) {
    if (length > rest.size() || IsLetterAt(word.begin + length)) continue;
    const auto text = texts.find(std::u16string_view(rest).substr(0, length));
    if (text != texts.end()) return text->second;
  }
  return {};
}

std::size_t CappedPhrases::PhraseEnd(std::size_t first, std::size_t end) const {
  std::size_t next = first + 1;
  // Whatever "of" leads to from a known phrase, it is not what was quoted.
  bool connected = end > words_[first].end;
  while (true) {
    // No term holds a full stop and a blank.
    if (At(end - 1) == u'.' && At(end) == u' ') return end;
    if (const std::size_t number = AfterNumber(end); number != end) end = number;
    while (next < words_.size() && words_[next].begin < end) ++next;
    if (next == words_.size()) return end;
    const Word& word = words_[next];
    const Span gap{end, word.begin};
    if (word.small) {
      // "Series A" goes on; "Change Of Control" does, as with a small letter.
      const bool letter = word.end - word.begin == 1;
      const bool connects = !connected && Connects(Text(word)) && next + 1 < words_.size() &&
                            IsBlankGap({word.end, words_[next + 1].begin}) && !words_[next + 1].small &&
                            Joins(next + 1) && !IsFollowedByNumber(words_[next + 1].end);
      if (!IsBlankGap(gap) || !(letter || connects)) return end;
      if (!letter) {
        connected = true;
        ++next;
      }
    } else if (!Joins(next)) {
      return end;
    } else if (!IsBlankGap(gap) && Text(gap) != u"&" && Text(gap) != u" & ") {
      if (connected || AfterConnector(gap) != gap.end || IsFollowedByNumber(word.end)) return end;
      connected = true;
    }
    end = words_[next++].end;
  }
}

/// Behind a word with a digit that follows a blank; where it began when there is none, or none may be taken.
std::size_t CappedPhrases::AfterNumber(std::size_t end) const {
  if (ignoreNumbers_) return end;
  while (At(end) == u' ' && IsLetterAt(end + 1)) {
    std::size_t behind = AfterLetters(end + 1);
    while (IsHyphen(At(behind)) && IsLetterAt(behind + 1)) behind = AfterLetters(behind + 1);
    // "5.1" is no word, and "5" no part of it.
    const bool goesOn = (At(behind) == u'.' || At(behind) == u',') && IsDigit(At(behind + 1));
    if (goesOn || !HoldsDigit({end + 1, behind})) break;
    end = behind;
  }
  return end;
}

/// Behind the blank that follows a connecting word; 0 when the gap does not begin with one between blanks.
std::size_t CappedPhrases::AfterConnector(Span gap) const {
  const std::size_t begin = line_.find_first_not_of(u' ', gap.begin);
  if (begin == gap.begin || begin - gap.begin > kMostBlanks) return 0;
  const std::size_t end = AfterLetters(begin);
  if (!Connects(Text({begin, end})) || At(end) != u' ') return 0;
  const std::size_t behind = line_.find_first_not_of(u' ', end);
  return behind - end > kMostBlanks ? 0 : behind;
}

bool CappedPhrases::IsBlankGap(Span gap) const {
  const std::u16string_view text = Text(gap);
  return !text.empty() && text.size() <= kMostBlanks && text.find_first_not_of(u' ') == std::u16string_view::npos;
}

/// Whether a word may go on a phrase: not one that begins a quoted phrase.
bool CappedPhrases::Joins(std::size_t word) const {
  return !(words_[word].digits && ignoreNumbers_) && QuotedEnd(words_[word].begin) == 0;
}

bool CappedPhrases::IsFollowedByNumber(std::size_t end) const { return At(end) == u' ' && IsDigit(At(end + 1)); }

bool CappedPhrases::IsLetterAt(std::size_t index) const {
  return index < line_.size() && IsWordUnit(characters_, line_[index]);
}

std::size_t CappedPhrases::AfterLetters(std::size_t index) const {
  while (IsLetterAt(index)) ++index;
  return index;
}

bool CappedPhrases::HoldsDigit(Span span) const {
  const std::u16string_view text = Text(span);
  return std::any_of(text.begin(), text.end(), IsDigit);
}
