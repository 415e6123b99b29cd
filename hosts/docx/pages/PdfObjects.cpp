#include "hosts/docx/pages/PdfObjects.h"

#include <zlib.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace docx {

namespace {

using Kind = PdfValue::Kind;

constexpr int kMostNested = 64;
constexpr std::size_t kMostInflated = 256U << 20;
constexpr int kMostObjects = 10'000'000;

const PdfValue kNothing;

bool IsBlank(char character) { return std::string_view("\0\t\n\f\r ", 6).find(character) != std::string_view::npos; }
bool IsDelimiter(char character) { return std::string_view("()<>[]{}/%").find(character) != std::string_view::npos; }
bool IsDigit(char character) { return character >= '0' && character <= '9'; }

int HexDigit(char character) {
  if (IsDigit(character)) return character - '0';
  const char small = static_cast<char>(character | 0x20);
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

/// Reads values one after the other. What is no value reads as a null value.
class Reader {
 public:
  explicit Reader(std::string_view text, std::size_t at = 0) : text_(text), at_(at) {}

  std::size_t At() const { return at_; }

  void SkipBlanks() {
    while (at_ < text_.size()) {
      if (text_[at_] == '%') {
        while (at_ < text_.size() && text_[at_] != '\n' && text_[at_] != '\r') ++at_;
      } else if (IsBlank(text_[at_])) {
        ++at_;
      } else {
        return;
      }
    }
  }

  /// Goes behind a word when it comes next.
  bool Take(std::string_view word) {
    SkipBlanks();
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  /// A whole number without a sign, as object numbers are.
  std::optional<int> TakeInteger() {
    SkipBlanks();
    int number = 0;
    const char* const begin = text_.data() + at_;
    const auto [end, error] = std::from_chars(begin, text_.data() + text_.size(), number);
    if (error != std::errc() || number < 0 || !IsDigit(*begin)) return {};
    at_ += static_cast<std::size_t>(end - begin);
    return number;
  }

  PdfValue Read(int nested = 0) {
    SkipBlanks();
    if (at_ >= text_.size() || nested > kMostNested) {
      at_ = text_.size();
      return {};
    }
    if (Take("<<")) return ReadDictionary(nested);
    if (Take("[")) return ReadArray(nested);
    if (Take("<")) return ReadHexString();
    if (Take("(")) return ReadString();
    if (Take("/")) return ReadName();
    return ReadNumberOrWord();
  }

 private:
  PdfValue ReadDictionary(int nested) {
    PdfValue value;
    value.kind = Kind::kDictionary;
    while (!Take(">>") && at_ < text_.size()) {
      if (!Take("/")) {
        ++at_;
        continue;
      }
      value.keys.push_back(ReadName().text);
      value.items.push_back(Read(nested + 1));
    }
    return value;
  }

  PdfValue ReadArray(int nested) {
    PdfValue value;
    value.kind = Kind::kArray;
    while (!Take("]") && at_ < text_.size()) value.items.push_back(Read(nested + 1));
    return value;
  }

  PdfValue ReadHexString() {
    PdfValue value;
    value.kind = Kind::kString;
    int high = -1;
    for (; at_ < text_.size() && text_[at_] != '>'; ++at_) {
      const int digit = HexDigit(text_[at_]);
      if (digit < 0) continue;
      if (high >= 0) value.text.push_back(static_cast<char>(high * 16 + digit));
      high = high >= 0 ? -1 : digit;
    }
    if (high >= 0) value.text.push_back(static_cast<char>(high * 16));
    if (at_ < text_.size()) ++at_;
    return value;
  }

  PdfValue ReadString() {
    PdfValue value;
    value.kind = Kind::kString;
    int open = 1;
    while (at_ < text_.size()) {
      char character = text_[at_++];
      if (character == '(') ++open;
      if (character == ')' && --open == 0) break;
      if (character == '\\' && at_ < text_.size() && !ReadEscape(character)) continue;
      value.text.push_back(character);
    }
    return value;
  }

  /// Behind a backslash. @return whether it stands for a character
  bool ReadEscape(char& character) {
    constexpr std::string_view kLetters = "nrtbf";
    constexpr std::string_view kMeant = "\n\r\t\b\f";
    character = text_[at_++];
    if (const std::size_t letter = kLetters.find(character); letter != std::string_view::npos) {
      character = kMeant[letter];
      return true;
    }
    if (character == '\r' && at_ < text_.size() && text_[at_] == '\n') ++at_;
    if (character == '\r' || character == '\n') return false;
    if (character < '0' || character > '7') return true;
    int code = character - '0';
    for (int more = 0; more < 2 && at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '7'; ++more) {
      code = code * 8 + (text_[at_++] - '0');
    }
    character = static_cast<char>(code);
    return true;
  }

  PdfValue ReadName() {
    PdfValue value;
    value.kind = Kind::kName;
    while (at_ < text_.size() && !IsBlank(text_[at_]) && !IsDelimiter(text_[at_])) {
      char character = text_[at_++];
      if (character == '#' && at_ + 1 < text_.size() && HexDigit(text_[at_]) >= 0 && HexDigit(text_[at_ + 1]) >= 0) {
        character = static_cast<char>(HexDigit(text_[at_]) * 16 + HexDigit(text_[at_ + 1]));
        at_ += 2;
      }
      value.text.push_back(character);
    }
    return value;
  }

  PdfValue ReadNumberOrWord() {
    const std::size_t begin = at_;
    if (const std::optional<int> object = TakeInteger()) {
      const std::size_t behind = at_;
      if (TakeInteger() && Take("R") && (at_ >= text_.size() || IsBlank(text_[at_]) || IsDelimiter(text_[at_]))) {
        PdfValue value;
        value.kind = Kind::kReference;
        value.number = *object;
        return value;
      }
      at_ = behind;
    }
    at_ = begin;
    while (at_ < text_.size() && !IsBlank(text_[at_]) && !IsDelimiter(text_[at_])) ++at_;
    if (at_ == begin) ++at_;
    std::string_view word = text_.substr(begin, at_ - begin);
    if (word.starts_with('+')) word.remove_prefix(1);
    PdfValue value;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value.number);
    if (error == std::errc() && end == word.data() + word.size()) value.kind = Kind::kNumber;
    return value;
  }

  std::string_view text_;
  std::size_t at_;
};

/// Empty when the data is not what it should be.
std::string Inflate(std::string_view data) {
  z_stream stream{};
  if (inflateInit(&stream) != Z_OK) return {};
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  stream.avail_in = static_cast<uInt>(std::min<std::size_t>(data.size(), kMostInflated));
  std::string text;
  char piece[65536];
  int status = Z_OK;
  while (status == Z_OK && text.size() < kMostInflated) {
    stream.next_out = reinterpret_cast<Bytef*>(piece);
    stream.avail_out = sizeof piece;
    status = inflate(&stream, Z_NO_FLUSH);
    text.append(piece, sizeof piece - stream.avail_out);
  }
  inflateEnd(&stream);
  return status == Z_STREAM_END ? text : std::string();
}

/// The data of a stream whose dictionary was just read, up to the word that ends it.
std::string_view StreamData(std::string_view pdf, std::size_t begin, const PdfValue& length) {
  constexpr std::string_view kEnd = "endstream";
  if (pdf.substr(begin).starts_with("\r\n"))
    begin += 2;
  else if (pdf.substr(begin).starts_with("\n"))
    ++begin;
  if (length.Is(Kind::kNumber) && length.number >= 0 && length.number < static_cast<double>(pdf.size() - begin)) {
    const std::size_t end = begin + static_cast<std::size_t>(length.number);
    if (Reader(pdf, end).Take(kEnd)) return pdf.substr(begin, end - begin);
  }
  const std::size_t end = std::min(pdf.find(kEnd, begin), pdf.size());
  return pdf.substr(begin, end - begin);
}

/// Where the number of the object begins whose word "obj" stands there; npos when none does.
std::size_t ObjectBegin(std::string_view pdf, std::size_t word) {
  const auto back = [&pdf](std::size_t at, bool (*is)(char)) {
    while (at > 0 && is(pdf[at - 1])) --at;
    return at;
  };
  const std::size_t generationEnd = back(word, IsBlank);
  const std::size_t generation = back(generationEnd, IsDigit);
  const std::size_t numberEnd = back(generation, IsBlank);
  const std::size_t number = back(numberEnd, IsDigit);
  const bool isObject = generation < generationEnd && number < numberEnd && numberEnd < generation;
  return isObject ? number : std::string_view::npos;
}

}  // namespace

const PdfValue& PdfValue::At(std::string_view key) const {
  const auto found = std::find(keys.begin(), keys.end(), key);
  return found == keys.end() ? kNothing : items[static_cast<std::size_t>(found - keys.begin())];
}

const PdfValue& PdfValue::At(std::size_t index) const { return index < items.size() ? items[index] : kNothing; }

PdfObjects::PdfObjects(std::string_view pdf) {
  constexpr std::string_view kWord = "obj";
  for (std::size_t word = pdf.find(kWord); word != std::string_view::npos;) {
    const std::size_t behind = word + kWord.size();
    const std::size_t begin = ObjectBegin(pdf, word);
    if (begin == std::string_view::npos) {
      word = pdf.find(kWord, behind);
      continue;
    }
    const std::optional<int> number = Reader(pdf, begin).TakeInteger();
    Reader reader(pdf, behind);
    PdfValue value = reader.Read();
    std::size_t next = reader.At();
    if (value.Is(Kind::kDictionary) && reader.Take("stream")) {
      const std::string_view data = StreamData(pdf, reader.At(), value.At("Length"));
      next = static_cast<std::size_t>(data.data() - pdf.data()) + data.size();
      if (value.At("Type").text == "ObjStm") AddStreamObjects(value, data);
    }
    if (number) {
      objects_[*number] = std::move(value);
      order_.push_back(*number);
    }
    word = pdf.find(kWord, std::max(next, behind));
  }
}

void PdfObjects::AddStreamObjects(const PdfValue& dictionary, std::string_view data) {
  const PdfValue& filter = dictionary.At("Filter");
  const std::string& name = filter.Is(Kind::kArray) ? filter.At(0).text : filter.text;
  const std::string text = name == "FlateDecode" ? Inflate(data) : std::string(name.empty() ? data : "");
  const double count = dictionary.At("N").number;
  const double first = dictionary.At("First").number;
  if (count < 0 || count > kMostObjects || first < 0 || first > static_cast<double>(text.size())) return;
  Reader header(text);
  for (int i = 0; i < static_cast<int>(count); ++i) {
    const std::optional<int> number = header.TakeInteger();
    const std::optional<int> offset = header.TakeInteger();
    if (!number || !offset) return;
    const std::size_t at = static_cast<std::size_t>(first) + static_cast<std::size_t>(*offset);
    if (at >= text.size()) continue;
    objects_[*number] = Reader(text, at).Read();
    order_.push_back(*number);
  }
}

const PdfValue& PdfObjects::Resolve(const PdfValue& value) const {
  const PdfValue* found = &value;
  for (int steps = 0; found->Is(Kind::kReference) && steps < kMostNested; ++steps) {
    const auto object = objects_.find(static_cast<int>(found->number));
    if (object == objects_.end()) return kNothing;
    found = &object->second;
  }
  return *found;
}

const PdfValue& PdfObjects::OfType(std::string_view type) const {
  for (auto number = order_.rbegin(); number != order_.rend(); ++number) {
    const PdfValue& value = objects_.at(*number);
    if (value.At("Type").text == type) return value;
  }
  return kNothing;
}

}  // namespace docx
