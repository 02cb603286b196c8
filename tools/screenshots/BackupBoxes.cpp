#include "BackupBoxes.h"

#include <QAction>
#include <QDateTime>
#include <QDialog>
#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "Photographer.h"
#include "Sample.h"
#include "base/AppPath.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/frmBackups.h"
#include "shell/frmCatalogs.h"

namespace vorlina {
namespace {

// Of several days, the newest first.
void KeepCopies() {
  QDir(AppFile(u"Backups"_qs)).removeRecursively();
  for (const BackupReason reason : {BackupReason::Deletion, BackupReason::Restore, BackupReason::Import})
    KeepAutomaticBackup(reason);
  QDateTime made(QDate(2026, 9, 18), QTime(16, 42));
  for (const AutomaticBackup& copy : AutomaticBackups()) {
    const QFileInfo file(copy.file);
    const QString why = file.fileName().section(u' ', 3);
    QFile::rename(copy.file, file.dir().filePath(
                                 u"Catalog %1 %2"_qs.arg(made.toString(u"yyyy-MM-dd HH.mm.ss.zzz"_qs), why)));
    made = made.addDays(-3).addSecs(-5500);
  }
}

}  // namespace

// The question of a restore is answered with No.
void TakeBackupBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  auto* list = catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  list->setCurrentRow(TheSample().row);
  Q_EMIT list->customContextMenuRequested(list->visualItemRect(list->currentItem()).center());
  photographer.TakePopup(catalogs.findChild<QMenu*>(u"mnuCataloghi"_qs), u"frmCatalogs-menu"_qs);
  KeepCopies();
  catalogs.findChild<QAction*>(u"mnuRestore"_qs)->trigger();
  auto* window = catalogs.findChild<frmBackups*>();
  photographer.Take(*window, u"frmBackups"_qs);
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (box == nullptr || box == window) return;
    photographer.Take(*box, u"box-restore"_qs);
    box->reject();
  });
  watch.start(10);
  window->findChild<QPushButton*>(u"cmdRestore"_qs)->click();
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace vorlina
