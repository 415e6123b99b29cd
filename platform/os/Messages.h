#pragma once

#include <string_view>

namespace os {

enum class Icon { kNone, kInformation, kExclamation, kQuestion, kCritical };
enum class Buttons { kOk, kOkCancel, kYesNo, kYesNoCancel };
enum class Pressed { kOk, kCancel, kYes, kNo };

class Messages {
 public:
  virtual ~Messages() = default;
  /// Shows a modal message box; lines end in CR LF. Closing the box counts as Cancel where there is such a
  /// button, as OK where that is the only one.
  virtual Pressed Show(std::u16string_view title, std::u16string_view text, Icon icon, Buttons buttons) = 0;
};

}  // namespace os
