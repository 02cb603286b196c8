// A SELECT text cut into its clauses, so that a live recordset can ask for its keys and its rows apart; and
// the one place that quotes names for SQL.
#pragma once

#include <QString>
#include <optional>

namespace vorlina {

// A name in double quotes, for tables, columns and aliases.
QString QuoteName(const QString& name);

struct SelectStatement {
  QString list;   // between SELECT and FROM
  QString from;   // between FROM and WHERE
  QString where;  // the condition, empty for every row
  QString tail;   // from ORDER BY or LIMIT on, empty where there is none

  // The condition and one more.
  QString WhereAnd(const QString& condition) const;

  // Cuts a plain SELECT. Nothing for any other statement, and for one whose rows are no rows of a table:
  // DISTINCT, GROUP BY, UNION and the like.
  static std::optional<SelectStatement> Parse(const QString& sql);
};

}  // namespace vorlina
