// A SELECT taken apart at its clauses, so that a recordset can ask for the keys of the rows, or for one row,
// with the statement's own columns and conditions.
#pragma once

#include <QString>
#include <optional>

namespace vorlina {

struct SelectParts {
  QString columns;  // the result list as written
  QString from;     // one table, with its alias
  QString table;    // its name, unquoted
  QString alias;    // the name by which the statement calls it, unquoted
  QString where;    // "" for none
  QString orderBy;  // "" for none
};

// Nothing for a statement whose rows are not those of one table one by one: a join, a subquery in the FROM
// clause, DISTINCT, GROUP BY, an aggregate, UNION, LIMIT, or a "?" among the columns. Such a statement is
// read as it stands.
std::optional<SelectParts> SplitSelect(const QString& sql);

}  // namespace vorlina
