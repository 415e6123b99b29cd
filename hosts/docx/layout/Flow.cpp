#include "hosts/docx/layout/Flow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace docx::layout {

namespace {

constexpr double kAutomaticSpace = 280;  // twips, as HTML has it
constexpr double kWideShare = 0.6;       // of the column: beside a wider picture there is no text

bool SameStyle(const Paragraph& a, const Paragraph& b) { return a.look.style == b.look.style; }

double SpaceBefore(const Paragraph& paragraph, const Paragraph* previous, bool inCell) {
  const ParagraphFormat& format = paragraph.look.format;
  if (*format.beforeAuto) {
    if (previous == nullptr) return inCell ? 0 : kAutomaticSpace;
    const bool bothListed = paragraph.look.list != nullptr && previous->look.list != nullptr;
    return bothListed ? 0 : kAutomaticSpace;
  }
  if (previous != nullptr && *format.contextual && SameStyle(paragraph, *previous)) return 0;
  if (format.beforeLines.value_or(0) > 0) return *format.beforeLines * 240 / 100.0;
  return *format.before;
}

double SpaceAfter(const Paragraph& paragraph, const Paragraph* next, bool last) {
  const ParagraphFormat& format = paragraph.look.format;
  if (*format.afterAuto) {
    if (last) return 0;
    const bool bothListed = next != nullptr && paragraph.look.list != nullptr && next->look.list != nullptr;
    return bothListed ? 0 : kAutomaticSpace;
  }
  if (next != nullptr && *format.contextual && SameStyle(paragraph, *next)) return 0;
  if (format.afterLines.value_or(0) > 0) return *format.afterLines * 240 / 100.0;
  return *format.after;
}

/// What pictures that push the text down take.
double FloatingRoom(const Paragraph& paragraph, double width) {
  double room = 0;
  for (const Floating& floating : paragraph.floats) {
    if (!floating.withParagraph) continue;
    const bool pushes = floating.wrap == Floating::Wrap::kTopAndBottom ||
                        (floating.wrap == Floating::Wrap::kSquare && floating.width > width * kWideShare);
    if (pushes) room = std::max(room, floating.height + std::max(0.0, floating.offset));
  }
  return room;
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
  item.height = line.height;
  item.position = line.start;
  item.lastBreak = line.lastBreak;
  item.notes = line.notes;
  item.shown = Show(paragraph, line, width);
  return item;
}

Hold HoldOf(const Paragraph& paragraph, std::size_t line, std::size_t lines) {
  if (*paragraph.look.format.keepLines) return Hold::kLines;
  if (*paragraph.look.format.widowControl && (line == 1 || line + 1 == lines)) return Hold::kWidow;
  return Hold::kNone;
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

Flow FlowBuilder::Build(const std::vector<Block>& blocks, double width, bool inCell) {
  Flow flow;
  Before before;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (const Table* table = blocks[i].AsTable()) {
      AddTable(*table, width, before, flow);
      continue;
    }
    const Paragraph* next = i + 1 < blocks.size() ? blocks[i + 1].AsParagraph() : nullptr;
    const Paragraph& paragraph = *blocks[i].AsParagraph();
    AddParagraph(paragraph, next, width, inCell, before, flow);
    before.after = SpaceAfter(paragraph, next, inCell && i + 1 == blocks.size());
  }
  flow.after = before.after;
  return flow;
}

void FlowBuilder::AddFrame(const Paragraph& paragraph, double width, Before& before, Flow& flow) {
  const Frame& frame = *paragraph.frame;
  const double room = frame.width > 0 ? frame.width : width;
  lines_.Make(paragraph, room, made_);
  double left = frame.x;
  if (frame.side == Alignment::kRight) left = width - room;
  if (frame.side == Alignment::kCenter) left = (width - room) / 2;
  double top = frame.y;
  for (const Line& line : made_) {
    FlowItem item;
    item.position = line.start;
    item.before = std::exchange(before.after, 0);
    item.shown = Show(paragraph, line, room);
    item.shift = left;
    item.drop = top;
    top += line.height;
    flow.items.push_back(std::move(item));
  }
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
  if (paragraph.frame) return AddFrame(paragraph, width, before, flow);
  lines_.Make(paragraph, width, made_);
  const double own = SpaceBefore(paragraph, before.paragraph, inCell);
  const double space = settings_.addSpaces ? before.after + own : std::max(before.after, own);
  const bool joinedAbove = before.paragraph != nullptr && SameBorders(*before.paragraph, paragraph);
  const bool joinedBelow = next != nullptr && SameBorders(paragraph, *next);
  const double above = joinedAbove ? *format.borderBetween : *format.borderTop;
  made_.front().height += above;
  made_.front().baseline += above;
  if (!joinedBelow) made_.back().height += *format.borderBottom;

  BreakBefore forced = std::exchange(before.breakBehind, BreakBefore::kNone);
  if (*format.pageBreakBefore && !inCell) forced = BreakBefore::kPage;
  const double floating = FloatingRoom(paragraph, width);
  Hold hold = before.keepNext ? Hold::kNext : Hold::kNone;
  if (floating > 0) {
    FlowItem item;
    item.height = floating;
    item.position = paragraph.start;
    item.shown.paragraph = &paragraph;
    item.shown.width = static_cast<float>(width);
    item.shown.floats = true;
    item.shown.letters = false;
    item.hold = std::exchange(hold, Hold::kWidow);
    item.breakBefore = std::exchange(forced, BreakBefore::kNone);
    flow.items.push_back(std::move(item));
  }
  for (std::size_t i = 0; i < made_.size(); ++i) {
    Line& line = made_[i];
    FlowItem item = ItemOf(paragraph, line, width);
    if (i == 0) {
      item.shown.floats = floating <= 0 && !paragraph.floats.empty();
      item.before = space;
      item.beforeTop = own;
      item.hold = hold;
      item.breakBefore = forced;
      item.sectionMark = paragraph.section && paragraph.text.empty() && paragraph.label.empty();
    } else {
      item.hold = HoldOf(paragraph, i, made_.size());
      item.breakBefore = forced;
    }
    forced = BreakAfter(line);
    flow.items.push_back(std::move(item));
  }
  before.breakBehind = forced;
  before.keepNext = *format.keepNext;
  before.paragraph = &paragraph;
}

}  // namespace docx::layout
