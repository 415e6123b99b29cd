#include "hosts/docx/xml/XmlText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "platform/word/FindUnit.h"

namespace docx {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// Without a branch, so that many are told at once.
bool IsSpecialInText(char c) {
  const bool isControl = (static_cast<unsigned char>(c) < 0x20) & (c != '\t') & (c != '\n');
  return isControl | (c == '&') | (c == '<') | (c == '>');
}

bool IsPlainInValue(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && c != '&' && c != '<' && c != '>' && c != '"';
}

template <typename IsPlain>
std::string Escaped(std::string_view text, IsPlain isPlain) {
  const auto first = static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPlain) - text.begin());
  std::string escaped(text.substr(0, first));
  for (const char c : text.substr(first)) {
    if (isPlain(c)) {
      escaped += c;
      continue;
    }
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += "&#" + std::to_string(static_cast<unsigned char>(c)) + ";";
    }
  }
  return escaped;
}

void AppendUtf8(std::string& text, std::uint32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  const int more = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
  constexpr unsigned char kLeads[] = {0, 0xC0, 0xE0, 0xF0};
  text += static_cast<char>(kLeads[more] | (c >> (6 * more)));
  for (int i = more - 1; i >= 0; --i) text += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

void AppendEntity(std::string& text, std::string_view name) {
  if (name.starts_with('#')) {
    const bool hex = name.starts_with("#x");
    std::uint32_t c = 0;
    for (const char digit : name.substr(hex ? 2 : 1)) {
      const int value = digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
      c = c * (hex ? 16 : 10) + static_cast<std::uint32_t>(value);
    }
    AppendUtf8(text, c);
    return;
  }
  text += name == "lt" ? '<' : name == "gt" ? '>' : name == "amp" ? '&' : name == "quot" ? '"' : '\'';
}

}  // namespace

bool IsWrittenAsIs(std::string_view text) { return word::FindUnit(text, 0, &IsSpecialInText) == text.size(); }

std::string EscapedText(std::string_view text) {
  return Escaped(text, [](char c) { return !IsSpecialInText(c); });
}

bool IsWrittenAsIsInValue(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return IsPlainInValue(c); });
}

std::string EscapedValue(std::string_view text) {
  return Escaped(text, [](char c) { return IsPlainInValue(c); });
}

bool IsEscapedText(std::string_view raw) {
  return raw.find('&') != std::string_view::npos || raw.find('\r') != std::string_view::npos;
}

bool IsEscapedValue(std::string_view raw) {
  return std::any_of(raw.begin(), raw.end(), [](char c) { return c == '&' || (c != ' ' && IsBlank(c)); });
}

std::string Unescaped(std::string_view raw, bool value) {
  std::string text;
  text.reserve(raw.size());
  for (std::size_t i = 0; i < raw.size(); ++i) {
    const char c = raw[i];
    if (c == '&') {
      const std::size_t end = raw.find(';', i);
      AppendEntity(text, raw.substr(i + 1, end - i - 1));
      i = end;
    } else if (c == '\r') {
      if (i + 1 < raw.size() && raw[i + 1] == '\n') ++i;
      text += value ? ' ' : '\n';
    } else {
      text += value && IsBlank(c) ? ' ' : c;
    }
  }
  return text;
}

double NumberIn(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n"), text.size()));
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && std::isfinite(number) ? number : 0;
}

bool NextAttribute(const char*& at, const char* end, RawAttribute& attribute) {
  const char* const begin = at;
  const char* p = at;
  while (p < end && IsBlank(*p)) ++p;
  if (p == end) return false;
  const char* const name = p;
  while (*p != '=' && !IsBlank(*p)) ++p;
  attribute.name = {name, static_cast<std::size_t>(p - name)};
  while (*p != '"' && *p != '\'') ++p;
  const char* const value = p + 1;
  const char* const quote = static_cast<const char*>(std::memchr(value, *p, static_cast<std::size_t>(end - value)));
  attribute.value = {value, static_cast<std::size_t>(quote - value)};
  at = quote + 1;
  attribute.text = {begin, static_cast<std::size_t>(at - begin)};
  return true;
}

}  // namespace docx
