#include "hosts/docx/layout/PageDrawer.h"

#include <algorithm>
#include <utility>

#include "hosts/docx/layout/Colors.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

constexpr double kPerPoint = 20;
constexpr float kBoxLine = 15;  // twips
constexpr double kNarrowestText = 20;

enum class Side : std::uint8_t { kTop, kLeft, kBottom, kRight };

void AddBorder(page::Display& into, const page::Rect& box, Side side, const std::optional<BorderLine>& border) {
  if (!border || border->stroke == page::Stroke::kNone) return;
  page::Rule rule{box.x, box.y, box.Right(), box.Bottom(), border->width / kPerPoint, border->color, border->stroke};
  switch (side) {
    case Side::kTop:
      rule.toY = rule.y;
      break;
    case Side::kLeft:
      rule.toX = rule.x;
      break;
    case Side::kBottom:
      rule.y = rule.toY;
      break;
    case Side::kRight:
      rule.x = rule.toX;
      break;
  }
  into.rules.push_back(rule);
}

bool SameBox(const PageFiller::Placed& a, const PageFiller::Placed& b) {
  const Paragraph& one = *a.shown.paragraph;
  const Paragraph& other = *b.shown.paragraph;
  if (a.left != b.left || a.shown.width != b.shown.width) return false;
  if (&one == &other) return true;
  const ParagraphFormat& format = one.look.format;
  const ParagraphFormat& below = other.look.format;
  if (format.shading.value_or(page::kNoColor) != below.shading.value_or(page::kNoColor)) return false;
  const bool bare = format.borders->empty() && below.borders->empty();
  return bare ? format.left == below.left && format.right == below.right : SameBorders(one, other);
}

bool HasBox(const PageFiller::Placed& line) {
  if (line.shown.paragraph == nullptr || !line.shown.letters) return false;
  const ParagraphFormat& format = line.shown.paragraph->look.format;
  return (format.box != nullptr && !format.borders->empty()) ||
         format.shading.value_or(page::kNoColor) != page::kNoColor;
}

}  // namespace

BoxBorders BordersOf(const Table& table, std::size_t row, const Cell& cell) {
  const TableValues none;
  const TableValues& values = cell.values == nullptr ? none : *cell.values;
  BoxBorders whole = table.borders;
  whole.Inherit(values.tableBorders);
  const bool firstColumn = cell.column == 0;
  const std::vector<Cell>& cells = table.rows[row].cells;
  const bool lastColumn = &cell == &cells.back();
  const bool lastRow = row + 1 == table.rows.size();

  BoxBorders borders = cell.borders;
  BoxBorders place = values.cellBorders;
  // What a style says of a part of the table has its sides at the part's edges, and the inner ones between its cells.
  if (!firstColumn && place.insideDown) place.left = place.insideDown;
  if (!lastColumn && place.insideDown) place.right = place.insideDown;
  borders.Inherit(place);
  BoxBorders outer;
  outer.top = row == 0 ? whole.top : whole.insideAcross;
  outer.bottom = lastRow ? whole.bottom : whole.insideAcross;
  outer.left = firstColumn ? whole.left : whole.insideDown;
  outer.right = lastColumn ? whole.right : whole.insideDown;
  borders.Inherit(outer);
  if (cell.mergedAbove) borders.top.reset();
  const auto goesOn = [&](const Cell& below) { return below.column == cell.column && below.mergedAbove; };
  if ((cell.mergedBelow || cell.mergedAbove) && !lastRow && std::ranges::any_of(table.rows[row + 1].cells, goesOn)) {
    borders.bottom.reset();
  }
  return borders;
}

void PageDrawer::AddCell(const PageFiller::PlacedCell& cell, double down) {
  const page::Rect box{cell.left / kPerPoint, (cell.top + down) / kPerPoint, cell.width / kPerPoint,
                       cell.height / kPerPoint};
  if (cell.cell->shading != page::kNoColor) into_.fills.push_back({box, cell.cell->shading});
  const BoxBorders borders = BordersOf(*cell.table, cell.row, *cell.cell);
  AddBorder(into_, box, Side::kTop, borders.top);
  AddBorder(into_, box, Side::kLeft, borders.left);
  AddBorder(into_, box, Side::kBottom, borders.bottom);
  AddBorder(into_, box, Side::kRight, borders.right);
}

