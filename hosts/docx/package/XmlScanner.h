#pragma once

#include "hosts/docx/package/Package.h"
#include "hosts/docx/package/XmlCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace docx {

namespace xml_scanner {

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

inline constexpr auto kClasses = MakeClasses();

inline bool Is(char c, std::uint8_t mask) { return (kClasses[static_cast<unsigned char>(c)] & mask) != 0; }

constexpr bool IsXmlChar(std::uint32_t c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD) ||
         (c >= 0x10000 && c <= 0x10FFFF);
}

}  // namespace xml_scanner

/// Goes through XML once: refuses what CheckXml refuses, and tells a handler what there is, in order. All texts are
/// parts of the text scanned.
///
/// The handler has these members:
///  - Attribute(name), for each attribute, before the Start of its element;
///  - Start(name, attributes, isEmpty): the attributes as they stand between the name and the end of the tag;
///  - End(contentEnd): where the end tag of the element begun last begins; not for empty ones;
///  - Text(begin, end), CData(begin, end), Comment(begin, end): what they hold, as it is written; blanks beside the
///  root
///    and a byte order mark are texts too;
///  - Instruction(target, rest): all up to the end of the instruction; an XML declaration is one.
template <typename Handler>
class XmlScanner {
 public:
  XmlScanner(std::string_view bytes, std::string_view partName, Handler& handler)
      : begin_(bytes.data()), p_(begin_), end_(begin_ + bytes.size()), partName_(partName), handler_(handler) {}

  void Run() {
    if (StartsWith("\xEF\xBB\xBF")) {
      p_ += 3;
      handler_.Text(begin_, p_);
    }
    if (StartsWith("<?xml") && p_ + 5 < end_ && xml_scanner::Is(p_[5], xml_scanner::kBlank)) XmlDeclaration();
    bool rootSeen = false;
    while (true) {
      const char* const start = p_;
      if (open_.empty()) {
        SkipBlanks();
        if (p_ == end_ || *p_ == '<') TellText(start);
        if (p_ == end_) break;
        if (*p_ != '<') Fail("has text outside its root element");
      } else {
        Text();
        if (p_ == end_) Fail("ends before its elements do");
        TellText(start);
      }
      if (end_ - p_ < 2) Fail("ends in the middle of a tag");
      if (open_.empty() && p_[1] != '!' && p_[1] != '?' && p_[1] != '/') {
        if (rootSeen) Fail("has a second root element");
        rootSeen = true;
      }
      Markup();
    }
    if (!rootSeen) Fail("holds no XML");
  }

  /// The same for what stands between two tags and was found good before.
  void RunContent() {
    isContent_ = true;
    while (true) {
      const char* const start = p_;
      Text();
      TellText(start);
      if (p_ == end_) return;
      Markup();
    }
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const {
    throw PackageError("is damaged or not accepted: " + std::string(partName_) + " " + what + " (at byte " +
                       std::to_string(p_ - begin_) + ")");
  }

  bool StartsWith(std::string_view text) const {
    return static_cast<std::size_t>(end_ - p_) >= text.size() && std::memcmp(p_, text.data(), text.size()) == 0;
  }

  // These count in a local variable: a member would be stored for each character.

  void SkipBlanks() {
    const char* p = p_;
    while (p < end_ && xml_scanner::Is(*p, xml_scanner::kBlank)) ++p;
    p_ = p;
  }

  /// Up to a character of these classes or the end.
  void SkipTo(std::uint8_t stops) {
    const char* p = p_;
    while (p < end_ && !xml_scanner::Is(*p, stops)) ++p;
    p_ = p;
  }

  void SkipAsciiOfName() {
    const char* p = p_;
    while (p < end_ && static_cast<unsigned char>(*p) < 0x80 && !xml_scanner::Is(*p, xml_scanner::kStopsName)) ++p;
    p_ = p;
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
    if (!xml_scanner::IsXmlChar(c)) Fail("has a character that XML does not allow");
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
      if (!valid || !xml_scanner::IsXmlChar(c)) Fail("has a reference to a character that XML does not allow");
    } else if (name != "lt" && name != "gt" && name != "amp" && name != "quot" && name != "apos") {
      Fail("refers to an entity that is not declared");
    }
    p_ = semicolon + 1;
  }

  void TellText(const char* start) {
    if (p_ != start) handler_.Text(start, p_);
  }

  void Markup() {
    if (p_[1] == '/') return EndTag();
    if (++nodes_ > kMaxNodes) Fail("has too many elements");
    if (p_[1] == '!') {
      Declaration();
    } else if (p_[1] == '?') {
      Instruction();
    } else {
      StartTag();
    }
  }

