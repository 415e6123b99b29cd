#pragma once

#include <string>
#include <vector>

namespace forms {

class Control;

/// What stands where, without sizes: renderers find those. The order of the leaves is the tab order.
struct LayoutNode {
  enum class Type { kControl, kRow, kColumn, kFrame, kGrid, kStack, kButtons, kSpace };
  Type type{Type::kColumn};
  Control* control{nullptr};  ///< of a kControl node, and the frame of a kFrame node
  int columns{0};             ///< of a kGrid
  std::vector<LayoutNode> children;
};

using Layout = LayoutNode;

LayoutNode Item(Control& control);
LayoutNode Row(std::vector<LayoutNode> children);
LayoutNode Column(std::vector<LayoutNode> children);
/// A frame with its caption around its children; makes it their parent.
LayoutNode Framed(Control& frame, std::vector<LayoutNode> children);
LayoutNode Grid(int columns, std::vector<LayoutNode> children);
/// Frames in one place, of which one is visible.
LayoutNode Stack(std::vector<LayoutNode> frames);
/// A row of buttons at the form's edge.
LayoutNode Buttons(std::vector<LayoutNode> children);
LayoutNode Space();

}  // namespace forms
