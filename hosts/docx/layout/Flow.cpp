#include "hosts/docx/layout/Flow.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace docx::layout {

namespace {

constexpr double kAutomaticSpace = 280;  // twips, as HTML has it
constexpr double kLineUnit = 240;        // twips: a line, where no grid has another height for it

bool SameStyle(const Paragraph& a, const Paragraph& b) { return a.look.style == b.look.style; }

/// @param line what counts as one in spaces that are stated in lines
double SpaceBefore(const Paragraph& paragraph, const Paragraph* previous, bool inCell, double line) {
  const ParagraphFormat& format = paragraph.look.format;
  if (*format.beforeAuto) {
    if (previous == nullptr) return inCell ? 0 : kAutomaticSpace;
    const bool bothListed = paragraph.look.list != nullptr && previous->look.list != nullptr;
    return bothListed ? 0 : kAutomaticSpace;
  }
  if (previous != nullptr && *format.contextual && SameStyle(paragraph, *previous)) return 0;
  if (format.beforeLines.value_or(0) > 0) return *format.beforeLines * line / 100;
  return *format.before;
}

double SpaceAfter(const Paragraph& paragraph, const Paragraph* next, bool last, double line) {
  const ParagraphFormat& format = paragraph.look.format;
  if (*format.afterAuto) {
    if (last) return 0;
    const bool bothListed = next != nullptr && paragraph.look.list != nullptr && next->look.list != nullptr;
    return bothListed ? 0 : kAutomaticSpace;
  }
  if (next != nullptr && *format.contextual && SameStyle(paragraph, *next)) return 0;
  if (format.afterLines.value_or(0) > 0) return *format.afterLines * line / 100;
  return *format.after;
}

ShownLine Show(const Paragraph& paragraph, const Line& line, double width) {
  ShownLine shown;
  shown.paragraph = &paragraph;
  shown.from = line.from;
  shown.to = line.to;
  shown.width = static_cast<float>(width);
  shown.height = static_cast<float>(line.height);
  shown.baseline = static_cast<float>(line.baseline);
  return shown;
}

BreakBefore BreakAfter(const Line& line) {
  return line.behind == BreakBehind::kPage     ? BreakBefore::kPage
         : line.behind == BreakBehind::kColumn ? BreakBefore::kColumn
                                               : BreakBefore::kNone;
}

FlowItem ItemOf(const Paragraph& paragraph, const Line& line, double width) {
  FlowItem item;
  item.height = line.beside ? 0 : line.height;
  item.position = line.start;
  item.lastBreak = line.lastBreak;
  item.notes = line.notes;
  item.shown = Show(paragraph, line, line.width > 0 ? line.width : width);
  item.shift = line.left;
  return item;
}

Hold HoldOf(const Paragraph& paragraph, std::size_t line, std::size_t lines) {
  if (*paragraph.look.format.keepLines) return Hold::kLines;
  if (*paragraph.look.format.widowControl && (line == 1 || line + 1 == lines)) return Hold::kWidow;
  return Hold::kNone;
}

/// Of the distances that a picture states, Word keeps those on the left and right of an outline.
void SetOutline(const Floating& floating, double left, double top, Obstacle& obstacle) {
  obstacle.outline.reserve(floating.outline.size());
  obstacle.top = std::numeric_limits<double>::max();
  obstacle.bottom = std::numeric_limits<double>::lowest();
  for (const OutlinePoint& point : floating.outline) {
    const OutlinePoint placed{left + point.x * floating.drawnWidth, top + point.y * floating.drawnHeight};
    obstacle.outline.push_back(placed);
    obstacle.top = std::min(obstacle.top, placed.y);
    obstacle.bottom = std::max(obstacle.bottom, placed.y);
  }
  obstacle.spaceLeft = floating.marginLeft;
  obstacle.spaceRight = floating.marginRight;
}

}  // namespace

bool SameBorders(const Paragraph& a, const Paragraph& b) {
  const ParagraphFormat& one = a.look.format;
  const ParagraphFormat& other = b.look.format;
  return !one.borders->empty() && one.borders == other.borders && one.left == other.left && one.right == other.right;
}

double Flow::Height() const {
  double height = after;
  for (const FlowItem& item : items) height += item.before + item.height;
  return height;
}

double RowFlow::Reach(bool margins) const {
  double reach = 0;
  for (const CellFlow& cell : cells) {
    double content = cell.top + (margins ? cell.bottom + cell.flow.after : 0);
    for (std::size_t i = cell.next; i < cell.flow.items.size(); ++i) {
      const FlowItem& item = cell.flow.items[i];
      content += item.height + (i == cell.next && cell.next > 0 ? 0 : item.before);
    }
    reach = std::max(reach, content);
  }
  return exact ? least : std::max(reach + border + (margins ? below : 0), least);
}

