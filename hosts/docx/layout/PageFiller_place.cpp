#include <algorithm>

#include "hosts/docx/layout/PageFiller.h"

namespace docx::layout {

void PageFiller::Place(const FlowItem& item, Spot spot, Content& placed) {
  if (!spot.repeated) {
    for (const XmlNodeData* reference : item.notes) {
      if (notePages_.emplace(reference, page_).second) noteOrder_.push_back(reference);
    }
  }
  spot.top += item.drop;
  spot.left += item.shift;
  spot.endnote = spot.endnote || item.endnote;
  if (item.position >= 0 || item.shown.paragraph != nullptr) {
    placed.lines.push_back(
        {item.position, page_, spot.endnote, spot.repeated, spot.top, item.height, spot.left, item.shown});
  }
  if (item.row) PlaceRow(*item.row, item.height > 0 ? item.height : item.row->Height(), spot, placed);
}

void PageFiller::PlaceRow(const RowFlow& row, double height, Spot spot, Content& placed) {
  spot.left += row.left;
  PlaceBoxes(row, height, spot, placed);
  for (const CellFlow& cell : row.cells) {
    double lowered = 0;
    if (cell.cell != nullptr && cell.cell->lowered > 0 && cell.next == 0) {
      const double used = cell.top + cell.bottom + cell.flow.Height();
      lowered = std::max(0.0, height - row.border - row.below - used) * cell.cell->lowered;
    }
    const double deepest = row.exact ? spot.top + height : 0;
    Spot inside = spot;
    inside.left += cell.textLeft;
    inside.top += row.border + lowered;
    PlaceCell(cell, cell.flow.items.size(), inside, deepest, placed);
  }
  for (const FlowItem& beside : row.beside) Place(beside, spot, placed);
}

void PageFiller::PlaceBoxes(const RowFlow& row, double height, Spot spot, Content& placed) const {
  for (const CellFlow& cell : row.cells) {
    if (cell.cell == nullptr) continue;
    placed.cells.push_back({page_, row.table, row.number, cell.cell, spot.left + cell.left, spot.top + row.gapAbove,
                            cell.width, std::max(0.0, height - row.gapAbove - row.gapBelow), spot.repeated});
  }
}

void PageFiller::PlaceCell(const CellFlow& cell, std::size_t end, Spot spot, double deepest, Content& placed) {
  spot.top += cell.top;
  for (std::size_t i = cell.next; i < end; ++i) {
    const FlowItem& item = cell.flow.items[i];
    spot.top += i == cell.next && cell.next > 0 ? 0 : item.before;
    const std::size_t first = placed.lines.size();
    Place(item, spot, placed);
    spot.top += item.height;
    if (deepest <= 0) continue;
    for (std::size_t line = first; line < placed.lines.size(); ++line) {
      PageFiller::Placed& one = placed.lines[line];
      if (one.top + one.height > deepest + kSlack) one.shown.letters = one.shown.floats = false;
    }
  }
}

void PageFiller::PlaceHeaders(const std::vector<FlowItem>& items, std::size_t begin, double left, Content& placed) {
  const FlowItem& item = items[begin];
  if (item.headers == 0 || item.headersBack > begin) return;
  Spot spot{left, top_, true, false};
  for (std::size_t i = begin - item.headersBack; i < begin - item.headersBack + item.headers; ++i) {
    Place(items[i], spot, placed);
    spot.top += items[i].height;
  }
}

bool PageFiller::DivideRow(RowFlow& row, double room, bool whatever, Spot spot, Content* placed, double* notes) {
  // A row begins where the height that it asks for has room.
  const bool stays = row.cannotSplit || row.stated > room + kSlack;
  if (row.exact || (stays && !whatever)) return false;
  std::vector<std::size_t> ends;
  bool rest = false;
  bool some = false;
  for (CellFlow& cell : row.cells) {
    const std::vector<FlowItem>& items = cell.flow.items;
    double left = room - row.border - cell.top;
    std::size_t end = cell.next;
    for (; end < items.size(); ++end) {
      const double space = end == cell.next && cell.next > 0 ? 0 : items[end].before;
      if (items[end].height + space > left + kSlack) break;
      left -= items[end].height + space;
    }
    if (end < items.size()) {
      rest = true;
      std::size_t back = end;
      while (back > cell.next && items[back].hold >= Hold::kLines) --back;
      // A row is only divided where each of its cells leaves something on the page.
      bool inner = false;
      if (back == end && items[end].row) inner = DivideRow(*items[end].row, left, false, {}, nullptr, notes);
      if (back == cell.next && !inner) {
        if (!whatever) return false;
        back = std::max(end, cell.next);
      }
      end = back;
      some = some || inner;
    }
    some = some || end > cell.next;
    ends.push_back(end);
    for (std::size_t i = cell.next; notes != nullptr && i < end; ++i) *notes += RoomOfNotes(items[i]).height;
  }
  if (!rest || !some) return false;
  if (placed == nullptr) return true;
  spot.left += row.left;
  PlaceBoxes(row, room, spot, *placed);
  for (std::size_t c = 0; c < row.cells.size(); ++c) {
    CellFlow& cell = row.cells[c];
    double left = room - row.border - cell.top;
    Spot inside = spot;
    inside.left += cell.textLeft;
    inside.top += row.border;
    PlaceCell(cell, ends[c], inside, 0, *placed);
    for (std::size_t i = cell.next; i < ends[c]; ++i) {
      const FlowItem& item = cell.flow.items[i];
      left -= item.height + (i == cell.next && cell.next > 0 ? 0 : item.before);
    }
    cell.next = ends[c];
    if (cell.next < cell.flow.items.size()) {
      FlowItem& item = cell.flow.items[cell.next];
      if (item.row && DivideRow(*item.row, left, false, {inside.left, spot.top + room - left, false, spot.endnote},
                                placed, nullptr)) {
        item.height = item.row->Height();
      }
    }
  }
  for (const FlowItem& beside : row.beside) Place(beside, spot, *placed);
  row.beside.clear();
  row.least = std::max(0.0, row.least - room);
  row.stated = 0;
  return true;
}

}  // namespace docx::layout
