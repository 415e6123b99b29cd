#pragma once

#include "platform/word/Types.h"

namespace word {

/// The character formatting of a range, as it shows: direct formatting, styles and defaults taken together.
class Font : public Object {
 public:
  /// -1, 0 or wdUndefined. Setting takes -1 or 0.
  virtual int Bold() const = 0;
  virtual void SetBold(int value) = 0;
  /// -1, 0 or wdUndefined.
  virtual int Hidden() const = 0;
  /// A WdColor or red-green-blue number (red lowest), or wdUndefined.
  virtual int Color() const = 0;
  virtual void SetColor(int value) = 0;
};

/// The formatting of every paragraph that a range touches.
class ParagraphFormat : public Object {
 public:
  /// A WdParagraphAlignment, or wdUndefined.
  virtual int Alignment() const = 0;
  virtual void SetAlignment(int value) = 0;
  /// In points; wdUndefined where it differs.
  virtual double SpaceBefore() const = 0;
  virtual void SetSpaceBefore(double points) = 0;
  virtual double SpaceAfter() const = 0;
  virtual void SetSpaceAfter(double points) = 0;
};

}  // namespace word
