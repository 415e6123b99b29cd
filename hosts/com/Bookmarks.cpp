#include "platform/word/Bookmarks.h"

#include "hosts/com/Objects.h"
#include "platform/word/Range.h"

namespace com {

namespace {

class Bookmark : public Proxied<word::Bookmark> {
 public:
  using Proxied::Proxied;
  std::u16string Name() const override { return word_.Text("Bookmark.Name"); }
  word::RangePtr Range() const override { return MakeRange(word_.Object("Bookmark.Range")); }
  void Select() override { word_.Call("Bookmark.Select"); }
  void Delete() override { word_.Call("Bookmark.Delete"); }
};

class Bookmarks : public Proxied<word::Bookmarks> {
 public:
  using Proxied::Proxied;
  int Count() const override { return word_.Int("Bookmarks.Count"); }
  bool Exists(std::u16string_view name) const override { return word_.Get("Bookmarks.Exists", {name}).ToBool(); }
  word::BookmarkPtr Item(std::u16string_view name) const override { return Make("Bookmarks.Item", {name}); }
  word::BookmarkPtr Item(int index) const override { return Make("Bookmarks.Item", {index}); }
  word::BookmarkPtr Add(std::u16string_view name, const word::RangePtr& range) override {
    return Make("Bookmarks.Add", {name, ObjectOf(range)});
  }
  bool ShowHidden() const override { return word_.Bool("Bookmarks.ShowHidden"); }
  void SetShowHidden(bool value) override { word_.Put("Bookmarks.ShowHidden", value); }

 private:
  word::BookmarkPtr Make(std::string_view member, Dispatch::Arguments arguments) const {
    return std::make_shared<Bookmark>(word_.Object(member, arguments));
  }
};

}  // namespace

word::BookmarksPtr MakeBookmarks(Dispatch word) { return std::make_shared<Bookmarks>(std::move(word)); }

}  // namespace com
