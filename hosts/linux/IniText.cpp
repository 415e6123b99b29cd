#include "hosts/linux/IniText.h"

#include <unicode/uchar.h>

#include "platform/AnsiText.h"

#include <algorithm>

namespace os {

namespace {

bool IsBlank(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\f') || c == 0x1A; }

std::u16string_view TrimLeft(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::u16string_view Trim(std::u16string_view text) {
  text = TrimLeft(text);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool SameName(std::u16string_view one, std::u16string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](char16_t a, char16_t b) {
    return a == b || u_foldCase(a, U_FOLD_CASE_DEFAULT) == u_foldCase(b, U_FOLD_CASE_DEFAULT);
  });
}

std::u16string_view DropQuotes(std::u16string_view value) {
  if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') && value.back() == value.front()) {
    value.remove_prefix(1);
    value.remove_suffix(1);
  }
  return value;
}

/// A section's name when the line begins one.
std::optional<std::u16string_view> SectionName(std::u16string_view line) {
  line = TrimLeft(line);
  if (line.empty() || line.front() != u'[') return std::nullopt;
  const std::size_t close = line.rfind(u']');
  if (close == std::u16string_view::npos) return std::nullopt;
  return Trim(line.substr(1, close - 1));
}

}  // namespace

IniText::IniText(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE")) encoding_ = Encoding::kUtf16LittleEndian;
  if (bytes.starts_with("\xFE\xFF")) encoding_ = Encoding::kUtf16BigEndian;
  if (encoding_ == Encoding::kAnsi) {
    text_ = FromAnsi(bytes);
    return;
  }
  std::size_t i = 2;
  for (; i + 1 < bytes.size(); i += 2) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    text_ += static_cast<char16_t>(encoding_ == Encoding::kUtf16BigEndian ? first << 8 | second : second << 8 | first);
  }
  rest_ = bytes.substr(i);
}

std::string IniText::Bytes() const {
  if (encoding_ == Encoding::kAnsi) return ToAnsi(text_);
  const bool bigEndian = encoding_ == Encoding::kUtf16BigEndian;
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char16_t unit : text_) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes + rest_;
}

IniText::Line IniText::LineAt(std::size_t begin) const {
  const std::size_t end = std::min(text_.find_first_of(u"\r\n", begin), text_.size());
  std::size_t next = end;
  if (next < text_.size()) {
    next += text_.compare(next, 2, u"\r\n") == 0 ? 2 : 1;
  }
  return {begin, end, next};
}

IniText::Place IniText::Locate(std::u16string_view section, std::u16string_view key) const {
  const std::u16string_view text = text_;
  Place place;
  for (std::size_t position = 0; position < text.size();) {
    const Line line = LineAt(position);
    position = line.next;
    const std::u16string_view content = text.substr(line.begin, line.end - line.begin);
    const std::u16string_view trimmed = Trim(content);
    if (const auto name = SectionName(content)) {
      if (place.sectionFound) break;
      if (SameName(*name, Trim(section))) {
        place.sectionFound = true;
        place.sectionEnd = line.next;
      }
      continue;
    }
    if (!place.sectionFound || trimmed.empty()) continue;
    place.sectionEnd = line.next;
    const std::size_t equals = content.find(u'=');
    if (trimmed.front() == u';' || equals == std::u16string_view::npos) continue;
    if (SameName(Trim(content.substr(0, equals)), Trim(key))) {
      place.keyFound = true;
      place.valueBegin = line.begin + equals + 1;
      place.valueEnd = line.end;
      break;
    }
  }
  return place;
}

std::optional<std::u16string> IniText::Find(std::u16string_view section, std::u16string_view key) const {
  const Place place = Locate(section, key);
  if (!place.keyFound) return std::nullopt;
  const std::u16string_view value =
      std::u16string_view(text_).substr(place.valueBegin, place.valueEnd - place.valueBegin);
  return std::u16string(DropQuotes(Trim(value)));
}

void IniText::Set(std::u16string_view section, std::u16string_view key, std::u16string_view value) {
  value = TrimLeft(value);
  const Place place = Locate(section, key);
  if (place.keyFound) {
    text_.replace(place.valueBegin, place.valueEnd - place.valueBegin, value);
    return;
  }
  const std::u16string line = std::u16string(Trim(key)) + u"=" + std::u16string(value) + u"\r\n";
  if (place.sectionFound) {
    InsertLines(place.sectionEnd, line);
  } else {
    InsertLines(text_.size(), u"[" + std::u16string(Trim(section)) + u"]\r\n" + line);
  }
}

void IniText::InsertLines(std::size_t position, const std::u16string& lines) {
  const bool startsLine = position == 0 || text_[position - 1] == u'\n' || text_[position - 1] == u'\r';
  text_.insert(position, startsLine ? lines : u"\r\n" + lines);
}

}  // namespace os
