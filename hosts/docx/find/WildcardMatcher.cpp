#include <algorithm>
#include <utility>

#include "hosts/docx/find/FindCodes.h"
#include "hosts/docx/find/FirstUnits.h"
#include "hosts/docx/find/Pattern.h"
#include "hosts/docx/find/WildcardPattern.h"

namespace docx {

namespace {

using Op = WildcardProgram::Op;
using Instruction = WildcardProgram::Instruction;

/// Each thread costs at each character; a pattern that makes very many of them on a very long text is given up.
constexpr std::uint64_t kMaxSteps = 200'000'000;
/// Only back references come near it: without them there is at most one thread an instruction.
constexpr std::size_t kMaxThreads = 50'000;

/// Runs all ways through the program side by side, the preferred ones first, character by character. So the
/// cost is bounded by the program's length times the text's, whatever the pattern; and the way that wins is the one
/// that trying them one after the other would find first. Only back references need the ways kept apart.
class WildcardPatternMatcher : public Pattern {
 public:
  explicit WildcardPatternMatcher(WildcardProgram program)
      : program_(std::move(program)), stride_(1 + 2 * program_.groups), visited_(program_.code.size(), 0) {
    first_ = FirstUnits([this](char16_t unit) { return MayBeginWith(0, unit, 0); });
    findsWords_ = FindsWords();
  }

  std::optional<Hit> FindFirst(VisibleText& text, std::size_t from) override {
    return findsWords_ ? FindWord(text, from) : Run(text, from, true);
  }
  std::optional<Hit> MatchAt(VisibleText& text, std::size_t index) override { return Run(text, index, false); }

 private:
  /// The threads that wait for the same character, in order of preference. A thread's captures are its start
  /// and the bounds of its groups.
  struct Threads {
    std::vector<std::uint32_t> counters;
    std::vector<std::size_t> captures;
    std::vector<std::size_t> offsets;  ///< within the text that a back reference repeats

    bool Empty() const { return counters.empty(); }
    void Clear() {
      counters.clear();
      captures.clear();
      offsets.clear();
    }
  };

  std::optional<Hit> Run(VisibleText& text, std::size_t from, bool search) {
    std::optional<Hit> hit;
    steps_ = 0;
    current_.Clear();
    std::size_t index = from;
    bool first = true;
    while (true) {
      if (current_.Empty()) {
        if (hit || (!search && !first)) return hit;
        if (search) index = SkipToCandidate(text, index);
        ++generation_;
      }
      if ((search || first) && !hit && !text.SplitsCharacter(index)) Seed(text, index);
      first = false;
      const CodePoint point = text.CharacterAt(index);
      next_.Clear();
      ++generation_;
      Step(text, index, point, hit);
      if (!text.Has(index)) return hit;
      std::swap(current_, next_);
      index += point.units;
    }
  }

  /// Whether the pattern is <[...]*>: a whole word that begins with a character of a set.
  bool FindsWords() const {
    const std::vector<Instruction>& code = program_.code;
    return code.size() == 7 && code[0].op == Op::kWordStart && code[1].op == Op::kSet && code[2].op == Op::kSplit &&
           code[2].first == 5 && code[2].second == 3 && code[3].op == Op::kAny && code[4].op == Op::kJump &&
           code[4].first == 2 && code[5].op == Op::kWordEnd && code[6].op == Op::kMatch;
  }

  /// What Run finds for such a pattern: from a word's first character the nearest end of a word is that word's.
  std::optional<Hit> FindWord(VisibleText& text, std::size_t from) const {
    const CharacterSet& initials = program_.sets[program_.code[1].first];
    for (std::size_t index = SkipToCandidate(text, from); text.Has(index); index = SkipToCandidate(text, index + 1)) {
      if (text.SplitsCharacter(index) || IsWordCharacter(text.Before(index))) continue;
      const CodePoint initial = text.CharacterAt(index);
      if (!IsWordCharacter(initial.value) || !initials.Has(initial.value)) continue;
      std::size_t end = index + initial.units;
      while (IsWordCharacter(text.After(end))) {
        // What stands behind the text searched may go on with the word, which then does not end here.
        if (!text.Has(end)) return std::nullopt;
        end += text.CharacterAt(end).units;
      }
      return Hit{index, end, {}};
    }
    return std::nullopt;
  }

  /// The next index at which a match could begin.
  std::size_t SkipToCandidate(VisibleText& text, std::size_t index) const {
    while (true) {
      const std::u16string_view rest = text.Rest(index);
      if (rest.empty()) return index;
      const std::size_t skipped = first_.FindIn(rest, 0, [this](char16_t unit) { return MayBeginWith(0, unit, 0); });
      index += skipped;
      if (skipped < rest.size()) return index;
    }
  }

  /// Whether the program can take a code unit first, word bounds apart; halves of surrogate pairs always may.
  bool MayBeginWith(std::uint32_t counter, char16_t unit, std::size_t depth) const {
    if (unit == VisibleText::kBarrier) return false;
    if ((unit & 0xF800U) == 0xD800U || depth > kMaxLookDepth) return true;
    const Instruction& instruction = program_.code[counter];
    switch (instruction.op) {
      case Op::kCharacter:
        return instruction.value == unit;
      case Op::kDoubleQuote:
        return IsDoubleQuote(unit);
      case Op::kSet:
        return program_.sets[instruction.first].Has(unit);
      case Op::kAny:
      case Op::kBackReference:
        return true;
      case Op::kSplit:
        return MayBeginWith(instruction.first, unit, depth + 1) || MayBeginWith(instruction.second, unit, depth + 1);
      case Op::kJump:
        return MayBeginWith(instruction.first, unit, depth + 1);
      case Op::kSave:
      case Op::kWordStart:
      case Op::kWordEnd:
        return MayBeginWith(counter + 1, unit, depth + 1);
      case Op::kMatch:
        return false;
    }
    return true;
  }

