#pragma once

#include <QMainWindow>

#include <string>

#include "hosts/qt/document/DesktopProgram.h"
#include "hosts/qt/document/DocumentView.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;

namespace qt {

/// The window of the desktop program: a document's pages, its menus, and a bar to find text.
class DocumentWindow : public QMainWindow {
 public:
  DocumentWindow();

  /// @param program outlives the window
  void SetProgram(DesktopProgram& program);
  /// Opens a document. @return whether it could be
  bool Open(const std::string& path);
  /// Shows the document as it is now.
  void Refresh();

  DocumentView& View() { return *view_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  void MakeMenus();
  void MakeFindBar();
  void FillRecent();
  void FillTools();
  void FillHelp();
  void AddTools(QMenu& menu, const std::vector<DesktopProgram::Command>& commands);
  void Run(const std::function<void()>& command);
  void ShowState();

  void ChooseAndOpen();
  bool Save();
  bool SaveAs();
  /// Offers to save. @return false when the person would rather go on
  bool MayLeave();
  bool SaveTo(const std::function<void()>& save);
  void OpenFindBar();
  void CloseFindBar();
  void FindNext(bool forward);
  void GoToPage();

  DesktopProgram* program_{nullptr};
  DocumentView* view_;
  QWidget* findBar_;
  QLineEdit* findText_;
  QCheckBox* matchCase_;
  QLabel* findResult_;
  QLabel* pageState_;
  QLabel* zoomState_;
  QMenu* recent_;
  QMenu* tools_;
  QMenu* help_;
  bool busy_{false};
};

}  // namespace qt
