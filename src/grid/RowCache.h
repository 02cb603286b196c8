// The few rows around what is on the screen, read in blocks. Whatever the size of the recordset, it holds no
// more than 512 rows.
#pragma once

#include <vector>

#include "store/Recordset.h"

namespace vorlina {

class RowCache {
 public:
  // The row at an index counted from 0, fetched where it is not there yet. Null where the recordset has no
  // such row or the database cannot be read, which is then not tried again until Clear. The answer holds
  // until the next call of any member.
  const FetchedRow* At(const Recordset& rows, qint64 index);
  // The row only if it is there.
  const FetchedRow* Held(qint64 index);
  // Whether it holds rows that could not be read.
  bool IsLacking() const;
  void Clear() { blocks_.clear(); }
  // Fetches the row anew where it is there, and leaves those around it.
  void Renew(const Recordset& rows, qint64 index);

 private:
  struct Block {
    qint64 number = 0;
    std::vector<FetchedRow> rows;
  };
  const FetchedRow* InFront(qint64 index) const;
  bool BringToFront(qint64 number);

  std::vector<Block> blocks_;  // the one used last first
};

}  // namespace vorlina
