// What the store's own files share of SQLite: values in and out, and its failures as Errors. Not for use
// outside.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QLoggingCategory>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <cerrno>

#include "store/LockPatience.h"

namespace vorlina {

Q_DECLARE_LOGGING_CATEGORY(StoreLog)

// Turns a failure of SQLite into an Error that says what to do, in the user's language.
[[noreturn]] void ThrowStoreError(const SQLite::Exception& failure);

// Whether the file is damaged, and not merely unread. To be asked as soon as the step has failed.
bool MeansDamage(const SQLite::Exception& failure);

// Runs a step on SQLite and turns its failure into an Error.
template <class Step>
auto WithStoreErrors(Step&& step) {
  const LockPatience patience;
  errno = 0;  // whose value tells a full disk from a broken one, and that from damage
  try {
    return step();
  } catch (const SQLite::Exception& failure) {
    ThrowStoreError(failure);
  }
}

// A prepared statement. Throws SQLite::Exception, and Error for a text that is no statement.
SQLite::Statement Prepare(SQLite::Database& database, const QString& sql);

// Binds the values from the given parameter on, counted from 1.
void BindValues(SQLite::Statement& statement, const QVariantList& values, int first = 1);

// A statement that is left standing on a row would hold a lock.
struct ResetAtEnd {
  SQLite::Statement& statement;
  ~ResetAtEnd() { statement.tryReset(); }
};

// A column of the current row; NullValue() for Null.
QVariant ColumnValue(const SQLite::Statement& statement, int column, bool boolean);

// Whether a column's declared type is BOOLEAN. To be asked once a statement, not once a row.
bool IsBooleanColumn(const SQLite::Statement& statement, int column);

// Registers the collations and functions on a new connection.
void RegisterSqlExtensions(SQLite::Database& database);

}  // namespace vorlina
