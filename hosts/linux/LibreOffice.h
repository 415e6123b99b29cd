#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace os {

/// Why LibreOffice made no PDF. what() is one sentence.
class LibreOfficeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An installed LibreOffice, run without a window and under a profile of its own, so that neither a person's settings
/// nor a LibreOffice that is open matter.
class LibreOffice {
 public:
  /// Far beyond what any contract takes.
  static constexpr std::chrono::seconds kTimeLimit{300};

  /// The program that $PATH leads to; nothing when LibreOffice is not installed.
  static std::optional<std::filesystem::path> Find();

  /// @param program as Find() says @param folder exists, and is the object's own; the profile and every file go into it
  LibreOffice(std::filesystem::path program, std::filesystem::path folder,
              std::chrono::milliseconds timeLimit = kTimeLimit);

  /// Where a document is to be put for ToPdf.
  std::filesystem::path DocumentFile() const { return folder_ / "document.docx"; }
  /// Lays the document there out. @return the PDF's bytes; the document's bookmarks are named destinations
  /// @throws LibreOfficeError
  std::string ToPdf() const;

 private:
  std::filesystem::path program_;
  std::filesystem::path folder_;
  std::chrono::milliseconds timeLimit_;
};

}  // namespace os
