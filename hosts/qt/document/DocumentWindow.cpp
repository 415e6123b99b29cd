#include "hosts/qt/document/DocumentWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

#include "hosts/qt/Text.h"

namespace qt {

namespace {

constexpr double kZoomStep = 1.2;
constexpr int kHintTime = 6000;  // milliseconds
constexpr int kLongestSought = 255;

QString Filter() { return QStringLiteral("Word documents (*.docx *.docm *.dotx *.dotm);;All files (*)"); }

std::string FromPath(const QString& path) { return QFile::encodeName(path).toStdString(); }
QString ToPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }

}  // namespace

DocumentWindow::DocumentWindow()
    : view_(new DocumentView(this)), pageState_(new QLabel(this)), zoomState_(new QLabel(this)) {
  setObjectName(QStringLiteral("documentWindow"));
  auto* middle = new QWidget(this);
  auto* column = new QVBoxLayout(middle);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  MakeFindBar();
  column->addWidget(findBar_);
  column->addWidget(view_, 1);
  setCentralWidget(middle);
  statusBar()->addWidget(pageState_, 1);
  statusBar()->addPermanentWidget(zoomState_);
  MakeMenus();
  view_->onMoved = [this] { ShowState(); };
  view_->onOnlyShown = [this] {
    statusBar()->showMessage(QStringLiteral("Headers, footers, text boxes and repeated headings are only shown here"),
                             kHintTime);
  };
  view_->onTyped = [this] {
    statusBar()->showMessage(QStringLiteral("The text is only shown here and cannot be changed"), kHintTime);
  };
  view_->SetHint(QStringLiteral("Open a document with File, Open, or drop one here"));
  setAcceptDrops(true);
  view_->setObjectName(QStringLiteral("pages"));
  resize(QSize(1000, 800).boundedTo(screen()->availableSize()));
  ShowState();
}

