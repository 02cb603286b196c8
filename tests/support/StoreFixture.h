// An empty catalog database, made from the delivered schema, in a temporary application folder.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "base/AppPath.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/Sqlite.h"
#include "support/Language.h"
#include "support/Print.h"
#include "support/WritingConnection.h"

namespace vorlina {

// Runs the schema on a new file.
inline void MakeDatabase(const QString& path,
                         const QString& script = QStringLiteral(VORLINA_SOURCE_DIR "/data/schema.sql")) {
  QFile schema(script);
  ASSERT_TRUE(schema.open(QIODevice::ReadOnly));
  SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  RegisterSqlExtensions(database);
  database.exec("PRAGMA synchronous=OFF");
  database.exec(schema.readAll().toStdString());
}

class StoreFixture : public testing::Test {
 protected:
  StoreFixture() {
    SetLanguage(u"English"_qs);
    SetAppPath(folder_.path());
    QDir(folder_.path()).mkdir(u"Images"_qs);
    MakeDatabase(Path());
    connection_.Open(ConnectionTextFor(Path()));
    // No test pulls the plug, so the disk is not waited for.
    connection_.Execute(u"PRAGMA synchronous=OFF"_qs);
  }

  QString Path() const { return AppFile(u"Catalog.db"_qs); }

  int AddCatalog(const QString& name) {
    connection_.Execute(u"INSERT INTO Cataloghi (NomeCatalogo) VALUES (?)"_qs, {name});
    return int(connection_.LastInsertId());
  }
  void AddProduct(int catalog, const QString& code, const QVariant& order = {}) {
    connection_.Execute(u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,OrdineTemp) VALUES (?,?,?)"_qs,
                        {catalog, code, order});
  }
  void SetImage(const QString& code, const QString& path) {
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto=?"_qs, {path, code});
  }
  // Has a change of rows fail, such as "DELETE ON Cataloghi", from now on.
  void Refuse(const QString& change) {
    connection_.Execute(
        u"CREATE TRIGGER Refuse BEFORE %1 BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs.arg(change));
  }
  QVariant One(const QString& expression, const QString& table, const QString& where = {},
               const QVariantList& values = {}) {
    return GetValue(expression, table, connection_, where, values);
  }
  // The codes of a catalog by publication order, each with its number, "-" for none.
  QString Orders(int catalog) {
    return One(u"group_concat(t,' ')"_qs,
               u"(SELECT CodiceProdotto||IFNULL(OrdineTemp,'-') AS t FROM Prodotti WHERE IDCatalogo=%1 "
               "ORDER BY OrdineTemp,IDProdotto)"_qs.arg(catalog))
        .toString();
  }
  int Count(const QString& table) { return One(u"COUNT(*)"_qs, table).toInt(); }

  const QTemporaryDir folder_;
  WritingConnection connection_;
};

}  // namespace vorlina
