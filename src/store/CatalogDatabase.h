// Opening the catalog database safely at the start of the program, its backup and its check.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace vorlina {

class Connection;

// "Vorl" in the file's header, and the version of the tables that this program works with.
inline constexpr int CatalogApplicationId = 0x566F726C;
inline constexpr int CatalogSchemaVersion = 1;

// The script that brings the tables from version - 1 to version.
struct Migration {
  int version;
  QString script;
};

// The scripts delivered with the program, ascending.
std::vector<Migration> DeliveredMigrations();

// Opens the file on the connection. Before anything is written it is checked: a missing, empty, foreign,
// newer, damaged or locked file is refused with a StoreError that tells what to do, and stays byte for byte
// as it was. An older one is copied beside itself ("Catalog-v1-backup.db"), the copy verified, and then
// migrated in one transaction; a failure leaves the tables as they were.
void OpenCatalogDatabase(Connection& connection, const QString& path);
// The same for a program of another version; the tests use it.
void OpenCatalogDatabase(Connection& connection, const QString& path, int schemaVersion,
                         const std::vector<Migration>& migrations);

// Copies the open database into a file, which is replaced only once the copy is complete and verified. Throws
// StoreError.
void BackupDatabase(Connection& connection, const QString& target);

// What the full integrity check and the check of the foreign keys find, a line each; empty for a sound
// database.
QStringList CheckDatabase(Connection& connection);

}  // namespace vorlina
