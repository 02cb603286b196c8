#include "products/FilterValues.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
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

void RequireFilter(int IDCatalogo, int filter, Connection& connection) {
  Rows rows(connection, u"SELECT 1 FROM Cataloghi WHERE IDCatalogo=? AND NomeFiltro%1<>''"_qs.arg(filter),
            {IDCatalogo});
  if (!rows.Next())
    throw Error(
        Texts::tr("Il filtro è stato eliminato nel frattempo da un'altra finestra o da un altro programma."));
}

void RequireFilterValue(int IDCatalogo, int filter, qint64 IDValore, const QString& name,
                        Connection& connection) {
  if (IDValore == 0) return;
  RequireFilter(IDCatalogo, filter, connection);
  if (FilterText(IDCatalogo, filter, IDValore, connection).isEmpty())
    throw Error(Texts::tr("Il valore scelto per \"%1\" è stato eliminato nel frattempo. Sceglierne un altro.")
                    .arg(name));
}

}  // namespace vorlina
