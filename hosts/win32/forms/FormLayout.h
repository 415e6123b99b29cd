#pragma once

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

#include "hosts/win32/forms/ControlWindow.h"
#include "platform/forms/Layout.h"

namespace win32 {

/// Puts the windows of a form where its layout says, with the lengths that the layout leaves open.
class FormLayout {
 public:
  using WindowOf = std::function<ControlWindow&(forms::Control&)>;

  FormLayout(const forms::Layout& layout, const FormFont& font, WindowOf windowOf)
      : layout_(layout), font_(font), windowOf_(std::move(windowOf)) {}

  /// The least that the form needs.
  SIZE Wanted() const;
  void Arrange(const RECT& place) const;

 private:
  struct Extent {
    SIZE wanted{};
    bool grows{false};   ///< taller with its form
    bool widens{false};  ///< wider with its form
  };
  Extent Measure(const forms::LayoutNode& node) const;
  Extent MeasureLine(const forms::LayoutNode& node, bool across) const;
  /// Each child of a line with the gap before it.
  std::vector<std::pair<Extent, int>> MeasureChildren(const forms::LayoutNode& node) const;
  Extent MeasureGrid(const forms::LayoutNode& node) const;
  void Put(const forms::LayoutNode& node, const RECT& place) const;
  void PutLine(const forms::LayoutNode& node, const RECT& place, bool across) const;
  void PutGrid(const forms::LayoutNode& node, const RECT& place) const;
  std::vector<SIZE> GridLines(const forms::LayoutNode& node) const;
  int Gap() const { return font_.Scaled(7); }
  RECT InsideOf(const forms::LayoutNode& node, const RECT& frame) const;

  const forms::Layout& layout_;
  const FormFont& font_;
  WindowOf windowOf_;
};

}  // namespace win32
