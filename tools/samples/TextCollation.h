// The collation of the text keys, for the programs that make and read the delivered database.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QString>

#include "base/Error.h"

namespace vorlina {

// Makes VORLINA_TEXT known to the connection: texts compare without regard to letter case, in every script.
inline void RegisterTextCollation(SQLite::Database& database) {
  const auto compare = [](void*, int leftSize, const void* left, int rightSize, const void* right) {
    return QString::fromUtf8(static_cast<const char*>(left), leftSize)
        .compare(QString::fromUtf8(static_cast<const char*>(right), rightSize), Qt::CaseInsensitive);
  };
  if (sqlite3_create_collation(database.getHandle(), "VORLINA_TEXT", SQLITE_UTF8, nullptr, compare) !=
      SQLITE_OK)
    throw Error(QString::fromUtf8(database.getErrorMsg()));
}

}  // namespace vorlina
