#include "store/GetValue.h"

#include "base/Helpers.h"
#include "store/Query.h"
#include "store/StoreError.h"

namespace vorlina {

QVariant GetValue(const QString& expression, const QString& table, Connection& connection,
                  const QString& where, const QVariantList& values) {
  try {
    const QString clause = where.isEmpty() ? QString() : u" WHERE "_qs + where;
    Query query(connection, u"SELECT "_qs + expression + u" As Result FROM "_qs + table + u" "_qs + clause,
                values);
    return query.Next() ? query.Value(u"Result"_qs) : NullValue();
  } catch (const std::exception& error) {
    qCDebug(StoreLog) << "GetValue:" << error.what();
    return {};
  }
}

}  // namespace vorlina
