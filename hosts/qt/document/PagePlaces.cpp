#include "hosts/qt/document/PagePlaces.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

/// A line that is away upwards or downwards is further than one beside.
constexpr double kAcrossLines = 4;

/// A point of the page on a line's own sheet.
QPointF OnSheet(const page::Line& line, QPointF point) {
  if (line.turn == page::Turn::kUp) return {line.originY - point.y(), point.x() - line.originX};
  if (line.turn == page::Turn::kDown) return {point.y() - line.originY, line.originX - point.x()};
  return point;
}

bool Holds(const page::Line& line, const Place& place) {
  if (line.story != place.story || place.position < line.start) return false;
  return place.position < line.end || (line.endsParagraph && place.position == line.end);
}

}  // namespace

PagePlaces::Stops PagePlaces::StopsOf(const page::Line& line) {
  Stops all;
  double end = line.area.x;
  for (const page::Run& run : line.runs) {
    if (!run.places || run.text.empty()) continue;
    end = run.edges.back();
    const std::size_t units = run.solid ? 1 : run.text.size();
    for (std::size_t i = 0; i < units; ++i) {
      all.stops.push_back({run.position + static_cast<word::Position>(i), run.edges[i]});
      all.text += QChar(run.text[i]);
    }
  }
  if (line.endsParagraph || all.stops.empty()) {
    all.stops.push_back({line.endsParagraph ? line.end : line.start, end});
  }
  return all;
}

const page::Line* PagePlaces::LineAt(QPointF point, int story) const {
  const page::Line* best = nullptr;
  double least = 0;
  for (const page::Line& line : drawing_.lines) {
    if (line.story == 0 || (story != 0 && line.story != story)) continue;
    const page::Rect area = line.OnPage(line.area);
    const double across = std::max({area.y - point.y(), point.y() - area.Bottom(), 0.0});
    const double along = std::max({area.x - point.x(), point.x() - area.Right(), 0.0});
    const double distance = across * kAcrossLines + along;
    if (best != nullptr && distance >= least) continue;
    best = &line;
    least = distance;
  }
  return best;
}

std::optional<Place> PagePlaces::PlaceAt(QPointF point, int story) const {
  const page::Line* line = LineAt(point, story);
  if (line == nullptr) return {};
  const Stops all = StopsOf(*line);
  const double x = OnSheet(*line, point).x();
  const auto next = std::ranges::min_element(all.stops, {}, [&](const Stop& s) { return std::abs(s.x - x); });
  return Place{line->story, next->position};
}

const page::Line* PagePlaces::LineOf(const Place& place) const {
  const page::Line* before = nullptr;
  const page::Line* first = nullptr;
  for (const page::Line& line : drawing_.lines) {
    if (line.story != place.story) continue;
    if (Holds(line, place)) return &line;
    if (first == nullptr) first = &line;
    // Between two lines stands what does not show.
    if (line.start <= place.position && (before == nullptr || line.start >= before->start)) before = &line;
  }
  return before != nullptr ? before : first;
}

std::optional<QRectF> PagePlaces::CursorAt(const Place& place) const {
  const page::Line* line = LineOf(place);
  if (line == nullptr) return {};
  const Stops all = StopsOf(*line);
  const auto stop = std::ranges::find_if(all.stops, [&](const Stop& one) { return one.position >= place.position; });
  const double x = stop == all.stops.end() ? all.stops.back().x : stop->x;
  const page::Rect rect = line->OnPage({x, line->area.y, 1, line->area.height});
  return QRectF(rect.x, rect.y, rect.width, rect.height);
}

const page::Line* PagePlaces::Neighbour(const page::Line* line, bool forward) const {
  const page::Line* const begin = drawing_.lines.data();
  const page::Line* const end = begin + drawing_.lines.size();
  for (const page::Line* at = line; forward ? ++at < end : at-- > begin;) {
    if (at->story == line->story) return at;
  }
  return nullptr;
}

