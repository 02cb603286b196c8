// A combo box over a query: one column is displayed, another is the value, the rest can be seen in the
// drop-down.
#pragma once

#include <QComboBox>
#include <QList>
#include <QString>

#include "store/Recordset.h"

namespace vorlina {

// The role under which a row's value column is kept: currentData() gives it.
inline constexpr int ComboValueRole = Qt::UserRole;

// Opens the recordset anew, static and read-only, with the SQL text ("?" for each value) and fills the combo
// from it: every column in the drop-down but the hidden ones, counted from 0. A failure leaves the combo as
// far as it came and is not told.
void LoadCombo(Recordset& recordset, QComboBox& combo, const QString& sql, const QString& displayColumn,
               const QString& valueColumn, Connection& connection, const QList<int>& hiddenColumns,
               const QVariantList& values = {});

}  // namespace vorlina
