#include "hosts/docx/layout/PageFields.h"

#include <algorithm>
#include <string>

#include "hosts/docx/pages/PageLabels.h"

namespace docx::layout {

namespace {

/// The next word of a field's code. @param code loses it
std::string_view TakeWord(std::string_view& code) {
  const std::size_t begin = std::min(code.find_first_not_of(' '), code.size());
  code.remove_prefix(begin);
  std::size_t end = std::min(code.find(' '), code.size());
  const std::size_t slash = code.find('\\', 1);
  end = std::min(end, slash);
  const std::string_view word = code.substr(0, end);
  code.remove_prefix(end);
  return word;
}

std::string InCapitals(std::string_view text) {
  std::string capitals(text);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return capitals;
}

/// The w:fmt of a format switch's word; nullptr for one that is not about numbers.
const char* NumberFormatOf(std::string_view word) {
  const std::string name = InCapitals(word);
  const bool lower = !word.empty() && word.front() >= 'a';
  if (name == "ARABIC") return "decimal";
  if (name == "ARABICDASH") return "numberInDash";
  if (name == "ROMAN") return lower ? "lowerRoman" : "upperRoman";
  if (name == "ALPHABETIC") return lower ? "lowerLetter" : "upperLetter";
  return nullptr;
}

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

PageFieldCode PageFieldOf(std::string_view code) {
  PageFieldCode field;
  const std::string name = InCapitals(TakeWord(code));
  if (name == "PAGE") field.field = PageField::kPage;
  if (name == "NUMPAGES") field.field = PageField::kPageCount;
  if (name == "SECTIONPAGES") field.field = PageField::kSectionPages;
  if (field.field == PageField::kNone) return field;
  while (!code.empty()) {
    const std::string_view word = TakeWord(code);
    if (!word.starts_with("\\*")) continue;
    if (const char* format = NumberFormatOf(word.size() > 2 ? word.substr(2) : TakeWord(code))) field.format = format;
  }
  return field;
}

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
