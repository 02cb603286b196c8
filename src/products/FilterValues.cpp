#include "products/FilterValues.h"

#include "base/Helpers.h"
#include "store/Connection.h"

namespace vorlina {

Lookup FilterValues(int IDCatalogo, int filter, Connection& connection) {
  std::vector<LookupItem> items;
  Rows rows(connection,
            u"SELECT IDValore,Valore FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? ORDER BY Valore"_qs,
            {IDCatalogo, filter});
  while (rows.Next()) items.push_back({rows.Value(0).toLongLong(), NullToEmpty(rows.Value(1))});
  return Lookup(std::move(items));
}

}  // namespace vorlina
