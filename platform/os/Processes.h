#pragma once

#include <string>
#include <vector>

namespace os {

class Processes {
 public:
  virtual ~Processes() = default;
  /// The program file of each running process that may be looked at, as a full path in Windows form.
  virtual std::vector<std::u16string> ModuleFileNames() = 0;
};

/// Small values that the operating system keeps for a program and user, as text.
class UserSettings {
 public:
  virtual ~UserSettings() = default;
  virtual std::u16string Read(std::u16string_view section, std::u16string_view key,
                              std::u16string_view defaultValue) = 0;
  virtual void Write(std::u16string_view section, std::u16string_view key, std::u16string_view value) = 0;
};

}  // namespace os
