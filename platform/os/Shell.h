#pragma once

#include <cstdint>
#include <string_view>

namespace os {

class Shell {
 public:
  virtual ~Shell() = default;
  /// Has a document or page opened by the program that is there for it, and does not wait for that.
  /// @param verb "Open" or "open", @param path a file in Windows form or a web address, @param owner a window's handle
  /// @return whether a program took it
  virtual bool Open(std::u16string_view verb, std::u16string_view path, std::intptr_t owner) = 0;
};

}  // namespace os
