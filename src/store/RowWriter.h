// Writing one row of a keyed source: optimistic, so that nobody's change is overwritten unseen.
#pragma once

#include "store/RecordsetSource.h"

namespace vorlina {

// Fits a value to a field: numbers as 64-bit integers, a bool or BOOLEAN as 0 or 1. Throws StoreError for a
// field that shows no base column, and for a text that is no number where the column holds numbers.
QVariant FittedValue(const RecordsetColumn& column, const QVariant& value);

// Same kind and same content; Null equals Null.
bool IsSameValue(const QVariant& a, const QVariant& b);

// Adds a row with the fields that are marked; gives its key.
qint64 InsertRow(const RecordsetSource& source, const Row& row, const std::vector<bool>& marked);

// Writes the marked fields of the row with this key, if they and its identity are still as in before. Gives
// the row's key, a new one where the key itself was changed. Throws StoreError Conflict.
qint64 UpdateRow(const RecordsetSource& source, qint64 key, const Row& before, const Row& after,
                 const std::vector<bool>& marked);

// Deletes the row if its identity is still as in before. Throws StoreError Conflict.
void DeleteRow(const RecordsetSource& source, qint64 key, const Row& before);

}  // namespace vorlina
