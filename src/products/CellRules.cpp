#include "products/CellRules.h"

#include "base/Helpers.h"
#include "base/Texts.h"

namespace vorlina {

CellVerdict CheckCell(const QString& key, const QVariant& value, bool isFilter) {
  CellVerdict verdict{{}, value};
  QString text = NullToEmpty(value);
  if (key.compare(CodeColumn, Qt::CaseInsensitive) == 0) {
    // A code becomes a file name; a line break that came with a pasted text is not seen in the cell.
    text = OneLine(text).trimmed();
    if (!value.isNull()) verdict.value = text;
    if (text.isEmpty()) verdict.refusals += Texts::tr("Specificare un valore per il codice del prodotto");
    if (!IsValidFileName(text))
      verdict.refusals +=
          Texts::tr(R"(I caratteri \ / : * " ? < > | non sono consentiti nel codice del prodotto)");
  }
  if (text.contains(u'|')) verdict.refusals += Texts::tr("Il carattere | non è consentito");
  if (isFilter && text.isEmpty()) verdict.value = 0;
  return verdict;
}

}  // namespace vorlina
