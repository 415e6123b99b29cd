#include "hosts/qt/forms/TextView.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextLayout>

#include <algorithm>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

constexpr char16_t kBackspace = 8;
/// In average characters: what is longer goes on in a further line.
constexpr int kLongestLine = 80;

/// How many lines a paragraph takes at a width.
int LinesAt(const QString& paragraph, const QFont& font, int width) {
  QTextLayout layout(paragraph, font);
  layout.beginLayout();
  int lines = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    ++lines;
  }
  layout.endLayout();
  return std::max(lines, 1);
}

class LineView : public ControlView {
 public:
  LineView(forms::TextBox& box, QWidget& parent, ActionGate& gate)
      : ControlView(box, *new QLineEdit(&parent)), box_(box), edit_(static_cast<QLineEdit&>(Widget())), gate_(gate) {
    edit_.setFocusPolicy(Qt::TabFocus);
    QObject::connect(&edit_, &QLineEdit::textEdited, &edit_,
                     [this](const QString& text) { gate_.Act([&] { box_.UserSetText(FromQt(text)); }); });
  }
  bool FocusOnPress() const override { return true; }

  /// The box may refuse a key; the others edit the text where the cursor stands.
  bool TakeKey(QKeyEvent& event) override {
    if (event.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    std::u16string keys = FromQt(event.text());
    if (event.key() == Qt::Key_Backspace) keys = kBackspace;
    bool taken = false;
    gate_.Act([&] {
      for (const char16_t key : keys) taken = taken || (box_.onKeyPress && !box_.onKeyPress(key));
    });
    return taken;
  }

 protected:
  void MirrorState() override {
    const QString text = ToQt(box_.Text());
    // The cursor stays where a person typed.
    if (edit_.text() != text) edit_.setText(text);
  }

 private:
  forms::TextBox& box_;
  QLineEdit& edit_;
  ActionGate& gate_;
};

class ReadingView : public ControlView {
 public:
  ReadingView(forms::TextBox& box, QWidget& parent)
      : ControlView(box, *new QPlainTextEdit(&parent)), box_(box), edit_(static_cast<QPlainTextEdit&>(Widget())) {
    edit_.setFocusPolicy(Qt::TabFocus);
    edit_.setReadOnly(true);
    edit_.setTabChangesFocus(true);
    // It is as large as its text.
    edit_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    edit_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }
  QWidget* MouseArea() const override { return edit_.viewport(); }
  bool FocusOnPress() const override { return true; }

 protected:
  void MirrorState() override {
    const QString text = ToQt(box_.Text()).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (edit_.toPlainText() == text) return;
    edit_.setPlainText(text);
    Fit(text);
  }

 private:
  /// As tall and as wide as its text, which is not long.
  void Fit(const QString& text) {
    const QFontMetrics metrics = edit_.fontMetrics();
    int widest = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
    const int longest = metrics.averageCharWidth() * kLongestLine;
    edit_.setLineWrapMode(widest > longest ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    widest = std::min(widest, longest);
    int count = 0;
    for (const QString& line : lines) count += LinesAt(line, edit_.font(), widest);
    const int around = 2 * (edit_.frameWidth() + static_cast<int>(edit_.document()->documentMargin()));
    edit_.setMinimumWidth(widest + around + metrics.averageCharWidth());
    edit_.setFixedHeight(metrics.lineSpacing() * count + around + metrics.lineSpacing() / 3);
  }

  forms::TextBox& box_;
  QPlainTextEdit& edit_;
};

}  // namespace

std::unique_ptr<ControlView> MakeTextView(forms::TextBox& box, QWidget& parent, ActionGate& gate) {
  if (box.ReadOnly()) return std::make_unique<ReadingView>(box, parent);
  return std::make_unique<LineView>(box, parent, gate);
}

}  // namespace qt