std::optional<Place> PagePlaces::Step(const Place& place, bool forward, bool words) const {
  const page::Line* line = LineOf(place);
  if (line == nullptr) return {};
  const Stops all = StopsOf(*line);
  const auto at = std::ranges::find_if(all.stops, [&](const Stop& one) { return one.position >= place.position; });
  QTextBoundaryFinder finder(words ? QTextBoundaryFinder::Word : QTextBoundaryFinder::Grapheme, all.text);
  finder.setPosition(at - all.stops.begin());
  const auto size = static_cast<qsizetype>(all.stops.size());
  while (true) {
    const qsizetype next = forward ? finder.toNextBoundary() : finder.toPreviousBoundary();
    if (next < 0 || next >= size) break;
    const bool edge = next == all.text.size();
    const bool begins = finder.boundaryReasons().testFlag(QTextBoundaryFinder::StartOfItem);
    if (words && !begins && !edge) continue;
    return Place{place.story, all.stops[static_cast<std::size_t>(next)].position};
  }
  if (!forward && !all.stops.empty() && place.position > all.stops.front().position) {
    return Place{place.story, all.stops.front().position};
  }
  const page::Line* other = Neighbour(line, forward);
  if (other == nullptr) return {};
  const Stops there = StopsOf(*other);
  return Place{place.story, (forward ? there.stops.front() : there.stops.back()).position};
}

Place PagePlaces::LineEdge(const Place& place, bool end) const {
  const page::Line* line = LineOf(place);
  if (line == nullptr) return place;
  const Stops all = StopsOf(*line);
  return {place.story, (end ? all.stops.back() : all.stops.front()).position};
}

PagePlaces::Edge PagePlaces::ParagraphEdge(const Place& place, bool end) const {
  const page::Line* line = LineOf(place);
  if (line == nullptr) return {place};
  const page::Line* next = line;
  if (end) {
    while (!line->endsParagraph && (next = Neighbour(line, true)) != nullptr) line = next;
    return {{place.story, StopsOf(*line).stops.back().position}, !line->endsParagraph};
  }
  while ((next = Neighbour(line, false)) != nullptr && !next->endsParagraph) line = next;
  return {{place.story, StopsOf(*line).stops.front().position}, next == nullptr};
}

PagePlaces::Shown PagePlaces::ShownOf(int story) const {
  Shown shown;
  for (const page::Line& line : drawing_.lines) {
    if (line.story != story) continue;
    for (const page::Run& run : line.runs) {
      if (!run.places) continue;
      for (std::size_t i = 0; i < run.text.size(); ++i) {
        shown.text += QChar(run.text[i]);
        shown.positions.push_back(run.position + (run.solid ? 0 : static_cast<word::Position>(i)));
      }
    }
    if (!line.endsParagraph) continue;
    shown.text += QLatin1Char('\n');
    shown.positions.push_back(line.end);
  }
  return shown;
}

bool PagePlaces::IsOnlyShown(QPointF point) const {
  return std::ranges::any_of(drawing_.lines, [&](const page::Line& line) {
    const QPointF own = OnSheet(line, point);
    const bool beside = own.y() < line.area.y || own.y() > line.area.Bottom();
    if (line.story != 0 || beside) return false;
    return std::ranges::any_of(line.runs, [&](const page::Run& run) {
      const auto [left, right] = std::minmax(run.edges.front(), run.edges.back());
      return own.x() >= left && own.x() <= right;
    });
  });
}

std::optional<Place> PagePlaces::First() const {
  const auto line = std::ranges::find_if(drawing_.lines, [](const page::Line& one) { return one.story != 0; });
  if (line == drawing_.lines.end()) return {};
  return Place{line->story, StopsOf(*line).stops.front().position};
}

std::optional<Place> PagePlaces::Last() const {
  const std::optional<Place> first = First();
  if (!first) return {};
  const auto line = std::find_if(drawing_.lines.rbegin(), drawing_.lines.rend(),
                                 [&](const page::Line& one) { return one.story == first->story; });
  return Place{line->story, StopsOf(*line).stops.back().position};
}

}  // namespace qt
