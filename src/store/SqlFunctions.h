// What the program's SQL texts need beyond SQLite's own: the collations VORLINA_TEXT (without regard to case,
// for keys and equality) and VORLINA_LOCALE (the user's alphabet, for ORDER BY alone: it may change from one
// computer to the next, so nothing stored depends on it), the functions MID and LEN, and a LIKE that folds
// every script.
#pragma once

struct sqlite3;

namespace vorlina {

// Makes them known to one connection. Throws StoreError.
void RegisterSqlFunctions(sqlite3* handle);

}  // namespace vorlina