double RowFlow::Height() const { return Reach(true); }

double RowFlow::Spare() const { return cannotSplit ? 0 : Reach(true) - Reach(false); }

void FlowBuilder::Push(FlowItem item, Flow& flow) {
  column_.bottom += item.before + item.height;
  flow.items.push_back(std::move(item));
}

bool FlowBuilder::AddObstacles(const Paragraph& paragraph, double top, double width) {
  using From = Floating::From;
  bool any = false;
  for (const Floating& floating : paragraph.floats) {
    if (floating.wrap == Floating::Wrap::kNone) continue;
    any = true;
    double y = floating.y;
    if (floating.down != From::kText) {
      const auto drop = settings_.drops == nullptr ? FloatDrops::const_iterator{} : settings_.drops->find(&floating);
      if (settings_.drops == nullptr || drop == settings_.drops->end()) continue;
      y = drop->second;
    }
    const bool page = around_.textWidth > 0;
    const double begin = floating.across == From::kPaper && page ? -around_.textLeft : 0;
    const double length = !page || floating.across == From::kText ? width
                          : floating.across == From::kMargin      ? around_.textWidth
                                                                  : around_.paperWidth;
    const double x = floating.sideAcross ? (length - floating.width) * *floating.sideAcross : floating.x;
    Obstacle obstacle;
    obstacle.top = top + y - floating.marginTop;
    obstacle.bottom = top + y + floating.height + floating.marginBottom;
    obstacle.left = begin + x - floating.marginLeft;
    obstacle.right = begin + x + floating.width + floating.marginRight;
    obstacle.sides = floating.wrap == Floating::Wrap::kTopAndBottom ? TextSides::kNone : floating.sides;
    if (!floating.outline.empty()) SetOutline(floating, begin + x, top + y, obstacle);
    column_.obstacles.Add(obstacle);
  }
  return any;
}

double FlowBuilder::LineUnit() const {
  const double pitch = lines_.Settings().gridPitch;
  return pitch > 0 ? pitch : kLineUnit;
}

Flow FlowBuilder::Build(const std::vector<Block>& blocks, double width, bool inCell) {
  Flow flow;
  Before before;
  Column outer = std::exchange(column_, {});
  const bool outside = std::exchange(lines_.Settings().inCell, inCell);
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (const Table* table = blocks[i].AsTable()) {
      AddTable(*table, width, inCell, before, flow);
      continue;
    }
    const Paragraph* next = i + 1 < blocks.size() ? blocks[i + 1].AsParagraph() : nullptr;
    const Paragraph& paragraph = *blocks[i].AsParagraph();
    if (paragraph.frame) {
      AddFrame(paragraph, width, before, flow);
      continue;
    }
    AddParagraph(paragraph, next, width, inCell, before, flow);
    before.after = SpaceAfter(paragraph, next, inCell && i + 1 == blocks.size(), LineUnit());
  }
  flow.after = before.after;
  column_ = std::move(outer);
  lines_.Settings().inCell = outside;
  return flow;
}

void FlowBuilder::AddFrame(const Paragraph& paragraph, double width, Before& before, Flow& flow) {
  const Frame& frame = *paragraph.frame;
  const double room = frame.width > 0 ? frame.width : width;
  lines_.Make(paragraph, room, made_);
  double left = frame.x;
  if (frame.side == Alignment::kRight) left = width - room;
  if (frame.side == Alignment::kCenter) left = (width - room) / 2;
  // Paragraphs in a row that are framed share a frame.
  double top = before.frameBottom > 0 ? before.frameBottom : frame.y;
  if (frame.beside) {
    double height = 0;
    for (const Line& line : made_) height += line.height;
    const double own = frame.width > 0 ? frame.width : lines_.Width(paragraph, 0, paragraph.text.size());
    const double begin = frame.width > 0 || frame.side == Alignment::kLeft ? left : width - own;
    const double from = column_.bottom + before.after + top;
    column_.obstacles.Add({from - frame.spaceUpright, from + height + frame.spaceUpright, begin - frame.spaceAcross,
                           begin + std::min(own, room) + frame.spaceAcross});
  }
  for (const Line& line : made_) {
    FlowItem item;
    item.position = line.start;
    item.breakBefore = std::exchange(before.breakBehind, BreakBefore::kNone);
    item.shown = Show(paragraph, line, room);
    item.shift = left;
    item.drop = before.after + top;
    top += line.height;
    Push(std::move(item), flow);
  }
  before.frameBottom = top;
}

