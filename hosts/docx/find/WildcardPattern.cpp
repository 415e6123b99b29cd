#include "hosts/docx/find/WildcardPattern.h"

#include <algorithm>

#include "hosts/docx/find/FindCharacters.h"
#include "hosts/docx/find/FindCodes.h"

namespace docx {

void CharacterSet::Add(char32_t first, char32_t last) {
  ranges_.emplace_back(first, last);
  for (char32_t character = first; character <= last && character < ascii_.size(); ++character) ascii_.set(character);
}

bool CharacterSet::Has(char32_t character) const {
  if (character < ascii_.size()) return ascii_.test(character) != negated_;
  const bool inside = std::any_of(ranges_.begin(), ranges_.end(), [character](const auto& range) {
    return range.first <= character && character <= range.second;
  });
  return inside != negated_;
}

namespace {

using Op = WildcardProgram::Op;
using Instruction = WildcardProgram::Instruction;

/// Repetitions are written out, so nested ones multiply.
constexpr std::size_t kMaxInstructions = 4'096;
constexpr int kMaxRepeat = 255;
constexpr std::uint32_t kMaxNotedGroups = 9;
constexpr int kUnlimited = -1;

/// One item of a pattern with its repetition.
struct Item {
  enum class Kind : std::uint8_t { kOne, kAnyRun, kBound, kGroup };

  Kind kind{Kind::kOne};
  Instruction one{};  ///< of kOne and kBound
  std::vector<Item> group{};
  std::uint32_t number{0};  ///< of a group, from 0
  int least{1};
  int most{1};
  bool shortest{false};
};

/// A character of the search text, and whether it was typed as itself.
struct Literal {
  char32_t value{0};
  bool plain{true};

  bool IsStraightQuote() const { return plain && value == U'"'; }
};

class Parser {
 public:
  Parser(std::u16string_view text, WildcardProgram& program) : text_(text), program_(program) {}

  std::vector<Item> Parse() {
    std::vector<Item> items = ParseItems(false);
    for (const std::uint32_t group : referred_) {
      if (group >= program_.groups) ThrowBadPattern();
    }
    return items;
  }

 private:
  bool AtEnd() const { return at_ >= text_.size(); }

  std::vector<Item> ParseItems(bool inGroup) {
    std::vector<Item> items;
    while (!AtEnd()) {
      if (text_[at_] == u')') {
        if (!inGroup) ThrowBadPattern();
        break;
      }
      Item item = ParseItem();
      ParseRepeat(item);
      items.push_back(std::move(item));
    }
    return items;
  }

  Item ParseItem() {
    Item item;
    switch (text_[at_]) {
      case u'?':
        ++at_;
        item.one.op = Op::kAny;
        return item;
      case u'*':
        ++at_;
        item.kind = Item::Kind::kAnyRun;
        return item;
      case u'<':
      case u'>':
        item.kind = Item::Kind::kBound;
        item.one.op = text_[at_++] == u'<' ? Op::kWordStart : Op::kWordEnd;
        return item;
      case u'[':
        return ParseSet();
      case u'(':
        return ParseGroup();
      case u']':
      case u'{':
      case u'}':
      case u'@':
      case u'!':
        ThrowBadPattern();
      default:
        break;
    }
    if (text_[at_] == u'\\' && at_ + 1 < text_.size() && text_[at_ + 1] >= u'1' && text_[at_ + 1] <= u'9') {
      item.one.op = Op::kBackReference;
      item.one.first = text_[at_ + 1] - u'1';
      referred_.push_back(item.one.first);
      program_.backReferences = true;
      at_ += 2;
      return item;
    }
    const Literal literal = ParseLiteral();
    item.one.op = literal.IsStraightQuote() ? Op::kDoubleQuote : Op::kCharacter;
    item.one.value = literal.value;
    return item;
  }

  Literal ParseLiteral() {
    if (text_[at_] == u'^') {
      const ParsedCode code = ParseFindCode(text_.substr(at_), true);
      at_ += code.units;
      return {code.value, false};
    }
    if (text_[at_] == u'\\' && ++at_ >= text_.size()) ThrowBadPattern();
    const CodePoint point = CodePointAt(text_, at_);
    at_ += point.units;
    return {point.value, true};
  }

  Item ParseSet() {
    ++at_;
    CharacterSet set;
    if (!AtEnd() && text_[at_] == u'!') {
      ++at_;
      set.Negate();
    }
    while (!AtEnd() && text_[at_] != u']') {
      const Literal first = ParseLiteral();
      Literal last = first;
      if (at_ + 1 < text_.size() && text_[at_] == u'-' && text_[at_ + 1] != u']') {
        ++at_;
        last = ParseLiteral();
        if (last.value < first.value) ThrowBadPattern();
      }
      set.Add(first.value, last.value);
      if (first.IsStraightQuote() || last.IsStraightQuote()) set.Add(U'\u201C', U'\u201D');
    }
    if (AtEnd() || set.Empty()) ThrowBadPattern();
    ++at_;
    Item item;
    item.one.op = Op::kSet;
    item.one.first = static_cast<std::uint32_t>(program_.sets.size());
    program_.sets.push_back(std::move(set));
    return item;
  }

