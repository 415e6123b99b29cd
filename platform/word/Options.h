#pragma once

#include "platform/word/Types.h"

namespace word {

/// Options of the application; they outlive documents.
class Options : public Object {
 public:
  virtual bool AutoFormatAsYouTypeReplaceQuotes() const = 0;
  virtual void SetAutoFormatAsYouTypeReplaceQuotes(bool value) = 0;
  /// A stored value without effect in today's Word.
  virtual bool AllowFastSave() const = 0;
  virtual void SetAllowFastSave(bool value) = 0;
  virtual bool CheckSpellingAsYouType() const = 0;
  virtual void SetCheckSpellingAsYouType(bool value) = 0;
  virtual bool CheckGrammarAsYouType() const = 0;
  virtual void SetCheckGrammarAsYouType(bool value) = 0;
  /// Background repagination.
  virtual bool Pagination() const = 0;
  virtual void SetPagination(bool value) = 0;
  /// A folder without separator at its end. @param path a WdDefaultFilePath; 8 is Word's start-up folder
  virtual std::u16string DefaultFilePath(int path) const = 0;
};

}  // namespace word
