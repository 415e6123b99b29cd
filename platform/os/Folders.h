#pragma once

#include <cstdint>
#include <string>

namespace os {

/// Windows' numbers of the special folders that the system uses.
inline constexpr int kApplicationData = 26;

class Folders {
 public:
  virtual ~Folders() = default;
  /// @param folder its number, @param owner a window handle or 0
  /// @return the path in Windows form without a separator at its end; empty when it cannot be told
  virtual std::u16string SpecialFolder(int folder, std::intptr_t owner) = 0;
};

}  // namespace os
