#include "marker/Entries.h"

#include "marker/Letters.h"
#include "marker/PlainText.h"

#include <algorithm>

namespace marker {
namespace {

constexpr std::u16string_view kEntryKeyword = u"XE";
constexpr std::u16string_view kIndexKeyword = u"INDEX";

std::u16string Quoted(std::u16string_view text, std::u16string_view escaped) {
  std::u16string quoted = u"\"";
  for (const char16_t character : text) {
    if (escaped.find(character) != std::u16string_view::npos) quoted.push_back(u'\\');
    quoted.push_back(character);
  }
  quoted.push_back(u'"');
  return quoted;
}

std::u16string_view Cut(std::u16string_view text, std::size_t length) {
  if (text.size() <= length) return text;
  return text.substr(0, Letters::SplitsPair(text, length) ? length - 1 : length);
}

std::u16string FittingSeparator(std::u16string_view separator) {
  constexpr std::size_t kKept = 5;
  if (separator.size() <= kKept) return std::u16string(separator);
  if (separator.back() != u'\t') return std::u16string(Cut(separator, kKept));
  return std::u16string(Cut(separator, kKept - 1)) + u'\t';
}

/// Reads a code word by word.
class CodeReader {
 public:
  explicit CodeReader(std::u16string_view code) : code_(code) {}

  /// @return false at the end. A switch keeps its backslash; a quoted text loses its quotes and escapes.
  bool Next(std::u16string& word, bool& isSwitch) {
    while (at_ < code_.size() && IsBlank(code_[at_])) ++at_;
    if (at_ == code_.size()) return false;
    word.clear();
    isSwitch = code_[at_] == u'\\';
    if (code_[at_] == u'"') {
      ++at_;
      ReadQuoted(word);
    } else {
      while (at_ < code_.size() && !IsBlank(code_[at_]) && code_[at_] != u'"') word.push_back(code_[at_++]);
    }
    return true;
  }

 private:
  static bool IsBlank(char16_t character) { return character == u' ' || character == u'\t'; }

  void ReadQuoted(std::u16string& word) {
    while (at_ < code_.size() && code_[at_] != u'"') {
      if (code_[at_] == u'\\' && at_ + 1 < code_.size()) ++at_;
      word.push_back(code_[at_++]);
    }
    if (at_ < code_.size()) ++at_;
  }

  std::u16string_view code_;
  std::size_t at_{0};
};

}  // namespace

std::u16string EntryText(std::u16string_view term) {
  std::u16string text = PlainTerm(term);
  std::transform(text.begin(), text.end(), text.begin(), ShownAs);
  return std::u16string(Cut(text, kLongestEntry));
}

std::u16string EntryCode(std::u16string_view entryText, bool boldPage) {
  std::u16string code(kEntryKeyword);
  code.append(u" ").append(Quoted(entryText, u":;\"\\"));
  code.append(u" \\f \"").append(kEntryType).append(u"\"");
  if (boldPage) code.append(u" \\b");
  return code;
}

std::u16string IndexCode(std::u16string_view separator, int columns) {
  std::u16string code(kIndexKeyword);
  code.append(u" \\f \"").append(kEntryType).append(u"\"");
  code.append(u" \\e ").append(Quoted(FittingSeparator(separator), u"\"\\"));
  if (columns > 0) {
    code.append(u" \\c \"").append(1, static_cast<char16_t>(u'0' + columns)).append(u"\"");
  }
  return code;
}

FieldCode ParseFieldCode(std::u16string_view code) {
  FieldCode parsed;
  CodeReader reader(code);
  std::u16string word;
  std::u16string lastSwitch;
  bool isSwitch = false;
  if (!reader.Next(parsed.keyword, isSwitch)) return parsed;
  for (bool isFirst = true; reader.Next(word, isSwitch); isFirst = false) {
    if (isSwitch) {
      lastSwitch = word;
      continue;
    }
    if (isFirst) parsed.text = word;
    if (lastSwitch == u"\\f") parsed.type = word;
    lastSwitch.clear();
  }
  return parsed;
}

bool IsOurEntry(const FieldCode& code) { return code.keyword == kEntryKeyword && code.type == kEntryType; }

bool IsOurIndex(const FieldCode& code) { return code.keyword == kIndexKeyword && code.type == kEntryType; }

}  // namespace marker
