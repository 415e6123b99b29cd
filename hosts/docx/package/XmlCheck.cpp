#include "hosts/docx/package/XmlCheck.h"

#include "hosts/docx/package/Package.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace docx {

namespace {

enum CharClass : std::uint8_t {
  kPlain = 0,
  kBlank = 1,         // also a stop outside text
  kStopsText = 2,     // "<", "&", "]", what is not ASCII and what is not allowed
  kStopsValue = 4,    // both quotes besides
  kStopsName = 8,     // what is no name character
  kNoNameStart = 16,  // what no name starts with
  kStopsOther = 32,   // inside comments and the like: "-", "?", "]" and what kStopsText stops for
};

constexpr std::array<std::uint8_t, 256> MakeClasses() {
  std::array<std::uint8_t, 256> classes{};
  for (unsigned c = 0; c < 256; ++c) {
    const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
    const bool digit = c >= '0' && c <= '9';
    const bool checked = (c < 0x20 && !blank) || c >= 0x80;
    std::uint8_t value = 0;
    if (blank) value |= kBlank;
    if (checked || c == '<' || c == '&' || c == ']') value |= kStopsText;
    if (checked || c == '<' || c == '&' || c == '"' || c == '\'') value |= kStopsValue;
    if (checked || c == '-' || c == '?' || c == ']') value |= kStopsOther;
    if (!letter && !digit && c != '-' && c != '.') value |= kStopsName;
    if (!letter) value |= kNoNameStart;
    classes[c] = value;
  }
  return classes;
}

constexpr auto kClasses = MakeClasses();

bool Is(char c, std::uint8_t mask) { return (kClasses[static_cast<unsigned char>(c)] & mask) != 0; }

constexpr bool IsXmlChar(std::uint32_t c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

class Checker {
 public:
  Checker(std::string_view bytes, const std::string& partName)
      : begin_(bytes.data()), p_(begin_), end_(begin_ + bytes.size()), partName_(partName) {}

  void Run() {
    if (StartsWith("\xEF\xBB\xBF")) p_ += 3;
    if (StartsWith("<?xml") && p_ + 5 < end_ && Is(p_[5], kBlank)) XmlDeclaration();
    bool rootSeen = false;
    while (true) {
      if (open_.empty()) {
        SkipBlanks();
        if (p_ == end_) break;
        if (*p_ != '<') Fail("has text outside its root element");
      } else {
        Text();
      }
      if (end_ - p_ < 2) Fail("ends in the middle of a tag");
      if (p_[1] == '/') {
        EndTag();
      } else if (p_[1] == '!') {
        Declaration();
      } else if (p_[1] == '?') {
        Instruction();
      } else {
        if (open_.empty() && rootSeen) Fail("has a second root element");
        rootSeen = true;
        StartTag();
      }
    }
    if (!rootSeen) Fail("holds no XML");
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const {
    throw PackageError("is damaged or not accepted: " + partName_ + " " + what + " (at byte " +
                       std::to_string(p_ - begin_) + ")");
  }

  bool StartsWith(std::string_view text) const {
    return static_cast<std::size_t>(end_ - p_) >= text.size() && std::memcmp(p_, text.data(), text.size()) == 0;
  }

  void SkipBlanks() {
    while (p_ < end_ && Is(*p_, kBlank)) ++p_;
  }

  /// One character that is not ASCII or not allowed.
  void CheckedChar() {
    const auto first = static_cast<unsigned char>(*p_);
    const int length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0x80) Fail("has a control character");
    constexpr std::array<std::uint32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
    std::uint32_t c = first & (0x7FU >> length);
    bool valid = first >= 0xC2 && first <= 0xF4 && end_ - p_ >= length;
    for (int i = 1; valid && i < length; ++i) {
      const auto next = static_cast<unsigned char>(p_[i]);
      valid = (next & 0xC0U) == 0x80;
      c = (c << 6) | (next & 0x3FU);
    }
    if (!valid || c < kLeast[static_cast<std::size_t>(length)] || (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF) {
      Fail("is not valid UTF-8");
    }
    if (!IsXmlChar(c)) Fail("has a character that XML does not allow");
    p_ += length;
  }

  void Reference() {
    const char* const semicolon = static_cast<const char*>(
        std::memchr(p_, ';', static_cast<std::size_t>(std::min<std::ptrdiff_t>(end_ - p_, 16))));
    if (semicolon == nullptr) Fail("has an \"&\" that is no entity reference");
    const std::string_view name(p_ + 1, static_cast<std::size_t>(semicolon - p_ - 1));
    if (name.starts_with('#')) {
      const bool hex = name.starts_with("#x");
      const std::string_view digits = name.substr(hex ? 2 : 1);
      std::uint32_t c = 0;
      bool valid = !digits.empty();
      for (const char digit : digits) {
        std::uint32_t value = 99;
        if (digit >= '0' && digit <= '9') value = static_cast<std::uint32_t>(digit - '0');
        if (hex && digit >= 'a' && digit <= 'f') value = static_cast<std::uint32_t>(digit - 'a' + 10);
        if (hex && digit >= 'A' && digit <= 'F') value = static_cast<std::uint32_t>(digit - 'A' + 10);
        valid = valid && value != 99;
        c = std::min<std::uint32_t>(c * (hex ? 16 : 10) + value, 0x110000);
      }
      if (!valid || !IsXmlChar(c)) Fail("has a reference to a character that XML does not allow");
    } else if (name != "lt" && name != "gt" && name != "amp" && name != "quot" && name != "apos") {
      Fail("refers to an entity that is not declared");
    }
    p_ = semicolon + 1;
  }

  /// Up to the next "<".
  void Text() {
    while (true) {
      while (p_ < end_ && !Is(*p_, kStopsText)) ++p_;
      if (p_ == end_) Fail("ends before its elements do");
      if (*p_ == '<') return;
      if (*p_ == '&') {
        Reference();
      } else if (*p_ == ']') {
        if (StartsWith("]]>")) Fail("has \"]]>\" in its text");
        ++p_;
      } else {
        CheckedChar();
      }
    }
  }

  std::string_view Name() {
    if (p_ == end_ || Is(*p_, kNoNameStart)) Fail("has a tag or an attribute without a name");
    const char* const start = p_;
    while (p_ < end_ && !Is(*p_, kStopsName)) {
      if (static_cast<unsigned char>(*p_) < 0x80) {
        ++p_;
      } else {
        CheckedChar();
      }
    }
    return {start, static_cast<std::size_t>(p_ - start)};
  }

  void Value() {
    if (p_ == end_ || (*p_ != '"' && *p_ != '\'')) Fail("has an attribute without a quoted value");
    const char quote = *p_++;
    while (true) {
      while (p_ < end_ && !Is(*p_, kStopsValue)) ++p_;
      if (p_ == end_) Fail("ends in the middle of an attribute");
      if (*p_ == quote) break;
      if (*p_ == '"' || *p_ == '\'') {
        ++p_;
      } else if (*p_ == '&') {
        Reference();
      } else if (*p_ == '<') {
        Fail("has \"<\" in an attribute");
      } else {
        CheckedChar();
      }
    }
    ++p_;
  }

  void Count() {
    if (++nodes_ > kMaxNodes) Fail("has too many elements");
  }

  void CheckAttributeNames() {
    bool twice = false;
    if (attributes_.size() <= 8) {
      for (std::size_t i = 1; i < attributes_.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) twice = twice || attributes_[i] == attributes_[j];
      }
    } else {
      std::sort(attributes_.begin(), attributes_.end());
      twice = std::adjacent_find(attributes_.begin(), attributes_.end()) != attributes_.end();
    }
    if (twice) Fail("has an attribute twice in one tag");
  }

  void StartTag() {
    ++p_;
    const std::string_view name = Name();
    Count();
    attributes_.clear();
    while (true) {
      const bool blank = p_ < end_ && Is(*p_, kBlank);
      if (blank) SkipBlanks();
      if (p_ == end_) Fail("ends in the middle of a tag");
      if (*p_ == '>' || *p_ == '/') break;
      if (!blank) Fail("has a malformed tag");
      attributes_.push_back(Name());
      Count();
      SkipBlanks();
      if (p_ == end_ || *p_ != '=') Fail("has an attribute without a value");
      ++p_;
      SkipBlanks();
      Value();
    }
    CheckAttributeNames();
    if (*p_ == '/') {
      if (!StartsWith("/>")) Fail("has a malformed tag");
      p_ += 2;
      return;
    }
    ++p_;
    if (open_.size() >= kMaxDepth) Fail("is nested too deeply");
    open_.push_back(name);
  }

  void EndTag() {
    p_ += 2;
    if (open_.empty() || !StartsWith(open_.back())) Fail("has an end tag that does not match");
    p_ += open_.back().size();
    SkipBlanks();
    if (p_ == end_ || *p_ != '>') Fail("has an end tag that does not match");
    ++p_;
    open_.pop_back();
  }

  void XmlDeclaration() {
    p_ += 5;
    SkipBlanks();
    for (const std::string_view name : {"version", "encoding", "standalone"}) {
      if (!StartsWith(name)) continue;
      p_ += name.size();
      SkipBlanks();
      if (p_ == end_ || *p_ != '=') Fail("has a malformed XML declaration");
      ++p_;
      SkipBlanks();
      Value();
      SkipBlanks();
    }
    if (!StartsWith("?>")) Fail("has a malformed XML declaration");
    p_ += 2;
  }

  /// What a document type may hold is not even looked at.
  void Declaration() {
    if (StartsWith("<!--")) {
      SkipTo(p_ + 4, "--");
      if (p_ == end_ || *p_ != '>') Fail("has \"--\" in a comment");
      ++p_;
    } else if (!open_.empty() && StartsWith("<![CDATA[")) {
      SkipTo(p_ + 9, "]]>");
    } else if (StartsWith("<!DOCTYPE")) {
      Fail("declares a document type, which Word documents must not");
    } else {
      Fail("has a malformed tag");
    }
  }

  void Instruction() {
    p_ += 2;
    const std::string_view target = Name();
    if (target.size() == 3 && (target[0] | 0x20) == 'x' && (target[1] | 0x20) == 'm' && (target[2] | 0x20) == 'l') {
      Fail("has an XML declaration that is not at its beginning");
    }
    if (p_ < end_ && !Is(*p_, kBlank) && !StartsWith("?>")) Fail("has a malformed processing instruction");
    SkipTo(p_, "?>");
  }

  /// Behind the terminator; what lies before it is only checked for characters.
  void SkipTo(const char* from, std::string_view terminator) {
    p_ = from;
    while (true) {
      while (p_ < end_ && !Is(*p_, kStopsOther)) ++p_;
      if (p_ >= end_) Fail("ends in the middle of a comment, section or instruction");
      if (StartsWith(terminator)) break;
      if (*p_ == '-' || *p_ == '?' || *p_ == ']') {
        ++p_;
      } else {
        CheckedChar();
      }
    }
    p_ += terminator.size();
  }

  const char* const begin_;
  const char* p_;
  const char* const end_;
  const std::string& partName_;
  std::vector<std::string_view> open_;
  std::vector<std::string_view> attributes_;
  std::size_t nodes_ = 0;
};

void AppendUtf8(std::string& text, std::uint32_t c) {
  if (c < 0x80) {
    text += static_cast<char>(c);
    return;
  }
  if (c < 0x800) {
    text += static_cast<char>(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      text += static_cast<char>(0xE0 | (c >> 12));
    } else {
      text += static_cast<char>(0xF0 | (c >> 18));
      text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    }
    text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
  }
  text += static_cast<char>(0x80 | (c & 0x3F));
}

std::string FromUtf16(std::string_view bytes, bool bigEndian, const std::string& partName) {
  const auto damaged = [&partName] {
    throw PackageError("is damaged or not accepted: " + partName + " is not valid UTF-16");
  };
  if (bytes.size() % 2 != 0) damaged();
  const auto unit = [&](std::size_t i) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const auto second = static_cast<unsigned char>(bytes[i + 1]);
    return static_cast<std::uint32_t>(bigEndian ? first << 8 | second : second << 8 | first);
  };
  std::string text;
  text.reserve(bytes.size() / 2 + bytes.size() / 8);
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    std::uint32_t c = unit(i);
    if (c >= 0xD800 && c < 0xDC00 && i + 2 < bytes.size()) {
      const std::uint32_t low = unit(i + 2);
      if (low < 0xDC00 || low > 0xDFFF) damaged();
      c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
      i += 2;
    } else if (c >= 0xD800 && c <= 0xDFFF) {
      damaged();
    }
    AppendUtf8(text, c);
  }
  return text;
}

