// The columns of a grid, each with its place in the recordset that it shows.
#pragma once

#include <vector>

#include "grid/GridColumn.h"
#include "store/RecordsetFields.h"

namespace vorlina {

class BoundColumns {
 public:
  BoundColumns() = default;
  // Throws Error for a bound column that the recordset does not have.
  BoundColumns(std::vector<GridColumn> columns, const RecordsetFields& fields);

  int Count() const { return int(columns_.size()); }
  const GridColumn& At(int column) const { return columns_[std::size_t(column)]; }
  // Of the recordset; -1 for an unbound column, and for none.
  int FieldOf(int column) const;
  // -1 where there is none; any letter case.
  int IndexOf(const QString& key) const;
  // Key, kind and bound stay.
  void Describe(int column, const GridColumn& description);
  void SetDefaultValue(int column, const QVariant& value);

 private:
  std::vector<GridColumn> columns_;
  std::vector<int> fields_;
};

// What a cell of the column shows for a value: no more characters than fit on any screen.
QString ShownText(const GridColumn& column, const QVariant& value);

}  // namespace vorlina
