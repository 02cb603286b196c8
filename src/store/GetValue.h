// The one-value query that lookups throughout the program are made with.
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>

namespace vorlina {

class Connection;

// The value of an expression in the first row of a table that fits the where-clause ("" for every row; "?"
// stands for each value): NullValue() when no row fits or the value is Null. A lookup never stops a flow: any
// failure gives the empty QVariant(), which behaves as 0 or "", and a line in the log.
QVariant GetValue(const QString& expression, const QString& table, Connection& connection,
                  const QString& where, const QVariantList& values = {});

}  // namespace vorlina
