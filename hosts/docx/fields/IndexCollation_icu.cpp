#include "hosts/docx/fields/IndexCollation.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

#include <array>
#include <cstdint>
#include <vector>

#include "hosts/docx/find/FindCharacters.h"

namespace docx {

namespace {

struct CloseCollator {
  void operator()(UCollator* collator) const { ucol_close(collator); }
};
using CollatorPtr = std::unique_ptr<UCollator, CloseCollator>;

std::string LocaleOf(std::optional<int> language) {
  if (!language) return {};
  std::array<char, ULOC_FULLNAME_CAPACITY> name{};
  UErrorCode status = U_ZERO_ERROR;
  uloc_getLocaleForLCID(static_cast<std::uint32_t>(*language), name.data(), static_cast<int32_t>(name.size()), &status);
  return U_SUCCESS(status) ? std::string(name.data()) : std::string();
}

CollatorPtr Open(const std::string& locale, UColAttributeValue strength) {
  UErrorCode status = U_ZERO_ERROR;
  CollatorPtr collator(ucol_open(locale.c_str(), &status));
  if (collator == nullptr) return collator;
  status = U_ZERO_ERROR;
  ucol_setAttribute(collator.get(), UCOL_STRENGTH, strength, &status);
  ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
  ucol_setAttribute(collator.get(), UCOL_NUMERIC_COLLATION, UCOL_OFF, &status);
  return collator;
}

/// Characters that the order takes no notice of.
bool IsIgnored(char16_t unit) {
  constexpr std::u16string_view kIgnored = u"-'\u2018\u2019\u2010\u2011\u00AD\u001E\u001F";
  return kIgnored.find(unit) != std::u16string_view::npos;
}

std::u16string FromCodePoint(UChar32 point) {
  std::array<UChar, 2> units{};
  int32_t length = 0;
  UErrorCode status = U_ZERO_ERROR;
  u_strFromUTF32(units.data(), static_cast<int32_t>(units.size()), &length, &point, 1, &status);
  return std::u16string(units.data(), static_cast<std::size_t>(length));
}

}  // namespace

struct IndexCollation::Collators {
  CollatorPtr order;
  CollatorPtr letters;  // tells only different letters apart
};

IndexCollation::IndexCollation(std::optional<int> language) : collators_(std::make_unique<Collators>()) {
  const std::string locale = LocaleOf(language);
  collators_->order = Open(locale, UCOL_TERTIARY);
  collators_->letters = Open(locale, UCOL_PRIMARY);
}

IndexCollation::~IndexCollation() = default;

std::string IndexCollation::Key(std::u16string_view text) const {
  std::u16string counted;
  for (const char16_t unit : text) {
    if (!IsIgnored(unit)) counted += unit;
  }
  std::string key;
  if (collators_->order != nullptr) {
    std::vector<std::uint8_t> bytes(64 + counted.size() * 8);
    const auto length = static_cast<int32_t>(counted.size());
    int32_t size = ucol_getSortKey(collators_->order.get(), counted.data(), length, bytes.data(),
                                   static_cast<int32_t>(bytes.size()));
    if (static_cast<std::size_t>(size) > bytes.size()) {
      bytes.resize(static_cast<std::size_t>(size));
      size = ucol_getSortKey(collators_->order.get(), counted.data(), length, bytes.data(), size);
    }
    key.assign(bytes.begin(), bytes.begin() + size);
  }
  // ICU ends its keys with a zero, so what follows only decides between equal ones.
  for (const char16_t unit : text) {
    key += static_cast<char>(unit >> 8U);
    key += static_cast<char>(unit & 0xFFU);
  }
  return key;
}

std::u16string IndexCollation::Letter(std::u16string_view text) const {
  while (!text.empty() && IsIgnored(text.front())) text.remove_prefix(1);
  if (text.empty()) return {kNoLetter};
  const auto point = static_cast<UChar32>(CodePointAt(text, 0).value);
  if (u_isalpha(point) == 0) return {kNoLetter};
  const std::u16string letter = FromCodePoint(u_toupper(point));

  UErrorCode status = U_ZERO_ERROR;
  const UNormalizer2* normalizer = unorm2_getNFDInstance(&status);
  if (U_FAILURE(status)) return letter;
  std::array<UChar, 32> parts{};
  const int32_t count =
      unorm2_getDecomposition(normalizer, u_toupper(point), parts.data(), static_cast<int32_t>(parts.size()), &status);
  if (U_FAILURE(status) || count <= 0 || collators_->letters == nullptr) return letter;
  const std::u16string_view whole(parts.data(), static_cast<std::size_t>(count));
  const std::u16string base(whole.substr(0, CodePointAt(whole, 0).units));
  const UCollationResult result =
      ucol_strcoll(collators_->letters.get(), letter.data(), static_cast<int32_t>(letter.size()), base.data(),
                   static_cast<int32_t>(base.size()));
  return result == UCOL_EQUAL ? base : letter;
}

}  // namespace docx
