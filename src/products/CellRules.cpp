#include "products/CellRules.h"

#include "base/Helpers.h"
#include "base/Language.h"

namespace vorlina {

CellVerdict CheckCell(const QString& key, const QVariant& value, bool isFilter) {
  CellVerdict verdict{{}, value};
  QString text = NullToEmpty(value);
  if (key.compare(CodeColumn, Qt::CaseInsensitive) == 0) {
    // A code becomes a file name; a line break that came with a pasted text is not seen in the cell.
    text = OneLine(text).trimmed();
    if (!value.isNull()) verdict.value = text;
    if (text.isEmpty())
      verdict.refusals += ByLanguage(u"Specificare un valore per il codice del prodotto"_qs,
                                     u"Insert a value for the product code"_qs);
    if (!IsValidFileName(text))
      verdict.refusals +=
          ByLanguage(uR"(I caratteri \ / : * " ? < > | non sono consentiti nel codice del prodotto)"_qs,
                     uR"(\ / : * " ? < > | are invalid character in product code)"_qs);
  }
  if (text.contains(u'|'))
    verdict.refusals += ByLanguage(u"Il carattere | non è consentito"_qs, u"| is an invalid character"_qs);
  if (isFilter && text.isEmpty()) verdict.value = 0;
  return verdict;
}

}  // namespace vorlina
