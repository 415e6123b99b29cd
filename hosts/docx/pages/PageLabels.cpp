#include "hosts/docx/pages/PageLabels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <utility>

#include "platform/Text.h"

namespace docx {

namespace {

// Word's own page numbers end here; beyond, letters and Roman numerals would only grow without sense.
constexpr int kLargest = 32767;

std::u16string Roman(int number) {
  constexpr std::array<std::pair<int, std::u16string_view>, 13> kNumerals{{{1000, u"M"},
                                                                           {900, u"CM"},
                                                                           {500, u"D"},
                                                                           {400, u"CD"},
                                                                           {100, u"C"},
                                                                           {90, u"XC"},
                                                                           {50, u"L"},
                                                                           {40, u"XL"},
                                                                           {10, u"X"},
                                                                           {9, u"IX"},
                                                                           {5, u"V"},
                                                                           {4, u"IV"},
                                                                           {1, u"I"}}};
  std::u16string roman;
  for (const auto& [value, numeral] : kNumerals) {
    for (; number >= value; number -= value) roman += numeral;
  }
  return roman;
}

/// A to Z, then AA, BB and so on.
std::u16string Letters(int number) {
  const auto index = static_cast<std::size_t>(number - 1);
  return std::u16string(index / 26 + 1, static_cast<char16_t>(u'A' + index % 26));
}

std::u16string Lower(std::u16string text) {
  for (char16_t& c : text) c = static_cast<char16_t>(c - u'A' + u'a');
  return text;
}

}  // namespace

std::u16string FormatPageNumber(std::string_view format, int number) {
  if (format == "numberInDash") return u"- " + Decimal(number) + u" -";
  if (format == "decimalZero" && number >= 0 && number < 10) return u"0" + Decimal(number);
  if (number < 1 || number > kLargest) return Decimal(number);
  if (format == "upperRoman") return Roman(number);
  if (format == "lowerRoman") return Lower(Roman(number));
  if (format == "upperLetter") return Letters(number);
  if (format == "lowerLetter") return Lower(Letters(number));
  return Decimal(number);
}

FirstNumber NumberAfter(int last, const PageSetup& setup) {
  FirstNumber first;
  first.number = setup.restart.value_or(last + 1);
  if (setup.start != SectionStart::kOddPage && setup.start != SectionStart::kEvenPage) return first;
  const int parity = setup.start == SectionStart::kOddPage ? 1 : 0;
  if (first.number % 2 != parity) ++first.number;
  first.blank = last % 2 == parity;
  return first;
}

PageNumbering NumberFirstSection(const PageSetup& setup) {
  // An even first page has no sheet before it that could stay blank.
  return {1, 1, NumberAfter(0, setup).number, setup.numberFormat};
}

PageNumbering NumberNextSection(const PageNumbering& before, const PageSetup& setup, int page, bool beginsPage) {
  const int number =
      beginsPage ? NumberAfter(before.NumberOf(page - 1), setup).number : setup.restart.value_or(before.NumberOf(page));
  return {page, beginsPage ? page : page + 1, number, setup.numberFormat};
}

namespace {

/// Of the section that decides about a page; nullptr for none.
const PageNumbering* NumberingOf(const std::vector<PageNumbering>& numberings, int page) {
  const auto after = std::upper_bound(numberings.begin(), numberings.end(), page,
                                      [](int wanted, const PageNumbering& one) { return wanted < one.labelsFrom; });
  return after == numberings.begin() ? nullptr : &*std::prev(after);
}

}  // namespace

int PageNumber(const std::vector<PageNumbering>& numberings, int page) {
  const PageNumbering* numbering = NumberingOf(numberings, page);
  return numbering == nullptr ? page : numbering->NumberOf(page);
}

std::u16string PageLabel(const std::vector<PageNumbering>& numberings, int page) {
  const PageNumbering* numbering = NumberingOf(numberings, page);
  return FormatPageNumber(numbering == nullptr ? std::string_view() : numbering->format, PageNumber(numberings, page));
}

}  // namespace docx
