#include <windows.h>

#include <array>
#include <vector>

#include "hosts/docx/fields/IndexCollation.h"
#include "hosts/docx/find/FindCharacters.h"
#include "hosts/unicode/Unicode.h"

namespace docx {

namespace {

/// Characters that the order takes no notice of.
bool IsIgnored(char16_t unit) {
  constexpr std::u16string_view kIgnored = u"-'\u2018\u2019\u2010\u2011\u00AD\u001E\u001F";
  return kIgnored.find(unit) != std::u16string_view::npos;
}

/// @return empty, as LOCALE_NAME_INVARIANT is, for no language and for one that Windows does not know
std::wstring LocaleOf(std::optional<int> language) {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
  if (!language || LCIDToLocaleName(static_cast<LCID>(*language), name.data(), static_cast<int>(name.size()), 0) == 0) {
    return {};
  }
  return name.data();
}

std::wstring Decomposed(const std::wstring& text) {
  std::array<wchar_t, 64> parts{};
  const int length = NormalizeString(NormalizationD, text.data(), static_cast<int>(text.size()), parts.data(),
                                     static_cast<int>(parts.size()));
  return length > 0 ? std::wstring(parts.data(), static_cast<std::size_t>(length)) : text;
}

}  // namespace

/// Windows names an order by its locale.
struct IndexCollation::Collators {
  std::wstring locale;
};

IndexCollation::IndexCollation(std::optional<int> language)
    : collators_(std::make_unique<Collators>(Collators{LocaleOf(language)})) {}

IndexCollation::~IndexCollation() = default;

std::string IndexCollation::Key(std::u16string_view text) const {
  std::wstring counted;
  for (const char16_t unit : text) {
    if (!IsIgnored(unit)) counted += static_cast<wchar_t>(unit);
  }
  constexpr DWORD kOrder = LCMAP_SORTKEY | SORT_STRINGSORT;
  const auto length = static_cast<int>(counted.size());
  const wchar_t* const locale = collators_->locale.c_str();
  std::string key;
  // A sort key is bytes, though the function takes it for text.
  const int size =
      length == 0 ? 0 : LCMapStringEx(locale, kOrder, counted.data(), length, nullptr, 0, nullptr, nullptr, 0);
  std::vector<char> bytes(static_cast<std::size_t>(size) + 1);
  if (size > 0) {
    LCMapStringEx(locale, kOrder, counted.data(), length, reinterpret_cast<wchar_t*>(bytes.data()), size, nullptr,
                  nullptr, 0);
    key.assign(bytes.begin(), bytes.end() - 1);
  } else {
    key.assign(1, '\0');
  }
  // It ends with a zero, so what follows only decides between equal ones.
  for (const char16_t unit : text) {
    key += static_cast<char>(unit >> 8U);
    key += static_cast<char>(unit & 0xFFU);
  }
  return key;
}

std::u16string IndexCollation::Letter(std::u16string_view text) const {
  while (!text.empty() && IsIgnored(text.front())) text.remove_prefix(1);
  if (text.empty()) return {kNoLetter};
  const char32_t point = CodePointAt(text, 0).value;
  if (!IsLetter(point)) return {kNoLetter};
  std::u16string letter;
  unicode::Append(letter, unicode::UpperOf(point));
  const std::wstring whole = Decomposed(std::wstring(letter.begin(), letter.end()));
  const std::u16string parts(whole.begin(), whole.end());
  const std::u16string base = parts.substr(0, CodePointAt(parts, 0).units);
  const std::wstring left(letter.begin(), letter.end());
  const std::wstring right(base.begin(), base.end());
  const int result =
      CompareStringEx(collators_->locale.c_str(), NORM_IGNORECASE | NORM_IGNORENONSPACE, left.data(),
                      static_cast<int>(left.size()), right.data(), static_cast<int>(right.size()), nullptr, nullptr, 0);
  return result == CSTR_EQUAL ? base : letter;
}

}  // namespace docx
