// The values of one filter of a catalog as its user maintains them, and the filter's name: what they are
// shown by, and what belongs to a change of them. Every change is one transaction, or a part of the one that
// is open.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "grid/GridColumn.h"
#include "store/KeysetQuery.h"

namespace vorlina {

class Connection;

class FilterData {
 public:
  // A filter is 1 to 5.
  FilterData(int IDCatalogo, int filter, Connection& connection);

  // The rows of Filtri, and the columns of a grid over them: the value and whether it is published; the
  // others are hidden.
  KeysetQuery Query() const;
  std::vector<GridColumn> Columns() const;

  // A value as it is stored: on one line, without blanks around it.
  static QString Fitted(const QString& value);
  // The text of a value, and how many products of the catalog have one of some values. Throw Error.
  QString TextOf(qint64 IDValore) const;
  int ProductsWith(const std::vector<qint64>& values) const;

  // What is asked before values are deleted, or one gets another text, as products have them: "" where
  // nothing is to be asked, as for a text that will be refused. Throw Error.
  QString DeletionQuestion(const std::vector<qint64>& values) const;
  QString ChangeQuestion(qint64 IDValore, const QString& text) const;

  // Holds for a value whose row was written, in the same transaction; one that was added has no former
  // text. Throws Error for another text that no product can have: an empty one, one with a "|", or
  // (DuplicateError) that of another value in any letter case.
  void Saved(qint64 IDValore, const std::optional<QString>& former) const;
  // Deletes values; the products that have one of them have 0. Throws Error.
  void Delete(const std::vector<qint64>& values) const;

  // Gives the filter another name; both are as the user sees them. Throws ConflictError where it bears
  // another one than the former by now, or is none any more.
  void Rename(const QString& former, const QString& name) const;

 private:
  QString Field() const;
  bool IsTaken(const QString& text, qint64 exceptValue) const;

  int IDCatalogo_;
  int filter_;
  Connection& connection_;
};

}  // namespace vorlina
