#include "hosts/qt/forms/ControlView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/BarWidget.h"
#include "hosts/qt/forms/ListView.h"
#include "hosts/qt/forms/TextView.h"
#include "platform/forms/Form.h"

namespace qt {

namespace {

/// Texts longer than so many characters are broken into lines.
constexpr int kLongestLine = 60;

/// A line of text that changes while the window keeps its width: what does not fit is cut with dots.
class LineLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize minimumSizeHint() const override { return {0, QLabel::sizeHint().height()}; }
  QSize sizeHint() const override { return {0, QLabel::sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()),
                         QPalette::WindowText);
  }
};

/// Tells of a click on something that is no button.
class ClickLabel : public QLabel {
 public:
  ClickLabel(QWidget* parent, std::function<void()> clicked) : QLabel(parent), clicked_(std::move(clicked)) {
    setCursor(Qt::PointingHandCursor);
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) clicked_();
  }

 private:
  std::function<void()> clicked_;
};

QLabel& MakeLabel(QWidget& parent, LabelStyle style) {
  if (style == LabelStyle::kBar) return *new BarPart(&parent);
  if (style == LabelStyle::kLine) return *new LineLabel(&parent);
  return *new QLabel(&parent);
}

class LabelView : public ControlView {
 public:
  LabelView(forms::Label& label, QWidget& parent, LabelStyle style) : LabelView(label, MakeLabel(parent, style)) {
    label_.setTextFormat(Qt::PlainText);
    mayWrap_ = style == LabelStyle::kText;
    WrapWhenLong();
  }

 protected:
  void MirrorState() override {
    // A text that came later wraps where a list beside it gives way to it; else the window grows with it.
    if (Of().Parent() != nullptr) WrapWhenLong();
    // A label shows "&" as it stands unless it has a partner.
    const std::u16string& caption = Of().Caption();
    label_.setText(label_.buddy() != nullptr ? ToQt(caption) : WithoutMnemonic(caption));
    auto* part = dynamic_cast<BarPart*>(&label_);
    if (part == nullptr) return;
    part->share = static_cast<const forms::Label&>(Of()).Width();
    static_cast<BarWidget*>(part->parentWidget())->Arrange();
  }

 private:
  LabelView(forms::Label& label, QLabel& widget) : ControlView(label, widget), label_(widget) {}

  void WrapWhenLong() {
    if (!mayWrap_ || label_.wordWrap() || Of().Caption().size() <= kLongestLine) return;
    label_.setWordWrap(true);
    // Enough for the text to be a block and not a column; a frame may be narrower than a whole form.
    const int characters = Of().Parent() == nullptr ? kLongestLine : kLongestLine / 2;
    label_.setMinimumWidth(label_.fontMetrics().averageCharWidth() * characters);
  }

  QLabel& label_;
  bool mayWrap_{false};
};

class LinkView : public ControlView {
 public:
  LinkView(forms::Control& link, QWidget& parent, ActionGate& gate)
      : LinkView(link, *new ClickLabel(&parent, [&] { gate.Act([&] { link.UserClick(); }); })) {
    label_.setTextFormat(Qt::PlainText);
    label_.setMouseTracking(true);
    label_.setForegroundRole(QPalette::Link);
    QFont font = label_.font();
    font.setUnderline(true);
    label_.setFont(font);
  }

 protected:
  void MirrorState() override { label_.setText(WithoutMnemonic(Of().Caption())); }

 private:
  LinkView(forms::Control& link, QLabel& widget) : ControlView(link, widget), label_(widget) {}
  QLabel& label_;
};

class ImageView : public ControlView {
 public:
  ImageView(forms::Control& image, QWidget& parent, ActionGate& gate)
      : ControlView(image, *new ClickLabel(&parent, [&] { gate.Act([&] { image.UserClick(); }); })) {
    auto& label = static_cast<QLabel&>(Widget());
    const int side = label.style()->pixelMetric(QStyle::PM_LargeIconSize);
    label.setPixmap(label.style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(side));
  }
};

