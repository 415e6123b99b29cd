#include "hosts/docx/layout/NoteNumbers.h"

#include <utility>

#include "hosts/docx/layout/Numbering.h"

namespace docx::layout {

std::u16string NoteNumbers::Next(bool footnote) {
  return footnote ? FormatListNumber(footnoteFormat_, ++footnotes_) : FormatListNumber(endnoteFormat_, ++endnotes_);
}

NoteNumbers NoteNumbers::Fresh() const {
  NoteNumbers fresh;
  fresh.SetFormats(footnoteFormat_, endnoteFormat_);
  return fresh;
}

void NoteNumbers::SetFormats(std::string footnotes, std::string endnotes) {
  if (!footnotes.empty()) footnoteFormat_ = std::move(footnotes);
  if (!endnotes.empty()) endnoteFormat_ = std::move(endnotes);
}

}  // namespace docx::layout
