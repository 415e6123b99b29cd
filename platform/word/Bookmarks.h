#pragma once

#include "platform/word/Types.h"

namespace word {

class Bookmark : public Object {
 public:
  virtual std::u16string Name() const = 0;
  /// An independent range over the marked text.
  virtual RangePtr Range() const = 0;
  /// Makes the marked text the selection.
  virtual void Select() = 0;
  /// Removes the mark, not the text.
  virtual void Delete() = 0;
};

/// The bookmarks of a document, every story's. Names are compared without regard to case. Text inserted at
/// a bookmark's start goes inside it, at its end outside (Word's rule).
class Bookmarks : public Object {
 public:
  /// Without the hidden ones (names that begin with "_") unless ShowHidden().
  virtual int Count() const = 0;
  /// Sees hidden bookmarks always.
  virtual bool Exists(std::u16string_view name) const = 0;
  /// @throws HostError kMemberDoesNotExist
  virtual BookmarkPtr Item(std::u16string_view name) const = 0;
  /// @param index from 1, in the order of the names @throws HostError kMemberDoesNotExist
  virtual BookmarkPtr Item(int index) const = 0;
  /// An existing bookmark of that name moves. @throws HostError kBadBookmarkName
  virtual BookmarkPtr Add(std::u16string_view name, const RangePtr& range) = 0;
  virtual bool ShowHidden() const = 0;
  virtual void SetShowHidden(bool value) = 0;
};

}  // namespace word
