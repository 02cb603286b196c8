#include "store/RowWriter.h"

#include <sqlite3.h>

#include "base/Language.h"
#include "store/Connection.h"
#include "store/Quoting.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

[[noreturn]] void ThrowConflict() {
  throw StoreError(
      StoreFault::Conflict,
      EitherLanguage(u"La riga è stata modificata o eliminata da qualcun altro: la modifica non è stata"
                     u" salvata"_qs,
                     u"The row was changed or deleted by someone else: the change was not saved"_qs));
}

// Compared byte by byte: a change of case alone is a change.
QString IsAsBefore(const QString& column) {
  return u" AND "_qs + QuotedName(column) + u" COLLATE BINARY IS ?"_qs;
}

// " WHERE rowid=? AND ..." on the identity, with its values.
QString KeyCondition(const RecordsetSource& source, qint64 key, const Row& before, QVariantList& values) {
  QString text = u" WHERE rowid=?"_qs;
  values += qlonglong(key);
  for (std::size_t i = 0; i < source.IdentityColumns().size(); ++i) {
    text += IsAsBefore(source.IdentityColumns()[i]);
    values += before[source.Columns().size() + i];
  }
  return text;
}

// A duplicate key, told with the values that are not to be had twice.
template <class Write>
void TellingDuplicates(const RecordsetSource& source, const Row& row, const std::vector<bool>& marked,
                       Write&& write) {
  try {
    write();
  } catch (const StoreError& error) {
    if (error.Fault() != StoreFault::Duplicate) throw;
    QStringList texts;
    for (std::size_t i = 0; i < marked.size(); ++i)
      if (marked[i] && row[i].typeId() == QMetaType::QString &&
          source.Columns()[i].collation.compare(u"BINARY"_qs, Qt::CaseInsensitive) != 0)
        texts += u'"' + row[i].toString() + u'"';
    if (texts.isEmpty()) throw;
    throw StoreError(error.Fault(), error.Description() + u": "_qs + texts.join(u", "_qs));
  }
}

void ExecuteOnOneRow(Connection& connection, const QString& sql, const QVariantList& values) {
  connection.Execute(sql, values);
  if (connection.Changes() == 0) ThrowConflict();
}

}  // namespace

QVariant FittedValue(const RecordsetColumn& column, const QVariant& value) {
  if (column.baseColumn.isEmpty())
    throw StoreError(StoreFault::Other, EitherLanguage(u"La colonna %1 è calcolata: non si può modificare"_qs,
                                                       u"The column %1 is computed: it cannot be changed"_qs)
                                            .arg(column.name));
  if (value.isNull()) return QVariant::fromValue(nullptr);
  const bool isText = value.typeId() == QMetaType::QString;
  if (!column.isNumeric) return value.typeId() == QMetaType::QByteArray ? value : QVariant(value.toString());
  bool isNumber = !isText;
  if (isText) value.toString().trimmed().toDouble(&isNumber);
  if (!isNumber || !value.canConvert<double>())
    throw StoreError(StoreFault::Constraint, EitherLanguage(u"\"%1\" non è un numero adatto a %2"_qs,
                                                            u"\"%1\" is no number fit for %2"_qs)
                                                 .arg(value.toString(), column.name));
  const double number = isText ? value.toString().trimmed().toDouble() : value.toDouble();
  if (column.isBoolean) return qlonglong(number != 0);
  bool isInteger = false;
  const qlonglong integer = (isText ? QVariant(value.toString().trimmed()) : value).toLongLong(&isInteger);
  return isInteger && double(integer) == number ? QVariant(integer) : QVariant(number);
}

bool IsSameValue(const QVariant& a, const QVariant& b) {
  if (a.isNull() || b.isNull()) return a.isNull() && b.isNull();
  return a.typeId() == b.typeId() && a == b;
}

qint64 InsertRow(const RecordsetSource& source, const Row& row, const std::vector<bool>& marked) {
  QStringList names;
  QStringList parameters;
  QVariantList values;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    const QString name = QuotedName(source.Columns()[i].baseColumn);
    if (!marked[i] || names.contains(name, Qt::CaseInsensitive)) continue;
    names += name;
    parameters += u"?"_qs;
    values += row[i];
  }
  const QString content = names.isEmpty()
                              ? u" DEFAULT VALUES"_qs
                              : u" ("_qs + names.join(u',') + u") VALUES ("_qs + parameters.join(u',') + u')';
  Connection& connection = source.Owner();
  TellingDuplicates(source, row, marked, [&] {
    connection.Execute(u"INSERT INTO "_qs + QuotedName(source.Table()) + content, values);
  });
  return sqlite3_last_insert_rowid(connection.Handle());
}

qint64 UpdateRow(const RecordsetSource& source, qint64 key, const Row& before, const Row& after,
                 const std::vector<bool>& marked) {
  QStringList assignments;
  QVariantList values;
  QVariantList oldValues;
  QString unchanged;
  qint64 newKey = key;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    if (!marked[i]) continue;
    const QString& column = source.Columns()[i].baseColumn;
    assignments += QuotedName(column) + u"=?"_qs;
    values += after[i];
    unchanged += IsAsBefore(column);
    oldValues += before[i];
    if (column.compare(source.KeyColumn(), Qt::CaseInsensitive) == 0) newKey = after[i].toLongLong();
  }
  if (assignments.isEmpty()) return key;
  const QString condition = KeyCondition(source, key, before, values);
  TellingDuplicates(source, after, marked, [&] {
    ExecuteOnOneRow(source.Owner(),
                    u"UPDATE "_qs + QuotedName(source.Table()) + u" SET "_qs + assignments.join(u", "_qs) +
                        condition + unchanged,
                    values + oldValues);
  });
  return newKey;
}

void DeleteRow(const RecordsetSource& source, qint64 key, const Row& before) {
  QVariantList values;
  const QString condition = KeyCondition(source, key, before, values);
  ExecuteOnOneRow(source.Owner(), u"DELETE FROM "_qs + QuotedName(source.Table()) + condition, values);
}

}  // namespace vorlina
