#include "base/LastFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Settings.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(base, "vorlina.base", QtInfoMsg)

const QString Section = u"Cartelle"_qs;

void Remember(QStringView purpose, const QString& folder) {
  try {
    SaveSetting(ApplicationTitle(), Section, purpose.toString(), QDir::toNativeSeparators(folder));
  } catch (const Error& error) {
    qCWarning(base).noquote() << error.Description();
  }
}

}  // namespace

QString LastFolder(QStringView purpose) {
  const QString folder = GetSetting(ApplicationTitle(), Section, purpose.toString(), {});
  return QFileInfo(folder).isDir() ? folder : QString();
}

void RememberFolderOf(QStringView purpose, const QString& file) {
  if (!file.isEmpty()) Remember(purpose, QFileInfo(file).absolutePath());
}

QString OpenFileFor(QStringView purpose, QWidget* owner, const QString& title, const QString& filter) {
  QString file = TheDialogs().OpenFile(owner, title, filter, LastFolder(purpose));
  RememberFolderOf(purpose, file);
  return file;
}

QStringList OpenFilesFor(QStringView purpose, QWidget* owner, const QString& title, const QString& filter) {
  QStringList files = TheDialogs().OpenFiles(owner, title, filter, LastFolder(purpose));
  RememberFolderOf(purpose, files.value(0));
  return files;
}

QString FolderFor(QStringView purpose, QWidget* owner, const QString& title) {
  QString folder = BrowseForFolder(title, owner, LastFolder(purpose));
  if (!folder.isEmpty()) Remember(purpose, folder);
  return folder;
}

}  // namespace vorlina
