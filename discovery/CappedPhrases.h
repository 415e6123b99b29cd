#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "discovery/TextSet.h"
#include "platform/os/Characters.h"

/// A word that begins with a capital letter, in code units of the text that it stands in.
struct CappedWord {
  std::size_t begin{0};
  std::size_t end{0};
};

/// Makes words and phrases of the capitalised words of a document, by the rule of docs/capitals.md. A phrase lies
/// within one line, so texts are taken line by line; a line may come in pieces, as pages cut it.
class CappedPhrases {
 public:
  /// Gets each word or phrase as it reads, with plain blanks and hyphens. The text is gone after the call.
  using Take = std::function<void(std::u16string_view phrase)>;

  /// @param characters outlives the object
  /// @param ignoreNumbers a word that holds a digit is no part of a phrase, and none by itself
  CappedPhrases(os::Characters& characters, bool ignoreNumbers, Take take);

  /// Learns the phrases in quotes of a text that no page cuts. All the texts come before the first that is added: terms
  /// are used before they are defined, too.
  void Learn(std::u16string_view text);

  /// The story goes on. @param words in their order, none overlapping another
  void Add(std::u16string_view text, const std::vector<CappedWord>& words);
  /// The story ends, and its last line with it.
  void EndStory();

 private:
  /// A stretch of the line.
  struct Span {
    std::size_t begin{0};
    std::size_t end{0};
  };
  /// A whole word: what a search takes for several where a hyphen or an apostrophe is in it.
  struct Word : Span {
    bool small{false};   ///< one that holds sentences together
    bool digits{false};  ///< holds one
  };

  struct Quoted : Span {
    std::size_t wordEnd{0};  ///< of its first word
  };

  struct KnownPhrases {
    TextMap<std::u16string> texts;                  ///< by what they are with straight apostrophes
    std::set<std::size_t, std::greater<>> lengths;  ///< those that occur among them
  };

  void Append(std::u16string_view piece);
  void EndLine();
  /// Whether a hit is but the possessive ending of the word before it: "BUYER'S".
  bool EndsWordBefore(Span hit) const;
  Word WholeWord(Span hit) const;
  void ReadQuotes();
  void TakeQuoted(Span inside);
  std::size_t QuotedEnd(std::size_t begin) const;
  /// The known phrase that begins with a word, as it was quoted; empty when there is none.
  std::u16string_view KnownAt(const Word& word) const;
  /// @param end of the part of the phrase that is certain: its first word, or a known phrase
  std::size_t PhraseEnd(std::size_t first, std::size_t end) const;
  std::size_t AfterNumber(std::size_t end) const;
  std::size_t AfterConnector(Span gap) const;
  bool IsBlankGap(Span gap) const;
  bool Joins(std::size_t word) const;
  bool IsFollowedByNumber(std::size_t end) const;

  bool IsLetterAt(std::size_t index) const;
  std::size_t AfterLetters(std::size_t index) const;
  bool HoldsDigit(Span span) const;
  char16_t At(std::size_t index) const { return index < line_.size() ? line_[index] : u'\0'; }
  std::u16string_view Text(Span span) const {
    return std::u16string_view(line_).substr(span.begin, span.end - span.begin);
  }

  os::Characters& characters_;
  const bool ignoreNumbers_;
  const Take take_;

  /// The line as far as it has come, as it reads, and the capitalised words in it.
  std::u16string line_;
  std::vector<Span> hits_;
  std::vector<Word> words_;
  std::vector<Quoted> quoted_;
  /// Phrases that stood in quotes, by their first word with straight apostrophes.
  TextMap<KnownPhrases> known_;
};
