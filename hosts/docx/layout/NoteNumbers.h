#pragma once

#include <string>

namespace docx::layout {

/// Numbers of the notes, by the element that refers to them.
class NoteNumbers {
 public:
  /// @param format the w:numFmt of the notes
  std::u16string Next(bool footnote);
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
