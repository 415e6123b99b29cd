#pragma once

#include <string>
#include <string_view>

namespace os {

/// The operating system's profile (INI) functions, with their rules: section and key compared without regard
/// to case, blanks around a value dropped, one enclosing pair of quotes dropped on reading and written as given.
/// Text outside the ANSI code page (Windows-1252) is written with its best fit or "?".
class Profile {
 public:
  virtual ~Profile() = default;
  /// @param size the buffer's size: at most size - 1 characters come back
  /// @return the value; defaultValue when file, section or key is missing; a present but empty value is empty
  virtual std::u16string Read(std::u16string_view section, std::u16string_view key, std::u16string_view defaultValue,
                              int size, std::u16string_view path) = 0;
  /// Creates the file and the section when they are missing; all else in the file stays as it is.
  /// @return false when the file could not be written; it is then unchanged
  virtual bool Write(std::u16string_view section, std::u16string_view key, std::u16string_view value,
                     std::u16string_view path) = 0;
};

}  // namespace os
