#include "hosts/docx/layout/PageFields.h"

#include <string>

#include "hosts/docx/pages/PageLabels.h"

namespace docx::layout {

namespace {

void SetPageFields(Paragraph& paragraph, std::u16string_view label, std::u16string_view count) {
  std::u16string text;
  PageField before = PageField::kNone;
  for (Piece& piece : paragraph.pieces) {
    const auto start = static_cast<std::uint32_t>(text.size());
    if (piece.field == PageField::kNone) {
      text.append(paragraph.text, piece.start, piece.length);
    } else if (piece.field != before) {
      // The first piece of a field shows all of it.
      text += piece.field == PageField::kPage ? label : count;
      piece.solid = true;
    }
    before = piece.field;
    piece.start = start;
    piece.length = static_cast<std::uint32_t>(text.size()) - start;
  }
  paragraph.text = std::move(text);
}

}  // namespace

void SetPageFields(std::vector<Block>& blocks, std::u16string_view label, int pageCount) {
  const std::u16string count = FormatPageNumber({}, pageCount);
  for (Block& block : blocks) {
    if (Paragraph* paragraph = block.AsParagraph()) {
      SetPageFields(*paragraph, label, count);
      for (const Floating& floating : paragraph->floats) {
        if (floating.text) SetPageFields(floating.text->blocks, label, pageCount);
      }
      continue;
    }
    for (Row& row : block.AsTable()->rows) {
      for (Cell& cell : row.cells) SetPageFields(cell.blocks, label, pageCount);
    }
  }
}

}  // namespace docx::layout
