// What the product grid accepts in a cell.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

namespace vorlina {

// The key of the grid's code column, in either language.
inline const QString CodeColumn = QStringLiteral("Codice");

struct CellVerdict {
  QStringList refusals;  // messages, one box each; the value is refused when there is any
  QVariant value;        // what the cell is to hold
};

// Checks a value that was typed into a cell. A code must be there and fit into a file name, and has no blanks
// around it; no value holds "|", which refuses a code twice over, and an emptied filter is 0.
CellVerdict CheckCell(const QString& key, const QVariant& value, bool isFilter);

}  // namespace vorlina
