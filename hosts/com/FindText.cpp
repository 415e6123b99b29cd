#include "hosts/com/FindText.h"

namespace com {

namespace {

constexpr std::u16string_view kAllDoubleQuotes = u"^034^0147^0148";

/// Four digits, so that a digit of the text behind it cannot become one of the code.
std::u16string_view ExactCode(char16_t quote) {
  switch (quote) {
    case u'\u2018':
      return u"^0145";
    case u'\u2019':
      return u"^0146";
    case u'\u201C':
      return u"^0147";
    case u'\u201D':
      return u"^0148";
    default:
      return {};
  }
}

std::u16string PlainForWord(std::u16string_view text) {
  std::u16string result;
  for (const char16_t unit : text) {
    const std::u16string_view code = ExactCode(unit);
    if (code.empty()) {
      result += unit;
    } else {
      result += code;
    }
  }
  return result;
}

std::u16string WildcardsForWord(std::u16string_view text) {
  std::u16string result;
  bool inSet = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit == u'\\' && i + 1 < text.size()) {
      result.append(text, i++, 2);
    } else if (unit == u'"') {
      inSet ? result.append(kAllDoubleQuotes) : result.append(u"[").append(kAllDoubleQuotes).append(u"]");
    } else {
      if (unit == u'[') inSet = true;
      if (unit == u']') inSet = false;
      result += unit;
    }
  }
  return result;
}

}  // namespace

std::u16string ForWord(std::u16string_view text, bool wildcards) {
  return wildcards ? WildcardsForWord(text) : PlainForWord(text);
}

}  // namespace com
