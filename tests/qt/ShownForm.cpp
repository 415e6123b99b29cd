#include "tests/qt/ShownForm.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>

namespace {

QString Quoted(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

QString Entry(bool marked, const QString& text) { return (marked ? "* " : "  ") + text; }

/// What a kind of widget shows: the name of the kind, the value with its sign, the caption, and entries.
struct Face {
  QString kind;
  QString value{};
  QString caption{};
  QStringList entries{};
};

Face FaceOf(const QWidget& widget) {
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
    return {"CheckBox", box->isChecked() ? "=1" : "=0", box->text()};
  }
  if (const auto* option = qobject_cast<const QRadioButton*>(&widget)) {
    return {"OptionButton", option->isChecked() ? "=1" : "=0", option->text()};
  }
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) return {"Button", "", button->text()};
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    Face face{"ComboBox", QString("=%1").arg(combo->currentIndex())};
    for (int i = 0; i < combo->count(); ++i) face.entries << Entry(i == combo->currentIndex(), combo->itemText(i));
    return face;
  }
  if (const auto* list = qobject_cast<const QListView*>(&widget)) {
    Face face{"ListBox", QString("=%1").arg(list->currentIndex().row())};
    for (int i = 0; i < list->model()->rowCount(); ++i) {
      const QModelIndex entry = list->model()->index(i, 0);
      // A list of boxes to tick shows its marks there.
      const QVariant tick = entry.data(Qt::CheckStateRole);
      const bool marked = tick.isValid() ? tick.toInt() == Qt::Checked : list->selectionModel()->isSelected(entry);
      face.entries << Entry(marked, entry.data().toString());
    }
    return face;
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return {"TextBox", '=' + Quoted(line->text())};
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget)) {
    return {"TextBox", '=' + Quoted(text->toPlainText().replace("\n", "\r\n"))};
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
    Face face{"TabStrip", QString("=%1").arg(tabs->currentIndex())};
    for (int i = 0; i < tabs->count(); ++i) face.entries << Entry(i == tabs->currentIndex(), tabs->tabText(i));
    return face;
  }
  if (const auto* bar = qobject_cast<const QStatusBar*>(&widget)) {
    return {"StatusBar", '=' + Quoted(bar->currentMessage())};
  }
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return {"Frame", "", box->title()};
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (!label->pixmap(Qt::ReturnByValue).isNull()) return {"Image"};
    const bool isLink = label->foregroundRole() == QPalette::Link;
    return {isLink ? "Link" : "Label", "", label->text()};
  }
  if (qobject_cast<const QFrame*>(&widget) != nullptr) return {"Frame"};
  return {"UpDown"};
}

QString MenuLine(const char* kind, const QString& name, const QAction& action) {
  QString line = QString("%1 %2").arg(kind, name);
  if (!action.isEnabled()) line += " disabled";
  if (!action.isVisible()) line += " hidden";
  return line + ' ' + Quoted(action.text()) + '\n';
}

class Reader {
 public:
  explicit Reader(const QWidget& window) : window_(window) {}

  QString Read() {
    text_ = window_.objectName() + ' ' + Quoted(window_.windowTitle()) + '\n';
    Walk(window_, 0);
    for (const QMenu* menu : window_.findChildren<QMenu*>()) {
      if (menu->objectName().isEmpty()) continue;
      text_ += MenuLine("Menu", menu->objectName(), *menu->menuAction());
      for (const QAction* action : menu->actions()) text_ += MenuLine("MenuItem", action->objectName(), *action);
    }
    return text_;
  }

 private:
  void Walk(const QWidget& parent, int depth) {
    for (const QObject* child : parent.children()) {
      const auto* widget = qobject_cast<const QWidget*>(child);
      if (widget == nullptr || qobject_cast<const QMenuBar*>(child) || qobject_cast<const QMenu*>(child)) continue;
      // Qt's own parts of a widget have names that begin so.
      const bool isControl = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_");
      if (isControl) Write(*widget, depth);
      const bool isHolder =
          !isControl || qobject_cast<const QGroupBox*>(widget) || widget->metaObject() == &QFrame::staticMetaObject;
      if (isHolder) Walk(*widget, isControl ? depth + 1 : depth);
    }
  }

  void Write(const QWidget& widget, int depth) {
    const Face face = FaceOf(widget);
    QString line = face.kind + ' ' + widget.objectName() + face.value;
    if (widget.testAttribute(Qt::WA_ForceDisabled)) line += " disabled";
    if (widget.isHidden()) line += " hidden";
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    if (button != nullptr && button->isDefault()) line += " default";
    if (widget.property("cancel").toBool()) line += " cancel";
    if (!face.caption.isEmpty()) line += ' ' + Quoted(face.caption);
    if (!widget.toolTip().isEmpty()) line += " tip " + Quoted(widget.toolTip());
    text_ += QString(2 * depth, ' ') + line + '\n';
    for (const QString& entry : face.entries) text_ += QString(2 * depth + 2, ' ') + entry + '\n';
  }

  const QWidget& window_;
  QString text_;
};

}  // namespace

QString ShownForm(const QWidget& window) { return Reader(window).Read(); }

QWidget* FindWindow(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) return window;
  }
  return nullptr;
}