  void Seed(VisibleText& text, std::size_t index) {
    registers_.assign(stride_, Hit::kNone);
    registers_[0] = index;
    // The threads in the list were added for this index too and rank higher, so what they visited stays visited.
    Add(text, current_, 0, index);
  }

  /// Follows what takes no character and leaves the threads that wait for one.
  void Add(VisibleText& text, Threads& threads, std::uint32_t counter, std::size_t index) {
    if (program_.backReferences) ++generation_;
    Follow(text, threads, counter, index);
  }

  void Follow(VisibleText& text, Threads& threads, std::uint32_t counter, std::size_t index) {
    while (visited_[counter] != generation_) {
      visited_[counter] = generation_;
      const Instruction& instruction = program_.code[counter];
      switch (instruction.op) {
        case Op::kJump:
          counter = instruction.first;
          continue;
        case Op::kSplit:
          Follow(text, threads, instruction.first, index);
          counter = instruction.second;
          continue;
        case Op::kSave: {
          const std::size_t before = std::exchange(registers_[1 + instruction.first], index);
          Follow(text, threads, counter + 1, index);
          registers_[1 + instruction.first] = before;
          return;
        }
        case Op::kWordStart:
          if (IsWordCharacter(text.Before(index)) || !IsWordCharacter(text.After(index))) return;
          ++counter;
          continue;
        case Op::kWordEnd:
          if (!IsWordCharacter(text.Before(index)) || IsWordCharacter(text.After(index))) return;
          ++counter;
          continue;
        case Op::kBackReference: {
          const auto [begin, end] = Group(registers_.data(), instruction.first);
          if (begin == Hit::kNone || end == Hit::kNone) return;
          if (begin == end) {
            ++counter;
            continue;
          }
          Push(threads, counter, 0);
          return;
        }
        default:
          Push(threads, counter, 0);
          return;
      }
    }
  }

  void Push(Threads& threads, std::uint32_t counter, std::size_t offset) {
    if (threads.counters.size() >= kMaxThreads) ThrowTooComplex();
    threads.counters.push_back(counter);
    threads.captures.insert(threads.captures.end(), registers_.begin(), registers_.end());
    if (program_.backReferences) threads.offsets.push_back(offset);
  }

  static std::pair<std::size_t, std::size_t> Group(const std::size_t* captures, std::uint32_t number) {
    return {captures[1 + 2 * number], captures[2 + 2 * number]};
  }

  /// Lets every thread take the character; a thread that has come to the end is a hit and ends those after it.
  void Step(VisibleText& text, std::size_t index, const CodePoint& point, std::optional<Hit>& hit) {
    const std::size_t behind = index + point.units;
    for (std::size_t i = 0; i < current_.counters.size(); ++i) {
      if (++steps_ > kMaxSteps) ThrowTooComplex();
      const std::uint32_t counter = current_.counters[i];
      const Instruction& instruction = program_.code[counter];
      const std::size_t* captures = &current_.captures[i * stride_];
      if (instruction.op == Op::kMatch) {
        if (captures[0] == index) continue;  // nothing is no match
        hit = MakeHit(captures, index);
        return;
      }
      if (point.value == VisibleText::kBarrier || !Takes(instruction, point.value, text, captures, i)) continue;
      std::copy_n(captures, stride_, registers_.begin());
      if (instruction.op == Op::kBackReference) {
        const auto [begin, end] = Group(captures, instruction.first);
        const std::size_t offset = current_.offsets[i] + point.units;
        if (begin + offset < end) {
          Push(next_, counter, offset);
          continue;
        }
      }
      Add(text, next_, counter + 1, behind);
    }
  }

  bool Takes(const Instruction& instruction, char32_t character, VisibleText& text, const std::size_t* captures,
             std::size_t thread) const {
    switch (instruction.op) {
      case Op::kCharacter:
        return character == instruction.value;
      case Op::kDoubleQuote:
        return IsDoubleQuote(character);
      case Op::kAny:
        return true;
      case Op::kSet:
        return program_.sets[instruction.first].Has(character);
      case Op::kBackReference:
        return text.CharacterAt(Group(captures, instruction.first).first + current_.offsets[thread]).value == character;
      default:
        return false;
    }
  }

  Hit MakeHit(const std::size_t* captures, std::size_t end) const {
    Hit hit{captures[0], end, {}};
    for (std::uint32_t group = 0; group < program_.groups; ++group) hit.groups.push_back(Group(captures, group));
    return hit;
  }

  static constexpr std::size_t kMaxLookDepth = 12;

  const WildcardProgram program_;
  const std::size_t stride_;
  std::vector<std::uint64_t> visited_;
  std::uint64_t generation_{1};
  std::uint64_t steps_{0};
  bool findsWords_{false};
  FirstUnits first_;
  std::vector<std::size_t> registers_;
  Threads current_;
  Threads next_;
};

}  // namespace

std::unique_ptr<Pattern> CompileWildcardPattern(const FindSettings& settings) {
  return std::make_unique<WildcardPatternMatcher>(CompileWildcards(settings.text));
}

}  // namespace docx
