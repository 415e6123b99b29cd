#include "hosts/docx/layout/PageFiller.h"

#include <algorithm>

namespace docx::layout {

namespace {

constexpr double kLeastProgress = 240;  // twips of a footnote that each page takes at least
constexpr int kBalanceSteps = 14;
constexpr double kEndless = 1e9;  // twips: a column that nothing fills
/// Of a page's height: how far the layout can be from Word's break where nothing has changed since.
constexpr double kNear = 0.1;

/// The first unit of a paragraph's text that stands at a position or behind it.
std::uint32_t UnitAt(const Paragraph& paragraph, Position position) {
  for (const Piece& piece : paragraph.pieces) {
    if (position <= piece.position) return piece.start;
    const auto further = static_cast<std::uint32_t>(position - piece.position);
    if (!piece.solid && further < piece.length) return piece.start + further;
  }
  return static_cast<std::uint32_t>(paragraph.text.size());
}

}  // namespace

void PageFiller::BeginSection(const SectionGeometry& section) {
  const bool first = section_ == nullptr;
  const SectionGeometry* ended = section_;
  section_ = &section;
  const PageSetup& setup = section.setup;
  if (first) {
    numberings_.push_back(NumberFirstSection(setup));
    MeasurePage();
    return;
  }
  const bool samePaper = ended->width == section.width && ended->height == section.height;
  const bool stays =
      setup.start == SectionStart::kContinuous || (setup.start == SectionStart::kNextColumn && setup.columns > 1);
  if (stays && samePaper) {
    top_ += deepest_;
    deepest_ = 0;
    left_ = section.TextLeft(pages_.back().mirrored);
  } else {
    // Word has the mark of the section stay with the break before it.
    if (onlyMark_) {
      pageEmpty_ = true;
      deepest_ = 0;
    }
    if (!pageEmpty_) NextPage();
    if (NumberAfter(numberings_.back().NumberOf(page_ - 1), setup).blank) NextPage();
    after_ = 0;
  }
  numberings_.push_back(NumberNextSection(numberings_.back(), setup, page_, pageEmpty_));
  sectionPage_ = page_;
  if (pageEmpty_) MeasurePage();
}

void PageFiller::NextPage() {
  ++page_;
  pageEmpty_ = true;
  pageNotes_ = 0;
  deepest_ = 0;
  MeasurePage();
}

void PageFiller::MeasurePage() {
  PageSide side = PageSide::kDefault;
  if (section_->titlePage && page_ == sectionPage_) {
    side = PageSide::kFirst;
  } else if (options_.evenAndOdd && numberings_.back().NumberOf(page_) % 2 == 0) {
    side = PageSide::kEven;
  }
  top_ = section_->BodyTop(side);
  bottom_ = section_->BodyBottom(side);
  const bool mirrored = options_.mirrored && numberings_.back().NumberOf(page_) % 2 == 0;
  left_ = section_->TextLeft(mirrored);
  pages_.resize(static_cast<std::size_t>(page_));
  pages_.back() = {section_, side, mirrored, bottom_};
}

NoteRoom PageFiller::RoomOfNotes(const FlowItem& item) const {
  NoteRoom room;
  const auto add = [&](const FlowItem& each) {
    for (const XmlNodeData* reference : each.notes) {
      const auto note = notes_.find(reference);
      if (note == notes_.end()) continue;
      // Only the last note may be divided.
      room.firstLine = room.height + note->second.firstLine;
      room.height += note->second.height;
    }
  };
  add(item);
  if (item.row && !notes_.empty()) {
    for (const FlowItem& beside : item.row->beside) add(beside);
    for (const CellFlow& cell : item.row->cells) {
      for (std::size_t i = cell.next; i < cell.flow.items.size(); ++i) {
        const NoteRoom inner = RoomOfNotes(cell.flow.items[i]);
        if (inner.height <= 0) continue;
        room.firstLine = room.height + inner.firstLine;
        room.height += inner.height;
      }
    }
  }
  return room;
}

double PageFiller::SpaceAtTop(const FlowItem& item, TopSpace top) const {
  switch (top) {
    case TopSpace::kNone:
      return 0;
    case TopSpace::kOwn:
      return item.beforeTop;
    case TopSpace::kBehindSection:
      break;
  }
  return std::max(after_, item.beforeTop) - above_;
}

PageFiller::Fit PageFiller::FitColumn(const std::vector<FlowItem>& items, std::size_t begin, double height,
                                      TopSpace top, double carried) {
  Fit fit;
  marks_.clear();
  double used = 0;
  double notes = 0;
  if (carried > 0) {
    // At least a line of the text stands above a note that goes on.
    const double most = std::max(height - items[begin].height - options_.noteContinuation, kLeastProgress);
    notes = options_.noteContinuation + std::min(carried, most);
    fit.carried = std::max(0.0, carried - most);
  }
  std::size_t i = begin;
  for (; i < items.size(); ++i) {
    const FlowItem& item = items[i];
    if (i > begin && item.breakBefore != BreakBefore::kNone) break;
    double space = i == begin ? SpaceAtTop(item, top) : item.before;
    if (i == begin) space += item.headerHeight;
    const NoteRoom own = RoomOfNotes(item);
    const double separator = own.height > 0 && notes <= 0 && pageNotes_ <= 0 ? options_.noteSeparator : 0;
    const double rest = height - used - space - item.height - notes;
    const double spare = item.row && rest + kSlack < 0 ? item.row->Spare() : 0;
    if (rest + spare + kSlack < 0 && !(item.sectionMark && i > begin)) {
      if (item.row && i >= begin) {
        const double free = height - used - space - notes;
        double taken = 0;
        fit.room = free;
        fit.divides = DivideRow(*item.row, free, i == begin, {}, nullptr, &taken);
        if (fit.divides && taken > 0) {
          // Of the notes of what stands here, half of the room at most; the others go on on the next page.
          const double wanted = taken + separator;
          double placed = std::min(wanted, free / 2);
          fit.divides = DivideRow(*item.row, free - placed, i == begin, {}, nullptr, nullptr);
          if (!fit.divides && i == begin) {
            fit.divides = true;
            placed = 0;
          }
          fit.room = free - placed;
          notes += placed;
          fit.carried = fit.divides ? wanted - placed : 0;
        }
      }
      if (!fit.divides) return Shorten(items, begin, i);
      fit.end = i;
      fit.used = height - notes;
      fit.notes = notes;
      return fit;
    }
    if (own.height > 0 && rest + kSlack < own.height + separator) {
      if (rest + kSlack < own.firstLine + separator) {
        if (i > begin) return Shorten(items, begin, i);
      }
      // The note goes on on the next page, and this one is full.
      const double placed = std::max(0.0, rest - separator);
      if (i + 1 < items.size() && items[i + 1].hold != Hold::kNone && i > begin) return Shorten(items, begin, i + 1);
      fit.end = i + 1;
      fit.used = used + space + item.height;
      fit.notes = notes + separator + placed;
      fit.carried = std::max(0.0, own.height - placed);
      return fit;
    }
    used += space + item.height;
    notes += own.height > 0 ? own.height + separator : 0;
    marks_.push_back({used, notes});
    if (fit.carried > 0) {
      ++i;
      break;
    }
  }
  fit.end = i;
  fit.used = used;
  fit.notes = notes;
  return fit;
}

std::vector<double> PageFiller::EndsOf(const std::vector<FlowItem>& items, std::size_t begin, std::size_t end) const {
  std::vector<double> ends;
  for (std::size_t i = begin; i < end; ++i) {
    const bool fitted = i - begin < marks_.size();
    const double before = ends.empty() ? 0 : ends.back() + items[i].before;
    ends.push_back(fitted ? marks_[i - begin].used : before + items[i].height);
  }
  return ends;
}

std::size_t PageFiller::DivideLine(std::vector<FlowItem>& items, std::size_t at) {
  const Paragraph* paragraph = items[at].shown.paragraph;
  if (flows_ == nullptr || paragraph == nullptr || !items[at].shown.letters) {
    items[at].position = items[at].lastBreak;
    return at;
  }
  const Position lastBreak = items[at].lastBreak;
  const std::uint32_t unit = UnitAt(*paragraph, lastBreak);
  // The break can stand at the end of the line before.
  const bool before = unit < items[at].shown.from;
  if (before && (at == 0 || items[at - 1].shown.paragraph != paragraph)) return at;
  const std::size_t line = before ? at - 1 : at;
  const ShownLine& shown = items[line].shown;
  // Nothing that shows stands before the break: all of the paragraph is behind it.
  if (!before && unit == 0) return at;
  if (unit <= shown.from || unit >= shown.to || !shown.letters) {
    items[at].position = items[at].lastBreak;
    return at;
  }
  flows_->Divide(items, line, unit);
  items[line + 1].position = items[line + 1].lastBreak = lastBreak;
  return line + 1;
}

PageFiller::Fit PageFiller::KeepLastBreak(std::vector<FlowItem>& items, std::size_t begin, double height,
                                          const Fit& fit) {
  if (!options_.lastBreaks || section_->columns.size() > 1) return fit;
  const double near = height * kNear;
  const auto found = [&](std::size_t at) { return at > begin && at < items.size() && items[at].lastBreak >= 0; };
  std::size_t end = 0;
  double distance = 0;
  for (std::size_t i = fit.end; i > begin && distance <= near; --i) {
    if (found(i)) {
      end = i;
      break;
    }
    distance += items[i - 1].height + items[i - 1].before;
  }
  if (end == 0 && fit.end < items.size()) {
    distance = 0;
    for (std::size_t i = fit.end; i < items.size() && distance <= near; ++i) {
      if (i > fit.end && found(i)) {
        end = i;
        break;
      }
      if (items[i].breakBefore != BreakBefore::kNone) break;
      distance += items[i].height + items[i].before;
    }
  }
  if (end == 0) return fit;
  keptLastBreaks_ = true;
  // What Word has on the line before the break stays on the page before.
  const std::size_t divided = items[end].row ? end : DivideLine(items, end);
  if (divided == end && end == fit.end && !fit.divides) return fit;
  end = divided;
  Fit kept;
  kept.end = end;
  const std::size_t placed = std::min(end - begin, marks_.size());
  kept.used = EndsOf(items, begin, end).back();
  kept.notes = placed > 0 ? marks_[placed - 1].notes : fit.notes;
  return kept;
}

PageFiller::Fit PageFiller::Shorten(const std::vector<FlowItem>& items, std::size_t begin, std::size_t overflow) const {
  std::size_t end = 0;
  // What holds on to what comes before goes along, unless that would leave nothing on the page.
  for (const Hold most : {Hold::kNone, Hold::kNext, Hold::kLines, Hold::kWidow}) {
    for (std::size_t j = overflow; j > begin && end == 0; --j) {
      if (items[j].hold <= most) end = j;
    }
    if (end != 0) break;
  }
  Fit fit;
  fit.end = std::max(end, begin + 1);
  const std::size_t placed = fit.end - begin;
  if (placed <= marks_.size()) {
    fit.used = marks_[placed - 1].used;
    fit.notes = marks_[placed - 1].notes;
  } else {
    fit.used = items[begin].height;
  }
  return fit;
}

double PageFiller::BalancedHeight(const std::vector<FlowItem>& items, std::size_t begin, double height, TopSpace top) {
  const std::size_t columns = section_->columns.size();
  double total = 0;
  double highest = 0;
  for (std::size_t i = begin; i < items.size(); ++i) {
    if (i > begin && items[i].breakBefore != BreakBefore::kNone) return height;
    total += items[i].height + items[i].before;
    highest = std::max(highest, items[i].height);
    if (total > height * static_cast<double>(columns)) return height;
  }
  const auto fits = [&](double wanted) {
    std::size_t at = begin;
    for (std::size_t column = 0; column < columns && at < items.size(); ++column) {
      const Fit fit = FitColumn(items, at, wanted, column == 0 ? top : TopSpace::kNone, 0);
      if (fit.divides || fit.used > wanted + kSlack) return false;
      at = fit.end;
    }
    return at >= items.size();
  };
  if (!fits(height)) return height;
  double low = total / static_cast<double>(columns) - highest;
  double high = height;
  for (int step = 0; step < kBalanceSteps; ++step) {
    const double middle = (low + high) / 2;
    (fits(middle) ? high : low) = middle;
  }
  return high;
}

PageFiller::Content PlaceApart(Flow& flow, double left, double top, double width) {
  SectionGeometry column;
  column.left = left;
  column.gutter = 0;
  column.top = -std::max(top, 1.0);
  column.height = kEndless;
  column.bottom = 0;
  column.columns = {width};
  column.columnLefts = {0};
  const NoteRooms none;
  PageFiller filler(none, {});
  filler.BeginSection(column);
  PageFiller::Content placed;
  filler.Fill(flow, false, placed);
  return placed;
}

void PageFiller::Fill(Flow& flow, bool balanced, Content& placed) {
  std::vector<FlowItem>& items = flow.items;
  TopSpace top = pageEmpty_ ? TopSpace::kOwn : TopSpace::kBehindSection;
  above_ = top == TopSpace::kBehindSection && section_->columns.size() > 1 ? after_ : 0;
  top_ += above_;
  std::size_t column = 0;
  double columnNotes = 0;
  double height = 0;
  for (std::size_t begin = 0; begin < items.size();) {
    if (column == 0) {
      height = bottom_ - top_ - pageNotes_;
      if (top == TopSpace::kBehindSection && height < items[begin].height &&
          items[begin].breakBefore == BreakBefore::kNone) {
        NextPage();
        top = TopSpace::kNone;
        continue;
      }
      if (items[begin].breakBefore == BreakBefore::kPage && !pageEmpty_) {
        NextPage();
        top = TopSpace::kOwn;
        height = bottom_ - top_;
      }
      if (balanced && section_->columns.size() > 1) height = BalancedHeight(items, begin, height, top);
    }
    const Fit fit = KeepLastBreak(items, begin, height, FitColumn(items, begin, height, top, carried_));
    const double left = left_ + section_->columnLefts[column];
    PlaceHeaders(items, begin, left, placed);
    const std::vector<double> ends = EndsOf(items, begin, fit.end);
    // Lines that Word had room for and the layout has not stand a little closer.
    const double most = height - fit.notes;
    const double closer =
        options_.lastBreaks && !ends.empty() && ends.back() > most && most > 0 ? most / ends.back() : 1;
    for (std::size_t i = begin; i < fit.end; ++i) {
      const double above = std::max(0.0, ends[i - begin] - items[i].height);
      Place(items[i], {left, top_ + above * closer, false, false}, placed);
    }
    if (fit.divides) {
      FlowItem& item = items[fit.end];
      const double above = fit.used - fit.room;
      if (item.position >= 0) {
        placed.lines.push_back({item.position, page_, item.endnote, false, top_ + above, fit.room, left, {}});
      }
      DivideRow(*item.row, fit.room, fit.end == begin, {left, top_ + above, false, item.endnote}, &placed, nullptr);
      item.height = item.row->Height();
      item.before = item.beforeTop = 0;
      item.hold = Hold::kNone;
      item.breakBefore = BreakBefore::kNone;
      item.position = -1;
    }
    pageEmpty_ = false;
    onlyMark_ = fit.end == begin + 1 && items[begin].sectionMark && items[begin].breakBefore == BreakBefore::kPage;
    begin = fit.end;
    carried_ = fit.carried;
    if (fit.notes > 0) {
      placedNotes_.push_back({page_, left, section_->columns[column], fit.notes, noteOrder_.size(), fit.carried > 0});
    }
    columnNotes = std::max(columnNotes, fit.notes);
    deepest_ = std::max(deepest_, fit.used);
    if (section_->columnRules && column > 0) {
      const double end = section_->columnLefts[column - 1] + section_->columns[column - 1];
      const double middle = (end + section_->columnLefts[column]) / 2;
      placed.rules.push_back({page_, left_ + middle, top_, top_ + deepest_});
    }
    if (begin >= items.size()) break;
    const BreakBefore wanted = fit.divides ? BreakBefore::kNone : items[begin].breakBefore;
    top = wanted == BreakBefore::kNone ? TopSpace::kNone : TopSpace::kOwn;
    ++column;
    if (wanted == BreakBefore::kPage || column >= section_->columns.size()) {
      NextPage();
      column = 0;
      columnNotes = 0;
    }
  }
  pageNotes_ += columnNotes;
  after_ = flow.after;
}

}  // namespace docx::layout
