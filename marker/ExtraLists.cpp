#include "marker/ExtraLists.h"

#include "marker/BookmarkNames.h"
#include "marker/StoryText.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

#include <string>
#include <string_view>

namespace marker {
namespace {

void RemoveList(const word::DocumentPtr& document, std::u16string_view name, std::u16string_view heading) {
  const word::BookmarksPtr bookmarks = document->Bookmarks();
  if (!bookmarks->Exists(name)) return;
  const word::RangePtr range = bookmarks->Item(name)->Range();
  const std::u16string text = TextByPosition(range);
  const std::u16string opening = std::u16string(1, word::kParagraphMark).append(heading);
  std::size_t mark = text.find(opening);
  if (mark == std::u16string::npos) mark = text.find(word::kParagraphMark);
  if (mark != std::u16string::npos) {
    range->SetStart(range->Start() + static_cast<word::Position>(mark));
    range->Delete();
  }
  if (bookmarks->Exists(name)) bookmarks->Item(name)->Delete();
}

}  // namespace

void RemoveExtraLists(const word::DocumentPtr& document) {
  // The later one first: the earlier one's bookmark ends where it begins.
  RemoveList(document, kNotFoundBookmark, u"NOT FOUND");
  RemoveList(document, kNotUsedBookmark, u"DEFINED BUT NOT USED / USED ONLY ONCE");
}

}  // namespace marker
