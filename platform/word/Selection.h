#pragma once

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace word {

/// The tables that the selection lies in or covers.
class Tables : public Object {
 public:
  virtual int Count() const = 0;
};

/// Arguments of Selection::GoTo by name; what is absent is Word's missing argument.
struct GoToArguments {
  WdGoToItem What{};
  int Which{0};           ///< 0: absent
  std::u16string Name{};  ///< empty: absent
};

/// The selection of a window: a stretch of one story.
class Selection : public Object {
 public:
  /// An independent range at the selection's place.
  virtual RangePtr Range() const = 0;
  virtual TablesPtr Tables() const = 0;
  virtual void Collapse(WdCollapseDirection direction) = 0;
  /// Moves to the start of the unit; for a story, of the story that the selection is in.
  virtual void HomeKey(WdUnits unit) = 0;
  /// Goes to an item: a bookmark becomes the selection, a page the insertion point at its start.
  /// @throws HostError kBookmarkDoesNotExist
  virtual void GoTo(const GoToArguments& arguments) = 0;
};

}  // namespace word
