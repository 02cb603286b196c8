#include "store/RecordsetFields.h"

#include <sqlite3.h>

#include <cmath>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/RowErrors.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

bool IsNumeric(const char* declared) {
  for (const char* type : {"BOOLEAN", "INTEGER", "NUMERIC", "REAL"})
    if (sqlite3_stricmp(declared, type) == 0) return true;
  return false;
}

// The table column behind a column; what is said of it stays as it is for an expression.
void Describe(Field& field, const QString& table, const char* column, SQLite::Database& database) {
  const char* declared = nullptr;
  int counter = 0;
  if (column == nullptr ||
      sqlite3_table_column_metadata(database.getHandle(), "main", table.toUtf8().constData(), column,
                                    &declared, nullptr, nullptr, nullptr, &counter) != SQLITE_OK)
    return;
  field.table = table;
  field.column = QString::fromUtf8(column);
  field.boolean = sqlite3_stricmp(declared, "BOOLEAN") == 0;
  field.numeric = IsNumeric(declared);
  field.counter = counter != 0;
}

}  // namespace

void RecordsetFields::Read(const SQLite::Statement& statement, int first, const QString& table,
                           SQLite::Database& database) {
  fields_.clear();
  positions_.clear();
  for (int i = first; i < statement.getColumnCount(); ++i) {
    Field field;
    field.name = QString::fromUtf8(statement.getColumnName(i));
    Describe(field, table, statement.getColumnOriginName(i), database);
    const QString folded = field.name.toCaseFolded();
    if (!positions_.contains(folded)) positions_.insert(folded, Count());
    fields_.push_back(std::move(field));
  }
}

int RecordsetFields::IndexOf(const QString& name) const {
  const auto found = positions_.constFind(name.toCaseFolded());
  if (found == positions_.constEnd()) throw Error(Texts::tr("La colonna %1 non esiste").arg(name));
  return *found;
}

QVariant RecordsetFields::Fitted(int index, const QVariant& value) const {
  const Field& field = At(index);
  if (!field.numeric || value.isNull() || value.typeId() != QMetaType::QString) return value;
  const QString text = value.toString().trimmed();
  bool isNumber = false;
  const qlonglong integer = text.toLongLong(&isNumber);
  if (isNumber) return integer;
  const double number = text.toDouble(&isNumber);
  // "inf" and "nan" are numbers to the conversion.
  if (isNumber && std::isfinite(number)) return number;
  throw NoNumberError(value.toString(), field.name);
}

}  // namespace vorlina
