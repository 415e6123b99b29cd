#include "hosts/docx/layout/Obstacles.h"

#include <algorithm>
#include <limits>

namespace docx::layout {

namespace {

/// Word puts no text into less than an inch beside something.
constexpr double kNarrowestPart = 1440;
constexpr double kSlack = 1;  // twips
constexpr std::size_t kMost = 64;

void Cut(std::vector<LineRoom>& parts, const Obstacle& obstacle, double width) {
  double from = obstacle.left;
  double to = obstacle.right;
  TextSides sides = obstacle.sides;
  if (sides == TextSides::kLarger) sides = from > width - to ? TextSides::kLeft : TextSides::kRight;
  if (sides == TextSides::kLeft || sides == TextSides::kNone) to = std::max(to, width);
  if (sides == TextSides::kRight || sides == TextSides::kNone) from = std::min(from, 0.0);
  std::vector<LineRoom> left;
  for (const LineRoom& part : parts) {
    const double end = part.left + part.width;
    if (to <= part.left || from >= end) {
      left.push_back(part);
      continue;
    }
    if (from > part.left) left.push_back({part.left, from - part.left});
    if (to < end) left.push_back({to, end - to});
  }
  parts = std::move(left);
}

}  // namespace

void Obstacles::Add(const Obstacle& obstacle) {
  if (all_.size() < kMost) all_.push_back(obstacle);
}

void Obstacles::PassOver(double top) {
  std::erase_if(all_, [&](const Obstacle& obstacle) { return obstacle.bottom <= top; });
}

/// @param next gets where the first of the obstacles there ends
std::vector<LineRoom> Obstacles::PartsAt(double top, double height, double width, double& next) const {
  std::vector<LineRoom> parts{{0, width}};
  bool met = false;
  for (const Obstacle& obstacle : all_) {
    if (obstacle.bottom <= top + kSlack || obstacle.top >= top + height - kSlack) continue;
    if (obstacle.right <= 0 || obstacle.left >= width) continue;
    met = true;
    next = std::min(next, obstacle.bottom);
    Cut(parts, obstacle, width);
  }
  if (met) std::erase_if(parts, [&](const LineRoom& part) { return part.width < std::min(kNarrowestPart, width); });
  return parts;
}

LineRoom Obstacles::Find(double top, double height, double width, std::size_t part) const {
  double at = top;
  // Each step goes past an obstacle, so there are no more steps than obstacles.
  for (std::size_t step = 0; step <= all_.size(); ++step) {
    double next = std::numeric_limits<double>::max();
    const std::vector<LineRoom> parts = PartsAt(at, height, width, next);
    if (!parts.empty()) {
      LineRoom room = parts[std::min(part, parts.size() - 1)];
      room.skip = at - top;
      room.more = part + 1 < parts.size();
      return room;
    }
    at = next;
  }
  return {0, width, 0, false};
}

}  // namespace docx::layout
