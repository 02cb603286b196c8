// A combo box over a query: one column is displayed, another is the value, the rest can be seen in the
// drop-down.
#pragma once

#include <QComboBox>
#include <QList>
#include <QString>

#include "store/Connection.h"

namespace vorlina {

// The role under which a row's value column is kept: currentData() gives it.
inline constexpr int ComboValueRole = Qt::UserRole;

// Fills the combo with the rows of the SQL text ("?" for each value): every column in the drop-down but the
// hidden ones, counted from 0. A failure leaves the combo as it was and is not told.
void LoadCombo(QComboBox& combo, const QString& sql, const QString& displayColumn, const QString& valueColumn,
               Connection& connection, const QList<int>& hiddenColumns, const QVariantList& values = {});

}  // namespace vorlina
