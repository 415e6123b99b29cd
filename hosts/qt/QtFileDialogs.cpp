#include "hosts/qt/QtFileDialogs.h"

#include <QFileDialog>

#include "hosts/qt/Text.h"
#include "hosts/qt/forms/QtFormHost.h"

namespace qt {

namespace {

/// "Text file (.txt)", NUL, "*.txt" as "Text file (*.txt)", one for each pair.
QStringList Filters(std::u16string_view filter) {
  const QStringList parts = ToQt(filter).split(QChar(0));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    if (parts[i].isEmpty()) continue;
    QString name = parts[i];
    if (name.contains(QLatin1Char('('))) name = name.left(name.indexOf(QLatin1Char('('))).trimmed();
    filters << QStringLiteral("%1 (%2)").arg(name, QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')));
  }
  return filters;
}

}  // namespace

std::u16string QtFileDialogs::Choose(const os::FileDialog& dialog) {
  const bool save = dialog.mode == os::FileDialogMode::kSave;
  QFileDialog box(windows_.Owner(dialog.owner));
  box.setObjectName(QStringLiteral("fileDialog"));
  box.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  // A name that is wrong is for the system to report.
  box.setFileMode(QFileDialog::AnyFile);
  if (!dialog.title.empty()) box.setWindowTitle(ToQt(dialog.title));
  const QStringList filters = Filters(dialog.filter);
  if (!filters.isEmpty()) {
    box.setNameFilters(filters);
    box.selectNameFilter(filters.value(dialog.filterIndex - 1, filters.constFirst()));
  }
  box.setOption(QFileDialog::DontConfirmOverwrite, (dialog.flags & os::kOverwritePrompt) == 0);
  if (!dialog.initialFolder.empty()) {
    box.setDirectory(QFile::decodeName(QByteArray::fromStdString(names_.toMachine(dialog.initialFolder))));
  }
  if (!dialog.fileName.empty()) box.selectFile(ToQt(dialog.fileName));
  if (box.exec() != QDialog::Accepted || box.selectedFiles().isEmpty()) return {};
  return names_.toSystem(QFile::encodeName(box.selectedFiles().constFirst()).toStdString());
}

}  // namespace qt
