// The commands of vorlina-batch. Each gives its outcome; what it throws is an outcome that did not succeed.
#pragma once

#include <QJsonObject>
#include <QString>

#include "base/Progress.h"
#include "batch/Arguments.h"
#include "catalogs/AutomaticBackup.h"
#include "store/Connection.h"

namespace vorlina {

// What a command has to say. The JSON gets the members "command", "ok" and, after a failure, "error" besides.
struct Outcome {
  bool ok = true;
  QString text;
  QJsonObject json;
  QString error;  // why it is not ok
};

Outcome RunCatalogs(Connection& connection);
Outcome RunPlugins();
Outcome RunPublish(Connection& connection, const Arguments& arguments, const Progress& progress);
Outcome RunImport(Connection& connection, const Arguments& arguments, const Progress& progress);
Outcome RunClone(Connection& connection, const Arguments& arguments, const Progress& progress);
Outcome RunDelete(Connection& connection, const Arguments& arguments);
Outcome RunCheck(Connection& connection);
Outcome RunBackup(Connection& connection, const Arguments& arguments, const Progress& progress);
Outcome RunRestore(const Arguments& arguments, const Progress& progress);

// Throws Error when there is no such catalog.
void RequireCatalog(Connection& connection, int catalog);

// Keeps an automatic copy of the database unless the user has waived it, and gives its path. Throws Error.
QString KeepCopy(BackupReason reason, const Arguments& arguments);

// Settles the application folder, opens the database where the command needs it, and runs the command. Throws
// Error.
Outcome RunCommand(const Arguments& arguments, const Progress& progress);

}  // namespace vorlina
