#include "platform/word/Bookmarks.h"

#include <utility>

#include "hosts/docx/model/DocumentProxies.h"
#include "hosts/docx/model/RangeProxy.h"

namespace docx {

namespace {

class BookmarkProxy : public word::Bookmark {
 public:
  BookmarkProxy(std::weak_ptr<OpenDocument> document, std::u16string name)
      : document_(std::move(document)), name_(std::move(name)) {}

  std::u16string Name() const override { return Mark("Bookmark.Name").name; }

  word::RangePtr Range() const override {
    const BookmarkIndex::Mark& mark = Mark("Bookmark.Range");
    return RangeProxy::Make(document_.lock(), *mark.story, BookmarkIndex::Start(mark), BookmarkIndex::End(mark));
  }

  void Select() override {
    const BookmarkIndex::Mark& mark = Mark("Bookmark.Select");
    document_.lock()->Select(*mark.story, BookmarkIndex::Start(mark), BookmarkIndex::End(mark));
  }

  void Delete() override {
    Mark("Bookmark.Delete");
    document_.lock()->BeforeBookmark("Bookmark.Delete");
    document_.lock()->Bookmarks().Remove(name_);
  }

 private:
  const BookmarkIndex::Mark& Mark(std::string_view member) const {
    const BookmarkIndex::Mark* mark = Lock(document_, member)->Bookmarks().Find(name_);
    if (mark == nullptr) throw word::HostError(word::kObjectDeleted, u"Object has been deleted.", member);
    return *mark;
  }

  std::weak_ptr<OpenDocument> document_;
  std::u16string name_;
};

class BookmarksProxy : public word::Bookmarks {
 public:
  explicit BookmarksProxy(std::weak_ptr<OpenDocument> document) : document_(std::move(document)) {}

  int Count() const override {
    const BookmarkIndex& index = Lock(document_, "Bookmarks.Count")->Bookmarks();
    return index.Count() - (showHidden_ ? 0 : index.HiddenCount());
  }

  bool Exists(std::u16string_view name) const override {
    return Lock(document_, "Bookmarks.Exists")->Bookmarks().Find(name) != nullptr;
  }

  word::BookmarkPtr Item(std::u16string_view name) const override {
    if (!Exists(name)) ThrowNoMember("Bookmarks.Item");
    return std::make_shared<BookmarkProxy>(document_, std::u16string(name));
  }

  word::BookmarkPtr Item(int index) const override {
    if (index < 1 || index > Count()) ThrowNoMember("Bookmarks.Item");
    const BookmarkIndex& bookmarks = Lock(document_, "Bookmarks.Item")->Bookmarks();
    const int skipped = showHidden_ ? 0 : bookmarks.HiddenCount();
    return std::make_shared<BookmarkProxy>(document_, bookmarks.Item(index - 1 + skipped).name);
  }

  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    const std::shared_ptr<OpenDocument> document = Lock(document_, "Bookmarks.Add");
    if (!BookmarkIndex::IsName(name)) {
      throw word::HostError(word::kBadBookmarkName, u"Bad bookmark name.", "Bookmarks.Add");
    }
    document->BeforeBookmark("Bookmarks.Add");
    RangeProxy& proxy = RangeProxy::Of(range);
    document->Bookmarks().Add(proxy.StoryOf("Bookmarks.Add"), proxy.Start(), proxy.End(), name);
    return Item(name);
  }

  bool ShowHidden() const override { return showHidden_; }
  void SetShowHidden(bool value) override { showHidden_ = value; }

 private:
  std::weak_ptr<OpenDocument> document_;
  bool showHidden_{false};
};

}  // namespace

word::BookmarksPtr MakeBookmarks(const std::shared_ptr<OpenDocument>& document) {
  return std::make_shared<BookmarksProxy>(document);
}

}  // namespace docx
