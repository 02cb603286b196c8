// The one-value query, used wherever a count, a maximum or a single column is wanted.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

class Connection;

// The value of the expression in the first row of the table that fits the condition, which may be empty and
// has a
// "?" for each value. NullValue() where no row fits; the empty QVariant() after any error: a lookup never
// stops a flow.
QVariant GetValue(const QString& expression, const QString& table, Connection& connection,
                  const QString& where, const QVariantList& values = {});

}  // namespace vorlina
