#include "platform/word/HiddenBookmarks.h"

#include <gtest/gtest.h>

#include "FakeDocument.h"

namespace {

class HiddenBookmarks : public testing::Test {
 protected:
  HiddenBookmarks() {
    document_.SetBookmark(u"Price", 0, 3);
    document_.SetBookmark(u"_Ref1", 4, 9);
  }

  fake::Document document_{u"The Purchase Price."};
  word::BookmarksPtr bookmarks_ = document_.Bookmarks();
};

TEST_F(HiddenBookmarks, AreCountedWhileTheyAreShown) {
  word::HiddenBookmarksShown shown(bookmarks_);
  EXPECT_EQ(bookmarks_->Count(), 2);
  shown.End();
  EXPECT_EQ(bookmarks_->Count(), 1);
}

TEST_F(HiddenBookmarks, AreHiddenAgainAfterAnError) {
  EXPECT_THROW(
      {
        const word::HiddenBookmarksShown shown(bookmarks_);
        bookmarks_->Item(u"Nowhere");
      },
      word::HostError);
  EXPECT_FALSE(bookmarks_->ShowHidden());
}

TEST_F(HiddenBookmarks, AreShownAsTheyWereWhereAUserShowsThem) {
  bookmarks_->SetShowHidden(true);
  word::HiddenBookmarksShown(bookmarks_).End();
  EXPECT_EQ(bookmarks_->Count(), 2);
}

}  // namespace
