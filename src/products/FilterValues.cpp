#include "products/FilterValues.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "products/CellRules.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {

Lookup FilterValues(int IDCatalogo, int filter, Connection& connection) {
  std::vector<LookupItem> items;
  Rows rows(connection,
            u"SELECT IDValore,Valore FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? ORDER BY Valore"_qs,
            {IDCatalogo, filter});
  while (rows.Next()) items.push_back({rows.Value(0).toLongLong(), NullToEmpty(rows.Value(1))});
  return Lookup(std::move(items));
}

void AddFilterValue(int IDCatalogo, int filter, const QString& value, Connection& connection) {
  const QString name = value.trimmed();
  const QStringList refusals = CheckCell({}, name, true).refusals;
  if (!refusals.isEmpty()) throw Error(refusals.first());
  Transaction transaction(connection, {"Nuovo valore %1 di un filtro", {name}});
  connection.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,?,?)"_qs,
                     {IDCatalogo, filter, name});
  transaction.Commit();
}

}  // namespace vorlina
