#pragma once

#include "platform/office/CommandBars.h"
#include "platform/word/Types.h"

namespace word {

/// The open documents. Items are numbered from 1.
class Documents : public Object {
 public:
  virtual int Count() const = 0;
  /// @param name the document's Name, compared without regard to case
  /// @throws HostError kMemberDoesNotExist when none has that name
  virtual DocumentPtr Item(std::u16string_view name) const = 0;
};

/// A template or document in which the word processor keeps what is changed of its menus.
class Customization : public Object {
 public:
  /// Whether it has no change that is not saved.
  virtual bool Saved() const = 0;
  virtual void SetSaved(bool value) = 0;
  virtual void Save() = 0;
};

/// The word processor.
class Application : public Object {
 public:
  virtual DocumentsPtr Documents() const = 0;
  /// @throws HostError kNoDocumentOpen when no document is open
  virtual DocumentPtr ActiveDocument() const = 0;
  /// The selection of the active document's window. @throws HostError kNoDocumentOpen
  virtual SelectionPtr Selection() const = 0;
  virtual OptionsPtr Options() const = 0;
  virtual bool ScreenUpdating() const = 0;
  virtual void SetScreenUpdating(bool value) = 0;
  virtual void ScreenRefresh() = 0;
  /// @throws HostError kMethodNotAvailable where there are no menus
  virtual office::CommandBarsPtr CommandBars() const = 0;
  /// Where changes of menus are kept.
  virtual CustomizationPtr CustomizationContext() const = 0;
};

}  // namespace word
