#include "store/Query.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include "base/Helpers.h"
#include "base/Language.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

int BindValue(sqlite3_stmt* statement, int index, const QVariant& value) {
  if (value.isNull()) return sqlite3_bind_null(statement, index);
  switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::LongLong:
      return sqlite3_bind_int64(statement, index, value.toLongLong());
    case QMetaType::Double:
    case QMetaType::Float:
      return sqlite3_bind_double(statement, index, value.toDouble());
    case QMetaType::QByteArray: {
      const QByteArray bytes = value.toByteArray();
      return sqlite3_bind_blob64(statement, index, bytes.isNull() ? "" : bytes.constData(),
                                 sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT);
    }
    default: {
      const QByteArray text = value.toString().toUtf8();
      return sqlite3_bind_text64(statement, index, text.isNull() ? "" : text.constData(),
                                 sqlite3_uint64(text.size()), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
  }
}

}  // namespace

void BindValues(sqlite3_stmt* statement, const QVariantList& values, int first) {
  if (sqlite3_bind_parameter_count(statement) != first - 1 + int(values.size()))
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"Numero di valori diverso da quello dei parametri: %1"_qs,
                                    u"The number of values is not that of the parameters: %1"_qs)
                         .arg(QString::fromUtf8(sqlite3_sql(statement))));
  for (const QVariant& value : values)
    if (BindValue(statement, first++, value) != SQLITE_OK) ThrowStoreError(sqlite3_db_handle(statement));
}

void Query::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Query::Query(Connection& connection, const QString& sql, const QVariantList& values) {
  sqlite3* const handle = connection.Handle();
  connection.RequireTransactionAlive();
  database_ = connection.database_;
  const QByteArray text = sql.toUtf8();
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(handle, text.constData(), int(text.size()), &statement, nullptr) != SQLITE_OK)
    ThrowStoreError(handle);
  statement_.reset(statement);
  if (statement == nullptr)
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"Manca l'istruzione SQL"_qs, u"The SQL statement is missing"_qs));
  BindValues(statement, values);
}

void Query::Restart(const QVariantList& values) {
  onRow_ = false;
  sqlite3_reset(statement_.get());
  BindValues(statement_.get(), values);
}

bool Query::Next() {
  const int result = sqlite3_step(statement_.get());
  onRow_ = result == SQLITE_ROW;
  if (onRow_) return true;
  if (result != SQLITE_DONE) {
    // Resetting gives the lock back; the message is taken before.
    const QString message = QString::fromUtf8(sqlite3_errmsg(database_->getHandle()));
    const int code = sqlite3_extended_errcode(database_->getHandle());
    sqlite3_reset(statement_.get());
    ThrowStoreError(code, message);
  }
  sqlite3_reset(statement_.get());
  return false;
}

int Query::ColumnCount() const { return sqlite3_column_count(statement_.get()); }

QString Query::ColumnName(int column) const {
  return QString::fromUtf8(sqlite3_column_name(statement_.get(), column));
}

int Query::ColumnIndex(const QString& name) const {
  for (int i = 0; i < ColumnCount(); ++i)
    if (ColumnName(i).compare(name, Qt::CaseInsensitive) == 0) return i;
  return -1;
}

void Query::RequireColumn(int column) const {
  if (!onRow_)
    throw StoreError(StoreFault::NoCurrentRow,
                     EitherLanguage(u"Nessuna riga corrente"_qs, u"There is no current row"_qs));
  if (column < 0 || column >= ColumnCount())
    throw StoreError(StoreFault::Other,
                     EitherLanguage(u"La colonna richiesta non esiste"_qs, u"There is no such column"_qs));
}

bool Query::IsBoolean(int column) const {
  const char* declared = sqlite3_column_decltype(statement_.get(), column);
  return declared != nullptr && sqlite3_stricmp(declared, "BOOLEAN") == 0;
}

QVariant Query::StoredValue(int column) const {
  RequireColumn(column);
  sqlite3_stmt* const statement = statement_.get();
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return NullValue();
    case SQLITE_INTEGER:
      return qlonglong(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
      return QByteArray(bytes, sqlite3_column_bytes(statement, column));
    }
    default:
      return Text(column);
  }
}

QVariant Query::Value(int column) const {
  const QVariant value = StoredValue(column);
  return !value.isNull() && IsBoolean(column) ? QVariant(value.toDouble() != 0) : value;
}

QVariant Query::Value(const QString& name) const { return Value(ColumnIndex(name)); }

qint64 Query::Integer(int column) const {
  RequireColumn(column);
  return sqlite3_column_int64(statement_.get(), column);
}

QString Query::Text(int column) const {
  RequireColumn(column);
  const void* text = sqlite3_column_text(statement_.get(), column);
  return QString::fromUtf8(static_cast<const char*>(text), sqlite3_column_bytes(statement_.get(), column));
}

}  // namespace vorlina
