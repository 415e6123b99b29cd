#include "marker/KvxTermMarker.h"

#include "marker/Entries.h"
#include "marker/ExtraLists.h"
#include "marker/IndexField.h"
#include "marker/KeptPlaces.h"
#include "marker/PlainText.h"
#include "marker/Stories.h"
#include "marker/StoryHighlights.h"
#include "marker/StoryText.h"
#include "platform/BookmarkNames.h"
#include "platform/TermText.h"
#include "platform/word/Application.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"

#include <algorithm>
#include <iterator>

namespace marker {
namespace {

constexpr std::u16string_view kDefinitionsOnly = u"IndexDefs";

/// Whether the document holds anything that an earlier run put there.
bool IsMarked(const word::DocumentPtr& document) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  for (const std::u16string_view name : {kIndexBookmark, kNotUsedListBookmark, kNotFoundListBookmark}) {
    if (bookmarks->Exists(name)) return true;
  }
  if (HighlightRecord(document).IsLaidOn()) return true;
  const std::vector<word::RangePtr> stories = MarkedStories(document);
  return std::any_of(stories.begin(), stories.end(), [](const word::RangePtr& story) {
    return story->Fields()->Count() > 0 && TextByPosition(story).find(kEntryType) != std::u16string::npos;
  });
}

/// They were written between the index and the record of an index at the document's start, and may go with it.
void KeepRecordApartFromLists(const word::DocumentPtr& document) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  std::vector<word::RangePtr> lists;
  for (const std::u16string_view name : {kNotUsedListBookmark, kNotFoundListBookmark}) {
    if (bookmarks->Exists(name)) lists.push_back(bookmarks->Item(name)->Range());
  }
  HighlightRecord(document).KeepApartFrom(lists);
}

/// As its entries would show it, but whole. A term that holds a mark or a break is a line nevertheless.
void AppendLine(std::u16string& lines, std::u16string_view term) {
  const std::u16string plain = PlainTerm(term);
  if (!lines.empty()) lines.append(u"\r\n");
  std::transform(plain.begin(), plain.end(), std::back_inserter(lines), ShownAs);
}

}  // namespace

KvxTermMarker::KvxTermMarker(os::Characters& characters, EntryWriting writing)
    : letters_(characters), writing_(writing) {}

void KvxTermMarker::WriteEntries() {
  if (run_) run_->WriteEntries();
}

void KvxTermMarker::AddTerm(const word::RangePtr& range, std::vector<std::u16string>& terms) {
  std::u16string text = TermText(range->Text());
  if (terms.empty()) terms.emplace_back();
  const std::size_t last = terms.size() - 1;
  const bool goesOn =
      last > 0 && last == added_.size() && terms.front() == firstAdded_ && terms[last - 1] == lastAdded_;
  if (!goesOn) added_ = {terms.begin(), terms.begin() + static_cast<std::ptrdiff_t>(last)};
  if (text.empty() || !added_.insert(text).second) return;
  terms.back() = text;
  terms.emplace_back();
  firstAdded_ = terms.front();
  lastAdded_ = std::move(text);
}

// Marking reads quotes of every style alike, so nothing here hangs on the option itself.
void KvxTermMarker::OptionChanged(const word::DocumentPtr& document, const QuoteHighlighting* next) {
  if (next == nullptr) return;
  HighlightRecord record(document);
  const bool isHighlighted = record.IsLaidOn();
  record.KeepQuotes(next->story, next->quote,
                    isHighlighted ? HighlightsOf(document, next->story) : std::vector<Stretch>());
}

// A run without a search, and one that follows a failed one in the same dialog, come with the earlier marking still in
// the document: entries would stand twice, and our own highlights would count as the author's.
void KvxTermMarker::BeginIndexing(const word::DocumentPtr& document) {
  if (IsMarked(document)) {
    RemoveIndexEntries(nullptr, document, false);
    RemoveIndex(nullptr, document, true);
    RemoveTermHighlighting(document);
  }
  run_.emplace(letters_, document, writing_);
}

// The lists were written when the index had its page numbers.
void KvxTermMarker::EndIndexing(const word::DocumentPtr& document) {
  WriteEntries();
  run_.reset();
  KeepRecordApartFromLists(document);
  if (HaveListsMovedEntries(document)) UpdateIndexField(document);
}

TermTable KvxTermMarker::BuildTermTable(const word::ApplicationPtr& /*application*/,
                                        const word::DocumentPtr& /*document*/,
                                        const std::vector<std::u16string>& chosen, bool matchCase) {
  if (run_) run_->Choose(chosen, matchCase);
  TermTable table;
  table.reserve(chosen.size());
  for (const std::u16string& term : chosen) table.push_back({.term = term, .count = 0});
  return table;
}

std::int32_t KvxTermMarker::MarkTermInStory(const word::DocumentPtr& document, const word::RangePtr& story,
                                            std::u16string_view text, std::int32_t count, int storyType, bool matchCase,
                                            bool allCaps, std::u16string_view indexWhat,
                                            std::u16string_view entryText) {
  const MarkingRun::Request request{.text = text,
                                    .entryText = entryText,
                                    .matchCase = matchCase,
                                    .allCaps = allCaps,
                                    .definitionsOnly = indexWhat == kDefinitionsOnly};
  if (run_) return count + run_->Mark(story, storyType, request);
  // Between runs the document may change unseen: nothing found before is of use.
  return count + MarkingRun(letters_, document, EntryWriting::kByTerm).Mark(story, storyType, request);
}

