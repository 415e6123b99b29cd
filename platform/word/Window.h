#pragma once

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace word {

class View : public Object {
 public:
  /// A WdViewType.
  virtual int Type() const = 0;
  virtual void SetType(int value) = 0;
  /// A WdSpecialPane; 0 when no special pane is open.
  virtual int SplitSpecial() const = 0;
  /// Whether formatting marks show.
  virtual bool ShowAll() const = 0;
  virtual void SetShowAll(bool value) = 0;
  /// Stays as set whatever ShowAll says.
  virtual bool ShowHiddenText() const = 0;
  virtual void SetShowHiddenText(bool value) = 0;
};

class Pane : public Object {
 public:
  virtual ViewPtr View() const = 0;
};

class Window : public Object {
 public:
  virtual ViewPtr View() const = 0;
  virtual PanePtr ActivePane() const = 0;
  virtual SelectionPtr Selection() const = 0;
  /// Percent of the window's height given to the upper pane; 0 takes the split away.
  virtual void SetSplitVertical(int percent) = 0;
};

}  // namespace word
