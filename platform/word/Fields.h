#pragma once

#include "platform/word/Constants.h"
#include "platform/word/Types.h"

namespace word {

class Field : public Object {
 public:
  /// A WdFieldType or another of Word's numbers; wdFieldEmpty for what the host has no number for.
  virtual int Type() const = 0;
  /// The code between the field's begin and separator marks, blanks included; a tab reads as 9.
  virtual RangePtr Code() const = 0;
  /// The result between the separator and the end mark; empty pointer for a field that has none, such as XE.
  virtual RangePtr Result() const = 0;
  /// Computes the result anew. @return true on success
  virtual bool Update() = 0;
  /// Removes code, result and marks.
  virtual void Delete() = 0;
};

/// Arguments of Fields::Add by name.
struct FieldArguments {
  int Type{wdFieldEmpty};
  std::u16string Text{};          ///< the code, without the blanks around it
  bool PreserveFormatting{true};  ///< appends Word's \* MERGEFORMAT
};

/// Fields in the order of their start, nested ones included. Numbered from 1. After an addition or removal
/// the numbers of later fields change: walk from the last to the first when deleting.
class Fields : public Object {
 public:
  virtual int Count() const = 0;
  /// @throws HostError kMemberDoesNotExist
  virtual FieldPtr Item(int index) const = 0;
  /// Puts a field in the place of the range's text, with a blank before and behind the code, as Word does.
  /// It has no result until it is updated; an INDEX is updated at once, as in Word.
  virtual FieldPtr Add(const RangePtr& range, const FieldArguments& arguments) = 0;
};

}  // namespace word
