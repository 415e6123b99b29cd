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
/// Entries are written with their term, or those of a story together, always from the last to the first: so none moves
/// the places of those that follow, and nobody has to be asked how long it became.
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

  /// The occurrences found in the stories searched, marked or not, those of the upper-case form and of terms that read
  /// alike included.
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
  /// As they were found.
  StoryMarks& MarksOf(const word::RangePtr& story, int storyType);
  /// Those of the story as it is now.
  StoryMarks& PresentMarksOf(const word::RangePtr& story, int storyType);
  void Write(StoryMarks& marks);
  void LayHighlight(const word::RangePtr& range, const StoryMarks::Occurrence& occurrence);

  const Letters& letters_;
  word::DocumentPtr document_;
  EntryWriting writing_;
  std::vector<std::u16string> chosen_;
  bool matchCase_{false};
  bool allCaps_{false};
  std::vector<Form> forms_;
  std::map<FormKey, std::size_t> formNumbers_;
  /// By what they are indexed under, as it is looked for: of terms that read alike the first has all occurrences.
  std::unordered_map<std::u16string, std::vector<std::size_t>> formsOf_;
  std::optional<TermMatcher> matcher_;
  std::map<int, StoryMarks> stories_;
  HighlightRecord record_;

  // The story that entries are written in.
  word::RangePtr story_;
  word::RangePtr place_;
  word::FieldsPtr fields_;
  int storyType_{0};
  std::vector<Wanted> wanted_;
};

}  // namespace marker
