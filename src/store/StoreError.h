// Failures of the database, told in words that a user understands.
#pragma once

#include <QLoggingCategory>

#include "base/Error.h"

struct sqlite3;

namespace vorlina {

Q_DECLARE_LOGGING_CATEGORY(StoreLog)

enum class StoreFault {
  Other,
  Missing,     // there is no such file
  Empty,       // a file of 0 bytes
  Foreign,     // a database of another program
  Newer,       // made by a later version of this program
  Corrupt,     // damaged, or no database at all
  Locked,      // another program holds it
  ReadOnly,    // the file or its folder cannot be written
  DiskFull,    // no room left, or the disk failed
  Duplicate,   // a row with that key exists already
  Constraint,  // another rule of the schema: a value that is missing, a reference to nothing
  Conflict,    // the row was changed or deleted by someone else since it was read
  RowDeleted,  // the current row is no longer there
  NoCurrentRow,
};

class StoreError : public Error {
 public:
  StoreError(StoreFault fault, const QString& description) : Error(description), fault_(fault) {}
  StoreFault Fault() const noexcept { return fault_; }

 private:
  StoreFault fault_;
};

// Throws the last failure of this handle as a StoreError.
[[noreturn]] void ThrowStoreError(sqlite3* handle);
// The same for a result code and SQLite's own message.
[[noreturn]] void ThrowStoreError(int code, const QString& message);

}  // namespace vorlina
