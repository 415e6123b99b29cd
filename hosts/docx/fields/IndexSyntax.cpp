#include "hosts/docx/fields/IndexSyntax.h"

#include <algorithm>

#include "hosts/docx/fields/FieldCode.h"
#include "hosts/docx/find/FindCharacters.h"

namespace docx {

namespace {

constexpr std::size_t kMaxLevels = 9;
constexpr std::size_t kMaxSeparator = 5;
constexpr int kMaxColumns = 4;

std::u16string_view Trim(std::u16string_view text) {
  const auto blank = [](char16_t unit) { return unit == u' ' || unit == u'\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  // A blank behind a backslash is meant.
  while (!text.empty() && blank(text.back()) && !(text.size() > 1 && text[text.size() - 2] == u'\\')) {
    text.remove_suffix(1);
  }
  return text;
}

/// Where a character stands that no backslash takes the meaning from; npos when nowhere.
std::size_t FindUnescaped(std::u16string_view raw, char16_t wanted, bool last) {
  std::size_t found = std::u16string_view::npos;
  for (std::size_t at = 0; at < raw.size(); ++at) {
    if (raw[at] == u'\\') {
      ++at;
    } else if (raw[at] == wanted) {
      found = at;
      if (!last) break;
    }
  }
  return found;
}

IndexLevel ParseLevel(std::u16string_view raw) {
  raw = Trim(raw);
  const std::size_t semicolon = FindUnescaped(raw, u';', true);
  if (semicolon != std::u16string_view::npos) {
    const std::u16string_view key = Trim(raw.substr(semicolon + 1));
    if (!key.empty()) return {FieldText(Trim(raw.substr(0, semicolon))), FieldText(key)};
  }
  const std::u16string text = FieldText(raw);
  return {text, text};
}

char16_t ParseType(const FieldCode& code) {
  const std::u16string type = code.Text(u'f').value_or(std::u16string());
  return type.empty() ? kDefaultIndexType : static_cast<char16_t>(FoldCase(type.front()));
}

std::u16string Separator(const FieldCode& code, char16_t name, std::u16string otherwise) {
  const std::optional<std::u16string> given = code.Text(name);
  return given ? given->substr(0, kMaxSeparator) : std::move(otherwise);
}

std::optional<int> Number(const std::optional<std::u16string>& text) {
  if (!text || text->empty() || text->size() > 8) return std::nullopt;
  int number = 0;
  for (const char16_t unit : *text) {
    if (unit < u'0' || unit > u'9') return std::nullopt;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

}  // namespace

IndexMark ParseIndexEntry(std::u16string_view code) {
  const FieldCode parsed = ParseFieldCode(code);
  IndexMark mark;
  mark.type = ParseType(parsed);
  mark.bold = parsed.Has(u'b');
  mark.italic = parsed.Has(u'i');
  mark.rangeBookmark = parsed.Text(u'r').value_or(std::u16string());
  for (const FieldSwitch& each : parsed.switches) {
    if (each.name == u't' && each.argument && !each.argument->empty()) {
      mark.crossReferences.push_back(FieldText(*each.argument));
    }
  }
  if (parsed.arguments.empty()) return mark;
  std::u16string_view rest = parsed.arguments.front();
  while (!rest.empty() && mark.levels.size() < kMaxLevels) {
    const std::size_t colon = FindUnescaped(rest, u':', false);
    IndexLevel level = ParseLevel(rest.substr(0, colon));
    if (!level.text.empty()) mark.levels.push_back(std::move(level));
    rest = colon == std::u16string_view::npos ? std::u16string_view() : rest.substr(colon + 1);
  }
  return mark;
}

IndexOptions ParseIndexOptions(std::u16string_view code) {
  const FieldCode parsed = ParseFieldCode(code);
  IndexOptions options;
  options.bookmark = parsed.Text(u'b').value_or(std::u16string());
  if (const std::optional<int> columns = Number(parsed.Text(u'c')))
    options.columns = std::clamp(*columns, 1, kMaxColumns);
  options.sequenceSeparator = Separator(parsed, u'd', options.sequenceSeparator);
  options.hasEntrySeparator = parsed.Text(u'e').has_value();
  options.entrySeparator = Separator(parsed, u'e', options.entrySeparator);
  options.type = ParseType(parsed);
  options.rangeSeparator = Separator(parsed, u'g', options.rangeSeparator);
  options.heading = parsed.Text(u'h');
  options.referenceSeparator = parsed.Text(u'k');
  options.pageSeparator = Separator(parsed, u'l', options.pageSeparator);
  options.letters = parsed.Text(u'p').value_or(std::u16string());
  options.runIn = parsed.Has(u'r');
  options.sequence = parsed.Text(u's').value_or(std::u16string());
  options.language = Number(parsed.Text(u'z'));
  return options;
}

}  // namespace docx
