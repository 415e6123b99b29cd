#include "drafting/Excerpt.h"

#include <algorithm>
#include <iterator>

#include "marker/PlainText.h"

namespace drafting {

namespace {

/// On either side of the words in question; a clause of a contract can be a page long.
constexpr std::size_t kMostContext = 160;
constexpr char16_t kEllipsis = u'\u2026';

/// Cuts a sentence short at blanks.
void Shorten(Excerpt& excerpt) {
  std::u16string& sentence = excerpt.sentence;
  if (sentence.size() > excerpt.end + kMostContext) {
    const std::size_t cut = sentence.rfind(u' ', excerpt.end + kMostContext);
    if (cut != std::u16string::npos && cut >= excerpt.end) sentence = sentence.substr(0, cut) + u" " + kEllipsis;
  }
  if (excerpt.begin > kMostContext) {
    const std::size_t cut = sentence.find(u' ', excerpt.begin - kMostContext);
    if (cut == std::u16string::npos || cut >= excerpt.begin) return;
    sentence = std::u16string(1, kEllipsis) + sentence.substr(cut);
    excerpt.begin = excerpt.begin - cut + 1;
    excerpt.end = excerpt.end - cut + 1;
  }
}

char16_t Shown(char16_t unit) { return unit == marker::kBarrier ? kEllipsis : marker::ShownAs(unit); }

}  // namespace

Excerpt ExcerptOf(std::u16string_view line, const LineCapitals& capitals, std::size_t begin, std::size_t end) {
  // More than is shown, and less than a sentence that is as long as a document.
  constexpr std::size_t kMostRead = 4 * kMostContext;
  std::u16string_view sentence = capitals.SentenceAt(begin);
  std::size_t offset = sentence.empty() ? 0 : static_cast<std::size_t>(sentence.data() - line.data());
  if (begin > offset + kMostRead) {
    const std::size_t left = std::min(begin - offset - kMostRead, sentence.size());
    sentence.remove_prefix(left);
    offset += left;
  }
  if (offset + sentence.size() > end + kMostRead) sentence = sentence.substr(0, end + kMostRead - offset);
  Excerpt excerpt;
  std::transform(sentence.begin(), sentence.end(), std::back_inserter(excerpt.sentence), Shown);
  excerpt.begin = std::min(begin - std::min(offset, begin), sentence.size());
  excerpt.end = std::min(end - std::min(offset, end), sentence.size());
  Shorten(excerpt);
  return excerpt;
}

}  // namespace drafting
