#include "hosts/qt/forms/FormBuilder.h"

#include <QAction>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/BarWidget.h"

namespace qt {

namespace {

using forms::Kind;
using forms::LayoutNode;
using Type = forms::LayoutNode::Type;

bool IsKind(const LayoutNode& node, Kind kind) {
  return node.type == Type::kControl && node.control->ControlKind() == kind;
}

bool IsBar(const LayoutNode& node) {
  return node.type == Type::kStack && !node.children.empty() &&
         std::all_of(node.children.begin(), node.children.end(),
                     [](const LayoutNode& child) { return IsKind(child, Kind::kLabel); });
}

bool HasBar(const LayoutNode& node) {
  return IsBar(node) || std::any_of(node.children.begin(), node.children.end(), HasBar);
}

/// Buttons beside one another are equally wide.
void EqualWidths(const QLayout& layout) {
  int widest = 0;
  for (int i = 0; i < layout.count(); ++i) {
    if (qobject_cast<QPushButton*>(layout.itemAt(i)->widget()) == nullptr) continue;
    widest = std::max(widest, layout.itemAt(i)->widget()->sizeHint().width());
  }
  for (int i = 0; i < layout.count(); ++i) {
    if (auto* button = qobject_cast<QPushButton*>(layout.itemAt(i)->widget())) button->setMinimumWidth(widest);
  }
}

/// A name that was made for programs, as words: "imgAbout" is "About".
QString Words(const std::string& name) {
  std::size_t begin = 0;
  while (begin < name.size() && name[begin] >= 'a' && name[begin] <= 'z') ++begin;
  return ToQt(std::string_view(name).substr(begin == name.size() ? 0 : begin));
}

}  // namespace

FormBuilder::FormBuilder(forms::Form& form, QWidget& window, ActionGate& gate)
    : form_(form), window_(window), gate_(gate) {}

std::vector<std::unique_ptr<ControlView>> FormBuilder::Build() {
  hasBar_ = HasBar(form_.GetLayout());
  auto* column = new QVBoxLayout(&window_);
  Built whole;
  FillColumn({form_.GetLayout()}, *column, window_, whole);
  MakeMenus(*column);
  PairLabels();
  for (const std::unique_ptr<ControlView>& view : views_) view->Mirror();
  for (const QLayout* row : rows_) EqualWidths(*row);
  NameControls();
  return std::move(views_);
}

FormBuilder::Built FormBuilder::Make(const LayoutNode& node, QWidget& parent) {
  switch (node.type) {
    case Type::kControl:
      return MakeItem(node, parent, hasBar_ ? LabelStyle::kLine : LabelStyle::kText);
    case Type::kRow:
      return MakeRow(node, parent);
    case Type::kColumn:
      return MakeColumn(node, parent);
    case Type::kFrame:
      return MakeFrame(node, parent);
    case Type::kGrid:
      return MakeGrid(node, parent);
    case Type::kStack:
      return MakeStack(node, parent);
    case Type::kButtons:
      return MakeButtons(node, parent);
    case Type::kSpace:
      break;
  }
  return {};
}

FormBuilder::Built FormBuilder::MakeItem(const LayoutNode& node, QWidget& parent, LabelStyle style) {
  views_.push_back(MakeControlView(*node.control, parent, gate_, style));
  const Kind kind = node.control->ControlKind();
  return {.widget = &views_.back()->Widget(),
          .grows = kind == Kind::kListBox,
          .widens = kind == Kind::kListBox || kind == Kind::kTextBox || kind == Kind::kStatusBar};
}

void FormBuilder::Add(QBoxLayout& box, const Built& built, int stretch) {
  if (built.widget != nullptr) {
    box.addWidget(built.widget, stretch);
  } else if (built.layout != nullptr) {
    box.addLayout(built.layout, stretch);
  } else {
    box.addStretch(1);
  }
}

void FormBuilder::FillColumn(const std::vector<LayoutNode>& children, QBoxLayout& column, QWidget& parent,
                             Built& whole) {
  for (std::size_t i = 0; i < children.size(); ++i) {
    const bool tabs =
        IsKind(children[i], Kind::kTabStrip) && i + 1 < children.size() && children[i + 1].type == Type::kStack;
    const Built built = tabs ? MakeTabs(children[i], children[i + 1], parent) : Make(children[i], parent);
    if (tabs) ++i;
    Add(column, built, built.grows ? 1 : 0);
    whole.grows = whole.grows || built.grows;
    whole.widens = whole.widens || built.widens;
  }
}

FormBuilder::Built FormBuilder::MakeColumn(const LayoutNode& node, QWidget& parent) {
  auto* column = new QVBoxLayout;
  Built whole{.layout = column};
  FillColumn(node.children, *column, parent, whole);
  if (!whole.grows) column->addStretch(1);
  return whole;
}

FormBuilder::Built FormBuilder::MakeRow(const LayoutNode& node, QWidget& parent) {
  auto* row = new QHBoxLayout;
  Built whole{.layout = row};
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const LayoutNode& child = node.children[i];
    const bool steps =
        IsKind(child, Kind::kTextBox) && i + 1 < node.children.size() && IsKind(node.children[i + 1], Kind::kUpDown);
    const Built built = steps ? MakeSteps(child, node.children[++i], parent) : Make(child, parent);
    Add(*row, built, built.widens ? 1 : 0);
    whole.grows = whole.grows || built.grows;
    whole.widens = whole.widens || built.widens;
  }
  const bool frames = std::all_of(node.children.begin(), node.children.end(),
                                  [](const LayoutNode& child) { return child.type == Type::kFrame; });
  if (frames && !whole.widens) {
    for (int i = 0; i < row->count(); ++i) row->setStretch(i, 1);
  } else if (!whole.widens) {
    row->addStretch(1);
  }
  rows_.push_back(row);
  return whole;
}

