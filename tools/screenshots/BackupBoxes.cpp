#include "BackupBoxes.h"

#include <QAction>
#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>

#include "Photographer.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/frmBackups.h"
#include "shell/frmCatalogs.h"

namespace vorlina {

// The question of a restore is answered with No.
void TakeBackupBoxes(const Photographer& photographer, frmCatalogs& catalogs) {
  auto* list = catalogs.findChild<QListWidget*>(u"LstWCatalogs"_qs);
  list->setCurrentRow(0);
  Q_EMIT list->customContextMenuRequested(list->visualItemRect(list->currentItem()).center());
  photographer.TakePopup(catalogs.findChild<QMenu*>(u"mnuCataloghi"_qs), u"frmCatalogs-menu"_qs);
  KeepAutomaticBackup(BackupReason::Import);
  KeepAutomaticBackup(BackupReason::Deletion);
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
