#include "store/RecordsetFields.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>

#include "base/Error.h"
#include "base/Language.h"
#include "store/RowErrors.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

bool IsNumeric(const char* declared) {
  for (const char* type : {"BOOLEAN", "INTEGER", "NUMERIC", "REAL"})
    if (sqlite3_stricmp(declared, type) == 0) return true;
  return false;
}

}  // namespace

void RecordsetFields::Read(SQLite::Database& database, const QString& sql) {
  fields_.clear();
  positions_.clear();
  sqlite3_stmt* prepared = nullptr;
  const int result =
      sqlite3_prepare_v2(database.getHandle(), sql.toUtf8().constData(), -1, &prepared, nullptr);
  if (result != SQLITE_OK) throw SQLite::Exception(database.getHandle(), result);
  for (int i = 0; i < sqlite3_column_count(prepared); ++i) {
    Field field;
    field.name = QString::fromUtf8(sqlite3_column_name(prepared, i));
    field.table = QString::fromUtf8(sqlite3_column_table_name(prepared, i));
    field.column = QString::fromUtf8(sqlite3_column_origin_name(prepared, i));
    field.boolean = sqlite3_stricmp(sqlite3_column_decltype(prepared, i), "BOOLEAN") == 0;
    field.numeric = IsNumeric(sqlite3_column_decltype(prepared, i));
    const QString folded = field.name.toCaseFolded();
    if (!positions_.contains(folded)) positions_.insert(folded, i);
    fields_.push_back(std::move(field));
  }
  sqlite3_finalize(prepared);
}

int RecordsetFields::IndexOf(const QString& name) const {
  const auto found = positions_.constFind(name.toCaseFolded());
  if (found == positions_.constEnd())
    throw Error(EitherLanguage(u"La colonna %1 non esiste"_qs, u"There is no column %1"_qs).arg(name));
  return *found;
}

int RecordsetFields::IndexOfColumn(const QString& column) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](const Field& field) { return field.column == column; });
  return column.isEmpty() || found == fields_.end() ? -1 : int(found - fields_.begin());
}

QStringList RecordsetFields::Names() const {
  QStringList names;
  for (const Field& field : fields_) names += field.name;
  return names;
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

QString RecordsetFields::Table() const {
  QString table;
  for (const Field& field : fields_) {
    if (field.table.isEmpty()) continue;
    if (!table.isEmpty() && table != field.table) return {};
    table = field.table;
  }
  return table;
}

}  // namespace vorlina
