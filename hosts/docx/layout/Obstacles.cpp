#include "hosts/docx/layout/Obstacles.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace docx::layout {

namespace {

/// Word puts no text into less than an inch beside something.
constexpr double kNarrowestPart = 1440;
constexpr double kSlack = 1;  // twips
constexpr std::size_t kMost = 64;

/// What an obstacle takes of the height of a line, from left to right.
struct Stretch {
  double from{0};
  double to{0};
};

/// @return nothing where the outline leaves all of the line free
std::optional<Stretch> StretchAt(const Obstacle& obstacle, double top, double bottom) {
  if (obstacle.outline.empty()) return Stretch{obstacle.left, obstacle.right};
  Stretch stretch{std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest()};
  const auto include = [&](double x) {
    stretch.from = std::min(stretch.from, x);
    stretch.to = std::max(stretch.to, x);
  };
  OutlinePoint before = obstacle.outline.back();
  for (const OutlinePoint& point : obstacle.outline) {
    const bool falls = before.y < point.y;
    const OutlinePoint& upper = falls ? before : point;
    const OutlinePoint& lower = falls ? point : before;
    if (lower.y > top && upper.y < bottom) {
      const double height = lower.y - upper.y;
      const auto at = [&](double y) {
        return height > 0 ? upper.x + (lower.x - upper.x) * (std::clamp(y, upper.y, lower.y) - upper.y) / height
                          : lower.x;
      };
      include(at(top));
      include(at(bottom));
      if (height <= 0) include(upper.x);
    }
    before = point;
  }
  if (stretch.from > stretch.to) return std::nullopt;
  return Stretch{stretch.from - obstacle.spaceLeft, stretch.to + obstacle.spaceRight};
}

/// Where the outline of an obstacle changes next below a place.
double NextChange(const Obstacle& obstacle, double top) {
  double next = obstacle.bottom;
  for (const OutlinePoint& point : obstacle.outline) {
    if (point.y > top + kSlack) next = std::min(next, point.y);
  }
  return next;
}

void Cut(std::vector<LineRoom>& parts, const Obstacle& obstacle, Stretch stretch, double width) {
  auto [from, to] = stretch;
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

/// @param next gets where the first of the obstacles there ends, or leaves more room
std::vector<LineRoom> Obstacles::PartsAt(double top, double height, double width, double& next) const {
  std::vector<LineRoom> parts{{0, width}};
  bool met = false;
  for (const Obstacle& obstacle : all_) {
    if (obstacle.bottom <= top + kSlack || obstacle.top >= top + height - kSlack) continue;
    if (obstacle.right <= 0 || obstacle.left >= width) continue;
    const std::optional<Stretch> stretch = StretchAt(obstacle, top, top + height);
    if (!stretch) continue;
    met = true;
    next = std::min(next, NextChange(obstacle, top));
    Cut(parts, obstacle, *stretch, width);
  }
  if (met) std::erase_if(parts, [&](const LineRoom& part) { return part.width < std::min(kNarrowestPart, width); });
  return parts;
}

LineRoom Obstacles::Find(double top, double height, double width, std::size_t part) const {
  double at = top;
  // Each step goes past an obstacle or a point of an outline, so there are no more steps than these.
  std::size_t steps = all_.size();
  for (const Obstacle& obstacle : all_) steps += obstacle.outline.size();
  for (std::size_t step = 0; step <= steps; ++step) {
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
