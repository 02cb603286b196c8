#include "store/GetValue.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "store/Connection.h"
#include "store/Sqlite.h"

namespace vorlina {

QVariant GetValue(const QString& expression, const QString& table, Connection& connection,
                  const QString& where, const QVariantList& values) {
  const QString clause = where.isEmpty() ? QString() : u" WHERE "_qs + where;
  try {
    Rows rows(connection, u"SELECT "_qs + expression + u" As Result FROM "_qs + table + u' ' + clause,
              values);
    return rows.Next() ? rows.Value(0) : NullValue();
  } catch (const std::exception& error) {
    qCDebug(StoreLog) << "GetValue" << expression << table << where << DescriptionOf(error);
    return {};
  }
}

}  // namespace vorlina
