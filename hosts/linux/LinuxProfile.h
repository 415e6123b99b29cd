#pragma once

#include "platform/os/Profile.h"

namespace os {

/// Profile files on Linux; paths are in Windows form. Each write replaces the whole file in one step; a file without
/// write permission is not written.
class LinuxProfile : public Profile {
 public:
  std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue, int size,
                      std::u16string_view path) override;
  bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
             std::u16string_view path) override;
};

}  // namespace os
