#include "hosts/docx/fields/FieldCode.h"

#include <algorithm>
#include <array>
#include <utility>

namespace docx {

namespace {

bool IsBlank(char16_t unit) { return unit <= u' ' || unit == u'\u00A0'; }

char16_t Upper(char16_t unit) { return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit; }
char16_t Lower(char16_t unit) { return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit; }

struct KeywordSwitches {
  std::u16string_view keyword;
  std::u16string_view withoutArgument;
};

/// The switches that stand alone, for the fields whose codes matter.
constexpr std::array kSwitches{
    KeywordSwitches{u"XE", u"bi"},       KeywordSwitches{u"INDEX", u"ry"},
    KeywordSwitches{u"TOC", u"hnpuwxz"},  // \n and \p may have one and are not asked for it
    KeywordSwitches{u"TC", u"n"},        KeywordSwitches{u"HYPERLINK", u"mnh"},
    KeywordSwitches{u"REF", u"fhnprtw"}, KeywordSwitches{u"PAGEREF", u"hp"},
    KeywordSwitches{u"NOTEREF", u"fhp"}, KeywordSwitches{u"STYLEREF", u"lnprtw"},
    KeywordSwitches{u"SEQ", u"chn"},     KeywordSwitches{u"TA", u"bi"},
    KeywordSwitches{u"RD", u"f"},
};

/// Switches that all fields have: formats, which take an argument, and the lock, which does not.
constexpr std::u16string_view kGeneralWithArgument = u"*#@";

class Reader {
 public:
  explicit Reader(std::u16string_view code) : code_(code) {}

  FieldCode Read() {
    FieldCode field;
    SkipBlanks();
    if (AtEnd()) return field;
    if (code_[at_] != u'\\') {
      field.keyword = ReadWord();
      std::transform(field.keyword.begin(), field.keyword.end(), field.keyword.begin(), Upper);
    }
    for (SkipBlanks(); !AtEnd(); SkipBlanks()) {
      if (AtSwitch()) {
        field.switches.push_back(ReadSwitch(field.keyword));
      } else {
        field.arguments.push_back(ReadWord());
      }
    }
    return field;
  }

 private:
  bool AtEnd() const { return at_ >= code_.size(); }
  bool AtSwitch() const { return code_[at_] == u'\\' && at_ + 1 < code_.size() && !IsBlank(code_[at_ + 1]); }

  void SkipBlanks() {
    while (!AtEnd() && IsBlank(code_[at_])) ++at_;
  }

  static bool TakesArgument(std::u16string_view keyword, char16_t name) {
    if (kGeneralWithArgument.find(name) != std::u16string_view::npos) return true;
    if (name == u'!') return false;
    for (const KeywordSwitches& known : kSwitches) {
      if (known.keyword == keyword) return known.withoutArgument.find(name) == std::u16string_view::npos;
    }
    return true;
  }

  FieldSwitch ReadSwitch(std::u16string_view keyword) {
    FieldSwitch found{Lower(code_[at_ + 1])};
    at_ += 2;
    if (!TakesArgument(keyword, found.name)) return found;
    SkipBlanks();
    if (!AtEnd() && !AtSwitch()) found.argument = ReadWord();
    return found;
  }

  std::u16string ReadWord() {
    const char16_t quote = code_[at_];
    if (quote == u'"' || quote == u'\u201C' || quote == u'\u201D') {
      ++at_;
      return ReadQuoted(quote != u'"');
    }
    const std::size_t begin = at_;
    while (!AtEnd() && !IsBlank(code_[at_]) && code_[at_] != u'"') at_ += code_[at_] == u'\\' ? 2 : 1;
    at_ = std::min(at_, code_.size());
    return std::u16string(code_.substr(begin, at_ - begin));
  }

  std::u16string ReadQuoted(bool curly) {
    const std::size_t begin = at_;
    while (!AtEnd() && code_[at_] != u'"' && !(curly && code_[at_] == u'\u201D')) at_ += code_[at_] == u'\\' ? 2 : 1;
    at_ = std::min(at_, code_.size());
    const std::size_t end = at_;
    if (!AtEnd()) ++at_;
    return std::u16string(code_.substr(begin, end - begin));
  }

  std::u16string_view code_;
  std::size_t at_{0};
};

}  // namespace

const FieldSwitch* FieldCode::Switch(char16_t name) const {
  const auto found = std::find_if(switches.rbegin(), switches.rend(),
                                  [name](const FieldSwitch& candidate) { return candidate.name == name; });
  return found == switches.rend() ? nullptr : &*found;
}

std::optional<std::u16string> FieldCode::Text(char16_t name) const {
  const FieldSwitch* found = Switch(name);
  if (found == nullptr || !found->argument) return std::nullopt;
  return FieldText(*found->argument);
}

FieldCode ParseFieldCode(std::u16string_view code) { return Reader(code).Read(); }

std::u16string FieldText(std::u16string_view raw) {
  std::u16string text;
  for (std::size_t at = 0; at < raw.size(); ++at) {
    if (raw[at] == u'\\' && at + 1 < raw.size()) ++at;
    text += raw[at];
  }
  return text;
}

int FieldType(std::u16string_view code) {
  std::size_t begin = 0;
  while (begin < code.size() && IsBlank(code[begin])) ++begin;
  std::size_t end = begin;
  while (end < code.size() && !IsBlank(code[end]) && code[end] != u'"' && code[end] != u'\\') ++end;
  return FieldTypeOfKeyword(code.substr(begin, end - begin));
}

}  // namespace docx