/// Where the XML declaration names the encoding: offset and length of the name; nothing where it does not.
std::pair<std::size_t, std::size_t> DeclaredEncoding(std::string_view xml) {
  const std::size_t start = xml.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  if (xml.substr(start, 5) != "<?xml") return {0, 0};
  const std::string_view declaration = xml.substr(0, xml.find("?>"));
  std::size_t at = declaration.find("encoding", start);
  if (at == std::string_view::npos) return {0, 0};
  at = declaration.find_first_of("\"'", at);
  if (at == std::string_view::npos) return {0, 0};
  const std::size_t close = declaration.find(declaration[at], at + 1);
  if (close == std::string_view::npos) return {0, 0};
  return {at + 1, close - at - 1};
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

}  // namespace

void CheckXml(std::string_view bytes, const std::string& partName) { Checker(bytes, partName).Run(); }

std::string ToUtf8(std::string bytes, const std::string& partName) {
  using namespace std::string_view_literals;
  const std::string_view view = bytes;
  const bool littleMark = view.starts_with("\xFF\xFE"sv);
  const bool bigMark = view.starts_with("\xFE\xFF"sv);
  if (littleMark || bigMark || (view.size() >= 4 && (view.starts_with("<\0"sv) || view.starts_with("\0<"sv)))) {
    const bool bigEndian = bigMark || view.starts_with("\0"sv);
    std::string text = FromUtf16(view.substr(littleMark || bigMark ? 2 : 0), bigEndian, partName);
    const auto [at, length] = DeclaredEncoding(text);
    if (length != 0) text.replace(at, length, "UTF-8");
    return text;
  }
  const auto [at, length] = DeclaredEncoding(view);
  const std::string encoding = Lower(view.substr(at, length));
  if (!encoding.empty() && encoding != "utf-8" && encoding != "utf8" && encoding != "us-ascii" && encoding != "ascii") {
    throw PackageError("is damaged or not accepted: " + partName + " is neither in UTF-8 nor in UTF-16");
  }
  return bytes;
}

}  // namespace docx
