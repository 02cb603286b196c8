#include "store/SampleData.h"

#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {

void RebaseSampleData(Connection& connection, const SamplePath& path, const QString& folder) {
  const QString column = QString::fromUtf16(path.column);
  connection.Execute(u"UPDATE %1 SET %2=? || MID(%2,LEN(?)+1) WHERE %2 LIKE ?"_qs.arg(
                         QString::fromUtf16(path.table), column),
                     {folder, SampleDataRoot, QString(SampleDataRoot + u'%')});
}

void RebaseAllSampleData(Connection& connection, const QString& folder) {
  Transaction transaction(connection);
  for (const SamplePath& path : SamplePaths) RebaseSampleData(connection, path, folder);
  transaction.Commit();
}

bool HasSampleRoot(Connection& connection) {
  return GetValue(u"COUNT(*)"_qs, u"Cataloghi"_qs, connection, u"Logo LIKE ?"_qs,
                  {QString(SampleDataRoot + u'%')})
             .toInt() > 0;
}

}  // namespace vorlina
