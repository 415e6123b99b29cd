#pragma once

#include "platform/word/Types.h"

#include <string_view>
#include <utility>
#include <vector>

namespace marker {

/// The places that a run's bookmarks hold. Text that goes takes a bookmark inside it along, but never its place.
class KeptPlaces {
 public:
  /// Of those bookmarks that the document has.
  explicit KeptPlaces(const word::DocumentPtr& document);

  /// Adds those bookmarks again that have gone since.
  void PutBack() const;

 private:
  word::BookmarksPtr bookmarks_;
  std::vector<std::pair<std::u16string_view, word::RangePtr>> places_;
};

}  // namespace marker
