#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/word/Types.h"

/// One row per chosen term: the term, and the occurrences marked so far.
struct TermRow {
  std::u16string term;
  std::int32_t count{0};
};
using TermTable = std::vector<TermRow>;

/// Quotation marks that are about to be highlighted.
struct QuoteHighlighting {
  word::RangePtr story;  ///< the whole of it
  char16_t quote{u'"'};  ///< a straight one stands for the curly ones too, as in a search
};

/// The companion that marks: it finds the occurrences of chosen terms, marks, counts and highlights them,
/// builds the index and takes all of it away again. One instance serves the add-in for its whole life; a
/// run is bracketed by BeginIndexing and EndIndexing. All members may throw word::HostError.
class TermMarker {
 public:
  TermMarker() = default;
  virtual ~TermMarker() = default;
  TermMarker(const TermMarker&) = delete;
  TermMarker& operator=(const TermMarker&) = delete;

  /// Appends the term in a range between quotes to a story's found terms, unless it stands there already: its text goes
  /// into the array's last, empty element and one empty element is added behind it.
  virtual void AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) = 0;

  /// Told after Options.AutoFormatAsYouTypeReplaceQuotes was put, and before each highlighting of quotation marks.
  /// Changes no text.
  /// @param next what will be highlighted: its present highlighting is recorded, for RemoveTermHighlighting to give it
  ///     back; nullptr: nothing
  virtual void OptionChanged(const word::DocumentPtr& document, const QuoteHighlighting* next) = 0;

  /// Takes an earlier marking away where that was not done yet, as the three removals do.
  virtual void BeginIndexing(const word::DocumentPtr& document) = 0;
  virtual void EndIndexing(const word::DocumentPtr& document) = 0;

  /// @param chosen the chosen terms, each text once, in list order
  /// @return a row per term with count 0
  virtual TermTable BuildTermTable(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                                   const std::vector<std::u16string>& chosen, bool matchCase) = 0;

  /// Marks the occurrences of a text in a story that belong to it (a longer chosen term at the same place
  /// takes them), each with an entry behind it, and highlights them.
  /// @param storyType a WdStoryType, of the story
  /// @param allCaps the run marks all-capitals forms under their terms, too
  /// @param indexWhat "IndexAll", or "IndexDefs" for definitions only
  /// @param entryText what they are indexed under; empty: the text itself
  /// @return count plus the occurrences marked
  virtual std::int32_t MarkTermInStory(const word::DocumentPtr& document, const word::RangePtr& story,
                                       std::u16string_view text, std::int32_t count, int storyType, bool matchCase,
                                       bool allCaps, std::u16string_view indexWhat, std::u16string_view entryText) = 0;

  /// The two lists as texts, terms separated by CR LF: [0] found once in all, [1] not found. They are judged
  /// by all occurrences found in the run, also where only definitions were marked.
  virtual std::vector<std::u16string> GetUnusedAndMissing(const TermTable& table) = 0;

  /// Builds the index at the bookmark "IndexBKStart", covers it with "DefinedTermsIndex" and leaves the
  /// selection collapsed behind it. @param columns brought into 1 to 4
  virtual void InsertIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, int columns,
                           std::u16string_view separator) = 0;
  /// Brings an existing index up to date without marking anew.
  virtual void UpdateIndex(const word::DocumentPtr& document) = 0;

  /// Removes every entry that marking left, none of the author's, and neither "IndexBKStart" nor "ReturnHereBK".
  /// @param flag of the companion's interface, false in RemoveIndexEntries and true in RemoveIndex; without effect
  virtual void RemoveIndexEntries(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                                  bool flag) = 0;
  /// Removes the index, its bookmark, and the two lists with theirs.
  virtual void RemoveIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, bool flag) = 0;
  /// Takes away the highlights laid on by marking and on quotation marks, and puts the author's own back where they
  /// were.
  virtual void RemoveTermHighlighting(const word::DocumentPtr& document) = 0;

  /// The component's own clean-up at the end of a run: deletes "ReturnHereBK" when the document has an index.
  virtual void FinishDocument(const word::DocumentPtr& document) = 0;
};