FormBuilder::Built FormBuilder::MakeButtons(const LayoutNode& node, QWidget& parent) {
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  for (const LayoutNode& child : node.children) Add(*row, Make(child, parent), 0);
  rows_.push_back(row);
  return {.layout = row};
}

FormBuilder::Built FormBuilder::MakeGrid(const LayoutNode& node, QWidget& parent) {
  auto* grid = new QGridLayout;
  Built whole{.layout = grid};
  int place = 0;
  for (const LayoutNode& child : node.children) {
    const Built built = Make(child, parent);
    const int row = place / node.columns;
    const int column = place % node.columns;
    if (built.widget != nullptr) {
      // Texts of several lines share the width out; boxes for a number or a sign do not need it.
      if (built.widens && qobject_cast<QLineEdit*>(built.widget) == nullptr) {
        grid->setColumnStretch(column, 1);
        whole.widens = true;
      }
      const bool small = IsKind(child, Kind::kComboBox);
      grid->addWidget(built.widget, row, column, small ? Qt::AlignLeft : Qt::Alignment());
    } else if (built.layout != nullptr) {
      grid->addLayout(built.layout, row, column);
    }
    ++place;
  }
  if (!whole.widens) grid->setColumnStretch(node.columns, 1);
  return whole;
}

FormBuilder::Built FormBuilder::MakeFrame(const LayoutNode& node, QWidget& parent) {
  Built whole = MakeItem(node, parent, LabelStyle::kText);
  auto* column = new QVBoxLayout(whole.widget);
  FillColumn(node.children, *column, *whole.widget, whole);
  if (!whole.grows) column->addStretch(1);
  return whole;
}

FormBuilder::Built FormBuilder::MakeStack(const LayoutNode& node, QWidget& parent) {
  if (IsBar(node)) {
    auto* bar = new BarWidget(&parent);
    for (const LayoutNode& child : node.children) MakeItem(child, *bar, LabelStyle::kBar);
    return {.widget = bar, .widens = true};
  }
  auto* place = new QGridLayout;
  Built whole{.layout = place};
  for (const LayoutNode& child : node.children) {
    const Built built = Make(child, parent);
    if (built.widget != nullptr) place->addWidget(built.widget, 0, 0);
    whole.grows = whole.grows || built.grows;
    whole.widens = whole.widens || built.widens;
  }
  return whole;
}