  /// Up to the next "<" or the end.
  void Text() {
    while (true) {
      SkipTo(xml_scanner::kStopsText);
      if (p_ == end_ || *p_ == '<') return;
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
    if (p_ == end_ || xml_scanner::Is(*p_, xml_scanner::kNoNameStart)) Fail("has a tag or an attribute without a name");
    const char* const start = p_;
    for (SkipAsciiOfName(); p_ < end_ && static_cast<unsigned char>(*p_) >= 0x80; SkipAsciiOfName()) CheckedChar();
    return {start, static_cast<std::size_t>(p_ - start)};
  }

  void Value() {
    if (p_ == end_ || (*p_ != '"' && *p_ != '\'')) Fail("has an attribute without a quoted value");
    const char quote = *p_++;
    while (true) {
      SkipTo(xml_scanner::kStopsValue);
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
    const char* const attributes = p_;
    attributes_.clear();
    while (true) {
      const bool blank = p_ < end_ && xml_scanner::Is(*p_, xml_scanner::kBlank);
      if (blank) SkipBlanks();
      if (p_ == end_) Fail("ends in the middle of a tag");
      if (*p_ == '>' || *p_ == '/') break;
      if (!blank) Fail("has a malformed tag");
      if (attributes_.size() == kMaxAttributes) Fail("has too many attributes in one element");
      attributes_.push_back(Name());
      handler_.Attribute(attributes_.back());
      SkipBlanks();
      if (p_ == end_ || *p_ != '=') Fail("has an attribute without a value");
      ++p_;
      SkipBlanks();
      Value();
    }
    CheckAttributeNames();
    handler_.Start(name, {attributes, static_cast<std::size_t>(p_ - attributes)}, *p_ == '/');
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
    const char* const start = p_;
    p_ += 2;
    if (open_.empty() || !StartsWith(open_.back())) Fail("has an end tag that does not match");
    p_ += open_.back().size();
    SkipBlanks();
    if (p_ == end_ || *p_ != '>') Fail("has an end tag that does not match");
    ++p_;
    open_.pop_back();
    handler_.End(start);
  }

  void XmlDeclaration() {
    const std::string_view target(p_ + 2, 3);
    p_ += 5;
    const char* const rest = p_;
    for (const std::string_view name : {"version", "encoding", "standalone"}) {
      SkipBlanks();
      if (!StartsWith(name)) continue;
      if (!xml_scanner::Is(p_[-1], xml_scanner::kBlank)) Fail("has a malformed XML declaration");
      p_ += name.size();
      SkipBlanks();
      if (p_ == end_ || *p_ != '=') Fail("has a malformed XML declaration");
      ++p_;
      SkipBlanks();
      Value();
    }
    SkipBlanks();
    const std::string_view data(rest, static_cast<std::size_t>(p_ - rest));
    // Readers differ in where one ends that has its end in a value.
    if (!StartsWith("?>") || data.find("?>") != std::string_view::npos) Fail("has a malformed XML declaration");
    handler_.Instruction(target, data);
    p_ += 2;
  }

  /// What a document type may hold is not even looked at.
  void Declaration() {
    if (StartsWith("<!--")) {
      const char* const start = p_ + 4;
      SkipBehind(start, "--");
      if (p_ == end_ || *p_ != '>') Fail("has \"--\" in a comment");
      ++p_;
      handler_.Comment(start, p_ - 3);
    } else if ((!open_.empty() || isContent_) && StartsWith("<![CDATA[")) {
      const char* const start = p_ + 9;
      SkipBehind(start, "]]>");
      handler_.CData(start, p_ - 3);
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
    if (p_ < end_ && !xml_scanner::Is(*p_, xml_scanner::kBlank) && !StartsWith("?>"))
      Fail("has a malformed processing instruction");
    const char* const rest = p_;
    SkipBehind(rest, "?>");
    handler_.Instruction(target, {rest, static_cast<std::size_t>(p_ - 2 - rest)});
  }

  /// Behind the terminator; what lies before it is only checked for characters.
  void SkipBehind(const char* from, std::string_view terminator) {
    p_ = from;
    while (true) {
      SkipTo(xml_scanner::kStopsOther);
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
  const std::string_view partName_;
  Handler& handler_;
  bool isContent_ = false;
  std::vector<std::string_view> open_;
  std::vector<std::string_view> attributes_;
  std::size_t nodes_ = 0;
};

}  // namespace docx
