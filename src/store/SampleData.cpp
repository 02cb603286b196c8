#include "store/SampleData.h"

#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {

void RebaseAllSampleData(Connection& connection, const QString& folder) {
  Transaction transaction(connection);
  for (const SamplePath& path : SamplePaths)
    connection.Execute(u"UPDATE %1 SET %2=? || MID(%2,LEN(?)+1) WHERE %2 LIKE ?"_qs.arg(
                           QString::fromUtf16(path.table), QString::fromUtf16(path.column)),
                       {folder, SampleDataRoot, QString(SampleDataRoot + u'%')});
  transaction.Commit();
}

}  // namespace vorlina
