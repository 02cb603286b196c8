#include "products/FilterValues.h"

#include "base/Helpers.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

std::vector<LookupItem> Read(int IDCatalogo, int filter, const QString& order, Connection& connection) {
  std::vector<LookupItem> items;
  Rows rows(connection,
            u"SELECT IDValore,Valore FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? ORDER BY "_qs + order,
            {IDCatalogo, filter});
  while (rows.Next()) items.push_back({rows.Value(0).toLongLong(), NullToEmpty(rows.Value(1))});
  return items;
}

}  // namespace

Lookup FilterValues(int IDCatalogo, int filter, Connection& connection) {
  return Lookup(Read(IDCatalogo, filter, u"Valore"_qs, connection));
}

std::vector<LookupItem> FilterItems(int IDCatalogo, int filter, Connection& connection) {
  return Read(IDCatalogo, filter, u"IDValore"_qs, connection);
}

QString FilterText(int IDCatalogo, int filter, qint64 IDValore, Connection& connection) {
  Rows rows(connection, u"SELECT Valore FROM Filtri WHERE IDValore=? AND IDCatalogo=? AND IDNomeFiltro=?"_qs,
            {IDValore, IDCatalogo, filter});
  return rows.Next() ? NullToEmpty(rows.Value(0)) : QString();
}

}  // namespace vorlina
