#pragma once

#include <cstdint>
#include <string_view>

namespace os {

/// Windows' numbers of what its help viewer does.
inline constexpr int kHelpContents = 1;
inline constexpr int kHelpContext = 15;

class Help {
 public:
  virtual ~Help() = default;
  /// Shows a help file. One that is missing is the viewer's to report.
  /// @param file a path in Windows form, @param command kHelpContents or kHelpContext, @param data the topic's number,
  /// 0 for the contents
  virtual void Show(std::u16string_view file, int command, int data, std::intptr_t owner) = 0;
};

}  // namespace os
