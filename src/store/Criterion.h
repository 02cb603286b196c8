// The search criterion of a recordset: one column compared with one value.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

struct Criterion {
  QString condition;  // with a "?" for each value
  QVariantList values;
};

// Reads "Codice='A''1'", "[Cod\046 art] LIKE 'a%'" or "IDFiltro1 = 5". Throws StoreError for anything else.
Criterion ParseCriterion(const QString& text);

// The column equals the value, or is Null.
Criterion EqualTo(const QString& column, const QVariant& value);

}  // namespace vorlina
