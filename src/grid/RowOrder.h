// What the rows of a grid are sorted by: one of its columns, or nothing.
#pragma once

#include <QString>

#include "grid/BoundColumns.h"
#include "store/Recordset.h"

namespace vorlina {

enum class SortDirection { None, Ascending, Descending };

class RowOrder {
 public:
  SortDirection Direction() const { return direction_; }
  // -1 where nothing sorts.
  int ColumnIn(const BoundColumns& columns) const;

  // Reads the recordset's keys anew by a bound column, or with SortDirection::None in its own order. Texts
  // and drop-downs sort by the user's locale. Throws Error, and nothing is sorted anew then.
  void Sort(Recordset& recordset, const BoundColumns& columns, int column, SortDirection direction);
  // The same order once more, as the columns or what they offer are others. A column that is not there any
  // more sorts no longer. Throws Error.
  void Renew(Recordset& recordset, const BoundColumns& columns);

 private:
  QString key_;
  SortDirection direction_ = SortDirection::None;
};

}  // namespace vorlina
