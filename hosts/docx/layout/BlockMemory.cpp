#include "hosts/docx/layout/BlockMemory.h"

#include <unicode/utf16.h>

#include <algorithm>
#include <utility>

#include "hosts/docx/layout/ParagraphLines.h"

namespace docx::layout {

namespace {

void Shift(const Block& block, Position by) {
  if (Paragraph* paragraph = block.AsParagraph()) {
    paragraph->start += by;
    paragraph->end += by;
    for (Piece& piece : paragraph->pieces) piece.position += by;
    for (Position& lastBreak : paragraph->lastBreaks) lastBreak += by;
    return;
  }
  for (Row& row : block.AsTable()->rows) {
    row.start += by;
    for (const Cell& cell : row.cells) {
      for (const Block& inner : cell.blocks) Shift(inner, by);
    }
  }
}

using Copies = std::unordered_map<const void*, Block>;

/// A copy that shares nothing that moves. @param copies gets it, and those of what is in it, by their originals
Block CopyOf(const Block& block, Copies& copies) {
  Block copy;
  if (const Paragraph* paragraph = block.AsParagraph()) {
    copy.content = std::make_shared<Paragraph>(*paragraph);
    copies[paragraph] = copy;
    return copy;
  }
  const Table* table = block.AsTable();
  auto made = std::make_shared<Table>(*table);
  for (Row& row : made->rows) {
    for (Cell& cell : row.cells) {
      for (Block& inner : cell.blocks) inner = CopyOf(inner, copies);
    }
  }
  copy.content = std::move(made);
  copies[table] = copy;
  return copy;
}

const void* ContentOf(const Block& block) {
  const Paragraph* paragraph = block.AsParagraph();
  return paragraph != nullptr ? static_cast<const void*>(paragraph) : block.AsTable();
}

/// Has all that is known within a block be of its copy.
void Replace(KnownBlock& known, const Copies& copies, std::uint64_t reading) {
  const auto copy = copies.find(ContentOf(known.block));
  if (copy != copies.end()) known.block = copy->second;
  known.oldest = reading;
  if (known.within == nullptr) return;
  for (auto& [element, inner] : *known.within) Replace(inner, copies, reading);
}

void MoveStarts(KnownBlock& known, Position by) {
  known.start += by;
  if (known.within == nullptr) return;
  for (auto& [element, inner] : *known.within) MoveStarts(inner, by);
}

/// Whether it makes no difference to the widths of two units of a text whether they stand in one piece.
bool AreApart(const Paragraph& paragraph, std::size_t second, const TextStyle& style) {
  const char16_t one = paragraph.text[second - 1];
  const char16_t other = paragraph.text[second];
  if (U16_IS_TRAIL(other)) return false;
  if (one == u' ' || other == u' ') return true;
  return !style.kerned && ScriptOf(one, style) != Script::kComplex && ScriptOf(other, style) != Script::kComplex;
}

}  // namespace

void BlockMemory::Begin(std::uint64_t reading, std::uint64_t inUse) {
  before_ = std::exchange(now_, {});
  reading_ = reading;
  inUse_ = inUse;
  since_ = std::exchange(next_, part_.BeginPeriod());
}

void BlockMemory::End() { before_.clear(); }

void BlockMemory::Detach(KnownBlock& known) const {
  if (known.oldest > inUse_) return;
  Copies copies;
  CopyOf(known.block, copies);
  Replace(known, copies, reading_);
}

void BlockMemory::Move(KnownBlock& known, Position start) const {
  const Position by = start - known.start;
  if (by == 0) return;
  Detach(known);
  Shift(known.block, by);
  MoveStarts(known, by);
}

Paragraph& BlockMemory::Own(KnownBlock& known) const {
  Detach(known);
  return *known.block.AsParagraph();
}

bool HaveSameLines(const Paragraph& a, const Paragraph& b) {
  const bool sameAround = a.text == b.text && a.label == b.label && a.labelStyle == b.labelStyle &&
                          a.suffix == b.suffix && a.labelAlignment == b.labelAlignment && a.mark == b.mark &&
                          a.look.format == b.look.format;
  if (!sameAround) return false;
  // Pieces may be divided in other places.
  const auto skipEmpty = [](const Paragraph& paragraph, std::size_t& at) {
    while (at < paragraph.pieces.size() && paragraph.pieces[at].length == 0) ++at;
  };
  std::size_t i = 0;
  std::size_t j = 0;
  for (std::size_t unit = 0; unit < a.text.size();) {
    skipEmpty(a, i);
    skipEmpty(b, j);
    const Piece& one = a.pieces[i];
    const Piece& other = b.pieces[j];
    const bool same = one.kind == other.kind && one.style == other.style && one.width == other.width &&
                      one.height == other.height && one.picture == other.picture;
    const bool oneBegins = one.start == unit;
    const bool otherBegins = other.start == unit;
    if (!same || (oneBegins != otherBegins && !AreApart(a, unit, *one.style))) return false;
    const std::size_t oneEnd = one.start + one.length;
    const std::size_t otherEnd = other.start + other.length;
    unit = std::min(oneEnd, otherEnd);
    if (oneEnd == unit) ++i;
    if (otherEnd == unit) ++j;
  }
  return true;
}

}  // namespace docx::layout
