#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drafting/Excerpt.h"
#include "platform/word/Types.h"

namespace drafting {

/// What a drafter may want to look at. docs/check.md says when each is reported.
enum class Kind {
  kDefinedTwice,
  kNotDefined,
  kNotUsed,
  kUsedOnce,
  kUsedBefore,
  kOtherCase,
  kOtherNumber,
  kArticle,
  kMixedQuotes,
  kUnpairedQuotes,
};

/// A stretch of a story, and what is said there.
struct Place : Excerpt {
  int story{1};  ///< a WdStoryType
  word::Position position{0};
};

struct Finding {
  Kind kind{Kind::kDefinedTwice};
  std::u16string term;           ///< as it is defined, or as it is used where it is not; empty: it is about no term
  std::u16string text;           ///< the words in question, as they stand
  int count{1};                  ///< how many such places there are
  Place place;                   ///< the first
  std::optional<Place> other{};  ///< another that it is to be compared with
};

struct Definition {
  std::u16string term;
  Place place;
  int uses{0};  ///< besides definitions, in any case and number that counts as the term
};

struct Result {
  std::vector<Definition> definitions;  ///< in the order of the document
  std::vector<Finding> findings;        ///< by kind, and by place
};

}  // namespace drafting