std::vector<std::u16string> KvxTermMarker::GetUnusedAndMissing(const TermTable& table) {
  WriteEntries();
  std::u16string unused;
  std::u16string missing;
  for (const TermRow& row : table) {
    const std::int32_t found = run_ ? run_->Found(row.term).value_or(row.count) : row.count;
    if (found == 0) AppendLine(missing, row.term);
    if (found == 1) AppendLine(unused, row.term);
  }
  return {unused, missing};
}

void KvxTermMarker::InsertIndex(const word::ApplicationPtr& /*application*/, const word::DocumentPtr& document,
                                int columns, std::u16string_view separator) {
  WriteEntries();
  const word::RangePtr index = InsertIndexField(document, columns, separator);
  HighlightRecord(document).KeepApartFrom({index});
  index->Collapse(word::wdCollapseEnd);
  index->Select();
}

void KvxTermMarker::UpdateIndex(const word::DocumentPtr& document) {
  WriteEntries();
  UpdateIndexField(document);
}

void KvxTermMarker::RemoveIndexEntries(const word::ApplicationPtr& /*application*/, const word::DocumentPtr& document,
                                       bool /*flag*/) {
  const KeptPlaces places(document);
  HighlightRecord record(document);
  const bool isHighlighted = record.IsLaidOn();
  for (const word::RangePtr& story : AllStories(document)) {
    RemoveEntriesOf(document, story, record, isHighlighted);
  }
  places.PutBack();
}

void KvxTermMarker::RemoveEntriesOf(const word::DocumentPtr& document, const word::RangePtr& story,
                                    HighlightRecord& record, bool isHighlighted) {
  const word::FieldsPtr fields = story->Fields();
  const int count = fields->Count();
  if (count == 0) return;
  std::optional<StoryHighlights> highlighted;
  if (isHighlighted && story->HighlightColorIndex() != word::wdNoHighlight) {
    highlighted.emplace(letters_, document, story);
  }
  const word::RangePtr range = story->Duplicate();
  // From the last to the first: the numbers and positions of those before stay as they are.
  for (int index = count; index >= 1; --index) {
    const word::FieldPtr field = fields->Item(index);
    const word::RangePtr codeRange = field->Code();
    const FieldCode code = ParseFieldCode(codeRange->Text());
    if (!IsOurEntry(code)) continue;
    if (highlighted) {
      for (const Stretch& stretch : highlighted->Before(range, codeRange->Start() - 1, code.text)) {
        range->SetRange(stretch.begin, stretch.end);
        record.Keep(range, word::wdNoHighlight);
      }
    }
    field->Delete();
  }
}

void KvxTermMarker::RemoveIndex(const word::ApplicationPtr& /*application*/, const word::DocumentPtr& document,
                                bool /*flag*/) {
  const KeptPlaces places(document);
  // The lists first: their bookmarks reach back into the index.
  RemoveExtraLists(document);
  RemoveIndexFields(document);
  places.PutBack();
}

void KvxTermMarker::RemoveTermHighlighting(const word::DocumentPtr& document) {
  HighlightRecord record(document);
  if (record.IsLaidOn()) {
    for (const word::RangePtr& story : AllStories(document)) RemoveHighlightsOf(document, story, record);
  }
  record.PutBack();
}

void KvxTermMarker::RemoveHighlightsOf(const word::DocumentPtr& document, const word::RangePtr& story,
                                       const HighlightRecord& record) {
  const std::vector<Stretch> ours = HighlightsOf(document, story);
  if (ours.empty()) return;
  const word::RangePtr range = story->Duplicate();
  const std::vector<Stretch> authors = record.Authors(story->StoryType());
  for (const Stretch& stretch : ours) TakeHighlightOff(range, stretch, authors);
}

std::vector<Stretch> KvxTermMarker::HighlightsOf(const word::DocumentPtr& document, const word::RangePtr& story) const {
  std::vector<Stretch> ours;
  if (story->Fields()->Count() == 0 || story->HighlightColorIndex() == word::wdNoHighlight) return ours;
  StoryHighlights highlighted(letters_, document, story);
  const word::RangePtr range = story->Duplicate();
  for (const OurEntry& entry : highlighted.Entries()) {
    for (const Stretch& stretch : highlighted.Before(range, entry.begin, entry.text)) ours.push_back(stretch);
  }
  return ours;
}

void KvxTermMarker::FinishDocument(const word::DocumentPtr& document) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (bookmarks->Exists(kIndexBookmark) && bookmarks->Exists(kReturnBookmark)) {
    bookmarks->Item(kReturnBookmark)->Delete();
  }
}

}  // namespace marker

std::unique_ptr<TermMarker> MakeTermMarker(os::Characters& characters, EntryWriting writing) {
  return std::make_unique<marker::KvxTermMarker>(characters, writing);
}
