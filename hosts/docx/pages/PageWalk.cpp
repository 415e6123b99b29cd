#include "hosts/docx/pages/PageWalk.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace docx {

namespace {

constexpr double kCellPadding = 10.8;  // points, both sides together
constexpr int kWidowLines = 2;
constexpr double kTolerance = 0.01;  // of a line

}  // namespace

PageWalk::PageWalk(const Formatting& formatting, std::vector<PageSetup> setups, Options options)
    : formatting_(&formatting), shapes_(formatting), setups_(std::move(setups)), options_(std::move(options)) {}

void PageWalk::WalkMain(const Story& story, const PageFlow& flow) {
  width_ = Setup().columnWidth;
  numberings_.push_back(NumberFirstSection(Setup()));
  Walk(story, flow);
  mainStarts_ = std::move(starts_);
  starts_.clear();
  sectionEnds_.push_back(count_);
}

void PageWalk::WalkEndnotes(const Formatting& formatting, const Story& story, const PageFlow& flow) {
  formatting_ = &formatting;
  shapes_ = ParagraphShapes(formatting);
  inEndnotes_ = true;
  starts_.push_back({0, at_.page});
  Walk(story, flow);
  endnoteStarts_ = std::move(starts_);
  starts_.clear();
}

void PageWalk::Walk(const Story& story, const PageFlow& flow) {
  atoms_ = &story.Atoms();
  flow_ = &flow;
  index_ = 0;
  measured_ = options_.estimate || !flow.indexes.empty();
  for (const FlowEvent& event : flow.events) Step(event);
}

bool PageWalk::EstimatedAt(Position position) {
  if (options_.estimate) return true;
  const std::vector<FlowStretch>& indexes = flow_->indexes;
  while (index_ < indexes.size() && indexes[index_].end < position) ++index_;
  return index_ < indexes.size() && indexes[index_].start <= position;
}

void PageWalk::Step(const FlowEvent& event) {
  NoteText(event);
  switch (event.kind) {
    case FlowKind::kParagraphStart:
      BeginParagraph(event);
      break;
    case FlowKind::kParagraphEnd:
      EndParagraph(event);
      break;
    case FlowKind::kSectionEnd:
      EndSection(event.position);
      break;
    case FlowKind::kLastBreak:
      stated_ = true;
      LayLines(event.position, 0);
      if (!at_.begun) NewPage(event.position);
      at_.begun = false;
      break;
    case FlowKind::kPageBreak:
      LayLines(event.position, lines_ ? 0 : 1);
      if (!rows_.empty()) break;  // Word does not break pages so inside a table
      stated_ = true;
      NewPage(event.position);
      breakEnds_ = true;
      break;
    case FlowKind::kColumnBreak:
      LayLines(event.position, lines_ ? 0 : 1);
      at_.y = Setup().textHeight * (std::floor(at_.y / Setup().textHeight) + 1);
      if (Setup().columns == 1 || (options_.estimate && at_.y >= Room())) {
        stated_ = true;
        NewPage(event.position);
      }
      break;
    case FlowKind::kLineBreak:
      LayLines(event.position, filled_ > 0 ? 0 : 1);
      filled_ = 0;
      break;
    case FlowKind::kNote:
      LayLines(event.position, 0);
      if (!inEndnotes_) notes_.push_back({event.Node(), at_.page, section_});
      if (options_.estimate && options_.noteHeight) at_.y += options_.noteHeight(event.Node());
      break;
    case FlowKind::kRowStart:
      BeginRow(event);
      break;
    case FlowKind::kCellStart:
      BeginCell(event);
      break;
    case FlowKind::kCellEnd:
      if (rows_.empty()) break;
      if (std::pair(at_.page, at_.y) >= std::pair(rows_.back().furthest.page, rows_.back().furthest.y)) {
        rows_.back().furthest = at_;
      }
      break;
    case FlowKind::kRowEnd:
      EndRow(event);
      break;
  }
}

void PageWalk::NoteText(const FlowEvent& event) {
  if (event.text == 0) return;
  characters_ += event.text;
  at_.empty = false;
  at_.begun = false;
  breakEnds_ = false;
  // Where lines are laid, a row's first text may yet go to the next page and take the row along.
  if (!measured_) HoldRows();
}

void PageWalk::MoveOuter(const Row& inner, Row& outer) {
  if (!inner.moved || outer.text) return;
  outer.start = outer.furthest = inner.start;
  outer.moved = true;
}

void PageWalk::HoldRows() {
  for (std::size_t i = rows_.size(); i-- > 0 && !rows_[i].text;) {
    rows_[i].text = true;
    if (i > 0) MoveOuter(rows_[i], rows_[i - 1]);
  }
}

void PageWalk::BeginParagraph(const FlowEvent& event) {
  characters_ = 0;
  laid_ = event.position;
  lines_ = false;
  filled_ = 0;
  breakEnds_ = false;
  const ParagraphShape shape = shapes_.Of(event.Node(), XmlNode(event.run), width_);
  if (measured_) shape_ = shape;
  shape_.pageBreakBefore = shape.pageBreakBefore;
  if (shape_.pageBreakBefore && !at_.empty) {
    stated_ = true;
    NewPage(event.position);
  }
  if (measured_ && at_.y > 0) at_.y += std::max(at_.after, shape_.before);
}

