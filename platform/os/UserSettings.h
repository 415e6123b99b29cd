#pragma once

#include <string>
#include <string_view>

namespace os {

/// Small values that the operating system keeps for a program and user, as text.
class UserSettings {
 public:
  virtual ~UserSettings() = default;
  virtual std::u16string Read(std::u16string_view section, std::u16string_view key,
                              std::u16string_view defaultValue) = 0;
  virtual void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) = 0;
};

}  // namespace os
