#pragma once

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace word {

/// A stretch of one story. It follows edits made elsewhere: text inserted before it shifts it, a deletion
/// inside shrinks it, a deletion of all of it collapses it. Text inserted at its start or end by others
/// stays outside; text that it inserts itself is covered by it afterwards, as each member says.
/// Every change throws HostError kMethodNotAvailable in a protected document.
class Range : public Object {
 public:
  virtual Position Start() const = 0;
  virtual Position End() const = 0;
  /// A start beyond End() takes the end along; an end before Start() takes the start along. Values outside
  /// the story are brought to its nearest end.
  virtual void SetStart(Position value) = 0;
  virtual void SetEnd(Position value) = 0;
  virtual void SetRange(Position start, Position end) = 0;

  /// The characters covered. A cell mark and an end-of-row mark read as two characters, 13 and 7, though they count
  /// one position (Word's rule). What TextRetrievalMode leaves out is missing; tracked deletions are missing unless
  /// both its switches are on, so that the text then holds every character there is.
  virtual std::u16string Text() const = 0;
  /// Replaces what is covered; the range then covers the new text. CR, LF and CR LF each make one paragraph
  /// mark, 9 a tab, 11 a line break. The new text takes the formatting of the first character replaced, or,
  /// for an empty range, of the character before it in its paragraph, or else of the one after it.
  virtual void SetText(std::u16string_view value) = 0;
  virtual TextRetrievalModePtr TextRetrievalMode() const = 0;

  virtual WdStoryType StoryType() const = 0;
  /// With wdActiveEndPageNumber the page that the range's end stands on, with wdNumberOfPagesInDocument how many there
  /// are. Pages count from 1 through the whole document, whatever is printed on them; a place between two pages is on
  /// the second.
  virtual int Information(WdInformation type) const = 0;
  /// Characters of the whole story; 1 for an empty one.
  virtual Position StoryLength() const = 0;
  /// The next story of the same kind linked to this one; empty for the main text and for notes.
  virtual RangePtr NextStoryRange() const = 0;

  /// An independent range at the same place.
  virtual RangePtr Duplicate() const = 0;
  virtual void Collapse(WdCollapseDirection direction) = 0;
  /// Moves the start by whole units. For paragraphs and a negative count the first step goes to the start
  /// of the paragraph the start is in, or of the one before when it is at a paragraph's start.
  /// @return the units moved, signed; 0 when it could not move
  virtual int MoveStart(WdUnits unit, int count) = 0;
  /// Makes this the selection.
  virtual void Select() = 0;

  /// Inserts a paragraph mark before the range, which then covers it too.
  virtual void InsertParagraphBefore() = 0;
  /// Deletes what is covered. Bookmarks whose whole text goes are deleted as well.
  virtual void Delete() = 0;

  /// This range's own search, kept with the range; a hit moves the range onto the match.
  virtual FindPtr Find() const = 0;
  virtual CharactersPtr Characters() const = 0;
  /// The fields that begin inside the range, in order of their start, nested ones included.
  virtual FieldsPtr Fields() const = 0;
  /// The tracked changes that touch the range, in order of their start.
  virtual RevisionsPtr Revisions() const = 0;
  virtual FontPtr Font() const = 0;
  virtual ParagraphFormatPtr ParagraphFormat() const = 0;

  /// A WdColorIndex, or wdUndefined where it differs within the range.
  virtual int HighlightColorIndex() const = 0;
  virtual void SetHighlightColorIndex(int value) = 0;
};

/// The single characters of a range.
class Characters : public Object {
 public:
  /// The first or last character as a range; for an empty range the character after it.
  virtual RangePtr First() const = 0;
  virtual RangePtr Last() const = 0;
};

/// What Range::Text() holds. Each range has its own; it starts with neither.
class TextRetrievalMode : public Object {
 public:
  /// With it, a field reads as 19, its code, 20, its result, 21; without it as its result alone.
  virtual bool IncludeFieldCodes() const = 0;
  virtual void SetIncludeFieldCodes(bool value) = 0;
  /// With it, hidden text is in the text whether or not the window shows it.
  virtual bool IncludeHiddenText() const = 0;
  virtual void SetIncludeHiddenText(bool value) = 0;
};

/// One tracked change.
class Revision : public Object {
 public:
  /// A WdRevisionType, or another of Word's numbers for changes of formatting.
  virtual int Type() const = 0;
  virtual RangePtr Range() const = 0;
};

/// Numbered from 1.
class Revisions : public Object {
 public:
  virtual int Count() const = 0;
  /// @throws HostError kMemberDoesNotExist
  virtual RevisionPtr Item(int index) const = 0;
};

}  // namespace word
