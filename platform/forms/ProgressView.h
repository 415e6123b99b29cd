#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace forms {

/// Offered by a form that shows how far a long step is, for hosts that tell it otherwise than by a window.
class ProgressView {
 public:
  virtual ~ProgressView() = default;
  virtual std::array<std::u16string, 3> Lines() const = 0;
  /// As in the last update; total 0: it did not say how far the step is.
  virtual std::int32_t Completed() const = 0;
  virtual std::int32_t Total() const = 0;
  /// The text in the bar, such as "45% completed"; empty while there is no bar.
  virtual std::u16string BarText() const = 0;
};

}  // namespace forms
