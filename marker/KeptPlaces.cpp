#include "marker/KeptPlaces.h"

#include "platform/BookmarkNames.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Document.h"
#include "platform/word/Range.h"

namespace marker {

KeptPlaces::KeptPlaces(const word::DocumentPtr& document) : bookmarks_(document->Bookmarks()) {
  for (const std::u16string_view name : {kIndexStartBookmark, kReturnBookmark}) {
    if (bookmarks_->Exists(name)) places_.emplace_back(name, bookmarks_->Item(name)->Range());
  }
}

void KeptPlaces::PutBack() const {
  for (const auto& [name, place] : places_) {
    if (!bookmarks_->Exists(name)) bookmarks_->Add(name, place);
  }
}

}  // namespace marker
