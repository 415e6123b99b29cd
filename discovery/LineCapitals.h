#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/os/Characters.h"

/// What a capital letter at the beginning of a word or phrase says of it.
enum class CapitalUse {
  kOfItsOwn,       ///< it is capitalised for its own sake, as far as the place shows
  kSentenceStart,  ///< it begins a sentence or an item of a list
  kHeading,        ///< it stands in a heading, or in a stretch set in capitals, where every word has one
};

/// Judges the capitals of one line, by the rules of docs/capitals.md. Offsets are code units of the line.
class LineCapitals {
 public:
  /// @param line as it reads: with plain blanks and hyphens. It and characters outlive the object.
  LineCapitals(std::u16string_view line, os::Characters& characters);

  CapitalUse UseAt(std::size_t begin, std::size_t end) const;
  /// The sentence that holds a place, without the blanks around it. A colon or semicolon ends none.
  std::u16string_view SentenceAt(std::size_t index) const;

 private:
  struct Span {
    std::size_t begin{0};
    std::size_t end{0};
  };
  struct Sentence : Span {
    std::size_t text{0};  ///< behind its number or bullet, and its opening quotation marks and brackets
    bool title{false};    ///< all its words but the small ones are capitalised
  };

  void ReadWords();
  void ReadCapitals();
  void ReadSentences();
  std::size_t SentenceEnd(std::size_t index, bool clauses) const;
  bool IsAbbreviated(std::size_t stop) const;
  std::size_t AfterLabels(std::size_t index, std::size_t end) const;
  std::size_t AfterLabel(std::size_t index) const;
  std::size_t AfterOpening(std::size_t index) const;
  bool IsTitle(Span sentence) const;
  bool IsItemStart(std::size_t index) const;
  bool HasLower(std::u16string_view text) const;
  bool IsLower(char16_t unit) const;
  char16_t At(std::size_t index) const { return index < line_.size() ? line_[index] : u'\0'; }

  std::u16string_view line_;
  os::Characters& characters_;
  std::vector<Span> words_;
  /// Stretches set in capitals.
  std::vector<Span> capitals_;
  std::vector<Sentence> sentences_;
  /// Where texts in quotes begin, behind their articles.
  std::vector<std::size_t> quoted_;
  /// Those that no colon, semicolon or dash ends.
  std::vector<Span> wholeSentences_;
};
