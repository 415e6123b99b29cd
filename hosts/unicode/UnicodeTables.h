#pragma once

#include <cstddef>

/// Unicode's properties as tables in ascending order, for hosts without a library that has them.
namespace unicode {

struct Range {
  char32_t first;
  char32_t last;
};

/// Each step-th character from first to last is mapped to the one that is delta further on.
struct CaseRange {
  char32_t first;
  char32_t last;
  unsigned char step;
  int delta;
};

struct SpecialCase {
  char16_t from;
  const char16_t* to;
};

extern const Range kLetters[];
extern const std::size_t kLettersCount;
extern const Range kMarks[];
extern const std::size_t kMarksCount;
extern const Range kDigits[];
extern const std::size_t kDigitsCount;
extern const Range kOtherNumbers[];
extern const std::size_t kOtherNumbersCount;
extern const Range kBlanks[];
extern const std::size_t kBlanksCount;
extern const CaseRange kUpper[];
extern const std::size_t kUpperCount;
extern const CaseRange kLower[];
extern const std::size_t kLowerCount;
extern const CaseRange kFold[];
extern const std::size_t kFoldCount;
extern const SpecialCase kUpperSpecial[];
extern const std::size_t kUpperSpecialCount;
extern const SpecialCase kLowerSpecial[];
extern const std::size_t kLowerSpecialCount;

}  // namespace unicode
