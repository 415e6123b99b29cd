#include "discovery/LineText.h"

#include <algorithm>

#include "platform/Quotes.h"
#include "platform/word/Constants.h"

namespace {

constexpr char16_t kSoftHyphen = 0x00AD;
constexpr char16_t kNarrowNonBreakingSpace = 0x202F;
constexpr char16_t kUnicodeNonBreakingHyphen = 0x2011;

/// Of the letters and blanks of most lines quickly: no.
bool MayBeDoubleQuote(char16_t unit) { return unit == u'"' || unit >= u'\u00AB'; }

bool EndsLine(char16_t unit) { return unit == word::kCellMark || (unit >= word::kTab && unit <= word::kColumnBreak); }

bool IsSurrogate(char16_t unit) { return (unit & 0xF800U) == 0xD800U; }

void AppendUnitAsRead(char16_t unit, std::u16string& line) {
  switch (unit) {
    case word::kCommentMark:
    case word::kOptionalHyphen:
    case kSoftHyphen:
      break;
    case word::kNonBreakingSpace:
    case kNarrowNonBreakingSpace:
      line += u' ';
      break;
    case word::kNonBreakingHyphen:
    case kUnicodeNonBreakingHyphen:
      line += u'-';
      break;
    default:
      line += unit;
  }
}

/// Whether a mark that opens may have blanks behind it, as in French; the others may be closing ones.
bool MayHaveBlanks(char16_t open) { return open == u'\u201C' || open == u'\u201E' || open == u'\u00AB'; }

bool Closes(char16_t open, char16_t close) { return close != u'\u201E' && (close != u'\u201C' || open == u'\u201E'); }

}  // namespace

std::size_t LineEnd(std::u16string_view text, std::size_t index) {
  const auto end = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(index), text.end(),
                                [](char16_t unit) { return EndsLine(unit); });
  return static_cast<std::size_t>(end - text.begin());
}

std::size_t FindDoubleQuote(std::u16string_view text, std::size_t index) {
  if (index >= text.size()) return std::u16string_view::npos;
  const auto found = std::find_if(text.begin() + static_cast<std::ptrdiff_t>(index), text.end(),
                                  [](char16_t unit) { return MayBeDoubleQuote(unit) && IsDoubleQuote(unit); });
  return found == text.end() ? std::u16string_view::npos : static_cast<std::size_t>(found - text.begin());
}

std::vector<QuotedText> FindQuotedTexts(std::u16string_view line, os::Characters& characters) {
  std::vector<QuotedText> found;
  const auto isLetterAt = [&](std::size_t index) { return index < line.size() && IsWordUnit(characters, line[index]); };
  std::size_t open = FindDoubleQuote(line, 0);
  while (open != std::u16string_view::npos) {
    std::size_t next = FindDoubleQuote(line, open + 1);
    const std::size_t begin = MayHaveBlanks(line[open]) ? line.find_first_not_of(u' ', open + 1) : open + 1;
    const bool opens = isLetterAt(begin) && (open == 0 || !isLetterAt(open - 1));
    if (opens && next != std::u16string_view::npos && Closes(line[open], line[next])) {
      found.push_back({begin, next});
      next = FindDoubleQuote(line, next + 1);
    }
    open = next;
  }
  return found;
}

std::size_t AfterArticle(std::u16string_view text, std::size_t index) {
  const std::u16string_view behind = text.substr(index);
  for (const std::u16string_view article : {u"the ", u"a ", u"an ", u"any ", u"The ", u"A ", u"An ", u"Any "}) {
    if (behind.starts_with(article)) return index + article.size();
  }
  return index;
}

void AppendAsRead(std::u16string_view text, std::u16string& line) {
  while (!text.empty()) {
    const auto special = std::find_if(text.begin(), text.end(),
                                      [](char16_t unit) { return unit < u' ' || unit >= word::kNonBreakingSpace; });
    const auto plain = static_cast<std::size_t>(special - text.begin());
    line += text.substr(0, plain);
    if (special == text.end()) return;
    AppendUnitAsRead(*special, line);
    text.remove_prefix(plain + 1);
  }
}

bool EndsSentenceInside(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u';' || text[i] == u':') return true;
    const bool stop = text[i] == u'.' || text[i] == u'?' || text[i] == u'!';
    if (stop && i + 1 < text.size() && text[i + 1] == u' ') return true;
  }
  return false;
}

bool OpensBracketOnly(std::u16string_view text) {
  const auto holds = [text](char16_t bracket) { return text.find(bracket) != std::u16string_view::npos; };
  return (holds(u'(') && !holds(u')')) || (holds(u'[') && !holds(u']'));
}

bool IsWordUnit(os::Characters& characters, char16_t unit) {
  constexpr char16_t kBeyondAscii = 0x80;
  if (unit >= kBeyondAscii) return IsSurrogate(unit) || characters.IsWordCharacter(unit);
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9');
}
