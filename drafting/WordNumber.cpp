#include "drafting/WordNumber.h"

#include <array>

namespace drafting {

namespace {

bool IsVowel(char16_t letter) { return std::u16string_view(u"aeiouAEIOU").find(letter) != std::u16string_view::npos; }

bool EndsWithOneOf(std::u16string_view word, const std::array<std::u16string_view, 5>& ends) {
  for (const std::u16string_view end : ends) {
    if (word.ends_with(end)) return true;
  }
  return false;
}

constexpr std::array<std::u16string_view, 5> kHissing{u"s", u"x", u"z", u"ch", u"sh"};
constexpr std::array<std::u16string_view, 5> kHissingPlural{u"ses", u"xes", u"zes", u"ches", u"shes"};
/// Words that end in "s" and are no plurals.
constexpr std::array<std::u16string_view, 5> kNoPlural{u"ss", u"us", u"is", u"ness", u"ics"};

std::u16string Other(std::u16string_view word) {
  const std::size_t size = word.size();
  if (size < 3) return {};
  if (word.ends_with(u"ies") && size > 4) return std::u16string(word.substr(0, size - 3)) + u"y";
  // "Licences" and "Purchases" keep their "e", "Taxes" and "Losses" do not.
  if (EndsWithOneOf(word, kHissingPlural) && !word.ends_with(u"nses") && !word.ends_with(u"ases") &&
      !word.ends_with(u"ises")) {
    return std::u16string(word.substr(0, size - 2));
  }
  if (word.back() == u's') {
    return EndsWithOneOf(word, kNoPlural) ? std::u16string(word) + u"es" : std::u16string(word.substr(0, size - 1));
  }
  if (word.back() == u'y' && !IsVowel(word[size - 2])) return std::u16string(word.substr(0, size - 1)) + u"ies";
  if (EndsWithOneOf(word, kHissing)) return std::u16string(word) + u"es";
  return std::u16string(word) + u"s";
}

}  // namespace

std::u16string InOtherNumber(std::u16string_view term) {
  const std::size_t of = term.find(u" of ");
  const std::u16string_view head = term.substr(0, of);
  const std::size_t blank = head.rfind(u' ');
  const std::size_t begin = blank == std::u16string_view::npos ? 0 : blank + 1;
  const std::u16string_view word = head.substr(begin);
  if (word.empty() || word.back() < u'a' || word.back() > u'z') return {};
  const std::u16string other = Other(word);
  if (other.empty()) return {};
  return std::u16string(head.substr(0, begin)) + other +
         (of == std::u16string_view::npos ? std::u16string() : std::u16string(term.substr(of)));
}

}  // namespace drafting
