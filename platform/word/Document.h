#pragma once

#include "platform/word/Types.h"

namespace word {

class Document : public Object {
 public:
  /// The file name with its extension; for a document that was never saved, the title Word gave it.
  virtual std::u16string Name() const = 0;
  /// The folder, without a separator at its end; empty while the document was never saved.
  virtual std::u16string Path() const = 0;

  /// The stories that exist, lowest type first. The main text always exists.
  virtual StoryRangesPtr StoryRanges() const = 0;
  virtual BookmarksPtr Bookmarks() const = 0;
  /// The fields of the main text only; notes have their own (Range::Fields). Word's rule.
  virtual FieldsPtr Fields() const = 0;
  /// @throws HostError kNoDocumentOpen when the document has no window
  virtual WindowPtr ActiveWindow() const = 0;
  /// A stretch of the main text. @throws HostError kCommandFailed when outside of it
  virtual RangePtr Range(Position start, Position end) const = 0;

  virtual bool ShowGrammaticalErrors() const = 0;
  virtual void SetShowGrammaticalErrors(bool value) = 0;
  virtual bool ShowSpellingErrors() const = 0;
  virtual void SetShowSpellingErrors(bool value) = 0;

  /// Empties the undo list.
  virtual void UndoClear() = 0;
  /// Writes the document to its file. @throws HostError kCannotSaveFile; the old file is then untouched
  virtual void Save() = 0;
  /// Writes the document to another file, which becomes its own: Path and Name change. The format follows
  /// the present one. @param fileName a full path
  /// @throws HostError kCannotSaveFile; Path and Name are then unchanged
  virtual void SaveAs(std::u16string_view fileName) = 0;
};

/// The ranges of a document's stories, one per existing type, in ascending order of the type.
class StoryRanges : public Object {
 public:
  virtual int Count() const = 0;
  /// @param index from 1, in enumeration order (not the story type)
  /// @return the whole story, its last paragraph mark included
  /// @throws HostError kMemberDoesNotExist
  virtual RangePtr Item(int index) const = 0;
};

}  // namespace word
