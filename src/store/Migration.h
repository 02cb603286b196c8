// Bringing an older database to this program's tables.
#pragma once

#include "store/CatalogDatabase.h"

namespace vorlina {

// Copies the file beside itself, verifies the copy and runs the scripts behind version in one transaction.
// Throws StoreError, with the database as it was.
void MigrateDatabase(Connection& connection, int version, int schemaVersion,
                     const std::vector<Migration>& migrations);

}  // namespace vorlina
