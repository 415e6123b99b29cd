#include "hosts/recording/Recorded.h"
#include "platform/word/Bookmarks.h"
#include "platform/word/Range.h"

namespace recording {

namespace {

class RecordedBookmark : public Recorded<word::Bookmark> {
 public:
  using Recorded::Recorded;
  std::u16string Name() const override { return On("Bookmark.Name").Name(); }
  word::RangePtr Range() const override { return Wrap(On("Bookmark.Range").Range(), Observer()); }
  void Select() override { Call("Bookmark.Select", ToValue(Inner()->Name())).Select(); }
  void Delete() override { Call("Bookmark.Delete", ToValue(Inner()->Name())).Delete(); }
};

Value NameAndRange(std::u16string_view name, const word::RangePtr& range) {
  Value value = Value::object();
  value["name"] = ToValue(name);
  value["range"] = ToValue(Unwrap(range));
  return value;
}

class RecordedBookmarks : public Recorded<word::Bookmarks> {
 public:
  using Recorded::Recorded;
  int Count() const override { return On("Bookmarks.Count").Count(); }
  bool Exists(std::u16string_view name) const override { return On("Bookmarks.Exists").Exists(name); }
  word::BookmarkPtr Item(std::u16string_view name) const override {
    return Wrap(On("Bookmarks.Item").Item(name), Observer());
  }
  word::BookmarkPtr Item(int index) const override { return Wrap(On("Bookmarks.Item").Item(index), Observer()); }
  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    return Wrap(Call("Bookmarks.Add", NameAndRange(name, range)).Add(name, Unwrap(range)), Observer());
  }
  bool ShowHidden() const override { return On("Bookmarks.ShowHidden").ShowHidden(); }
  void SetShowHidden(bool value) override { Put("Bookmarks.ShowHidden", value).SetShowHidden(value); }
};

}  // namespace

word::BookmarkPtr Wrap(word::BookmarkPtr inner, CallObserver& observer) {
  return WrapAs<RecordedBookmark>(std::move(inner), observer);
}
word::BookmarksPtr Wrap(word::BookmarksPtr inner, CallObserver& observer) {
  return WrapAs<RecordedBookmarks>(std::move(inner), observer);
}

}  // namespace recording