void DocumentWindow::MakeMenus() {
  const auto add = [](QMenu* menu, const QString& text, const QKeySequence& keys, auto action) {
    QAction* made = menu->addAction(text);
    made->setShortcut(keys);
    QObject::connect(made, &QAction::triggered, menu, action);
    return made;
  };
  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  add(file, QStringLiteral("&Open..."), QKeySequence::Open, [this] { ChooseAndOpen(); });
  recent_ = file->addMenu(QStringLiteral("Open &recent"));
  QObject::connect(recent_, &QMenu::aboutToShow, this, [this] { FillRecent(); });
  file->addSeparator();
  add(file, QStringLiteral("&Save"), QKeySequence::Save, [this] { Save(); });
  add(file, QStringLiteral("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] { SaveAs(); });
  file->addSeparator();
  add(file, QStringLiteral("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });

  QMenu* edit = menuBar()->addMenu(QStringLiteral("&Edit"));
  view_->addAction(add(edit, QStringLiteral("&Copy"), QKeySequence::Copy, [this] { view_->Copy(); }));
  view_->addAction(add(edit, QStringLiteral("Select &all"), QKeySequence::SelectAll, [this] { view_->SelectAll(); }));
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  edit->addSeparator();
  add(edit, QStringLiteral("&Find..."), QKeySequence::Find, [this] { OpenFindBar(); });
  add(edit, QStringLiteral("Find &next"), QKeySequence(Qt::Key_F3), [this] { FindNext(true); });
  add(edit, QStringLiteral("Find &previous"), QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { FindNext(false); });
  edit->addSeparator();
  add(edit, QStringLiteral("&Go to page..."), QKeySequence(Qt::CTRL | Qt::Key_G), [this] { GoToPage(); });
  add(edit, QStringLiteral("Go &back"), QKeySequence::Back, [this] {
    if (!view_->GoBack()) statusBar()->showMessage(QStringLiteral("No link was followed"), kHintTime);
  });

  QMenu* view = menuBar()->addMenu(QStringLiteral("&View"));
  // Without Shift on the keyboards that have the plus above the equals sign.
  add(view, QStringLiteral("Zoom &in"), QKeySequence::ZoomIn, [this] {
    view_->SetZoom(view_->Zoom() * kZoomStep);
  })->setShortcuts({QKeySequence(QKeySequence::ZoomIn), QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  add(view, QStringLiteral("Zoom &out"), QKeySequence::ZoomOut, [this] { view_->SetZoom(view_->Zoom() / kZoomStep); });
  add(view, QStringLiteral("&Whole size"), QKeySequence(Qt::CTRL | Qt::Key_0), [this] { view_->SetZoom(1); });
  add(view, QStringLiteral("&Page width"), QKeySequence(Qt::CTRL | Qt::Key_9), [this] { view_->FitWidth(); });

  tools_ = menuBar()->addMenu(QStringLiteral("&Tools"));
  tools_->setObjectName(QStringLiteral("tools"));
  QObject::connect(tools_, &QMenu::aboutToShow, this, [this] { FillTools(); });
  help_ = menuBar()->addMenu(QStringLiteral("&Help"));
  help_->setObjectName(QStringLiteral("help"));
}

void DocumentWindow::MakeFindBar() {
  findBar_ = new QWidget(this);
  findBar_->setObjectName(QStringLiteral("findBar"));
  auto* row = new QHBoxLayout(findBar_);
  auto* label = new QLabel(QStringLiteral("Fi&nd:"), findBar_);
  findText_ = new QLineEdit(findBar_);
  findText_->setObjectName(QStringLiteral("findText"));
  findText_->setMaxLength(kLongestSought);
  label->setBuddy(findText_);
  matchCase_ = new QCheckBox(QStringLiteral("&Match case"), findBar_);
  auto* next = new QPushButton(QStringLiteral("Next"), findBar_);
  auto* previous = new QPushButton(QStringLiteral("Previous"), findBar_);
  findResult_ = new QLabel(findBar_);
  findResult_->setObjectName(QStringLiteral("findResult"));
  auto* close = new QToolButton(findBar_);
  close->setText(QStringLiteral("Close"));
  close->setAutoRaise(true);
  row->addWidget(label);
  row->addWidget(findText_, 1);
  row->addWidget(next);
  row->addWidget(previous);
  row->addWidget(matchCase_);
  row->addWidget(findResult_);
  row->addStretch(1);
  row->addWidget(close);
  findBar_->hide();
  QObject::connect(next, &QPushButton::clicked, this, [this] { FindNext(true); });
  QObject::connect(previous, &QPushButton::clicked, this, [this] { FindNext(false); });
  QObject::connect(findText_, &QLineEdit::textEdited, findResult_, &QLabel::clear);
  QObject::connect(close, &QToolButton::clicked, this, [this] { CloseFindBar(); });
  findText_->installEventFilter(this);
}

bool DocumentWindow::eventFilter(QObject* target, QEvent* event) {
  if (target != findText_ || event->type() != QEvent::KeyPress) return QMainWindow::eventFilter(target, event);
  const auto& pressed = *static_cast<QKeyEvent*>(event);
  switch (pressed.key()) {
    case Qt::Key_Escape:
      CloseFindBar();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      FindNext(!pressed.modifiers().testFlag(Qt::ShiftModifier));
      return true;
    default:
      return QMainWindow::eventFilter(target, event);
  }
}

void DocumentWindow::CloseFindBar() {
  findBar_->hide();
  view_->setFocus();
}

void DocumentWindow::SetProgram(DesktopProgram& program) {
  program_ = &program;
  FillTools();
  FillHelp();
  Refresh();
}

bool DocumentWindow::Open(const std::string& path) {
  try {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    view_->SetSource(nullptr);
    program_->Open(path);
    QApplication::restoreOverrideCursor();
  } catch (const std::exception& error) {
    QApplication::restoreOverrideCursor();
    view_->SetSource(program_->Document());
    QMessageBox::critical(this, QStringLiteral("Cannot open"),
                          QStringLiteral("%1 %2").arg(ToPath(path), QString::fromUtf8(error.what())));
    return false;
  }
  view_->SetSource(program_->Document());
  view_->setFocus();
  ShowState();
  return true;
}

void DocumentWindow::Refresh() {
  view_->SetSource(program_ == nullptr ? nullptr : program_->Document());
  ShowState();
}

void DocumentWindow::ShowState() {
  const DocumentSource* document = program_ == nullptr ? nullptr : program_->Document();
  zoomState_->setText(QStringLiteral("%1 %").arg(std::lround(view_->Zoom() * 100)));
  if (document == nullptr) {
    setWindowTitle(QStringLiteral("Kelvarin"));
    setWindowModified(false);
    pageState_->setText(QStringLiteral("No document is open"));
    return;
  }
  setWindowTitle(QStringLiteral("%1[*] \u2013 Kelvarin").arg(QFileInfo(ToPath(program_->Path())).fileName()));
  if (busy_) return;
  setWindowModified(program_->Modified());
  const int page = view_->PageInSight();
  pageState_->setText(QStringLiteral("Page %1 (%2 of %3). Page numbers rest on %4.")
                          .arg(ToQt(document->LabelOf(page)))
                          .arg(page)
                          .arg(document->PageCount())
                          .arg(ToQt(std::string_view(document->PagesFrom()))));
}

void DocumentWindow::FillRecent() {
  recent_->clear();
  if (program_ == nullptr) return;
  int number = 0;
  for (const std::string& path : program_->Recent()) {
    const QString name = ToPath(path).replace(QLatin1Char('&'), QStringLiteral("&&"));
    QObject::connect(recent_->addAction(QStringLiteral("&%1 %2").arg(++number).arg(name)), &QAction::triggered, this,
                     [this, path] {
                       if (MayLeave()) Open(path);
                     });
  }
  if (recent_->isEmpty()) recent_->addAction(QStringLiteral("None yet"))->setEnabled(false);
}

void DocumentWindow::FillTools() {
  // Clearing a menu leaves the menus within it.
  qDeleteAll(tools_->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
  tools_->clear();
  if (program_ != nullptr) AddTools(*tools_, program_->Tools());
}

void DocumentWindow::FillHelp() {
  help_->clear();
  for (const DesktopProgram::Command& command : program_->Help()) {
    QObject::connect(help_->addAction(ToQt(command.caption)), &QAction::triggered, this, command.run);
  }
  if (!help_->isEmpty()) help_->actions().first()->setShortcut(QKeySequence::HelpContents);
}

void DocumentWindow::AddTools(QMenu& menu, const std::vector<DesktopProgram::Command>& commands) {
  for (const DesktopProgram::Command& command : commands) {
    if (command.caption.empty()) {
      menu.addSeparator();
    } else if (!command.commands.empty()) {
      AddTools(*menu.addMenu(ToQt(command.caption)), command.commands);
    } else {
      QObject::connect(menu.addAction(ToQt(command.caption)), &QAction::triggered, this,
                       [this, run = command.run] { Run(run); });
    }
  }
}

void DocumentWindow::Run(const std::function<void()>& command) {
  // Menus answer while a progress form is shown; the document belongs to the command until that has ended.
  if (busy_) return;
  busy_ = true;
  view_->SetFrozen(true);
  menuBar()->setEnabled(false);
  findBar_->setEnabled(false);
  command();
  findBar_->setEnabled(true);
  menuBar()->setEnabled(true);
  view_->SetFrozen(false);
  busy_ = false;
  view_->Reload(program_->Document());
  view_->SelectStretch(view_->Selected());
  activateWindow();
  view_->setFocus();
  ShowState();
}

void DocumentWindow::ChooseAndOpen() {
  if (!MayLeave()) return;
  // Beside the document that is open, else the one that was open last.
  std::string beside = program_ == nullptr ? std::string() : program_->Path();
  if (program_ != nullptr && beside.empty() && !program_->Recent().empty()) beside = program_->Recent().front();
  const QString folder = beside.empty() ? QString() : QFileInfo(ToPath(beside)).absolutePath();
  const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Open"), folder, Filter());
  if (!path.isEmpty()) Open(FromPath(path));
}

bool DocumentWindow::SaveTo(const std::function<void()>& save) {
  try {
    save();
  } catch (const std::exception& error) {
    QMessageBox::critical(this, QStringLiteral("Cannot save"), QString::fromUtf8(error.what()));
    ShowState();
    return false;
  }
  ShowState();
  return true;
}

bool DocumentWindow::Save() {
  if (program_ == nullptr || program_->Document() == nullptr) return false;
  if (program_->ChangedOutside()) {
    const auto answer = QMessageBox::question(
        this, QStringLiteral("Changed meanwhile"),
        QStringLiteral("Another program has changed the file since it was opened here. Replace it all the same?"),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) return false;
  }
  return SaveTo([this] { program_->Save(); });
}

bool DocumentWindow::SaveAs() {
  if (program_ == nullptr || program_->Document() == nullptr) return false;
  QFileDialog dialog(this, QStringLiteral("Save as"), ToPath(program_->Path()), Filter());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.selectFile(ToPath(program_->Path()));
  dialog.setDefaultSuffix(QFileInfo(ToPath(program_->Path())).suffix());
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  return SaveTo([&] { program_->SaveAs(FromPath(dialog.selectedFiles().constFirst())); });
}

bool DocumentWindow::MayLeave() {
  if (program_ == nullptr || !program_->Modified()) return true;
  const auto answer =
      QMessageBox::question(this, QStringLiteral("Save changes?"),
                            QStringLiteral("%1 has changes that are not saved. Save them?")
                                .arg(QFileInfo(ToPath(program_->Path())).fileName()),
                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save) return Save();
  return answer == QMessageBox::Discard;
}

void DocumentWindow::closeEvent(QCloseEvent* event) { !busy_&& MayLeave() ? event->accept() : event->ignore(); }

void DocumentWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> files = event->mimeData()->urls();
  if (!busy_ && files.size() == 1 && files.first().isLocalFile()) event->acceptProposedAction();
}

void DocumentWindow::dropEvent(QDropEvent* event) {
  const QList<QUrl> files = event->mimeData()->urls();
  if (busy_ || files.size() != 1 || !files.first().isLocalFile()) return;
  event->acceptProposedAction();
  if (MayLeave()) Open(FromPath(files.first().toLocalFile()));
}

void DocumentWindow::GoToPage() {
  const DocumentSource* document = program_ == nullptr ? nullptr : program_->Document();
  if (document == nullptr) return;
  const int current = view_->CurrentPage();
  bool given = false;
  const QString label =
      QInputDialog::getText(this, QStringLiteral("Go to page"), QStringLiteral("Page number, as it is printed:"),
                            QLineEdit::Normal, ToQt(document->LabelOf(current)), &given)
          .trimmed();
  if (!given || label.isEmpty()) return;
  // A number that several sections have leads to the next page that bears it.
  const int count = document->PageCount();
  for (int step = 1; step <= count; ++step) {
    const int page = (current + step - 1) % count + 1;
    if (ToQt(document->LabelOf(page)).compare(label, Qt::CaseInsensitive) == 0) return view_->GoToPage(page);
  }
  statusBar()->showMessage(QStringLiteral("No page has the number %1").arg(label), kHintTime);
}

void DocumentWindow::OpenFindBar() {
  const DocumentSource* document = program_ == nullptr ? nullptr : program_->Document();
  if (document != nullptr && !findBar_->isVisible()) {
    const QString selected = ToQt(document->CopyText(view_->Selected()));
    const bool fits = !selected.isEmpty() && selected.size() <= kLongestSought && !selected.contains(QLatin1Char('\n'));
    if (fits) findText_->setText(selected);
  }
  findResult_->clear();
  findBar_->show();
  findText_->setFocus();
  findText_->selectAll();
}

void DocumentWindow::FindNext(bool forward) {
  if (program_ == nullptr || program_->Document() == nullptr) return;
  if (findText_->text().isEmpty()) return OpenFindBar();
  const DocumentSource::Selection selection = view_->Selected();
  const Place from{selection.start.story, forward ? selection.end : selection.start.position};
  const auto found = program_->Document()->Find(FromQt(findText_->text()), from, forward, matchCase_->isChecked());
  if (!found) return findResult_->setText(QStringLiteral("Not found"));
  const auto order = [](const Place& place) { return std::pair(place.story, place.position); };
  const bool around = forward ? order(found->start) < order(from) : order(found->start) > order(from);
  findResult_->setText(!around   ? QString()
                       : forward ? QStringLiteral("From the beginning again")
                                 : QStringLiteral("From the end again"));
  view_->SelectStretch(*found);
}

}  // namespace qt
