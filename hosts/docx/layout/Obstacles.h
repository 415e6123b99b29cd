#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace docx::layout {

/// On which sides of something there is text.
enum class TextSides : std::uint8_t { kBoth, kLeft, kRight, kLarger, kNone };

struct OutlinePoint {
  double x{0};
  double y{0};
};

/// What text has to leave free, in a column that has no end. Lengths in twips, from the column's upper left corner.
struct Obstacle {
  double top{0};
  double bottom{0};
  double left{0};
  double right{0};
  TextSides sides{TextSides::kBoth};
  /// What text leaves free of the box, and how much on its left and right; empty for all of the box.
  std::vector<OutlinePoint> outline{};
  double spaceLeft{0};
  double spaceRight{0};
};

/// What a line has of its column.
struct LineRoom {
  double left{0};  ///< of the column's edge
  double width{0};
  double skip{0};    ///< how far below the wanted place there is room at all
  bool more{false};  ///< there is another part to the right, at the same height
};

class Obstacles {
 public:
  bool Empty() const { return all_.empty(); }
  /// Of more than anybody could place beside each other the further ones do not count.
  void Add(const Obstacle& obstacle);
  /// Forgets what ends above a place that lines have come to.
  void PassOver(double top);
  /// @param width of the column @param part from 0 on, of those that share a height; what it is counted for has been at
  /// the same place
  LineRoom Find(double top, double height, double width, std::size_t part) const;

 private:
  std::vector<LineRoom> PartsAt(double top, double height, double width, double& next) const;

  std::vector<Obstacle> all_;
};

}  // namespace docx::layout
