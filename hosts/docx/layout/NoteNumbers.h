#pragma once

#include <string>

namespace docx::layout {

/// Counts the notes of a document, as their references show.
class NoteNumbers {
 public:
  /// @param footnote false for an endnote
  std::u16string Next(bool footnote);
  /// @param footnotes the w:numFmt of footnotes @param endnotes that of endnotes
  void SetFormats(std::string footnotes, std::string endnotes);
  /// From the first number on, in the same formats.
  NoteNumbers Fresh() const;
  bool operator==(const NoteNumbers&) const = default;

 private:
  int footnotes_{0};
  int endnotes_{0};
  std::string footnoteFormat_{"decimal"};
  std::string endnoteFormat_{"lowerRoman"};
};

}  // namespace docx::layout
