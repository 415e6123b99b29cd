#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/docx/story/Story.h"

namespace docx {

/// The bookmarks of a document by name. Names are compared without regard to case; of several of one name the last
/// counts, as in Word.
class BookmarkIndex {
 public:
  struct Mark {
    Story* story{nullptr};
    std::u16string name;
    XmlNode first;
    XmlNode last;
  };

  BookmarkIndex() = default;
  BookmarkIndex(const BookmarkIndex&) = delete;
  BookmarkIndex& operator=(const BookmarkIndex&) = delete;

  /// Takes a story's bookmarks in and follows their removal. The story outlives this object or never changes again.
  void Read(Story& story);
  const Mark* Find(std::u16string_view name) const;
  /// Numbered from 0 in the order of their names, the hidden ones first. Walking from the last to the first stays cheap
  /// while each is removed.
  int Count() const { return static_cast<int>(marks_.size()); }
  int HiddenCount() const { return hidden_; }
  const Mark& Item(int number) const;
  void Add(Story& story, Position start, Position end, std::u16string_view name);
  void Remove(std::u16string_view name);
  static Position Start(const Mark& mark) { return mark.story->Atoms().OfBookmark(mark.first).start; }
  static Position End(const Mark& mark) { return mark.story->Atoms().OfBookmark(mark.last).start; }
  /// @return whether Word takes it: a letter or "_" first, then letters, digits and "_", at most 40 in all
  static bool IsName(std::u16string_view name);

 private:
  using Marks = std::unordered_map<std::u16string, Mark>;

  static std::u16string Key(std::u16string_view name);
  void Put(const std::u16string& key, Mark mark);
  void Erase(const Marks::iterator& mark);
  void Forget(const std::u16string& key);
  int NewId();
  void ReadIds();

  Marks marks_;
  int hidden_{0};  // of them
  std::unordered_map<const XmlNodeData*, std::u16string> keys_;
  mutable std::vector<const Marks::value_type*> order_;  // of marks_, by the keys; empty while it has to be made anew
  // A new bookmark gets the lowest free id, so that the same steps on a document that was marked before, or never, give
  // the same ids. Those that stand where no story comes to, such as in the other branch of an alternate content, are
  // not free either.
  std::multiset<int> ids_;  // of bookmarks' beginnings, and of ends without one; empty until one is added
  bool knowsIds_{false};
  int lowestFree_{0};
  std::set<const XmlPart*> parts_;
};

}  // namespace docx
