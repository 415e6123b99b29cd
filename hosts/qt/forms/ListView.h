#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QStringList>

#include "hosts/qt/forms/ControlView.h"

namespace qt {

/// The window of a list of which any number of entries can be selected. A click turns an entry over, and so does a
/// blank the current one; arrows move the current entry; with Shift a click or an arrow gives the entries on the way
/// the selection of the one it began at; Ctrl+A selects all; a letter goes to the next entry that begins with it.
class ListView : public ControlView {
 public:
  ListView(forms::ListBox& list, QWidget& parent, ActionGate& gate);
  ~ListView() override;

  QWidget* MouseArea() const override;
  bool TakeKey(QKeyEvent& event) override;
  /// The list scrolls sideways as far. @param width in pixels
  void SetHorizontalExtent(int width);

 protected:
  void MirrorState() override;

 private:
  class Entries;
  class Window;

  void Press(int entry, Qt::KeyboardModifiers modifiers);
  void MoveTo(int entry, bool extend);
  void GoToLetter(const QString& text);

  forms::ListBox& list_;
  ActionGate& gate_;
  Entries& entries_;
  Window& window_;
  /// Where a stretch selected with Shift begins; -1: at the current entry.
  int anchor_{-1};
};

}  // namespace qt
