#include "shell/SelectedCatalog.h"

#include <QListWidget>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetProgressBox.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"
#include "products/CatalogWork.h"
#include "shell/CatalogList.h"
#include "support/Language.h"
#include "support/Messages.h"

namespace vorlina {
namespace {

// Few pictures take no time worth a box. Gives what the user should know of the copy.
QStringList CloneWithProgress(int id, const QString& name, Connection& connection, QWidget& owner) {
  constexpr int Few = 100;
  const QString prefix = Texts::tr("Copia di ");
  CatalogClone clone(id, connection);
  if (CountPictures(id, connection) <= Few) {
    const WaitCursor wait;
    clone.DuplicaCatalogo(prefix, {});
    return clone.Warnings();
  }
  WidgetProgressBox box(&owner, name);
  clone.DuplicaCatalogo(prefix, box.Reporter());
  return clone.Warnings();
}

}  // namespace

void DeleteSelected(CatalogList& catalogs, Connection& connection, QWidget& owner) {
  try {
    if (const QListWidgetItem* item = catalogs.Selected(); item != nullptr && !item->text().isEmpty()) {
      const int id = catalogs.SelectedId();
      CatalogWork::RequireNone(id);
      if (!TheDialogs().Ask(&owner, NumberedText(BaseConferma + 0), BoxStyle::QuestionNoFirst)) return;
      if (!KeepAutomaticBackupOrAsk(BackupReason::Deletion, &owner)) return;
      const WaitCursor wait;
      DeleteCatalog(id, connection);
    }
  } catch (const std::exception& error) {
    ShowError(&owner, DescriptionOf(error));
    return;
  }
  catalogs.Fill();
}

void CloneSelected(CatalogList& catalogs, Connection& connection, QWidget& owner) {
  try {
    if (const QListWidgetItem* item = catalogs.Selected(); item != nullptr && !item->text().isEmpty()) {
      const int id = catalogs.SelectedId();
      CatalogWork::RequireNone(id);
      const QString name = item->text();  // the list may be made anew while the question stands
      Messaggio = Texts::tr("Duplicare il catalogo selezionato e le immagini ad esso relative?");
      if (!TheDialogs().Ask(&owner, Messaggio)) return;
      const QStringList warnings = CloneWithProgress(id, name, connection, owner);
      if (!warnings.isEmpty()) TheDialogs().Message(&owner, FirstLines(warnings), BoxStyle::Information);
    }
  } catch (const Stopped&) {
    // The user asked for it, and nothing of the copy is there.
  } catch (const std::exception& error) {
    TheDialogs().Message(&owner,
                         Texts::tr("Impossibile duplicare il catalogo. ") + u"\r\n"_qs + DescriptionOf(error),
                         BoxStyle::Stop);
    return;
  }
  catalogs.Fill();
}

}  // namespace vorlina
