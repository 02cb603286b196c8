#include "catalogs/DeleteCatalog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSet>

#include "base/AppPath.h"
#include "base/Helpers.h"
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

// The paths that rows of other catalogs name as well.
QSet<QString> NamedElsewhere(Connection& connection, int IDCatalogo) {
  const QStringList shared =
      Paths(connection,
            u"WITH Own AS MATERIALIZED (SELECT Immagine FROM Prodotti WHERE IDCatalogo=?1 "
            "UNION SELECT Immagine FROM Immagini WHERE IDCatalogo=?1) "
            "SELECT Immagine FROM Prodotti WHERE IDCatalogo<>?1 AND Immagine IN Own "
            "UNION SELECT Immagine FROM Immagini WHERE IDCatalogo<>?1 AND Immagine IN Own "
            "UNION SELECT Logo FROM Cataloghi WHERE IDCatalogo<>?1 AND Logo<>''"_qs,
            IDCatalogo);
  return {shared.begin(), shared.end()};
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

void RemoveFile(const QString& path) {
  if (!QFile::remove(path)) qCDebug(catalogs) << "not deleted" << path;
}

}  // namespace

void DeleteCatalog(int IDCatalogo, Connection& connection) {
  Transaction transaction(connection);
  const QStringList additional =
      Paths(connection, u"SELECT Immagine FROM Immagini WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo);
  const QStringList main =
      Paths(connection, u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo);
  const QStringList logos = LogoFiles(connection, IDCatalogo);
  const QSet<QString> kept = NamedElsewhere(connection, IDCatalogo);
  connection.Execute(u"DELETE FROM Filtri WHERE IDCatalogo=?"_qs, {IDCatalogo});
  connection.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
  transaction.Commit();
  for (const QString& file : additional + main + logos)
    if (!kept.contains(file)) RemoveFile(file);
  for (const QString& file : main)
    if (!kept.contains(file)) RemoveFile(FolderOf(file) + u't' + FileNameOf(file, true));
}

}  // namespace vorlina
