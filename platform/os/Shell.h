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

enum class PaperSize { kA4, kLetter };

class Locale {
 public:
  virtual ~Locale() = default;
  /// The paper that people use where the user is.
  virtual PaperSize Paper() = 0;
};

}  // namespace os
