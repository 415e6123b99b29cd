#pragma once

#include "marker/Letters.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marker {

/// One spelling that is looked for.
struct Form {
  std::u16string text;  ///< as PlainTerm() gives it; an empty one, or one that holds what parts terms, is never found
  bool matchCase{false};
};

/// An occurrence, in code units of the text searched.
struct Match {
  std::size_t form{0};
  std::size_t begin{0};
  std::size_t end{0};      ///< behind the word
  std::size_t entry{0};    ///< behind its possessive ending, or `end` when it has none
  bool definition{false};  ///< stands directly in double quotes, or behind an article in them
};

/// Finds the occurrences of many forms in one pass over a text. The time taken grows with the text, not with the
/// number of forms. What an occurrence is:
///  - a letter, digit or combining mark stands on neither side of it;
///  - it lies within one paragraph and page: a term that holds the mark of a paragraph or a cell, or a page, section
///    or column break, can only be a misread pair of quotes, and has no occurrences;
///  - of occurrences that overlap the longest wins, of equally long ones the leftmost: in "Share Purchase Price
///    Schedule" the term "Purchase Price Schedule" wins over "Share Purchase", though that one starts first;
///  - straight and curly quotation marks and apostrophes are the same characters;
///  - of forms that match the very same stretch the one spelt exactly so wins, then the first that only these tell from
///    it, otherwise the first given;
///  - a possessive ending ('s with a straight or a curly apostrophe) is no part of it, but no other occurrence's
///    either. A bare apostrophe behind a plural is left alone: it may as well close a quotation.
class TermMatcher {
 public:
  /// @param letters must outlive this object
  TermMatcher(const Letters& letters, std::vector<Form> forms);

  /// Two threads share the work on a long text.
  /// @return the occurrences in order, none overlapping
  std::vector<Match> Find(std::u16string_view text) const;

 private:
  using Node = std::uint32_t;
  static constexpr Node kNone = 0xFFFFFFFF;
  static constexpr Node kRoot = 0;
  struct Branch {
    char16_t unit;
    Node child;
  };

  void Insert(std::size_t form);
  Node Child(Node parent, char16_t unit) const;
  Node Begin(char16_t unit) const { return unit < roots_.size() ? roots_[unit] : Child(kRoot, unit); }
  /// What begins in a stretch of the text, whose ends are in no pair of surrogates, in the order of their begins.
  std::vector<Match> Candidates(std::u16string_view text, std::size_t begin, std::size_t end) const;
  /// What begins at a place. @param folded the text from that place on, as far as forms can reach
  void Collect(std::u16string_view text, std::u16string_view folded, std::size_t begin,
               std::vector<Match>& candidates) const;
  std::size_t Choose(const std::vector<std::size_t>& forms, std::u16string_view found) const;
  /// @param candidates in the order of their begins
  std::vector<Match> Resolve(std::u16string_view text, std::vector<Match> candidates) const;

  const Letters& letters_;
  std::vector<Form> forms_;
  std::size_t longest_{0};                            ///< of those that are looked for
  std::vector<std::vector<Branch>> children_{1};      ///< of each node, by their units
  std::vector<std::vector<std::size_t>> formsAt_{1};  ///< the forms that end at each node, in the order given
  std::array<Node, 128> roots_;  ///< where a form begins: at every word of a text, so it is told at once for ASCII
};

/// Whether a stretch of a text stands directly in double quotes, or behind an article in them. The mark of a note may
/// stand before the closing one.
bool StandsInQuotes(const Letters& letters, std::u16string_view text, std::size_t begin, std::size_t end);

/// How long the article is that a text begins with, the blank behind it included; 0 when there is none.
std::size_t ArticleLength(const Letters& letters, std::u16string_view text);

/// Where the possessive ending behind a word ends; `end` itself when there is none.
std::size_t PossessiveEnd(const Letters& letters, std::u16string_view text, std::size_t end);

}  // namespace marker
