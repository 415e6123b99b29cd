#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace os {

/// A profile (INI) file's text under the rules of Windows' profile functions. Bytes are Windows-1252 unless a UTF-16
/// byte order mark starts the file. Lines end in CR LF, LF or CR alone. What is not asked to change keeps its bytes.
class IniText {
 public:
  explicit IniText(std::string_view bytes);

  /// The first matching key of the first matching section, without the blanks around it and one enclosing pair of equal
  /// quotes; nothing when section or key is missing.
  std::optional<std::u16string> Find(std::u16string_view section, std::u16string_view key) const;

  /// Replaces the value in its place, or appends the key to its section (before the blank lines at its end), or the
  /// section to the text; what is appended ends its lines in CR LF. Quotes stay as given.
  void Set(std::u16string_view section, std::u16string_view key, std::u16string_view value);

  std::string Bytes() const;

 private:
  enum class Encoding { kAnsi, kUtf16LittleEndian, kUtf16BigEndian };

  struct Line {
    std::size_t begin;
    std::size_t end;   // of its text
    std::size_t next;  // behind its line end
  };

  struct Place {
    bool sectionFound = false;
    bool keyFound = false;
    /// Where a new line of the section goes.
    std::size_t sectionEnd = 0;
    /// The key's value with its blanks.
    std::size_t valueBegin = 0;
    std::size_t valueEnd = 0;
  };

  Line LineAt(std::size_t begin) const;
  Place Locate(std::u16string_view section, std::u16string_view key) const;
  void InsertLines(std::size_t position, const std::u16string& lines);

  Encoding encoding_ = Encoding::kAnsi;
  std::u16string text_;
  /// Half a unit at the end of a UTF-16 file.
  std::string rest_;
};

}  // namespace os