void FlowBuilder::Divide(std::vector<FlowItem>& items, std::size_t line, std::uint32_t unit) {
  const ShownLine shown = items[line].shown;
  const Paragraph& paragraph = *shown.paragraph;
  std::size_t end = line + 1;
  while (end < items.size() && items[end].shown.paragraph == &paragraph) ++end;
  lines_.MakeFrom(paragraph, unit, shown.width, made_);
  items[line].shown.to = unit;
  std::vector<FlowItem> fresh;
  for (std::size_t i = 0; i < made_.size(); ++i) {
    std::erase_if(items[line].notes,
                  [&](const XmlNodeData* note) { return std::ranges::count(made_[i].notes, note) > 0; });
    FlowItem item = ItemOf(paragraph, made_[i], shown.width);
    item.endnote = items[line].endnote;
    item.shift = items[line].shift;
    if (i > 0) {
      item.hold = HoldOf(paragraph, i, made_.size());
      item.breakBefore = BreakAfter(made_[i - 1]);
    }
    fresh.push_back(std::move(item));
  }
  const auto begin = items.begin() + static_cast<std::ptrdiff_t>(line + 1);
  const auto next = items.erase(begin, items.begin() + static_cast<std::ptrdiff_t>(end));
  items.insert(next, std::move_iterator(fresh.begin()), std::move_iterator(fresh.end()));
}

void FlowBuilder::AddParagraph(const Paragraph& paragraph, const Paragraph* next, double width, bool inCell,
                               Before& before, Flow& flow) {
  const ParagraphFormat& format = paragraph.look.format;
  before.frameBottom = 0;
  const double own = SpaceBefore(paragraph, before.paragraph, inCell, LineUnit());
  const double space = settings_.addSpaces ? before.after + own : std::max(before.after, own);
  const double top = column_.bottom + space;
  column_.obstacles.PassOver(column_.bottom);
  const bool wrapped = AddObstacles(paragraph, top, width);
  const bool obstructed = !column_.obstacles.Empty();
  const bool floats = !paragraph.floats.empty() && (wrapped || obstructed);
  lines_.Make(paragraph, width, made_, obstructed ? &column_.obstacles : nullptr, top);
  const bool joinedAbove = before.paragraph != nullptr && SameBorders(*before.paragraph, paragraph);
  const bool joinedBelow = next != nullptr && SameBorders(paragraph, *next);
  const double above = joinedAbove ? *format.borderBetween : *format.borderTop;
  made_.front().height += above;
  made_.front().baseline += above;
  if (!joinedBelow) made_.back().height += *format.borderBottom;

  BreakBefore forced = std::exchange(before.breakBehind, BreakBefore::kNone);
  if (*format.pageBreakBefore && !inCell) forced = BreakBefore::kPage;
  Hold hold = before.keepNext ? Hold::kNext : Hold::kNone;
  if (floats) {
    // Where they are counted from, and the room that they leave no text in at the beginning.
    FlowItem item;
    item.height = std::exchange(made_.front().above, 0);
    item.position = paragraph.start;
    item.before = space;
    item.beforeTop = own;
    item.shown.paragraph = &paragraph;
    item.shown.width = static_cast<float>(width);
    item.shown.floats = true;
    item.shown.letters = false;
    item.hold = std::exchange(hold, Hold::kWidow);
    item.breakBefore = std::exchange(forced, BreakBefore::kNone);
    Push(std::move(item), flow);
  }
  for (std::size_t i = 0; i < made_.size(); ++i) {
    Line& line = made_[i];
    FlowItem item = ItemOf(paragraph, line, width);
    if (i == 0) {
      item.shown.floats = !floats && !paragraph.floats.empty();
      item.before = floats ? 0 : space + line.above;
      item.beforeTop = floats ? 0 : own;
      item.hold = hold;
      item.breakBefore = forced;
      item.sectionMark = paragraph.section && paragraph.text.empty() && paragraph.label.empty();
    } else {
      item.hold = made_[i - 1].beside ? Hold::kWidow : HoldOf(paragraph, i, made_.size());
      item.before = made_[i - 1].beside ? 0 : line.above;
      item.breakBefore = forced;
    }
    forced = BreakAfter(line);
    Push(std::move(item), flow);
  }
  before.breakBehind = forced;
  before.keepNext = *format.keepNext;
  before.paragraph = &paragraph;
}

}  // namespace docx::layout
