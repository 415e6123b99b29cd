#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "hosts/docx/layout/DocumentLayout.h"
#include "hosts/docx/layout/PageDrawer.h"
#include "hosts/docx/layout/PageFields.h"
#include "hosts/docx/pages/PageLabels.h"
#include "platform/word/Constants.h"

namespace docx::layout {

namespace {

constexpr double kPerPoint = 20;
constexpr double kSlack = 1;  // twips

/// What stands on one page, of things in the order of pages.
template <typename Thing>
std::span<const Thing> OnPage(const std::vector<Thing>& things, int page) {
  const auto first = std::partition_point(things.begin(), things.end(), [&](const Thing& t) { return t.page < page; });
  const auto last = std::partition_point(first, things.end(), [&](const Thing& t) { return t.page == page; });
  return {first, last};
}

/// Puts the items of one flow behind those of another.
void Append(Flow& flow, Flow&& more) {
  for (FlowItem& item : more.items) {
    item.before = std::max(item.before, std::exchange(flow.after, 0));
    flow.items.push_back(std::move(item));
  }
  flow.after = std::max(flow.after, more.after);
}

}  // namespace

void DocumentLayout::PlaceFootnotes() {
  if (separator_ == nullptr) return;
  FlowBuilder builder(lines_, flowSettings_);
  Flow waiting;
  std::size_t taken = 0;
  const std::vector<PageFiller::PlacedNotes>& rooms = filler_->Notes();
  const std::vector<const XmlNodeData*>& references = filler_->NoteOrder();
  for (std::size_t r = 0; r < rooms.size();) {
    const PageFiller::PlacedNotes& room = rooms[r];
    const bool goesOn = !waiting.items.empty();
    Flow foot = builder.Build(goesOn ? *continuation_ : *separator_, room.width);
    for (FlowItem& item : foot.items) item.position = -1;
    // Sections that share a page share the foot of their column.
    for (; r < rooms.size() && rooms[r].page == room.page && rooms[r].left == room.left; ++r) {
      for (; taken < rooms[r].references; ++taken) {
        const auto note = noteRooms_.find(references[taken]);
        if (note != noteRooms_.end()) Append(waiting, std::move(noteFlows_[note->second.flow]));
      }
      double left = rooms[r].height - foot.Height();
      const bool all = !rooms[r].goesOn || r + 1 == rooms.size();
      std::size_t fits = 0;
      for (; fits < waiting.items.size(); ++fits) {
        const FlowItem& item = waiting.items[fits];
        left -= item.before + item.height;
        if (!all && fits > 0 && left + kSlack < 0) break;
      }
      Flow now;
      const auto end = waiting.items.begin() + static_cast<std::ptrdiff_t>(fits);
      now.items.assign(std::move_iterator(waiting.items.begin()), std::move_iterator(end));
      waiting.items.erase(waiting.items.begin(), end);
      if (waiting.items.empty()) now.after = std::exchange(waiting.after, 0);
      Append(foot, std::move(now));
    }
    const double bottom = filler_->Pages()[static_cast<std::size_t>(room.page - 1)].bottom;
    PageFiller::Content placed = PlaceApart(foot, room.left, bottom - foot.Height(), room.width);
    const auto keep = [&](auto& from, auto& into) {
      for (auto& thing : from) {
        thing.page = room.page;
        into.push_back(std::move(thing));
      }
    };
    keep(placed.lines, notes_.lines);
    keep(placed.cells, notes_.cells);
  }
}

double DocumentLayout::PaperWidth(int page) const {
  return filler_->Pages().at(static_cast<std::size_t>(page - 1)).section->width / kPerPoint;
}

double DocumentLayout::PaperHeight(int page) const {
  return filler_->Pages().at(static_cast<std::size_t>(page - 1)).section->height / kPerPoint;
}

page::Display DocumentLayout::Draw(int page) const {
  const PageFiller::PageRoom& room = filler_->Pages().at(static_cast<std::size_t>(page - 1));
  page::Display display;
  display.width = room.section->width / kPerPoint;
  display.height = room.section->height / kPerPoint;
  LineMaker maker(lineSettings_);
  FlowBuilder flows(maker, flowSettings_);
  PageDrawer drawer(lineSettings_, room, flows, display);

  const auto lines = OnPage(body_.lines, page);
  const auto notes = OnPage(notes_.lines, page);
  double down = 0;
  if (room.section->lowered > 0 && !lines.empty()) {
    double deepest = 0;
    for (const PageFiller::Placed& line : lines) deepest = std::max(deepest, line.top + line.height);
    const double foot = notes.empty() ? room.bottom : notes.front().top;
    down = std::max(0.0, foot - deepest) * room.section->lowered;
  }
  drawer.Add(lines, OnPage(body_.cells, page), word::wdMainTextStory, down);
  for (const PageFiller::ColumnRule& rule : OnPage(body_.rules, page)) {
    display.rules.push_back(
        {rule.left / kPerPoint, rule.top / kPerPoint, rule.left / kPerPoint, rule.bottom / kPerPoint});
  }
  drawer.Add(notes, OnPage(notes_.cells, page), word::wdFootnotesStory);
  DrawHeaders(page, flows, drawer);
  return display;
}

void DocumentLayout::DrawHeaders(int page, FlowBuilder& flows, PageDrawer& drawer) const {
  const PageFiller::PageRoom& room = filler_->Pages().at(static_cast<std::size_t>(page - 1));
  const SectionGeometry& section = *room.section;
  const auto side = static_cast<std::size_t>(room.side);
  const std::u16string label = PageLabel(filler_->Numberings(), page);
  PageFieldNumbers numbers{label, PageNumber(filler_->Numberings(), page), PageCount(), 0};
  numbers.sectionPages =
      static_cast<int>(std::ranges::count(filler_->Pages(), &section, &PageFiller::PageRoom::section));
  for (const bool header : {true, false}) {
    std::vector<Block>* blocks = (header ? section.headers : section.footers)[side];
    if (blocks == nullptr) continue;
    SetPageFields(*blocks, numbers);
    Flow flow = flows.Build(*blocks, section.TextWidth());
    const double top = header ? section.header : section.height - section.footer - flow.Height();
    const PageFiller::Content placed = PlaceApart(flow, section.TextLeft(room.mirrored), top, section.TextWidth());
    drawer.Add(placed.lines, placed.cells, 0);
  }
}

const std::vector<PageStart>& DocumentLayout::Starts(int story) const {
  static const std::vector<PageStart> none;
  const bool endnote = story == word::wdEndnotesStory;
  if (story != word::wdMainTextStory && story != word::wdFootnotesStory && !endnote) return none;
  std::vector<PageStart>& starts = starts_[static_cast<std::size_t>(story - 1)];
  if (!starts.empty()) return starts;
  for (const PageFiller::Placed& line : story == word::wdFootnotesStory ? notes_.lines : body_.lines) {
    const bool shows = !line.repeated && line.position >= 0 && line.shown.paragraph != nullptr;
    if (shows && line.endnote == endnote) starts.push_back({line.position, line.page});
  }
  // Text that runs up or down is placed with its cell.
  for (const PageFiller::PlacedCell& cell : story == word::wdFootnotesStory ? notes_.cells : body_.cells) {
    const bool sideways = !endnote && !cell.repeated && cell.cell->sideways && !cell.cell->blocks.empty();
    const Paragraph* first = sideways ? cell.cell->blocks.front().AsParagraph() : nullptr;
    if (first != nullptr) starts.push_back({first->start, cell.page});
  }
  std::ranges::stable_sort(starts, {}, &PageStart::position);
  // A position that two lines begin at is where the second one is.
  std::size_t kept = 0;
  for (std::size_t i = 0; i < starts.size(); ++i) {
    if (i + 1 < starts.size() && starts[i + 1].position == starts[i].position) continue;
    if (kept == 0 || starts[kept - 1].page != starts[i].page) starts[kept++] = starts[i];
  }
  starts.resize(kept);
  return starts;
}

int DocumentLayout::PageShowing(int story, Position position) const {
  const std::vector<PageStart>& starts = Starts(story);
  if (starts.empty() || position < starts.front().position) return starts.empty() ? 1 : starts.front().page;
  return PageAt(starts, position);
}

const Paragraph* DocumentLayout::ParagraphAt(Position position) const {
  for (const PageFiller::Placed& line : OnPage(body_.lines, PageShowing(word::wdMainTextStory, position))) {
    const Paragraph* paragraph = line.shown.paragraph;
    if (paragraph == nullptr || line.endnote || line.repeated) continue;
    if (position >= paragraph->start && position <= paragraph->end) return paragraph;
  }
  return nullptr;
}

}  // namespace docx::layout
