#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>
#include <algorithm>
#include <functional>

#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/Backup.h"
#include "catalogs/BackupSources.h"
#include "catalogs/RestoreSwap.h"
#include "files/FolderLock.h"
#include "store/CatalogDatabase.h"
#include "store/CatalogSchema.h"
#include "store/Connection.h"
#include "store/RowErrors.h"
#include "store/SampleData.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// Alone in the folder: neither one of our programs nor another one in the middle of a change.
void TakeFolder(files::FolderLock& hold, const QString& folder) {
  if (hold.TakeAlone(folder, 0) && !IsDatabaseLocked(QDir(folder).filePath(DatabaseName))) return;
  throw Error(Texts::tr("I cataloghi in %1 sono aperti in un altro programma. Chiuderlo e riprovare.")
                  .arg(QDir::toNativeSeparators(folder)));
}

// Before anything is unpacked, and with something to spare: neither a large backup nor one that was made to
// fill the disk takes the last of it.
void RequireRoom(const QString& folder, qint64 needed, const QString& source) {
  constexpr qint64 MostSpared = 1 << 30;
  const qint64 room = QStorageInfo(folder).bytesAvailable();
  const qint64 missing = needed - (room - std::min(room / 10, MostSpared));
  if (missing <= 0) return;
  QString text = Texts::tr("Sul disco non c'è spazio per il ripristino: servono almeno altri %1.")
                     .arg(QLocale().formattedDataSize(missing));
  const QString former = FormerFolder(folder);
  const QString chosen = QFileInfo(source).canonicalFilePath() + u'/';
  if (QFileInfo::exists(former) && !chosen.startsWith(QFileInfo(former).canonicalFilePath() + u'/'))
    text += u' ' + Texts::tr(
                       "La cartella %1 contiene quel che c'era prima dell'ultimo ripristino; se non "
                       "serve più, eliminarla.")
                       .arg(QDir::toNativeSeparators(former));
  throw Error(text);
}

BackupManifest Unpack(const QString& file, const QString& staging, const Progress& progress) {
  const QDir target(staging);
  const qint64 total = QFileInfo(file).size();
  qint64 done = 0;
  BackupManifest manifest = ReadBackup(file, [&](const QString& stored, const auto& nextPiece) {
    MakeFolder(QFileInfo(target.filePath(stored)).path());
    WriteStagedFile(target.filePath(stored), [&](QIODevice& device) {
      for (QByteArray piece = nextPiece(); !piece.isEmpty(); piece = nextPiece()) {
        Report(progress, std::min(done += piece.size(), total), total, stored);
        if (device.write(piece) != piece.size()) return false;
      }
      return true;
    });
  });
  // Files that the archive holds under a number get their names.
  for (const auto& [name, entry] : manifest.files)
    if (entry.stored != name && !QFile::rename(target.filePath(entry.stored), target.filePath(name)))
      throw Error(Texts::tr("Impossibile scrivere il file %1").arg(name));
  return manifest;
}

// By what it begins with, whatever its name ends in.
bool IsDatabase(const QString& path) {
  QFile file(path);
  return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) &&
         file.read(16) == QByteArray("SQLite format 3", 16);
}

bool IsArchive(const QString& source) { return !QFileInfo(source).isDir() && !IsDatabase(source); }

QString DatabaseIn(const QString& source) {
  return QFileInfo(source).isDir() ? QDir(source).filePath(DatabaseName) : source;
}

// Copies the files that lie there beside the database, so that they stay until the restore is done.
void CopyOver(const QString& source, const BackupManifest& manifest, const QString& staging,
              const Progress& progress) {
  const QDir target(staging);
  qint64 done = 0;
  for (const auto& [name, entry] : manifest.files) {
    Report(progress, done += entry.size, std::max(manifest.TotalSize(), done), name);
    if (name == DatabaseName) continue;
    MakeFolder(QFileInfo(target.filePath(name)).path());
    const QString path = QDir(source).filePath(name);
    if (CopyStagedFile(path, target.filePath(name)) != StagedCopy::Made)
      throw Error(Texts::tr("Impossibile leggere il file %1").arg(QDir::toNativeSeparators(path)));
  }
}

// Pictures are named after numbers: none is given twice, also where databases take turns.
void RaiseCounters(Connection& connection) {
  QStringList databases{AppFile(DatabaseName)};
  for (const AutomaticBackup& copy : AutomaticBackups()) databases += copy.file;
  Transaction transaction(connection);
  for (const QString& database : databases)
    for (const auto& [table, number] : CountersOf(database)) connection.KeepCounter(table, number);
  transaction.Commit();
}

// Puts one folder in the place of another at the beginning of the stored paths; separators become those of
// this system.
void MovePaths(Connection& connection, const QString& from, const QString& to) {
  Transaction transaction(connection);
  for (const SamplePath& path : SamplePaths) {
    const QString update =
        u"UPDATE %1 SET %2=? || REPLACE(SUBSTR(%2,LENGTH(?)+1),?,?) WHERE SUBSTR(%2,1,LENGTH(?))=?"_qs.arg(
            QString::fromUtf16(path.table), QString::fromUtf16(path.column));
    for (const QChar separator : {u'/', u'\\'}) {
      const QString beginning = from + separator;
      connection.Execute(update,
                         {to, from, QString(separator), QString(QDir::separator()), beginning, beginning});
    }
  }
  transaction.Commit();
}

QString ChooseAnother() { return Texts::tr("Scegliere un'altra copia di sicurezza."); }

