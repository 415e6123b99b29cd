#include "hosts/recording/Values.h"

#include "platform/word/Document.h"
#include "platform/word/HostError.h"
#include "platform/word/Range.h"

namespace recording {

namespace {

void AppendUtf8(std::string& out, char32_t character) {
  const auto byte = [&out](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
  if (character < 0x80) {
    byte(character);
  } else if (character < 0x800) {
    byte(0xC0 | (character >> 6));
    byte(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    byte(0xE0 | (character >> 12));
    byte(0x80 | ((character >> 6) & 0x3F));
    byte(0x80 | (character & 0x3F));
  } else {
    byte(0xF0 | (character >> 18));
    byte(0x80 | ((character >> 12) & 0x3F));
    byte(0x80 | ((character >> 6) & 0x3F));
    byte(0x80 | (character & 0x3F));
  }
}

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::string Utf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1])) {
      AppendUtf8(out, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00));
    } else {
      AppendUtf8(out, IsHigh(unit) || IsLow(unit) ? U'\uFFFD' : char32_t{unit});
    }
  }
  return out;
}

Value ToValue(const std::vector<std::u16string>& texts) {
  Value value = Value::array();
  for (const std::u16string& text : texts) value.push_back(Utf8(text));
  return value;
}

Value ToValue(const TermTable& table) {
  Value value = Value::array();
  for (const TermRow& row : table) value.push_back(Value::array({Utf8(row.term), row.count}));
  return value;
}

Value ToValue(const word::ApplicationPtr& application) { return application ? Value("Application") : Value(); }

// An object that can no longer say what it is must not make the call fail in another way than it would by itself.
Value ToValue(const word::DocumentPtr& document) try {
  return document ? Value(Utf8(document->Name())) : Value();
} catch (const word::HostError&) {
  return {};
}

Value ToValue(const word::RangePtr& range) try {
  if (!range) return {};
  Value value = Value::object();
  value["story"] = static_cast<int>(range->StoryType());
  value["start"] = range->Start();
  value["end"] = range->End();
  return value;
} catch (const word::HostError&) {
  return {};
}

}  // namespace recording
