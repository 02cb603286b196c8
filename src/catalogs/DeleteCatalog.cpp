#include "catalogs/DeleteCatalog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/PathKeys.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(catalogs, "vorlina.catalogs", QtInfoMsg)

QStringList Paths(Connection& connection, const QString& sql, int IDCatalogo) {
  QStringList paths;
  Rows rows(connection, sql, {IDCatalogo});
  while (rows.Next()) paths += rows.Value(0).toString();
  return paths;
}

// The logo's file by its rule, and the file of the catalog from which this one was cloned. A logo that was
// never copied is the user's own file.
QStringList LogoFiles(Connection& connection, int IDCatalogo) {
  QStringList files{AppFile(u"Images/%1-Logo.jpg"_qs.arg(IDCatalogo))};
  for (const QString& logo :
       Paths(connection, u"SELECT Logo FROM Cataloghi WHERE IDCatalogo=? AND Logo<>''"_qs, IDCatalogo))
    if (QFileInfo(logo).absoluteDir() == QDir(AppFile(u"Images"_qs)) && !files.contains(logo)) files += logo;
  return files;
}

// The keys of those files that rows of other catalogs name as well.
QSet<QString> NamedElsewhere(Connection& connection, int IDCatalogo, const QStringList& files,
                             PathKeys& keys) {
  QSet<QString> own;
  for (const QString& file : files) own.insert(keys.Of(file));
  QSet<QString> named;
  Rows rows(
      connection,
      u"SELECT Immagine FROM Prodotti WHERE IDCatalogo<>?1 AND Immagine<>'' UNION ALL SELECT Immagine FROM "
      u"Immagini "
      "WHERE IDCatalogo<>?1 AND Immagine<>'' UNION ALL SELECT Logo FROM Cataloghi WHERE IDCatalogo<>?1 AND Logo<>''"_qs,
      {IDCatalogo});
  while (rows.Next())
    if (const QString key = keys.Of(rows.Value(0).toString()); own.contains(key)) named.insert(key);
  return named;
}

void RemoveFile(const QString& path) {
  if (!QFile::remove(path)) qCDebug(catalogs) << "not deleted" << path;
}

}  // namespace

void DeleteCatalog(int IDCatalogo, Connection& connection) {
  // Files cannot be brought back with the rows.
  if (connection.InTransaction())
    throw Error(EitherLanguage(u"Un'altra operazione è in corso"_qs, u"Another operation is going on"_qs));
  Transaction transaction(connection);
  const QStringList additional =
      Paths(connection, u"SELECT Immagine FROM Immagini WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo);
  const QStringList main =
      Paths(connection, u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo);
  const QStringList files = additional + main + LogoFiles(connection, IDCatalogo);
  PathKeys keys;
  const QSet<QString> kept = NamedElsewhere(connection, IDCatalogo, files, keys);
  connection.Execute(u"DELETE FROM Filtri WHERE IDCatalogo=?"_qs, {IDCatalogo});
  connection.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
  transaction.Commit();
  for (const QString& file : files)
    if (!kept.contains(keys.Of(file))) RemoveFile(file);
  for (const QString& file : main)
    if (!kept.contains(keys.Of(file))) RemoveFile(FolderOf(file) + u't' + FileNameOf(file, true));
}

}  // namespace vorlina
