// Reading whole rows as a recordset keeps them.
#pragma once

#include "store/Query.h"
#include "store/RecordsetSource.h"

namespace vorlina {

// The first count columns of the query's current row, as stored.
inline Row ReadRow(const Query& query, std::size_t count) {
  Row row;
  row.reserve(count);
  for (std::size_t i = 0; i < count; ++i) row.push_back(query.StoredValue(int(i)));
  return row;
}

// Columns and identity of a keyed source's row; the key stands behind them.
inline std::size_t RowWidth(const RecordsetSource& source) {
  return source.Columns().size() + source.IdentityColumns().size();
}

}  // namespace vorlina
