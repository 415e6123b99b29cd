#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/word/Types.h"

/// Office's command bars: the menus and buttons of the word processor itself. As there, items count from 1, and objects
/// are cheap proxies.
namespace office {

/// Office's numbers.
enum ControlType : int { msoControlButton = 1, msoControlPopup = 10 };

class CommandBar;
class CommandBarControl;
class CommandBarControls;
class CommandBars;

using CommandBarPtr = std::shared_ptr<CommandBar>;
using CommandBarControlPtr = std::shared_ptr<CommandBarControl>;
using CommandBarControlsPtr = std::shared_ptr<CommandBarControls>;
using CommandBarsPtr = std::shared_ptr<CommandBars>;

/// A button's click event. @param cancelDefault set to true: what the button does of its own accord does not follow
using ClickHandler = std::function<void(const CommandBarControlPtr& control, bool& cancelDefault)>;

/// A button, or a popup menu with controls of its own. After it was deleted every member throws
/// word::HostError(kObjectDeleted).
class CommandBarControl : public word::Object {
 public:
  virtual ControlType Type() const = 0;
  /// Of a built-in control; 1 for others.
  virtual int Id() const = 0;
  /// "&" stands before the accelerator.
  virtual std::u16string Caption() const = 0;
  virtual void SetCaption(std::u16string_view value) = 0;
  virtual std::u16string Tag() const = 0;
  virtual void SetTag(std::u16string_view value) = 0;
  /// A line stands above it.
  virtual bool BeginGroup() const = 0;
  virtual void SetBeginGroup(bool value) = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool value) = 0;
  /// Of a popup. @throws word::HostError kMethodNotAvailable
  virtual CommandBarControlsPtr Controls() const = 0;
  /// Who is told of a button's clicks, as long as button and object are there; an empty one ends it. One at a time.
  virtual void SetClickHandler(ClickHandler handler) = 0;
  /// Takes it off its bar, with all that is in it.
  virtual void Delete() = 0;
};

class CommandBarControls : public word::Object {
 public:
  struct AddArguments {
    ControlType Type{msoControlButton};
    int Id{1};  ///< of a built-in control
    /// It goes when the word processor is closed.
    bool Temporary{false};
  };

  virtual int Count() const = 0;
  /// @throws word::HostError kMemberDoesNotExist
  virtual CommandBarControlPtr Item(int index) const = 0;
  /// At the end.
  virtual CommandBarControlPtr Add(const AddArguments& arguments) = 0;
};

class CommandBar : public word::Object {
 public:
  virtual CommandBarControlsPtr Controls() const = 0;
};

class CommandBars : public word::Object {
 public:
  /// @throws word::HostError kMemberDoesNotExist
  virtual CommandBarPtr Item(std::u16string_view name) const = 0;
  /// A control by its number, on any bar; nullptr when there is none.
  virtual CommandBarControlPtr FindControl(int id) const = 0;
};

}  // namespace office