std::size_t PageDrawer::AddBox(std::span<const PageFiller::Placed> lines, std::size_t first, double down) {
  const PageFiller::Placed& begin = lines[first];
  const ParagraphFormat& format = begin.shown.paragraph->look.format;
  std::size_t end = first + 1;
  while (end < lines.size() && lines[end].shown.paragraph != nullptr && lines[end].shown.letters &&
         SameBox(begin, lines[end]))
    ++end;
  const PageFiller::Placed& last = lines[end - 1];
  const double indent = *format.left + std::min(0, *format.firstLine);
  const BoxBorders none;
  const BoxBorders& borders = format.box == nullptr || format.borders->empty() ? none : *format.box;
  const double before = borders.left ? borders.left->space : 0;
  const double behind = borders.right ? borders.right->space : 0;
  page::Rect box;
  box.x = (begin.left + indent - before) / kPerPoint;
  box.y = (begin.top + down) / kPerPoint;
  box.width = (begin.shown.width - *format.right - indent + before + behind) / kPerPoint;
  box.height = (last.top + last.shown.height - begin.top) / kPerPoint;
  if (const page::Color color = format.shading.value_or(page::kNoColor); color != page::kNoColor) {
    into_.fills.push_back({box, color});
  }
  AddBorder(into_, box, Side::kLeft, borders.left);
  AddBorder(into_, box, Side::kRight, borders.right);
  if (begin.shown.from == 0) AddBorder(into_, box, Side::kTop, borders.top);
  if (last.shown.to >= last.shown.paragraph->text.size()) AddBorder(into_, box, Side::kBottom, borders.bottom);
  if (borders.insideAcross) {
    for (std::size_t i = first + 1; i < end; ++i) {
      if (lines[i].shown.paragraph == lines[i - 1].shown.paragraph) continue;
      const page::Rect below{box.x, (lines[i].top + down) / kPerPoint, box.width, 0};
      AddBorder(into_, below, Side::kTop, borders.insideAcross);
    }
  }
  return end;
}

void PageDrawer::AddFloat(const Floating& floating, const PageFiller::Placed& line, double down) {
  if (floating.drawnWidth <= 0 || floating.drawnHeight <= 0) return;
  // Where the room begins that the picture's place is counted from, and how much of it there is.
  struct Room {
    double begin{0};
    double length{0};
  };
  using From = Floating::From;
  const SectionGeometry& section = *room_.section;
  const Room across = floating.across == From::kPaper    ? Room{0, section.width}
                      : floating.across == From::kMargin ? Room{section.TextLeft(room_.mirrored), section.TextWidth()}
                                                         : Room{line.left, line.shown.width};
  const double top = section.BodyTop(room_.side);
  const Room upright = floating.down == From::kPaper    ? Room{0, section.height}
                       : floating.down == From::kMargin ? Room{top, room_.bottom - top}
                                                        : Room{line.top + down, 0};
  const double x = floating.sideAcross ? (across.length - floating.drawnWidth) * *floating.sideAcross : floating.x;
  const double y = floating.sideDown ? (upright.length - floating.drawnHeight) * *floating.sideDown : floating.y;
  page::Picture picture;
  picture.area = {(across.begin + x) / kPerPoint, (upright.begin + y) / kPerPoint, floating.drawnWidth / kPerPoint,
                  floating.drawnHeight / kPerPoint};
  if (floating.text) return AddTextBox(*floating.text, picture.area);
  picture.name = floating.picture;
  picture.instead = floating.instead;
  into_.pictures.push_back(std::move(picture));
}

void PageDrawer::AddTextBox(const TextBox& text, const page::Rect& area) {
  if (text.outlined) {
    const BorderLine line{.stroke = page::Stroke::kSolid, .width = kBoxLine};
    for (const Side side : {Side::kTop, Side::kLeft, Side::kBottom, Side::kRight}) AddBorder(into_, area, side, line);
  }
  const double width = std::max(area.width * kPerPoint - 2 * text.sideInset, kNarrowestText);
  Flow flow = flows_.Build(text.blocks, width);
  const PageFiller::Content placed =
      PlaceApart(flow, area.x * kPerPoint + text.sideInset, area.y * kPerPoint + text.topInset, width);
  Add(placed.lines, placed.cells, 0);
}

page::Color PageDrawer::GroundOf(const PageFiller::Placed& line, double down) const {
  const double x = line.left / kPerPoint;
  const double y = (line.top + down) / kPerPoint + line.shown.height / kPerPoint / 2;
  // Inner fills come behind outer ones.
  for (auto fill = into_.fills.rbegin(); fill != into_.fills.rend(); ++fill) {
    const page::Rect& area = fill->area;
    if (x >= area.x - 1 && x <= area.Right() && y >= area.y && y <= area.Bottom()) return fill->color;
  }
  return page::kNoColor;
}

void PageDrawer::Add(std::span<const PageFiller::Placed> lines, std::span<const PageFiller::PlacedCell> cells,
                     int story, double down) {
  for (const PageFiller::PlacedCell& cell : cells) AddCell(cell, down);
  const std::size_t begin = into_.lines.size();
  for (std::size_t i = 0; i < lines.size();) {
    i = HasBox(lines[i]) ? AddBox(lines, i, down) : i + 1;
  }
  for (const PageFiller::Placed& line : lines) {
    if (line.shown.paragraph == nullptr) continue;
    if (line.shown.floats) {
      for (const Floating& floating : line.shown.paragraph->floats) AddFloat(floating, line, down);
    }
    if (!line.shown.letters) continue;
    LineDrawer::Spot spot;
    spot.left = line.left;
    spot.top = line.top + down;
    spot.story = line.repeated || line.position < 0 ? 0 : line.endnote ? word::wdEndnotesStory : story;
    spot.ground = into_.fills.empty() ? page::kNoColor : GroundOf(line, down);
    lines_.Draw(line.shown, spot);
  }
  for (const PageFiller::PlacedCell& cell : cells) {
    if (cell.cell->sideways && !cell.cell->mergedAbove) AddSideways(cell, cells, story, down, begin);
  }
}

}  // namespace docx::layout
