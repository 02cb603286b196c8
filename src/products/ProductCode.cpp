#include "products/ProductCode.h"

#include <algorithm>

#include "store/Connection.h"
#include "store/RowErrors.h"

namespace vorlina {

bool IsCodeTaken(int IDCatalogo, const QString& code, qint64 exceptIDProdotto, Connection& connection) {
  const bool isAscii =
      std::all_of(code.begin(), code.end(), [](QChar letter) { return letter.unicode() < 0x80; });
  Rows others(
      connection,
      u"SELECT 1 FROM Prodotti WHERE IDCatalogo=? AND CodiceProdotto=? COLLATE %1 AND IDProdotto<>?"_qs.arg(
          isAscii ? u"NOCASE"_qs : u"VORLINA_TEXT"_qs),
      {IDCatalogo, code, exceptIDProdotto});
  return others.Next();
}

void RequireFreeCode(int IDCatalogo, const QString& code, qint64 IDProdotto, Connection& connection) {
  const bool beyondAscii =
      std::any_of(code.begin(), code.end(), [](QChar letter) { return letter.unicode() >= 0x80; });
  if (beyondAscii && IsCodeTaken(IDCatalogo, code, IDProdotto, connection))
    throw DuplicateError({u"Prodotti.IDCatalogo"_qs, u"Prodotti.CodiceProdotto"_qs});
}

}  // namespace vorlina
