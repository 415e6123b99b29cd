#pragma once

#include <QBoxLayout>
#include <QWidget>

#include <memory>
#include <vector>

#include "hosts/qt/forms/ControlView.h"
#include "platform/forms/Form.h"
#include "platform/forms/Layout.h"

namespace qt {

/// Makes the windows of a form's controls and puts them where its layout says; finds the sizes that the layout leaves
/// open, and names for those who do not see the form.
class FormBuilder {
 public:
  FormBuilder(forms::Form& form, QWidget& window, ActionGate& gate);

  /// @return the views in the order of the layout, those of menus none
  std::vector<std::unique_ptr<ControlView>> Build();

 private:
  /// What became of a node: a widget or a layout, and whether it grows with the window.
  struct Built {
    QWidget* widget{nullptr};
    QLayout* layout{nullptr};
    bool grows{false};
    bool widens{false};
  };

  Built Make(const forms::LayoutNode& node, QWidget& parent);
  Built MakeItem(const forms::LayoutNode& node, QWidget& parent, LabelStyle style);
  Built MakeColumn(const forms::LayoutNode& node, QWidget& parent);
  Built MakeRow(const forms::LayoutNode& node, QWidget& parent);
  Built MakeButtons(const forms::LayoutNode& node, QWidget& parent);
  Built MakeGrid(const forms::LayoutNode& node, QWidget& parent);
  Built MakeFrame(const forms::LayoutNode& node, QWidget& parent);
  Built MakeStack(const forms::LayoutNode& node, QWidget& parent);
  Built MakeTabs(const forms::LayoutNode& tabs, const forms::LayoutNode& frames, QWidget& parent);
  Built MakeSteps(const forms::LayoutNode& box, const forms::LayoutNode& steps, QWidget& parent);
  void FillColumn(const std::vector<forms::LayoutNode>& children, QBoxLayout& column, QWidget& parent, Built& whole);
  static void Add(QBoxLayout& box, const Built& built, int stretch);

  void MakeMenus(QLayout& layout);
  void NameControls();
  void PairLabels();

  forms::Form& form_;
  QWidget& window_;
  ActionGate& gate_;
  bool hasBar_{false};
  std::vector<std::unique_ptr<ControlView>> views_;
  /// Whose buttons are to be equally wide, once they have their texts.
  std::vector<const QLayout*> rows_;
};

}  // namespace qt
