#include "hosts/docx/layout/PageFields.h"

#include <string>

#include "hosts/docx/pages/PageLabels.h"

namespace docx::layout {

namespace {

std::u16string Printed(const PageFieldCode& code, const PageFieldNumbers& numbers) {
  const bool page = code.field == PageField::kPage;
  if (page && code.format == nullptr) return std::u16string(numbers.label);
  const int number = page ? numbers.number : code.field == PageField::kPageCount ? numbers.pages : numbers.sectionPages;
  return FormatPageNumber(code.format == nullptr ? "" : code.format, number);
}

void SetPageFields(Paragraph& paragraph, const PageFieldNumbers& numbers) {
  std::u16string text;
  PageField before = PageField::kNone;
  for (Piece& piece : paragraph.pieces) {
    const auto start = static_cast<std::uint32_t>(text.size());
    if (piece.field.field == PageField::kNone) {
      text.append(paragraph.text, piece.start, piece.length);
    } else if (piece.field.field != before) {
      // The first piece of a field shows all of it.
      text += Printed(piece.field, numbers);
      piece.solid = true;
    }
    before = piece.field.field;
    piece.start = start;
    piece.length = static_cast<std::uint32_t>(text.size()) - start;
  }
  paragraph.text = std::move(text);
}

}  // namespace

void SetPageFields(std::vector<Block>& blocks, const PageFieldNumbers& numbers) {
  for (Block& block : blocks) {
    if (Paragraph* paragraph = block.AsParagraph()) {
      SetPageFields(*paragraph, numbers);
      for (const Floating& floating : paragraph->floats) {
        if (floating.text) SetPageFields(floating.text->blocks, numbers);
      }
      continue;
    }
    for (Row& row : block.AsTable()->rows) {
      for (Cell& cell : row.cells) SetPageFields(cell.blocks, numbers);
    }
  }
}

}  // namespace docx::layout
