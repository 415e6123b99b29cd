#include "platform/forms/Layout.h"

#include "platform/forms/Control.h"

#include <utility>

namespace forms {

namespace {

LayoutNode Node(LayoutNode::Type type, std::vector<LayoutNode> children) {
  LayoutNode node;
  node.type = type;
  node.children = std::move(children);
  return node;
}

/// Sets the frame of the controls below a node, down to those of frames within.
void SetParents(const LayoutNode& node, Control& frame) {
  if (node.control != nullptr) {
    node.control->SetParent(&frame);
    if (node.type == LayoutNode::Type::kFrame) return;
  }
  for (const LayoutNode& child : node.children) SetParents(child, frame);
}

}  // namespace

LayoutNode Item(Control& control) {
  LayoutNode node;
  node.type = LayoutNode::Type::kControl;
  node.control = &control;
  return node;
}

LayoutNode Row(std::vector<LayoutNode> children) { return Node(LayoutNode::Type::kRow, std::move(children)); }

LayoutNode Column(std::vector<LayoutNode> children) { return Node(LayoutNode::Type::kColumn, std::move(children)); }

LayoutNode Framed(Control& frame, std::vector<LayoutNode> children) {
  for (const LayoutNode& child : children) SetParents(child, frame);
  LayoutNode node = Node(LayoutNode::Type::kFrame, std::move(children));
  node.control = &frame;
  return node;
}

LayoutNode Grid(int columns, std::vector<LayoutNode> children) {
  LayoutNode node = Node(LayoutNode::Type::kGrid, std::move(children));
  node.columns = columns;
  return node;
}

LayoutNode Stack(std::vector<LayoutNode> frames) { return Node(LayoutNode::Type::kStack, std::move(frames)); }

LayoutNode Buttons(std::vector<LayoutNode> children) { return Node(LayoutNode::Type::kButtons, std::move(children)); }

LayoutNode Space() { return Node(LayoutNode::Type::kSpace, {}); }

}  // namespace forms
