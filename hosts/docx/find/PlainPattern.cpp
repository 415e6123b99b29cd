#include <cstdint>

#include "hosts/docx/find/FindCodes.h"
#include "hosts/docx/find/FirstUnits.h"
#include "hosts/docx/find/Pattern.h"

namespace docx {

namespace {

enum class ElementKind : std::uint8_t {
  kExact,
  kFolded,
  kDoubleQuote,
  kSingleQuote,
  kAny,
  kDigit,
  kLetter,
  kWhiteSpace,
  kFootnoteMark,
  kEndnoteMark,
  kSectionBreak,
  kPageBreak,
};

struct Element {
  ElementKind kind{ElementKind::kExact};
  char32_t value{0};
  // The last run of white space that this element measured: starts inside it need not measure it again.
  std::size_t runStart{0};
  std::size_t runEnd{0};
};

class PlainPattern : public Pattern {
 public:
  explicit PlainPattern(const FindSettings& settings) {
    const std::u16string_view text = settings.text;
    bool phrase = false;
    for (std::size_t at = 0; at < text.size();) {
      Element element;
      if (text[at] == u'^') {
        const ParsedCode code = ParseFindCode(text.substr(at), false);
        element = FromCode(code, settings.matchCase);
        phrase = phrase || element.kind == ElementKind::kWhiteSpace || IsWhiteSpace(element.value);
        at += code.units;
      } else {
        const CodePoint point = CodePointAt(text, at);
        element = FromCharacter(point.value, settings.matchCase);
        phrase = phrase || IsWhiteSpace(point.value);
        at += point.units;
      }
      elements_.push_back(element);
    }
    wholeWord_ = settings.wholeWord && !phrase;
    first_ = FirstUnits([this](char16_t unit) { return MayBeginWith(unit); });
  }

  std::optional<Hit> FindFirst(VisibleText& text, std::size_t from) override {
    if (elements_.empty()) return std::nullopt;
    from_ = from;
    std::size_t index = from;
    while (true) {
      const std::u16string_view rest = text.Rest(index);
      if (rest.empty()) return std::nullopt;
      // What MatchAt reads may move the text that `rest` shows, so it is left then.
      const std::size_t skipped = first_.FindIn(rest, 0, [this](char16_t unit) { return MayBeginWith(unit); });
      index += skipped;
      if (skipped == rest.size()) continue;
      if (std::optional<Hit> hit = MatchAt(text, index)) return hit;
      ++index;
    }
  }

  std::optional<Hit> MatchAt(VisibleText& text, std::size_t index) override {
    if (elements_.empty() || text.SplitsCharacter(index)) return std::nullopt;
    std::size_t at = index;
    for (Element& element : elements_) {
      if (!Take(element, text, at, at == index && index > from_)) return std::nullopt;
    }
    if (wholeWord_ && InsideWord(text, index, at)) return std::nullopt;
    return Hit{index, at, {}};
  }

 private:
  static Element FromCharacter(char32_t value, bool matchCase) {
    if (value == U'"') return {ElementKind::kDoubleQuote, value};
    if (value == U'\'') return {ElementKind::kSingleQuote, value};
    return Literal(value, matchCase);
  }

  static Element Literal(char32_t value, bool matchCase) {
    if (matchCase) return {ElementKind::kExact, value};
    return {ElementKind::kFolded, FoldCase(value)};
  }

  static Element FromCode(const ParsedCode& code, bool matchCase) {
    switch (code.code) {
      case FindCode::kCharacter:
        return Literal(code.value, matchCase);
      case FindCode::kAnyCharacter:
        return {ElementKind::kAny};
      case FindCode::kAnyDigit:
        return {ElementKind::kDigit};
      case FindCode::kAnyLetter:
        return {ElementKind::kLetter};
      case FindCode::kWhiteSpace:
        return {ElementKind::kWhiteSpace};
      case FindCode::kFootnoteMark:
        return {ElementKind::kFootnoteMark};
      case FindCode::kEndnoteMark:
        return {ElementKind::kEndnoteMark};
      case FindCode::kSectionBreak:
        return {ElementKind::kSectionBreak};
      case FindCode::kPageBreak:
        return {ElementKind::kPageBreak};
    }
    ThrowBadPattern();
  }

