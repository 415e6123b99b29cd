#pragma once

#include <bitset>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace docx {

/// A set of characters such as [!a-z].
class CharacterSet {
 public:
  void Add(char32_t first, char32_t last);
  void Negate() { negated_ = true; }
  bool Empty() const { return ranges_.empty(); }
  bool Has(char32_t character) const;

 private:
  std::vector<std::pair<char32_t, char32_t>> ranges_;
  std::bitset<128> ascii_;
  bool negated_{false};
};

/// A wildcard pattern as instructions for a machine that runs all its possible ways at once.
struct WildcardProgram {
  enum class Op : std::uint8_t {
    kCharacter,    ///< value
    kDoubleQuote,  ///< any of the three styles
    kAny,
    kSet,    ///< sets[first]
    kSplit,  ///< goes on at `first` and, with lower rank, at `second`
    kJump,   ///< to `first`
    kSave,   ///< notes the position as capture `first`
    kWordStart,
    kWordEnd,
    kBackReference,  ///< the text of group `first`, from 0
    kMatch,
  };

  struct Instruction {
    Op op{Op::kMatch};
    char32_t value{0};
    std::uint32_t first{0};
    std::uint32_t second{0};
  };

  std::vector<Instruction> code;
  std::vector<CharacterSet> sets;
  std::uint32_t groups{0};  ///< noted ones: at most 9
  bool backReferences{false};
};

/// @throws word::HostError kBadPattern for a text that is no pattern, or one that grows beyond all measure
WildcardProgram CompileWildcards(std::u16string_view text);

}  // namespace docx
