#include "store/Sqlite.h"

#include <sqlite3.h>

#include <cstring>

#include "base/AppPath.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "store/RowErrors.h"

namespace vorlina {

Q_LOGGING_CATEGORY(StoreLog, "vorlina.store", QtInfoMsg)

namespace {

// The columns of "UNIQUE constraint failed: Prodotti.IDCatalogo, Prodotti.CodiceProdotto".
QString ColumnsIn(const SQLite::Exception& failure) {
  const QString message = QString::fromUtf8(failure.what());
  return message.mid(message.indexOf(u": ") + 2);
}

bool IsDuplicate(const SQLite::Exception& failure) {
  const int code = failure.getExtendedErrorCode();
  return code == SQLITE_CONSTRAINT_UNIQUE || code == SQLITE_CONSTRAINT_PRIMARYKEY ||
         code == SQLITE_CONSTRAINT_ROWID;
}

// SQLite tells a page that the disk did not give as damage. What the system said last knows better.
bool IsUnread(int code) { return code == SQLITE_CORRUPT && (errno == EIO || errno == ENXIO); }

// Some calls give the extended code in place of the plain one.
int PlainCode(const SQLite::Exception& failure) {
  constexpr int PlainBits = 0xFF;
  const int code = failure.getErrorCode() & PlainBits;
  return IsUnread(code) ? SQLITE_IOERR : code;
}

// What a user may have of the disk being used up, or a limit on the size of files, comes as an I/O error.
bool IsDiskFull(const SQLite::Exception& failure) {
  const int code = PlainCode(failure);
  return code == SQLITE_FULL || ((code == SQLITE_IOERR || code == SQLITE_CANTOPEN) && MeansFullDisk(errno));
}

QString ConstraintText(const SQLite::Exception& failure) {
  const QString columns = ColumnsIn(failure);
  switch (failure.getExtendedErrorCode()) {
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return Texts::tr("La riga fa riferimento a un catalogo o a un prodotto che non esiste più.");
    case SQLITE_CONSTRAINT_COMMITHOOK:
      return Texts::tr("Si è scritto senza iniziare una transazione: nulla è stato salvato.");
    case SQLITE_CONSTRAINT_NOTNULL:
      return Texts::tr("Manca un valore obbligatorio (%1).").arg(columns);
    default:
      return QString::fromUtf8(failure.what());
  }
}

QString FailureText(const SQLite::Exception& failure) {
  switch (PlainCode(failure)) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Texts::tr("Il database è in uso da un altro programma. Chiuderlo e riprovare.");
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return Texts::tr(
          "Il database è di sola lettura. Controllare i permessi del file e della sua cartella.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return Texts::tr("Il database è danneggiato. Ripristinare una copia di sicurezza.");
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
      return Texts::tr(
                 "Il file del database non può essere letto o scritto (%1). Controllare il disco, o il "
                 "collegamento con esso, e riprovare: i dati possono essere integri.")
          .arg(QString::fromUtf8(IsUnread(failure.getErrorCode()) ? sqlite3_errstr(SQLITE_IOERR)
                                                                  : failure.what()));
    case SQLITE_CONSTRAINT:
      return ConstraintText(failure);
    default:
      return Texts::tr("Il database non può eseguire l'operazione (%1).")
          .arg(QString::fromUtf8(failure.what()));
  }
}

}  // namespace

bool MeansDamage(const SQLite::Exception& failure) {
  const int code = PlainCode(failure);
  return code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
}

void ThrowStoreError(const SQLite::Exception& failure) {
  if (IsDiskFull(failure)) throw DiskFullError(AppPath(), errno);
  if (IsDuplicate(failure)) throw DuplicateError(ColumnsIn(failure).split(u", "_qs));
  const int code = PlainCode(failure);
  if (code == SQLITE_BUSY || code == SQLITE_LOCKED) throw LockedError(FailureText(failure));
  throw Error(FailureText(failure));
}

SQLite::Statement Prepare(SQLite::Database& database, const QString& sql) {
  SQLite::Statement statement(database, sql.toUtf8().toStdString());
  // There is nothing to bind to, nor to run, in a text of comments alone.
  try {
    statement.clearBindings();
  } catch (const SQLite::Exception&) {
    throw Error(Texts::tr("L'istruzione per il database è vuota, o contiene solo commenti."));
  }
  return statement;
}

void BindValues(SQLite::Statement& statement, const QVariantList& values, int first) {
  for (const QVariant& value : values) {
    const int index = first++;
    if (value.isNull()) {
      statement.bind(index);
      continue;
    }
    switch (value.typeId()) {
      case QMetaType::Bool:
        statement.bind(index, value.toBool() ? 1 : 0);
        break;
      case QMetaType::Int:
      case QMetaType::UInt:
      case QMetaType::LongLong:
      case QMetaType::ULongLong:
        statement.bind(index, static_cast<int64_t>(value.toLongLong()));
        break;
      case QMetaType::Double:
      case QMetaType::Float:
        statement.bind(index, value.toDouble());
        break;
      case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        statement.bind(index, bytes.constData(), int(bytes.size()));
        break;
      }
      default:
        statement.bind(index, value.toString().toStdString());
        break;
    }
  }
}

bool IsBooleanColumn(const SQLite::Statement& statement, int column) {
  try {
    return sqlite3_stricmp(statement.getColumnDeclaredType(column), "BOOLEAN") == 0;
  } catch (const SQLite::Exception&) {
    return false;  // an expression has no declared type
  }
}

QVariant ColumnValue(const SQLite::Statement& statement, int index, bool boolean) {
  const SQLite::Column column = statement.getColumn(index);
  switch (column.getType()) {
    case SQLITE_NULL:
      return NullValue();
    case SQLITE_INTEGER:
      if (boolean) return column.getInt() != 0;
      return qlonglong(column.getInt64());
    case SQLITE_FLOAT:
      return column.getDouble();
    case SQLITE_BLOB:
      return QByteArray(static_cast<const char*>(column.getBlob()), column.getBytes());
    default: {
      const char* text = column.getText();
      return QString::fromUtf8(text, column.getBytes());
    }
  }
}

}  // namespace vorlina
