#include "marker/ExtraLists.h"

#include "marker/Entries.h"
#include "marker/StoryText.h"
#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Constants.h"
#include "platform/word/Document.h"
#include "platform/word/Fields.h"
#include "platform/word/Range.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace marker {
namespace {

/// Where what stands in front of a list in the range of its bookmark ends, as far as the index tells.
std::optional<std::size_t> BehindIndex(const word::BookmarksPtr& bookmarks, const word::RangePtr& list) {
  if (!bookmarks->Exists(kIndexBookmark)) return std::nullopt;
  const word::RangePtr index = bookmarks->Item(kIndexBookmark)->Range();
  if (index->StoryType() != list->StoryType() || index->End() > list->End()) return std::nullopt;
  return static_cast<std::size_t>(std::max(index->End() - list->Start(), 0));
}

/// Where a list begins in the text of its bookmark's range: at the paragraph mark before its heading, but that line may
/// have been deleted and the heading rewritten since.
std::size_t ListBegin(std::u16string_view text, std::u16string_view heading, std::optional<std::size_t> behindIndex) {
  const std::u16string opening = std::u16string(1, word::kParagraphMark).append(heading);
  for (const std::u16string_view wanted : {std::u16string_view(opening), heading}) {
    const std::size_t found = text.find(wanted, behindIndex.value_or(0));
    if (found != std::u16string_view::npos) return found;
  }
  return behindIndex ? *behindIndex : std::min(text.find(word::kParagraphMark), text.size());
}

void RemoveList(const word::DocumentPtr& document, std::u16string_view name, std::u16string_view heading) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (!bookmarks->Exists(name)) return;
  const word::RangePtr range = bookmarks->Item(name)->Range();
  const std::u16string text = TextByPosition(range);
  const std::size_t begin = ListBegin(text, heading, BehindIndex(bookmarks, range));
  if (begin < text.size()) {
    range->SetStart(range->Start() + static_cast<word::Position>(begin));
    range->Delete();
  }
  if (bookmarks->Exists(name)) bookmarks->Item(name)->Delete();
}

bool HoldsOurEntry(const word::RangePtr& range) {
  const word::FieldsPtr fields = range->Fields();
  const int count = fields->Count();
  for (int index = 1; index <= count; ++index) {
    if (IsOurEntry(ParseFieldCode(fields->Item(index)->Code()->Text()))) return true;
  }
  return false;
}

}  // namespace

bool HaveListsMovedEntries(const word::DocumentPtr& document) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  word::Position behind = -1;
  for (const std::u16string_view name : {kNotUsedListBookmark, kNotFoundListBookmark}) {
    if (bookmarks->Exists(name)) behind = std::max(behind, bookmarks->Item(name)->Range()->End());
  }
  if (behind < 0) return false;
  const word::StoryRangesPtr stories = document->StoryRanges();
  const int count = stories->Count();
  bool doesTextFollow = false;
  for (int index = 1; index <= count; ++index) {
    const word::RangePtr story = stories->Item(index);
    switch (story->StoryType()) {
      case word::wdMainTextStory:
        doesTextFollow = behind + 1 < story->End();
        if (HoldsOurEntry(document->Range(behind, story->End()))) return true;
        break;
      case word::wdFootnotesStory:
        if (doesTextFollow && HoldsOurEntry(story)) return true;
        break;
      case word::wdEndnotesStory:
        if (HoldsOurEntry(story)) return true;
        break;
      default:
        break;
    }
  }
  return false;
}

void RemoveExtraLists(const word::DocumentPtr& document) {
  // The later one first: the earlier one's bookmark ends where it begins.
  RemoveList(document, kNotFoundListBookmark, u"NOT FOUND");
  RemoveList(document, kNotUsedListBookmark, u"DEFINED BUT NOT USED / USED ONLY ONCE");
}

}  // namespace marker
