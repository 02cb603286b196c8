// Fills a combo from the database: a column to show, a value column behind it, and columns that are there but
// not shown.
#pragma once

#include <QString>
#include <QVariant>
#include <vector>

class QComboBox;

namespace vorlina {

class Connection;
class Recordset;

// Opens the recordset anew, static and read-only, and makes its rows the list of the combo, whose popup has a
// column for each but the hidden ones (counted from 0). The combo's current data is then the value of the
// entry; no entry is chosen. An error leaves the combo as far as it came, without a message.
void LoadCombo(Recordset& rows, QComboBox& combo, const QString& sql, const QString& displayColumn,
               const QString& valueColumn, Connection& connection, const std::vector<int>& hiddenColumns,
               const QVariantList& values = {});

}  // namespace vorlina
