#pragma once

#include "marker/Letters.h"
#include "marker/MakeTermMarker.h"
#include "marker/MarkingRun.h"
#include "platform/TermMarker.h"
#include "platform/os/Characters.h"

#include <optional>
#include <string>
#include <unordered_set>

namespace marker {

/// The companion over Word's object model alone, so that it serves a running Word and a file alike.
class KvxTermMarker : public TermMarker {
 public:
  /// @param characters must outlive this object
  KvxTermMarker(os::Characters& characters, EntryWriting writing);

  void AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) override;
  void OptionChanged(const word::DocumentPtr& document, const QuoteHighlighting* next) override;
  void BeginIndexing(const word::DocumentPtr& document) override;
  void EndIndexing(const word::DocumentPtr& document) override;
  TermTable BuildTermTable(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                           const std::vector<std::u16string>& chosen, bool matchCase) override;
  std::int32_t MarkTermInStory(const word::DocumentPtr& document, const word::RangePtr& story, std::u16string_view text,
                               std::int32_t count, int storyType, bool matchCase, bool allCaps,
                               std::u16string_view indexWhat, std::u16string_view entryText) override;
  std::vector<std::u16string> GetUnusedAndMissing(const TermTable& table) override;
  void InsertIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, int columns,
                   std::u16string_view separator) override;
  void UpdateIndex(const word::DocumentPtr& document) override;
  void RemoveIndexEntries(const word::ApplicationPtr& application, const word::DocumentPtr& document,
                          bool flag) override;
  void RemoveIndex(const word::ApplicationPtr& application, const word::DocumentPtr& document, bool flag) override;
  void RemoveTermHighlighting(const word::DocumentPtr& document) override;
  void FinishDocument(const word::DocumentPtr& document) override;

 private:
  /// Before anything that goes by the document's entries.
  void WriteEntries();
  void RemoveEntriesOf(const word::DocumentPtr& document, const word::RangePtr& story, HighlightRecord& record,
                       bool isHighlighted);
  void RemoveHighlightsOf(const word::DocumentPtr& document, const word::RangePtr& story,
                          const HighlightRecord& record);
  /// What we highlighted in a story and still has its entry, with what the author had yellow of it.
  std::vector<Stretch> HighlightsOf(const word::DocumentPtr& document, const word::RangePtr& story) const;

  Letters letters_;
  // What stands in the array that AddTerm filled last: it is known by its length and by the first and the last of it.
  std::unordered_set<std::u16string> added_;
  std::u16string firstAdded_;
  std::u16string lastAdded_;
  EntryWriting writing_;
  std::optional<MarkingRun> run_;  ///< between BeginIndexing and EndIndexing
};

}  // namespace marker