  Item ParseGroup() {
    ++at_;
    Item item;
    item.kind = Item::Kind::kGroup;
    item.number = opened_++;
    item.group = ParseItems(true);
    if (AtEnd() || item.group.empty()) ThrowBadPattern();
    ++at_;
    program_.groups = std::max(program_.groups, std::min(item.number + 1, kMaxNotedGroups));
    return item;
  }

  void ParseRepeat(Item& item) {
    if (AtEnd() || (text_[at_] != u'@' && text_[at_] != u'{')) return;
    if (item.kind == Item::Kind::kAnyRun || item.kind == Item::Kind::kBound) ThrowBadPattern();
    if (text_[at_++] == u'@') {
      item.most = kUnlimited;
      item.shortest = true;
    } else {
      item.least = item.most = ParseNumber();
      if (!AtEnd() && (text_[at_] == u',' || text_[at_] == u';')) {
        ++at_;
        item.most = !AtEnd() && text_[at_] == u'}' ? kUnlimited : ParseNumber();
      }
      if (AtEnd() || text_[at_++] != u'}' || (item.most != kUnlimited && item.most < item.least)) ThrowBadPattern();
    }
    if (!AtEnd() && (text_[at_] == u'@' || text_[at_] == u'{')) ThrowBadPattern();
  }

  int ParseNumber() {
    int number = 0;
    const std::size_t begin = at_;
    while (!AtEnd() && text_[at_] >= u'0' && text_[at_] <= u'9' && number <= kMaxRepeat) {
      number = number * 10 + (text_[at_++] - u'0');
    }
    if (at_ == begin || number == 0 || number > kMaxRepeat) ThrowBadPattern();
    return number;
  }

  std::u16string_view text_;
  std::size_t at_{0};
  std::uint32_t opened_{0};
  std::vector<std::uint32_t> referred_;
  WildcardProgram& program_;
};

class Emitter {
 public:
  explicit Emitter(WildcardProgram& program) : program_(program) {}

  void EmitAll(const std::vector<Item>& items) {
    for (const Item& item : items) Emit(item);
  }

  std::uint32_t Add(Instruction instruction) {
    if (program_.code.size() >= kMaxInstructions) ThrowTooComplex();
    program_.code.push_back(instruction);
    return static_cast<std::uint32_t>(program_.code.size() - 1);
  }

 private:
  std::uint32_t Next() const { return static_cast<std::uint32_t>(program_.code.size()); }

  void Emit(const Item& item) {
    if (item.kind == Item::Kind::kAnyRun) {
      const std::uint32_t split = Add({.op = Op::kSplit});
      Add({.op = Op::kAny});
      Add({.op = Op::kJump, .first = split});
      program_.code[split].first = Next();
      program_.code[split].second = split + 1;
      return;
    }
    std::uint32_t last = Next();
    for (int i = 0; i < item.least; ++i) {
      last = Next();
      EmitOnce(item);
    }
    if (item.most == kUnlimited) {
      const std::uint32_t split = Add({.op = Op::kSplit});
      program_.code[split].first = item.shortest ? Next() : last;
      program_.code[split].second = item.shortest ? last : Next();
      return;
    }
    std::vector<std::uint32_t> splits;
    for (int i = item.least; i < item.most; ++i) {
      splits.push_back(Add({.op = Op::kSplit}));
      EmitOnce(item);
    }
    for (const std::uint32_t split : splits) {
      program_.code[split].first = split + 1;
      program_.code[split].second = Next();
    }
  }

  void EmitOnce(const Item& item) {
    if (item.kind != Item::Kind::kGroup) {
      Add(item.one);
      return;
    }
    const bool noted = item.number < kMaxNotedGroups;
    if (noted) Add({.op = Op::kSave, .first = 2 * item.number});
    EmitAll(item.group);
    if (noted) Add({.op = Op::kSave, .first = 2 * item.number + 1});
  }

  WildcardProgram& program_;
};

}  // namespace

WildcardProgram CompileWildcards(std::u16string_view text) {
  CheckFindText(text);
  WildcardProgram program;
  const std::vector<Item> items = Parser(text, program).Parse();
  Emitter emitter(program);
  emitter.EmitAll(items);
  emitter.Add({.op = Op::kMatch});
  return program;
}

}  // namespace docx
