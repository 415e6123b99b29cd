#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/office/CommandBars.h"

namespace menus {

/// A control of a menu bar as it is now: a button, or a popup with controls of its own.
struct Item {
  office::ControlType type{office::msoControlButton};
  int id{1};
  std::u16string caption{};  ///< "&" stands before the accelerator
  std::u16string tag{};
  bool beginGroup{false};  ///< a line stands above it
  bool visible{true};
  bool temporary{false};  ///< it goes when the word processor is closed
  office::ClickHandler onClick{};
  std::vector<std::shared_ptr<Item>> items{};  ///< of a popup
};

/// Told of changes to menus.
class Observer {
 public:
  virtual ~Observer() = default;
  /// A control that the system added has both its caption and its tag now.
  virtual void Added(const Item& item) = 0;
  /// A control goes, with all that is in it.
  virtual void Deleted(const Item& item) = 0;
  /// Anything else: whoever draws the menus draws them anew.
  virtual void Changed() {}
};

/// The word processor's menu bars, in memory. One bar is there from the start, "Tools".
class MenuBars {
 public:
  /// @param observer outlives the menus; nullptr: none
  explicit MenuBars(Observer* observer = nullptr);
  ~MenuBars();
  MenuBars(const MenuBars&) = delete;
  MenuBars& operator=(const MenuBars&) = delete;

  /// The menus as the system sees them. Valid beyond this object, but then every member throws word::HostError.
  office::CommandBarsPtr CommandBars() const;

  /// The controls of "Tools", in their order.
  const std::vector<std::shared_ptr<Item>>& Tools() const;
  /// Puts a control there that the word processor itself has.
  void AddBuiltIn(Item item);
  /// A control that the word processor has, on another bar than "Tools".
  void AddElsewhere(Item item);

  /// A person clicks a button. @return false when it is hidden, deleted or has no handler
  bool Click(const std::shared_ptr<Item>& item);

 private:
  struct State;
  class Control;
  class Controls;
  class Bar;
  class Bars;

  std::shared_ptr<State> state_;
};

}  // namespace menus
