#include "hosts/docx/layout/LineBreaks.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <memory>

namespace docx::layout {

namespace {

/// Scripts in which lines also break where no blank is.
bool NeedsDictionary(char16_t c) {
  if (c < 0x0E00) return false;
  return c < 0x1000 || (c >= 0x1780 && c < 0x1800) || (c >= 0x2E80 && c < 0xA000) || (c >= 0xAC00 && c < 0xE000) ||
         (c >= 0xF900 && c < 0xFB00) || (c >= 0xFE30 && c < 0xFE50) || c >= 0xFF00;
}

icu::BreakIterator* LineIterator() {
  thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> made(icu::BreakIterator::createLineInstance(icu::Locale::getEnglish(), status));
    return U_SUCCESS(status) ? std::move(made) : nullptr;
  }();
  return iterator.get();
}

void AddDictionaryBreaks(std::u16string_view text, std::vector<std::uint8_t>& breaks) {
  icu::BreakIterator* iterator = LineIterator();
  if (iterator == nullptr) return;
  const icu::UnicodeString copy(false, text.data(), static_cast<std::int32_t>(text.size()));
  iterator->setText(copy);
  iterator->first();
  for (std::int32_t at = iterator->next(); at != icu::BreakIterator::DONE; at = iterator->next()) {
    const auto before = static_cast<std::size_t>(at) - 1;
    const bool near = NeedsDictionary(text[before]) || (before + 1 < text.size() && NeedsDictionary(text[before + 1]));
    if (near) breaks[before] = 1;
  }
}

}  // namespace

bool IsHangingBlank(char16_t c) { return c == u' ' || c == 0x3000 || c == 0x2009 || c == 0x200A; }

bool IsHangingPunctuation(char16_t c) {
  return c == 0x3001 || c == 0x3002 || c == 0xFF0C || c == 0xFF0E || c == 0xFF61 || c == 0xFF64;
}

void FindBreaks(std::u16string_view text, std::vector<std::uint8_t>& breaks) {
  breaks.assign(text.size(), 0);
  bool dictionary = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    const char16_t next = i + 1 < text.size() ? text[i + 1] : u' ';
    dictionary = dictionary || NeedsDictionary(c);
    switch (c) {
      case u' ':
      case 0x2002:
      case 0x2003:
      case 0x2009:
      case 0x200A:
      case u'\t':
        breaks[i] = next != u' ' ? 1 : 0;
        break;
      case u'-':
      case 0x2010:
      case 0x2013:
      case 0x2014:
        breaks[i] = !IsHangingBlank(next) ? 1 : 0;
        break;
      case 0x200B:
        breaks[i] = 1;
        break;
      default:
        break;
    }
  }
  if (dictionary) AddDictionaryBreaks(text, breaks);
}

}  // namespace docx::layout