// Opens the unpacked database as the program would, which refuses a foreign or a newer one and brings an
// older one up to date, and fits its paths to where it is going to lie. Nothing is written as long as it may
// have something that would do more than what was written.
void PrepareDatabase(Connection& connection, const QString& path, const QString& from, const QString& to) {
  connection.Open(ConnectionTextFor(path));
  RequireTablesAlone(connection);
  OpenCatalogDatabase(connection, path);
  if (const QStringList broken = CheckDatabase(connection); !broken.isEmpty())
    throw Error(Texts::tr("Il database della copia di sicurezza non è integro: %1").arg(broken.first()) +
                u' ' + ChooseAnother());
  RequireOwnSchema(connection);
  if (!from.isEmpty() && from != to) MovePaths(connection, from, to);
}

// Takes the advice out of what is told of a database that is not whole, or none of ours: who restores already
// is told to choose another one. False for what another backup does not help against.
bool TakeAdvice(QString& why) {
  bool helps = why.contains(Texts::tr("La copia del database non è integra: %1").arg(QString()));
  for (const QString& advice : {ChooseAnother(), Texts::tr("Ripristinare una copia di sicurezza.")}) {
    helps = helps || why.contains(advice);
    why.remove(u' ' + advice);
  }
  return helps;
}

// What is wrong with it is told of what the user chose.
void NamingTheSource(const QString& source, const QString& staged, const std::function<void()>& step) {
  try {
    step();
  } catch (const DiskFullError&) {
    throw;
  } catch (const LockedError&) {
    throw;
  } catch (const Error& error) {
    const QString name = QDir::toNativeSeparators(source);
    QString why = error.Description();
    why.replace(QDir::toNativeSeparators(staged), name);
    const QString what = Texts::tr("Impossibile ripristinare %1.").arg(name) + u' ';
    if (TakeAdvice(why)) throw Error(what + ChooseAnother() + u" ("_qs + why + u')');
    throw Error(what + why);
  }
}

// The last step before the places change: what fails earlier costs no older copy.
void KeepCopy(const QString& source, const CopyWaiver& waive) {
  try {
    KeepAutomaticBackup(BackupReason::Restore, source);
  } catch (const Error& error) {
    if (!waive) throw;
    if (!waive(error.Description())) throw Stopped();
  }
}

// A swap that could be neither finished nor taken back leaves its journal, and needs what is staged.
void Abandon(const QString& folder) {
  if (!IsSwapPending(folder)) QDir(StagingFolder(folder)).removeRecursively();
}

}  // namespace

RestoreOffer ReadOffer(const QString& source) {
  const QFileInfo database(DatabaseIn(source));
  // Whoever opens a pipe waits for somebody to write into it.
  if (database.exists() && !database.isFile())
    throw Error(Texts::tr("Impossibile leggere il file %1").arg(QDir::toNativeSeparators(source)));
  if (IsArchive(source)) return {RestoreScope::Everything, ReadManifest(source)};
  if (!database.isFile())
    throw Error(Texts::tr("In %1 non c'è nessun database.").arg(QDir::toNativeSeparators(source)));
  RestoreOffer offer{RestoreScope::DatabaseAlone, {0, {}, QFileInfo(source).lastModified(), {}}};
  offer.manifest.files[DatabaseName] = {DatabaseName, database.size(), {}};
  if (!QFileInfo(QDir(source).filePath(u"Images"_qs)).isDir()) return offer;
  offer.scope = RestoreScope::Everything;
  const SourceFiles files = SourcesIn(source);
  if (!files.unreadable.isEmpty())
    throw Error(Texts::tr("Impossibile leggere la cartella %1").arg(files.unreadable.first()));
  for (const SourceFile& file : files.files) offer.manifest.files[file.name] = {file.name, file.size, {}};
  return offer;
}

QString RestoredText(const QString& source, const RestoreReport& report) {
  const BackupManifest& manifest = report.manifest;
  const QString name = QDir::toNativeSeparators(source);
  QString text = report.scope == RestoreScope::DatabaseAlone
                     ? Texts::tr("Ripristinato il database %1").arg(name)
                     : Texts::tr("Ripristinati da %1: %2 file, %3")
                           .arg(name, QString::number(manifest.files.size()),
                                QLocale().formattedDataSize(manifest.TotalSize()));
  if (!report.former.isEmpty())
    text += u'\n' + Texts::tr("Quel che c'era prima resta in %1 fino al prossimo ripristino.")
                        .arg(QDir::toNativeSeparators(report.former));
  return text;
}

RestoreReport RestoreBackup(const QString& source, const Progress& progress, const CopyWaiver& waive) {
  const QString folder = AppPath();
  MakeFolder(folder);
  files::FolderLock hold;
  TakeFolder(hold, folder);
  FinishInterruptedRestore(folder);
  const QString staging = StagingFolder(folder);
  try {
    RestoreOffer offer = ReadOffer(source);
    MakeFolder(offer.scope == RestoreScope::Everything ? staging + u"/Images"_qs : staging);
    RequireRoom(folder, offer.manifest.TotalSize(), source);
    if (IsArchive(source))
      offer.manifest = Unpack(source, staging, progress);
    else
      CopyOver(source, offer.manifest, staging, progress);
    const QString database = QDir(staging).filePath(DatabaseName);
    Connection connection;
    NamingTheSource(source, database, [&] {
      if (!IsArchive(source)) CopyDatabase(DatabaseIn(source), database);
      PrepareDatabase(connection, database, offer.manifest.applicationPath, folder);
    });
    RaiseCounters(connection);
    connection.Close();
    SyncVolume(staging);
    KeepCopy(source, waive);
    return {offer.scope, offer.manifest, SwapIn(folder, offer.scope == RestoreScope::DatabaseAlone)};
  } catch (const DiskFullError& full) {
    Abandon(folder);
    throw DiskFullError(folder, full.Cause());
  } catch (...) {
    Abandon(folder);
    throw;
  }
}

}  // namespace vorlina
