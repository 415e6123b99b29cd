#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/BookmarkNames.h"
#include "platform/TermMarker.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"
#include "tests/fakes/CallLog.h"

namespace fakes {

/// Logs every call. It marks nothing: counts come from a function that a test may set. At the end of a run it cleans up
/// as a companion has to.
class FakeTermMarker : public TermMarker {
 public:
  explicit FakeTermMarker(CallLog& log) : log_(log) {}

  /// Takes an empty text for a term, as a companion may.
  void AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) override {
    const std::u16string text = range->Text();
    log_.Add("AddTerm " + Plain(text));
    if (std::find(terms.begin(), terms.end() - 1, text) != terms.end() - 1) return;
    terms.back() = text;
    terms.emplace_back();
  }
  void OptionChanged(const word::DocumentPtr&, const QuoteHighlighting* next) override {
    log_.Add(next == nullptr ? "OptionChanged" : "OptionChanged for " + Plain(std::u16string_view(&next->quote, 1)));
  }
  void BeginIndexing(const word::DocumentPtr&) override { log_.Add("BeginIndexing"); }
  void EndIndexing(const word::DocumentPtr&) override { log_.Add("EndIndexing"); }
  TermTable BuildTermTable(const word::ApplicationPtr&, const word::DocumentPtr&,
                           const std::vector<std::u16string>& chosen, bool matchCase) override {
    std::string call = "BuildTermTable " + Plain(matchCase);
    TermTable table;
    for (const std::u16string& term : chosen) {
      call += " " + Plain(term);
      table.push_back({term, 0});
    }
    log_.Add(call);
    return table;
  }
  std::int32_t MarkTermInStory(const word::DocumentPtr&, const word::RangePtr&, std::u16string_view text,
                               std::int32_t count, int storyType, bool matchCase, bool allCaps,
                               std::u16string_view indexWhat, std::u16string_view entryText) override {
    log_.Add("MarkTermInStory " + Plain(text) + " count " + std::to_string(count) + " story " +
             std::to_string(storyType) + " case " + Plain(matchCase) + " caps " + Plain(allCaps) + " " +
             Plain(indexWhat) + " as \"" + Plain(entryText) + "\"");
    return count + (found ? found(text, storyType) : 0);
  }
  std::vector<std::u16string> GetUnusedAndMissing(const TermTable& table) override {
    std::string call = "GetUnusedAndMissing";
    for (const TermRow& row : table) call += " " + Plain(row.term) + "=" + std::to_string(row.count);
    log_.Add(call);
    return unusedAndMissing;
  }
  void InsertIndex(const word::ApplicationPtr&, const word::DocumentPtr& document, int columns,
                   std::u16string_view separator) override {
    log_.Add("InsertIndex " + std::to_string(columns) + " \"" + Plain(separator) + "\"");
    if (onInsertIndex) onInsertIndex(document);
  }
  void UpdateIndex(const word::DocumentPtr&) override { log_.Add("UpdateIndex"); }
  void RemoveIndexEntries(const word::ApplicationPtr&, const word::DocumentPtr&, bool flag) override {
    log_.Add("RemoveIndexEntries " + Plain(flag));
  }
  void RemoveIndex(const word::ApplicationPtr&, const word::DocumentPtr&, bool flag) override {
    log_.Add("RemoveIndex " + Plain(flag));
  }
  void RemoveTermHighlighting(const word::DocumentPtr&) override { log_.Add("RemoveTermHighlighting"); }
  void FinishDocument(const word::DocumentPtr& document) override {
    log_.Add("FinishDocument");
    const word::BookmarksPtr bookmarks = document->Bookmarks();
    if (!bookmarks->Exists(kIndexBookmark) || !bookmarks->Exists(kReturnBookmark)) return;
    bookmarks->Item(kReturnBookmark)->Delete();
  }

  /// How many occurrences of a text a story holds.
  std::function<int(std::u16string_view text, int storyType)> found;
  std::function<void(const word::DocumentPtr&)> onInsertIndex;
  std::vector<std::u16string> unusedAndMissing{u"", u""};

 private:
  CallLog& log_;
};

}  // namespace fakes
