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

}  // namespace os
