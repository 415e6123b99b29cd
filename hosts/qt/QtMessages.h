#pragma once

#include "platform/os/Messages.h"

namespace qt {

class QtFormHost;

/// Message boxes, before the window in front.
class QtMessages : public os::Messages {
 public:
  /// @param windows outlives this
  explicit QtMessages(const QtFormHost& windows) : windows_(windows) {}
  os::Pressed Show(std::u16string_view title, std::u16string_view text, os::Icon icon, os::Buttons buttons) override;

 private:
  const QtFormHost& windows_;
};

}  // namespace qt
