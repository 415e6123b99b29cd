#pragma once

#include "platform/word/Bookmarks.h"
#include "platform/word/HostError.h"

namespace word {

/// A collection lists its hidden bookmarks while this stands, and does as before from its end on.
class HiddenBookmarksShown {
 public:
  /// @throws HostError
  explicit HiddenBookmarksShown(const BookmarksPtr& bookmarks)
      : bookmarks_(bookmarks), before_(bookmarks->ShowHidden()) {
    bookmarks_->SetShowHidden(true);
  }
  HiddenBookmarksShown(const HiddenBookmarksShown&) = delete;
  HiddenBookmarksShown& operator=(const HiddenBookmarksShown&) = delete;
  ~HiddenBookmarksShown() {
    if (ended_) return;
    try {
      bookmarks_->SetShowHidden(before_);
    } catch (const HostError&) {  // the error that brought us here tells more
    }
  }
  /// For who wants to know of an error. @throws HostError
  void End() {
    ended_ = true;
    bookmarks_->SetShowHidden(before_);
  }

 private:
  BookmarksPtr bookmarks_;
  bool before_;
  bool ended_{false};
};

}  // namespace word
