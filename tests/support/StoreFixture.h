// A catalog database in a temporary folder, made from the delivered tables: catalog 1, and what a test adds.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QFile>
#include <QTemporaryDir>

#include "base/Language.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/SqlFunctions.h"
#include "store/StoreError.h"
#include "support/Print.h"

namespace vorlina {

inline QByteArray BytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Makes a database by a script, with any application id and version that it sets.
inline void MakeDatabase(const QString& path, const QByteArray& script) {
  sqlite3* handle = nullptr;
  ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &handle), SQLITE_OK);
  RegisterSqlFunctions(handle);
  const QByteArray quick = "PRAGMA synchronous=OFF;" + script;
  EXPECT_EQ(sqlite3_exec(handle, quick.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(handle);
  sqlite3_close(handle);
}

inline QByteArray SchemaScript() { return BytesOf(QStringLiteral(VORLINA_SOURCE_DIR "/data/schema.sql")); }

// The fault that a step ends with; nothing when it passes.
template <class Step>
std::optional<StoreFault> FaultOf(Step&& step) {
  try {
    step();
    return {};
  } catch (const StoreError& error) {
    EXPECT_FALSE(error.Description().isEmpty());
    return error.Fault();
  }
}

class StoreFixture : public testing::Test {
 protected:
  StoreFixture() {
    SetLanguage(u"English"_qs);
    MakeDatabase(Path(), SchemaScript());
    connection.Open(ConnectionTextFor(Path()));
    connection.Execute(u"PRAGMA synchronous=OFF"_qs);
    connection.Execute(u"INSERT INTO Cataloghi (IDCatalogo, NomeCatalogo) VALUES (1, 'Uno')"_qs);
  }

  QString Path(const QString& name = u"Catalog.db"_qs) const { return folder.filePath(name); }

  void AddProduct(const QString& code, const QVariant& description = u"x"_qs, int catalog = 1) {
    connection.Execute(u"INSERT INTO Prodotti (IDCatalogo, CodiceProdotto, Descrizione) VALUES (?,?,?)"_qs,
                       {catalog, code, description});
  }

  QVariant Get(const QString& expression, const QString& table, const QString& where = {},
               const QVariantList& values = {}) {
    return GetValue(expression, table, connection, where, values);
  }

  QTemporaryDir folder;
  Connection connection;
};

}  // namespace vorlina