/// Buttons of every kind: a click, a blank.
class ButtonView : public ControlView {
 public:
  ButtonView(forms::Control& control, QAbstractButton& button, ActionGate& gate)
      : ControlView(control, button), gate_(gate) {
    button.setFocusPolicy(Qt::TabFocus);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [this] { gate_.Act([this] { Of().UserClick(); }); });
  }

  bool TakeKey(QKeyEvent& event) override {
    if (event.key() != Qt::Key_Space) return false;
    if (!event.isAutoRepeat()) gate_.Act([this] { Of().UserKey(u' '); });
    return true;
  }

 protected:
  void MirrorState() override {
    auto& button = static_cast<QAbstractButton&>(Widget());
    button.setText(ToQt(Of().Caption()));
    switch (Of().ControlKind()) {
      case forms::Kind::kCheckBox:
        button.setChecked(static_cast<const forms::CheckBox&>(Of()).Value() == 1);
        break;
      case forms::Kind::kOptionButton:
        button.setChecked(static_cast<const forms::OptionButton&>(Of()).Value());
        break;
      default:
        break;
    }
  }

  ActionGate& gate_;
};

class OptionView : public ButtonView {
 public:
  OptionView(forms::OptionButton& option, QAbstractButton& button, ActionGate& gate)
      : ButtonView(option, button, gate) {
    // The form knows which others belong to the group.
    button.setAutoExclusive(false);
  }

  /// The arrows choose the neighbour in the group.
  bool TakeKey(QKeyEvent& event) override {
    int step = 0;
    if (event.key() == Qt::Key_Down || event.key() == Qt::Key_Right) step = 1;
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Left) step = -1;
    if (step == 0) return ButtonView::TakeKey(event);
    forms::Control* next = Of().Owner().Find(Of().Name(), Of().Index() + step);
    if (next != nullptr) gate_.Act([next] { next->UserClick(); });
    return true;
  }
};

class ComboView : public ControlView {
 public:
  ComboView(forms::ComboBox& combo, QWidget& parent, ActionGate& gate)
      : ControlView(combo, *new QComboBox(&parent)), box_(static_cast<QComboBox&>(Widget())) {
    box_.setFocusPolicy(Qt::TabFocus);
    box_.setSizeAdjustPolicy(QComboBox::AdjustToContents);
    QObject::connect(&box_, &QComboBox::activated, &box_,
                     [&](int index) { gate.Act([&] { combo.UserSetListIndex(index); }); });
  }
  bool FocusOnPress() const override { return true; }

 protected:
  void MirrorState() override {
    const auto& combo = static_cast<const forms::ComboBox&>(Of());
    QStringList entries;
    for (int i = 0; i < combo.ListCount(); ++i) entries << ToQt(combo.List(i));
    QStringList shown;
    for (int i = 0; i < box_.count(); ++i) shown << box_.itemText(i);
    if (entries != shown) {
      box_.clear();
      box_.addItems(entries);
    }
    box_.setCurrentIndex(combo.ListIndex());
  }

 private:
  QComboBox& box_;
};

class TabView : public ControlView {
 public:
  TabView(forms::TabStrip& strip, QWidget& parent, ActionGate& gate)
      : ControlView(strip, *new QTabBar(&parent)), bar_(static_cast<QTabBar&>(Widget())) {
    bar_.setFocusPolicy(Qt::TabFocus);
    bar_.setExpanding(false);
    for (const std::u16string& tab : strip.Tabs()) bar_.addTab(ToQt(tab));
    QObject::connect(&bar_, &QTabBar::currentChanged, &bar_,
                     [&](int index) { gate.Act([&] { strip.UserSelectTab(index); }); });
  }
  bool FocusOnPress() const override { return true; }

 protected:
  void MirrorState() override { bar_.setCurrentIndex(static_cast<const forms::TabStrip&>(Of()).SelectedTab()); }

 private:
  QTabBar& bar_;
};

/// Two small buttons with arrows.
class UpDownView : public ControlView {
 public:
  UpDownView(forms::UpDown& steps, QWidget& parent, ActionGate& gate) : ControlView(steps, *new QWidget(&parent)) {
    auto* column = new QVBoxLayout(&Widget());
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (const int direction : {1, 0}) {
      auto* button = new QToolButton(&Widget());
      button->setArrowType(direction == 1 ? Qt::UpArrow : Qt::DownArrow);
      button->setAccessibleName(direction == 1 ? QStringLiteral("More") : QStringLiteral("Fewer"));
      button->setFocusPolicy(Qt::NoFocus);
      button->setAutoRepeat(true);
      button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
      button->setFixedWidth(button->fontMetrics().height() * 4 / 3);
      QObject::connect(button, &QToolButton::clicked, button,
                       [&steps, &gate, direction] { gate.Act([&] { steps.UserStep(direction); }); });
      column->addWidget(button);
    }
  }
};