FormBuilder::Built FormBuilder::MakeTabs(const LayoutNode& tabs, const LayoutNode& frames, QWidget& parent) {
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  Add(*column, Make(tabs, parent), 0);
  auto* panel = new QFrame(&parent);
  panel->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  const Built built = MakeStack(frames, *panel);
  built.layout->setContentsMargins(0, 0, 0, 0);
  panel->setLayout(built.layout);
  column->addWidget(panel, 1);
  return {.layout = column, .grows = true, .widens = built.widens};
}

FormBuilder::Built FormBuilder::MakeSteps(const LayoutNode& box, const LayoutNode& steps, QWidget& parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  const Built text = MakeItem(box, parent, LabelStyle::kText);
  constexpr int kDigits = 6;
  text.widget->setFixedWidth(text.widget->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kDigits);
  row->addWidget(text.widget);
  QWidget* arrows = MakeItem(steps, parent, LabelStyle::kText).widget;
  arrows->setFixedHeight(text.widget->sizeHint().height());
  row->addWidget(arrows);
  return {.layout = row};
}

void FormBuilder::MakeMenus(QLayout& layout) {
  QMenuBar* bar = nullptr;
  for (forms::Control* menu : form_.Controls()) {
    if (menu->ControlKind() != Kind::kMenu) continue;
    if (bar == nullptr) bar = new QMenuBar(&window_);
    QMenu* shown = bar->addMenu(ToQt(menu->Caption()));
    shown->setObjectName(WidgetName(*menu));
    shown->menuAction()->setEnabled(menu->Enabled());
    shown->menuAction()->setVisible(menu->Visible());
    for (forms::Control* item : form_.Controls()) {
      if (item->ControlKind() != Kind::kMenuItem || item->Parent() != menu) continue;
      QAction* action = shown->addAction(ToQt(item->Caption()));
      action->setObjectName(WidgetName(*item));
      action->setEnabled(item->Enabled());
      action->setVisible(item->Visible());
      QObject::connect(action, &QAction::triggered, &window_,
                       [this_gate = &gate_, item] { this_gate->Act([item] { item->UserClick(); }); });
    }
  }
  if (bar != nullptr) layout.setMenuBar(bar);
}

void FormBuilder::PairLabels() {
  for (std::size_t i = 0; i < views_.size(); ++i) {
    auto* label = dynamic_cast<QLabel*>(&views_[i]->Widget());
    if (label == nullptr || views_[i]->Of().ControlKind() != Kind::kLabel) continue;
    if (MnemonicOf(views_[i]->Of().Caption()) == 0) continue;
    const auto partner = std::find_if(views_.begin() + static_cast<std::ptrdiff_t>(i), views_.end(),
                                      [](const auto& view) { return view->Of().TakesFocus(); });
    if (partner != views_.end()) label->setBuddy(&(*partner)->Widget());
  }
}

void FormBuilder::NameControls() {
  QString before;
  for (const std::unique_ptr<ControlView>& view : views_) {
    const forms::Control& control = view->Of();
    QString name = WithoutMnemonic(control.Caption());
    const bool isText = control.ControlKind() == Kind::kLabel;
    const bool standsAlone = isText || control.ControlKind() == Kind::kImage;
    if (name.isEmpty() && !standsAlone) name = before;
    for (const forms::Control* frame = control.Parent(); name.isEmpty() && !standsAlone && frame != nullptr;
         frame = frame->Parent()) {
      name = WithoutMnemonic(frame->Caption());
    }
    if (name.isEmpty()) name = Words(control.Name());
    view->Widget().setAccessibleName(name);
    view->Widget().setAccessibleDescription(ToQt(control.ToolTip()));
    // A label names what stands behind it; so does the text box for its arrows.
    const bool keeps = isText || (control.ControlKind() == Kind::kTextBox && control.Caption().empty());
    before = keeps ? (isText ? WithoutMnemonic(control.Caption()) : name) : QString();
  }
}

}  // namespace qt
