// Verified copies of a database file.
#pragma once

#include <QString>

namespace vorlina {

class Connection;

// Copies the open database into a new file and reads the copy through with the full integrity check. The file
// must not exist; on a failure it is removed. Throws StoreError.
void CopyDatabase(Connection& connection, const QString& target);

}  // namespace vorlina
