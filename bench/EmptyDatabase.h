// An empty catalog database for a benchmark to fill. It is not brought to the disk while it is filled.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QFile>
#include <cstdlib>

namespace vorlina {

inline SQLite::Database EmptyDatabase(const QString& path) {
  QFile schema(QStringLiteral(VORLINA_SOURCE_DIR "/data/schema.sql"));
  if (!schema.open(QIODevice::ReadOnly)) std::abort();
  SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec("PRAGMA synchronous=OFF");
  database.exec(schema.readAll().toStdString());
  return database;
}

}  // namespace vorlina