class StatusView : public ControlView {
 public:
  StatusView(forms::StatusBar& bar, QWidget& parent) : ControlView(bar, *new QStatusBar(&parent)) {}

 protected:
  void MirrorState() override {
    static_cast<QStatusBar&>(Widget()).showMessage(ToQt(static_cast<const forms::StatusBar&>(Of()).SimpleText()));
  }
};

class FrameView : public ControlView {
 public:
  FrameView(forms::Control& frame, QWidget& parent)
      : ControlView(frame, *(frame.Caption().empty() ? static_cast<QWidget*>(new QFrame(&parent))
                                                     : static_cast<QWidget*>(new QGroupBox(&parent)))) {}

 protected:
  void MirrorState() override {
    if (auto* box = qobject_cast<QGroupBox*>(&Widget())) box->setTitle(ToQt(Of().Caption()));
  }
};

QAbstractButton& MakeButton(forms::Kind kind, QWidget& parent) {
  if (kind == forms::Kind::kCheckBox) return *new QCheckBox(&parent);
  if (kind == forms::Kind::kOptionButton) return *new QRadioButton(&parent);
  auto* button = new QPushButton(&parent);
  // The form says which is the default one.
  button->setAutoDefault(false);
  return *button;
}

}  // namespace

QString WidgetName(const forms::Control& control) {
  QString name = ToQt(control.Name());
  if (control.Index() >= 0) name += QStringLiteral("(%1)").arg(control.Index());
  return name;
}

ControlView::ControlView(forms::Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget.setObjectName(WidgetName(control));
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

void ControlView::Mirror() {
  widget_.setEnabled(control_.Enabled());
  widget_.setToolTip(ToQt(control_.ToolTip()));
  MirrorState();
  if (widget_.isHidden() == control_.Visible()) widget_.setVisible(control_.Visible());
  stale = false;
}

bool ControlView::TakeKey(QKeyEvent&) { return false; }

std::unique_ptr<ControlView> MakeControlView(forms::Control& control, QWidget& parent, ActionGate& gate,
                                             LabelStyle style) {
  using forms::Kind;
  switch (control.ControlKind()) {
    case Kind::kLabel:
      return std::make_unique<LabelView>(static_cast<forms::Label&>(control), parent, style);
    case Kind::kLink:
      return std::make_unique<LinkView>(control, parent, gate);
    case Kind::kImage:
      return std::make_unique<ImageView>(control, parent, gate);
    case Kind::kButton:
    case Kind::kCheckBox:
      return std::make_unique<ButtonView>(control, MakeButton(control.ControlKind(), parent), gate);
    case Kind::kOptionButton:
      return std::make_unique<OptionView>(static_cast<forms::OptionButton&>(control),
                                          MakeButton(control.ControlKind(), parent), gate);
    case Kind::kComboBox:
      return std::make_unique<ComboView>(static_cast<forms::ComboBox&>(control), parent, gate);
    case Kind::kListBox:
      return std::make_unique<ListView>(static_cast<forms::ListBox&>(control), parent, gate);
    case Kind::kTextBox:
      return MakeTextView(static_cast<forms::TextBox&>(control), parent, gate);
    case Kind::kUpDown:
      return std::make_unique<UpDownView>(static_cast<forms::UpDown&>(control), parent, gate);
    case Kind::kTabStrip:
      return std::make_unique<TabView>(static_cast<forms::TabStrip&>(control), parent, gate);
    case Kind::kFrame:
      return std::make_unique<FrameView>(control, parent);
    case Kind::kStatusBar:
      return std::make_unique<StatusView>(static_cast<forms::StatusBar&>(control), parent);
    case Kind::kMenu:
    case Kind::kMenuItem:
      break;
  }
  return nullptr;
}

}  // namespace qt