void PageWalk::EndParagraph(const FlowEvent& event) {
  LayLines(event.position, lines_ ? 0 : 1);
  at_.after = shape_.after;
  // The mark behind a page break stays on the break's page, although its position is behind it.
  if (!breakEnds_) at_.empty = false;
}

void PageWalk::LayLines(Position end, int least) {
  if (!measured_) return;
  double onOpenLine = filled_ > 0 ? shape_.perLine - filled_ : 0;
  const double rest = std::max(0.0, characters_ - onOpenLine);
  const int textLines = shape_.Lines(rest);
  const double filled = rest > 0 ? rest - (textLines - 1) * shape_.perLine : filled_ + characters_;
  int lines = std::max(least, textLines);
  if (lines > 0) lines_ = true;
  while (lines > 0) {
    int fitting = static_cast<int>((Room() - at_.y) / shape_.lineHeight + kTolerance);
    if (at_.y <= 0) fitting = std::max(fitting, 1);
    if (fitting >= lines || !EstimatedAt(laid_)) break;
    fitting = std::max(fitting, 0);
    if (at_.y > 0) {
      // Neither the first nor the last line of a paragraph stands alone.
      if (lines - fitting < kWidowLines) fitting = lines - kWidowLines;
      if (fitting < kWidowLines) fitting = 0;
    }
    if (fitting > 0) HoldRows();
    lines -= fitting;
    const double before = onOpenLine + fitting * shape_.perLine;
    if (before >= 1) laid_ = std::min(end, PositionOfShown(*atoms_, laid_, static_cast<std::uint32_t>(before)));
    onOpenLine = 0;
    estimated_ = true;
    NewPage(laid_);
    at_.begun = false;
  }
  at_.y += lines * shape_.lineHeight;
  if (lines > 0) {
    HoldRows();
    at_.empty = false;
  }
  filled_ = filled < shape_.perLine ? filled : 0;
  characters_ = 0;
  laid_ = end;
}

void PageWalk::NewPage(Position position) {
  Spot next;
  next.page = at_.page + 1;
  GoTo(next, position);
  filled_ = 0;
  if (rows_.empty() || rows_.back().text) return;
  // The rows around it follow once it has text or ends.
  rows_.back().start = rows_.back().furthest = next;
  rows_.back().moved = true;
}

void PageWalk::GoTo(const Spot& spot, Position position) {
  const int page = starts_.empty() ? 1 : starts_.back().page;
  at_ = spot;
  count_ = std::max(count_, spot.page);
  if (spot.page == page) return;
  if (!starts_.empty() && starts_.back().position == position) {
    starts_.back().page = spot.page;
  } else {
    starts_.push_back({position, spot.page});
  }
}

void PageWalk::BeginRow(const FlowEvent& event) {
  Row row;
  at_.after = 0;
  row.start = row.furthest = at_;
  row.outerWidth = width_;
  if (measured_) {
    const XmlChildren children = event.Node().Children(formatting_->Part().Name("tc"));
    const auto cells = std::distance(children.begin(), children.end());
    row.cellWidth = width_ / static_cast<double>(std::max<std::ptrdiff_t>(1, cells));
  }
  rows_.push_back(row);
}

void PageWalk::BeginCell(const FlowEvent& event) {
  if (rows_.empty()) return;
  GoTo(rows_.back().start, event.position);
  if (!measured_) return;
  const XmlPart& part = formatting_->Part();
  const XmlNode width = part.Child(part.Child(event.Node(), "tcPr"), "tcW");
  width_ = rows_.back().cellWidth;
  if (std::string_view(part.Attribute(width, "type").Value()) == "dxa") {
    const int twips = ReadTwips(part.Attribute(width, "w")).value_or(0);
    if (twips > 0) width_ = std::min(twips / 20.0, rows_.back().outerWidth);
  }
  width_ -= kCellPadding;
}

void PageWalk::EndRow(const FlowEvent& event) {
  if (rows_.empty()) return;
  const Row row = rows_.back();
  rows_.pop_back();
  if (!rows_.empty() && !row.text) MoveOuter(row, rows_.back());
  width_ = row.outerWidth;
  Spot end = row.furthest;
  end.after = 0;
  end.empty = false;
  GoTo(end, event.position);
}

void PageWalk::EndSection(Position position) {
  sectionEnds_.push_back(at_.page);
  if (section_ + 1 >= setups_.size()) return;
  const PageSetup& ended = Setup();
  ++section_;
  const PageSetup& begun = Setup();
  const bool samePaper = ended.paperWidth == begun.paperWidth && ended.paperHeight == begun.paperHeight;
  const bool stays =
      begun.start == SectionStart::kContinuous || (begun.start == SectionStart::kNextColumn && begun.columns > 1);
  if (!stays || !samePaper) {
    stated_ = true;
    if (!at_.empty) NewPage(position);
    const FirstNumber first = NumberAfter(numberings_.back().NumberOf(at_.page - 1), begun);
    if (first.blank) NewPage(position);
  } else if (measured_ && ended.columns != begun.columns) {
    // What stood in some columns is levelled out before others begin.
    at_.y = at_.y / ended.columns * begun.columns;
  }
  numberings_.push_back(NumberNextSection(numberings_.back(), begun, at_.page, at_.empty));
  width_ = begun.columnWidth;
}

}  // namespace docx
