#include "support/AppFolder.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "samples/TextCollation.h"
#include "store/SampleData.h"

namespace vorlina {
namespace {

void Rebase(SQLite::Database& database, const QString& folder) {
  static constexpr std::pair<const char*, const char*> columns[] = {
      {"Cataloghi", "Logo"}, {"Prodotti", "Immagine"}, {"Immagini", "Immagine"}};
  const std::string root = QDir::toNativeSeparators(SampleDataRoot).toStdString();
  for (const auto& [table, column] : columns) {
    SQLite::Statement update(database, std::string("UPDATE ") + table + " SET " + column +
                                           " = ?1 || substr(" + column + ", length(?2) + 1) WHERE substr(" +
                                           column + ", 1, length(?2)) = ?2");
    update.bind(1, folder.toStdString());
    update.bind(2, root);
    update.exec();
  }
}

QStringList Texts(SQLite::Database& database, const char* sql, int argument) {
  SQLite::Statement query(database, sql);
  query.bind(1, argument);
  QStringList texts;
  while (query.executeStep()) texts << QString::fromStdString(query.getColumn(0).getString());
  return texts;
}

}  // namespace

QString DeliveredData() { return QStringLiteral(VORLINA_DELIVERED); }

AppFolder::AppFolder(int productsWithPictures) {
  const QString delivered = DeliveredData() + u"/Catalog.db";
  if (!QFileInfo::exists(delivered))
    throw Error(delivered + u" is missing: build the target \"delivered\" first");
  QDir(folder_.path()).mkpath(u"Images"_qs);
  CopyFileSafely(delivered, File(u"Catalog.db"_qs));
  if (productsWithPictures > 0) CopyPictures(productsWithPictures);
  SQLite::Database database(File(u"Catalog.db"_qs).toStdString(), SQLite::OPEN_READWRITE);
  Rebase(database, Path());
  SetAppPath(Path());
}

QString AppFolder::Path() const { return QDir::toNativeSeparators(folder_.path()); }

QString AppFolder::File(const QString& name) const {
  return QDir::toNativeSeparators(folder_.filePath(name));
}

void AppFolder::CopyPictures(int products) {
  SQLite::Database database(File(u"Catalog.db"_qs).toStdString(), SQLite::OPEN_READONLY);
  RegisterTextCollation(database);
  const auto copy = [this](const QString& name) {
    CopyFileSafely(DeliveredData() + u"/Images/" + name, File(u"Images/"_qs + name));
  };
  for (const QString& path :
       Texts(database, "SELECT Immagine FROM Prodotti WHERE OrdineTemp <= ?", products)) {
    copy(FileNameOf(path, true));
    copy(u't' + FileNameOf(path, true));
  }
  const char* additional =
      "SELECT I.Immagine FROM Immagini I JOIN Prodotti P ON P.IDCatalogo = I.IDCatalogo"
      " AND P.CodiceProdotto = I.CodiceProdotto WHERE P.OrdineTemp <= ?";
  for (const QString& path : Texts(database, additional, products)) copy(FileNameOf(path, true));
  for (const QString& path : Texts(database, "SELECT Logo FROM Cataloghi WHERE ? > 0", products))
    copy(FileNameOf(path, true));
}

}  // namespace vorlina
