#pragma once

#include "hosts/com/Automation.h"

#include "hosts/com/ComPtr.h"
#include "platform/office/CommandBars.h"

namespace com {

/// Hears the clicks of one button of the word processor, from the time it is made until it is destroyed.
class ClickConnection {
 public:
  /// @param makeControl what a handler is given for the button that was clicked
  /// @throws word::HostError when the button tells nobody of its clicks
  ClickConnection(IDispatch* button, office::ClickHandler handler,
                  std::function<office::CommandBarControlPtr(IDispatch*)> makeControl);
  /// A handler that is running comes to its end.
  ~ClickConnection();
  ClickConnection(const ClickConnection&) = delete;
  ClickConnection& operator=(const ClickConnection&) = delete;

 private:
  class Sink;
  ComPtr<IConnectionPoint> point_;
  ComPtr<Sink> sink_;
  DWORD cookie_{0};
};

}  // namespace com
