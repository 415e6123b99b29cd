#pragma once

#include "marker/Highlights.h"
#include "marker/Letters.h"
#include "marker/MakeTermMarker.h"
#include "marker/StoryMarks.h"
#include "marker/TermMatcher.h"
#include "platform/word/Types.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace marker {

/// One run of marking over a document. All chosen terms are looked for together, since each occurrence belongs to
/// one of them; a story is therefore searched once, at its first call, and every later call costs its own
/// occurrences only.
/// Entries are written with their term, or those of a story together in the order of their positions: neighbours are
/// then changed while they are at hand, and what is new lies in memory as it does in the document.
class MarkingRun {
 public:
  struct Request {
    std::u16string_view text{};
    std::u16string_view entryText{};  ///< empty: the text itself
    bool matchCase{false};
    bool allCaps{false};          ///< the upper-case forms of the chosen terms take part
    bool definitionsOnly{false};  ///< mark nothing else
  };

  /// @param letters must outlive this object
  MarkingRun(const Letters& letters, const word::DocumentPtr& document, EntryWriting writing);

  /// The terms that share the text among them. A request for another text adds it behind them.
  void Choose(const std::vector<std::u16string>& chosen, bool matchCase);

  /// @return the occurrences marked, or to be marked by WriteEntries
  std::int32_t Mark(const word::RangePtr& story, int storyType, const Request& request);

  /// Writes what was asked for and not written yet.
  void WriteEntries();

  /// The occurrences found in the stories searched, marked or not, the upper-case form's included.
  /// @return nothing for a text that was not looked for
  std::optional<std::int32_t> Found(std::u16string_view term) const;

 private:
  using FormKey = std::pair<std::u16string, std::u16string>;  ///< the text and the entry text

  /// What is to be written behind the occurrences of a form.
  struct Wanted {
    std::size_t form{0};
    std::u16string code{};
    std::u16string definitionCode{};
    bool definitionsOnly{false};
  };

  std::size_t FormOf(const Request& request);
  void SettleForms(const Request& request);
  void AddForm(std::u16string_view text, std::u16string_view entryText, bool matchCase);
  StoryMarks& MarksOf(const word::RangePtr& story, int storyType);
  void LayHighlight(const word::RangePtr& range, const StoryMarks::Occurrence& occurrence, bool overAuthors);

  const Letters& letters_;
  word::DocumentPtr document_;
  EntryWriting writing_;
  std::vector<std::u16string> chosen_;
  bool matchCase_{false};
  bool allCaps_{false};
  std::vector<Form> forms_;
  std::map<FormKey, std::size_t> formNumbers_;
  std::unordered_map<std::u16string, std::vector<std::size_t>> formsOf_;  ///< by what they are indexed under
  std::optional<TermMatcher> matcher_;
  std::map<int, StoryMarks> stories_;
  HighlightRecord record_;

  // All of one story, which is not written yet.
  word::RangePtr story_;
  int storyType_{0};
  std::vector<Wanted> wanted_;
};

}  // namespace marker