  /// Whether a match can begin with a code unit; halves of surrogate pairs always may.
  bool MayBeginWith(char16_t unit) const {
    if (elements_.empty()) return false;
    const Element& first = elements_.front();
    if ((unit & 0xF800U) == 0xD800U) return true;
    switch (first.kind) {
      case ElementKind::kExact:
        return first.value == unit;
      case ElementKind::kFolded:
        return first.value == FoldCase(unit);
      case ElementKind::kDoubleQuote:
        return IsDoubleQuote(unit);
      case ElementKind::kSingleQuote:
        return IsSingleQuote(unit);
      case ElementKind::kFootnoteMark:
      case ElementKind::kEndnoteMark:
        return unit == word::kNoteReference;
      case ElementKind::kSectionBreak:
      case ElementKind::kPageBreak:
        return unit == word::kPageBreak;
      default:
        return unit != VisibleText::kBarrier;
    }
  }

  /// Moves `at` behind what the element matches there.
  /// @param inner the match begins here, and a match that begins one character before was tried
  static bool Take(Element& element, VisibleText& text, std::size_t& at, bool inner) {
    const CodePoint point = text.CharacterAt(at);
    if (point.value == VisibleText::kBarrier) return false;
    bool fits = false;
    switch (element.kind) {
      case ElementKind::kExact:
        fits = point.value == element.value;
        break;
      case ElementKind::kFolded:
        fits = FoldCase(point.value) == element.value;
        break;
      case ElementKind::kDoubleQuote:
        fits = IsDoubleQuote(point.value);
        break;
      case ElementKind::kSingleQuote:
        fits = IsSingleQuote(point.value);
        break;
      case ElementKind::kAny:
        fits = true;
        break;
      case ElementKind::kDigit:
        fits = IsDigit(point.value);
        break;
      case ElementKind::kLetter:
        fits = IsLetter(point.value);
        break;
      case ElementKind::kFootnoteMark:
        fits = point.value == word::kNoteReference && text.MarkAt(at) == MarkKind::kFootnote;
        break;
      case ElementKind::kEndnoteMark:
        fits = point.value == word::kNoteReference && text.MarkAt(at) == MarkKind::kEndnote;
        break;
      case ElementKind::kSectionBreak:
        fits = point.value == word::kPageBreak && text.MarkAt(at) == MarkKind::kSectionBreak;
        break;
      case ElementKind::kPageBreak:
        fits = point.value == word::kPageBreak && text.MarkAt(at) != MarkKind::kSectionBreak;
        break;
      case ElementKind::kWhiteSpace:
        return TakeWhiteSpace(element, text, at, inner);
    }
    if (fits) at += point.units;
    return fits;
  }

  static bool TakeWhiteSpace(Element& element, VisibleText& text, std::size_t& at, bool inner) {
    // A match never begins inside a run: the run's own start was tried before and came to the same end.
    if (inner && IsWhiteSpace(text.At(at - 1))) return false;
    if (at < element.runStart || at >= element.runEnd) {
      element.runStart = at;
      element.runEnd = at;
      while (text.Has(element.runEnd) && IsWhiteSpace(text.At(element.runEnd))) ++element.runEnd;
    }
    if (at >= element.runEnd) return false;
    at = element.runEnd;
    return true;
  }

  static bool InsideWord(VisibleText& text, std::size_t start, std::size_t end) {
    return (IsWordCharacter(text.Before(start)) && IsWordCharacter(text.After(start))) ||
           (IsWordCharacter(text.Before(end)) && IsWordCharacter(text.After(end)));
  }

  std::vector<Element> elements_;
  FirstUnits first_;
  bool wholeWord_{false};
  std::size_t from_{0};
};

}  // namespace

std::unique_ptr<Pattern> CompilePlainPattern(const FindSettings& settings) {
  CheckFindText(settings.text);
  return std::make_unique<PlainPattern>(settings);
}

}  // namespace docx
