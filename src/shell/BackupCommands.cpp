#include "shell/BackupCommands.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QScopedValueRollback>
#include <QStandardPaths>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "base/WidgetProgressBox.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/Backup.h"
#include "catalogs/BackupSources.h"
#include "catalogs/RestoreSwap.h"
#include "catalogs/frmBackups.h"
#include "grid/DataGrid.h"
#include "products/CatalogWork.h"
#include "shell/DatabaseRetry.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

// The file to save in; "" when none was chosen. One that only got its ending here has not been asked about.
QString ChooseTarget(QWidget* owner) {
  const QString name = u"Vorlina %1.zip"_qs.arg(QDate::currentDate().toString(Qt::ISODate));
  QString file = TheDialogs().SaveFile(owner, Texts::tr("Salva una copia di sicurezza"),
                                       Texts::tr("Copie di sicurezza|*.zip"), BackupFolder() + u'/' + name);
  if (file.isEmpty() || file.endsWith(u".zip", Qt::CaseInsensitive)) return file;
  const QString whole = file + u".zip"_qs;
  const QString question = Texts::tr("Il file %1 esiste già. Sostituirlo?").arg(whole);
  return !QFileInfo::exists(whole) || TheDialogs().Ask(owner, question, BoxStyle::QuestionNoFirst)
             ? whole
             : QString();
}

QString RestoreQuestion(const QString& source, const RestoreOffer& offer) {
  const BackupManifest& manifest = offer.manifest;
  const QString name = QDir::toNativeSeparators(source);
  const QString made = QLocale().toString(manifest.created.toLocalTime(), QLocale::ShortFormat);
  const bool everything = offer.scope == RestoreScope::Everything;
  const QString what = everything ? Texts::tr("Ripristinare %1, del %2 (%3 file, %4)?")
                                        .arg(name, made, QString::number(manifest.files.size()),
                                             QLocale().formattedDataSize(manifest.TotalSize()))
                                  : Texts::tr("Ripristinare il database %1, del %2?").arg(name, made);
  const QString goes =
      everything
          ? Texts::tr(
                "Sostituisce tutti i cataloghi, con le immagini e i layout, anche quelli aggiunti dopo.")
          : Texts::tr(
                "Sostituisce i dati di tutti i cataloghi. Le immagini restano quelle che ci sono: quelle "
                "eliminate dopo mancheranno, e di quelle cambiate dopo si vedranno le nuove.");
  const QString stays =
      (everything
           ? Texts::tr(
                 "Quel che c'è ora resta nella cartella %1 fino al prossimo ripristino, e il suo database "
                 "anche tra le copie automatiche. Le finestre dei cataloghi si chiudono.")
           : Texts::tr(
                 "Il database di adesso resta nella cartella %1 fino al prossimo ripristino, e anche tra le "
                 "copie automatiche. Le finestre dei cataloghi si chiudono."))
          .arg(QDir::toNativeSeparators(NextFormerFolder(AppPath(), !everything)));
  return QStringList{what, goes, stays}.join(u"\r\n\r\n"_qs);
}

}  // namespace

BackupCommands::BackupCommands(DatabaseRetry& database, QWidget& owner)
    : QObject(&owner), database_(database), owner_(owner) {}

// What was stopped, or given up in a box, needs no further one.
void BackupCommands::Attempt(const std::function<void()>& step) {
  try {
    step();
  } catch (const Stopped&) {
  } catch (const std::exception& error) {
    ShowError(&owner_, DescriptionOf(error));
  }
}

// What was typed into the rows belongs into the backup; what cannot be written has told why.
bool BackupCommands::LeaveRows() const {
  for (DataGrid* grid : owner_.findChildren<DataGrid*>())
    if (grid->isVisible() && !grid->LeaveRow()) return false;
  return true;
}

void BackupCommands::BackUp() {
  Attempt([this] {
    CatalogWork::RequireNone();
    if (!LeaveRows()) return;
    const QString file = ChooseTarget(&owner_);
    if (file.isEmpty()) return;
    RememberFolderOf(purpose::Backups, file);
    const QScopedValueRollback<bool> atWork(atWork_, true);
    Save(file, MissingPictures::Refused);
  });
}

void BackupCommands::Save(const QString& file, MissingPictures missing) {
  QString told;
  try {
    Connection connection;
    OpenCatalogDatabase(connection, AppFile(DatabaseName));
    WidgetProgressBox box(&owner_, Texts::tr("Copia di sicurezza in %1").arg(file));
    told = SavedText(file, WriteBackup(connection, file, box.Reporter(), missing));
  } catch (const MissingPicturesError& error) {
    if (AskWithoutPictures(error.Description())) Save(file, MissingPictures::Allowed);
    return;
  }
  TheDialogs().Message(&owner_, told, BoxStyle::Information);
}

bool BackupCommands::AskWithoutPictures(const QString& description) const {
  return TheDialogs().Ask(&owner_,
                          description + u"\r\n\r\n"_qs + Texts::tr("Salvare il resto, senza di esse?"),
                          BoxStyle::QuestionNoFirst);
}

// The restore begins when the window has gone, and nothing of its own is on the stack. Until then nothing
// else begins, nor does a database that cannot be read tell so once more.
void BackupCommands::Restore() {
  Attempt([this] {
    CatalogWork::RequireNone();
    auto* window = new frmBackups(&owner_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->LoadForm();
    connect(
        window, &frmBackups::Chosen, this, [this](const QString& source) { RestoreFrom(source); },
        Qt::QueuedConnection);
    connect(window, &frmBackups::rejected, this, [this] { atWork_ = false; });
    atWork_ = true;
    window->show();
  });
}

void BackupCommands::RestoreFrom(const QString& source) {
  atWork_ = false;
  const QScopedValueRollback<bool> atWork(atWork_, true);
  Attempt([&] {
    CatalogWork::RequireNone();
    const RestoreOffer offer = ReadOffer(source);
    if (!TheDialogs().Ask(&owner_, RestoreQuestion(source, offer), BoxStyle::QuestionNoFirst)) return;
    if (CloseWindows()) Replace(source, offer.scope == RestoreScope::DatabaseAlone);
  });
}

// Whatever comes of it the database is opened again: the former one, or the restored one. Why there was no
// restore is told before anything that comes of that.
void BackupCommands::Replace(const QString& source, bool databaseAlone) {
  QString told;
  database_.Close();
  Attempt([&] {
    const QString former = QDir::toNativeSeparators(NextFormerFolder(AppPath(), databaseAlone));
    WidgetProgressBox box(&owner_, Texts::tr("Ripristino di %1").arg(source));
    told = RestoredText(source, RestoreBackup(source, box.Reporter(), [&](const QString& why) {
                          const QString stays = Texts::tr("Quel che c'è resta comunque in %1.").arg(former);
                          return TheDialogs().Ask(&box, WithoutCopyQuestion(why + u"\r\n"_qs + stays),
                                                  BoxStyle::QuestionNoFirst);
                        }));
  });
  database_.Reopen();
  if (told.isEmpty()) return;
  if (const QString missing = MissingPicturesText(); !missing.isEmpty()) told += u"\r\n\r\n"_qs + missing;
  TheDialogs().Message(&owner_, told, BoxStyle::Information);
}

}  // namespace vorlina
