#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>

namespace docx {

/// A file that is no PDF, or none whose pages can be counted. what() is one clause: "it has no pages".
class PdfError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a PDF says about places in it.
struct PdfPages {
  int count{1};
  /// Named destinations: the page that each is on, from 1. Those of pages that the file does not have are left out.
  std::map<std::string, int, std::less<>> destinations{};
};

/// Reads a PDF that is not encrypted, by its objects instead of its tables of them, so that neither a damaged table nor
/// the kind of table matters. @param pdf the whole file
/// @throws PdfError
PdfPages ReadPdfPages(std::string_view pdf);

}  // namespace docx
