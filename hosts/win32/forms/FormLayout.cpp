#include "hosts/win32/forms/FormLayout.h"

#include <algorithm>

namespace win32 {

namespace {

using forms::Kind;
using forms::LayoutNode;
using Type = forms::LayoutNode::Type;

LONG& Along(SIZE& size, bool across) { return across ? size.cx : size.cy; }
LONG& Beside(SIZE& size, bool across) { return across ? size.cy : size.cx; }

bool IsOf(const LayoutNode& node, Kind kind) {
  return node.type == Type::kControl && node.control->ControlKind() == kind;
}

bool IsRow(const LayoutNode& node) { return node.type == Type::kRow || node.type == Type::kButtons; }

}  // namespace

SIZE FormLayout::Wanted() const {
  SIZE size = Measure(layout_).wanted;
  size.cx += 2 * Gap();
  size.cy += 2 * Gap();
  return size;
}

void FormLayout::Arrange(const RECT& place) const {
  const int gap = Gap();
  Put(layout_, {place.left + gap, place.top + gap, place.right - gap, place.bottom - gap});
}

RECT FormLayout::InsideOf(const LayoutNode& node, const RECT& frame) const {
  const int gap = Gap();
  const int title = node.control->Caption().empty() ? gap : font_.LineHeight() + gap / 2;
  return {frame.left + gap, frame.top + title, frame.right - gap, frame.bottom - gap};
}

FormLayout::Extent FormLayout::Measure(const LayoutNode& node) const {
  switch (node.type) {
    case Type::kControl: {
      const Kind kind = node.control->ControlKind();
      return {windowOf_(*node.control).Wanted(), kind == Kind::kListBox,
              kind == Kind::kListBox || kind == Kind::kTextBox || kind == Kind::kStatusBar || kind == Kind::kTabStrip};
    }
    case Type::kFrame: {
      Extent inside = MeasureLine(node, false);
      const RECT around = InsideOf(node, {0, 0, 0, 0});
      inside.wanted.cx += around.left - around.right;
      inside.wanted.cy += around.top - around.bottom;
      const SIZE caption = font_.TextSize(node.control->Caption());
      inside.wanted.cx = std::max(inside.wanted.cx, caption.cx + 4 * Gap());
      return inside;
    }
    case Type::kGrid:
      return MeasureGrid(node);
    case Type::kStack: {
      Extent whole{.grows = true};
      for (const LayoutNode& child : node.children) {
        const Extent one = Measure(child);
        whole.wanted = {std::max(whole.wanted.cx, one.wanted.cx), std::max(whole.wanted.cy, one.wanted.cy)};
        whole.widens = whole.widens || one.widens;
      }
      return whole;
    }
    case Type::kSpace:
      return {{}, true, true};
    default:
      return MeasureLine(node, IsRow(node));
  }
}

std::vector<std::pair<FormLayout::Extent, int>> FormLayout::MeasureChildren(const LayoutNode& node) const {
  std::vector<std::pair<Extent, int>> children;
  const bool framesOnly =
      IsRow(node) && std::all_of(node.children.begin(), node.children.end(),
                                 [](const LayoutNode& child) { return child.type == Type::kFrame; });
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    Extent one = Measure(node.children[i]);
    if (framesOnly) one.widens = true;
    // Tabs stand on what they show, and the arrows at the number that they step.
    const bool touches =
        i > 0 && (IsOf(node.children[i - 1], Kind::kTabStrip) || IsOf(node.children[i], Kind::kUpDown));
    if (i + 1 < node.children.size() && IsOf(node.children[i + 1], Kind::kUpDown)) one.widens = false;
    children.emplace_back(one, i == 0 || touches ? 0 : Gap());
  }
  return children;
}

FormLayout::Extent FormLayout::MeasureLine(const LayoutNode& node, bool across) const {
  Extent whole;
  for (auto& [one, gap] : MeasureChildren(node)) {
    Along(whole.wanted, across) += gap + Along(one.wanted, across);
    Beside(whole.wanted, across) = std::max(Beside(whole.wanted, across), Beside(one.wanted, across));
    whole.grows = whole.grows || one.grows;
    whole.widens = whole.widens || one.widens;
  }
  return whole;
}

