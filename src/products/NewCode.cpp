#include "products/NewCode.h"

#include "store/Connection.h"

namespace vorlina {

QString NuovoCodice(int IDCatalogo, Connection& connection, qint64 above) {
  Rows rows(connection,
            u"WITH RECURSIVE Candidate(n) AS ("
            "SELECT MAX(COUNT(*),?2)+1 FROM Prodotti WHERE IDCatalogo=?1 "
            "UNION ALL SELECT n+1 FROM Candidate WHERE EXISTS "
            "(SELECT 1 FROM Prodotti WHERE IDCatalogo=?1 AND CodiceProdotto=CAST(n AS TEXT))) "
            "SELECT MAX(n) FROM Candidate"_qs,
            {IDCatalogo, above});
  rows.Next();
  return rows.Value(0).toString();
}

}  // namespace vorlina
