// Opening, migrating, checking and copying the catalog database as a file.
#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <vector>

namespace vorlina {

class Connection;

// What the program's own database files bear, and the version of the schema that it works with.
inline constexpr int ApplicationId = 0x566F726C;
inline constexpr int SchemaVersion = 3;

// A script that takes the schema from the version before to this one.
struct Migration {
  int version;
  QString sql;
};

// The migrations that the program knows, in order.
std::vector<Migration> KnownMigrations();

// Opens the database after a look at it: a file that is missing, empty, foreign, newer, damaged or locked is
// refused with an Error that says what to do, before anything is written; a disk that fails is not told as
// damage, and a lock is a LockedError. An older one is migrated: first a verified copy beside it
// ("Catalog-v1-backup.db"), then all scripts in one transaction.
void OpenCatalogDatabase(Connection& connection, const QString& path);
void OpenCatalogDatabase(Connection& connection, const QString& path,
                         const std::vector<Migration>& migrations, int schemaVersion);

// Copies the database, as it stands at one moment, to a file that is checked before it gets its name. Throws
// Error; a file that had the name then stays.
void BackupDatabase(Connection& connection, const QString& path);

// The same for a database that nobody here has opened, also one of another folder, in little more time than
// its bytes take: what is checked of the copy is what fits into the moment that opening it takes.
void CopyDatabase(const QString& source, const QString& path);

// Whether a database that nobody has open bears the program's mark.
bool IsOwnDatabase(const QString& path);

// The highest number that a row of each table was ever given, in a database that nobody here has opened; none
// where it cannot be read.
std::map<QString, qint64> CountersOf(const QString& path);

// Whether somebody is changing the database at this moment. A file that is no database is not locked.
bool IsDatabaseLocked(const QString& path);

// Whether the database can be written: neither its file nor its folder is read-only.
bool IsDatabaseWritable(Connection& connection);

// What is wrong inside the database: damage and rows that refer to nothing. Empty when it is whole. Throws
// Error where it cannot be read.
QStringList CheckDatabase(Connection& connection);

}  // namespace vorlina
