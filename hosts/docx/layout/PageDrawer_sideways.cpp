#include <algorithm>
#include <iterator>
#include <utility>

#include "hosts/docx/layout/PageDrawer.h"

namespace docx::layout {

namespace {

constexpr double kPerPoint = 20;
constexpr double kNarrowestText = 20;

/// Of a cell with those below that go on with it.
double MergedHeight(const PageFiller::PlacedCell& cell, std::span<const PageFiller::PlacedCell> cells) {
  double bottom = cell.top + cell.height;
  for (const PageFiller::PlacedCell& below : cells) {
    if (below.table != cell.table || below.row <= cell.row || below.cell->column != cell.cell->column) continue;
    if (!below.cell->mergedAbove) break;
    bottom = std::max(bottom, below.top + below.height);
  }
  return bottom - cell.top;
}

}  // namespace

void PageDrawer::AddSideways(const PageFiller::PlacedCell& cell, std::span<const PageFiller::PlacedCell> cells,
                             int story, double down, std::size_t begin) {
  const Cell& content = *cell.cell;
  const bool up = content.upwards;
  const double height = MergedHeight(cell, cells);
  const double along = std::max(height - content.top - content.bottom, kNarrowestText);
  Flow flow = flows_.Build(content.blocks, along, true);
  const double across = cell.width - content.left - content.right;
  const double lowered = std::max(0.0, across - flow.Height()) * content.lowered;
  const PageFiller::Content placed =
      PlaceApart(flow, up ? content.bottom : content.top, (up ? content.left : content.right) + lowered, along);

  page::Display sheet;
  std::swap(sheet.faces, into_.faces);
  PageDrawer(settings_, room_, flows_, sheet).Add(placed.lines, {}, cell.repeated ? 0 : story);
  std::swap(sheet.faces, into_.faces);

  page::Line turned;
  turned.turn = up ? page::Turn::kUp : page::Turn::kDown;
  turned.originX = (cell.left + (up ? 0 : cell.width)) / kPerPoint;
  turned.originY = (cell.top + down + (up ? height : 0)) / kPerPoint;
  for (const page::Fill& fill : sheet.fills) into_.fills.push_back({turned.OnPage(fill.area), fill.color});
  for (page::Rule& rule : sheet.rules) {
    const page::Rect there = turned.OnPage({rule.x, rule.y, rule.toX - rule.x, rule.toY - rule.y});
    rule.x = there.x;
    rule.y = there.y;
    rule.toX = there.Right();
    rule.toY = there.Bottom();
    into_.rules.push_back(rule);
  }
  for (page::Picture& picture : sheet.pictures) {
    picture.area = turned.OnPage(picture.area);
    into_.pictures.push_back(std::move(picture));
  }
  if (sheet.lines.empty()) return;
  for (page::Line& line : sheet.lines) {
    line.turn = turned.turn;
    line.originX = turned.originX;
    line.originY = turned.originY;
  }
  // Lines stand in the order of the text.
  const word::Position start = sheet.lines.front().start;
  const auto next = std::find_if(into_.lines.begin() + static_cast<std::ptrdiff_t>(begin), into_.lines.end(),
                                 [&](const page::Line& line) { return line.story == story && line.start > start; });
  into_.lines.insert(next, std::make_move_iterator(sheet.lines.begin()), std::make_move_iterator(sheet.lines.end()));
}

}  // namespace docx::layout