std::vector<SIZE> FormLayout::GridLines(const LayoutNode& node) const {
  // cx of element i is the width of column i, cy the height of row i.
  const auto columns = static_cast<std::size_t>(node.columns);
  std::vector<SIZE> lines(std::max(columns, (node.children.size() + columns - 1) / columns));
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const SIZE wanted = Measure(node.children[i]).wanted;
    LONG& width = lines[i % columns].cx;
    LONG& height = lines[i / columns].cy;
    width = std::max(width, wanted.cx);
    height = std::max(height, wanted.cy);
  }
  return lines;
}

FormLayout::Extent FormLayout::MeasureGrid(const LayoutNode& node) const {
  Extent whole;
  for (const SIZE& line : GridLines(node)) {
    if (line.cx > 0) whole.wanted.cx += line.cx + Gap();
    if (line.cy > 0) whole.wanted.cy += line.cy + Gap();
  }
  return whole;
}

void FormLayout::Put(const LayoutNode& node, const RECT& place) const {
  switch (node.type) {
    case Type::kControl: {
      ControlWindow& window = windowOf_(*node.control);
      // A status bar lies in the form's own edge.
      if (IsOf(node, Kind::kStatusBar)) {
        const LONG bottom = place.bottom + Gap();
        return window.Place({place.left - Gap(), bottom - window.Wanted().cy, place.right + Gap(), bottom});
      }
      // What does not grow keeps its height, in the middle of its row.
      const LONG wanted = window.Wanted().cy;
      const bool fills = node.control->ControlKind() == Kind::kListBox || place.bottom - place.top <= wanted;
      const LONG top = fills ? place.top : place.top + (place.bottom - place.top - wanted) / 2;
      window.Place({place.left, top, place.right, fills ? place.bottom : top + wanted});
      return;
    }
    case Type::kFrame:
      windowOf_(*node.control).Place(place);
      PutLine(node, InsideOf(node, place), false);
      return;
    case Type::kGrid:
      return PutGrid(node, place);
    case Type::kStack:
      for (const LayoutNode& child : node.children) Put(child, place);
      return;
    case Type::kSpace:
      return;
    default:
      return PutLine(node, place, IsRow(node));
  }
}

void FormLayout::PutLine(const LayoutNode& node, const RECT& place, bool across) const {
  std::vector<std::pair<Extent, int>> children = MeasureChildren(node);
  LONG left = across ? place.right - place.left : place.bottom - place.top;
  int growing = 0;
  for (auto& [one, gap] : children) {
    growing += (across ? one.widens : one.grows) ? 1 : 0;
    left -= gap + Along(one.wanted, across);
  }
  LONG at = across ? place.left : place.top;
  if (node.type == Type::kButtons) at += std::max<LONG>(left, 0);
  for (std::size_t i = 0; i < children.size(); ++i) {
    auto& [one, gap] = children[i];
    LONG length = Along(one.wanted, across);
    const bool grows = across ? one.widens : one.grows;
    if (grows && node.type != Type::kButtons && left > 0) {
      const LONG share = left / growing--;
      length += share;
      left -= share;
    }
    at += gap;
    const RECT part =
        across ? RECT{at, place.top, at + length, place.bottom} : RECT{place.left, at, place.right, at + length};
    Put(node.children[i], part);
    at += length;
  }
}

void FormLayout::PutGrid(const LayoutNode& node, const RECT& place) const {
  const std::vector<SIZE> lines = GridLines(node);
  const auto columns = static_cast<std::size_t>(node.columns);
  LONG top = place.top;
  for (std::size_t i = 0; i < node.children.size(); i += columns) {
    LONG left = place.left;
    for (std::size_t column = 0; column < columns && i + column < node.children.size(); ++column) {
      Put(node.children[i + column], {left, top, left + lines[column].cx, top + lines[i / columns].cy});
      left += lines[column].cx + Gap();
    }
    top += lines[i / columns].cy + Gap();
  }
}

}  // namespace win32
