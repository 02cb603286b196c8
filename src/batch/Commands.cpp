#include "batch/Commands.h"

#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "batch/Output.h"
#include "catalogs/RestoreSwap.h"
#include "images/PicturePaths.h"
#include "publish/PluginChange.h"
#include "store/CatalogDatabase.h"
#include "store/GetValue.h"

namespace vorlina {
namespace {

void SettleApplicationFolder(const Arguments& arguments) {
  const bool restores = arguments.command == u"restore";
  if (!arguments.application.isEmpty()) {
    if (!restores && !QFileInfo(arguments.application).isDir())
      throw Error(
          Texts::tr("La cartella %1 non esiste").arg(QDir::toNativeSeparators(arguments.application)));
    SetAppPath(arguments.application);
  }
  // First of all: what is delivered must not be copied to where a restore is half done.
  if (const QString told = FinishInterruptedRestore(); !told.isEmpty()) PrintError(told);
  // A folder that the user names is never filled with samples.
  if (arguments.application.isEmpty()) PrepareAppPath();
  FinishInterruptedInstallations(AppFile(u"PubWiz"_qs));
}

void OpenCatalogs(Connection& connection) {
  OpenCatalogDatabase(connection, AppFile(u"Catalog.db"_qs));
  try {
    FitPicturePaths(connection);
  } catch (const Error& error) {
    PrintError(error.Description());
  }
}

}  // namespace

void RequireCatalog(Connection& connection, int catalog) {
  if (GetValue(u"COUNT(*)"_qs, u"Cataloghi"_qs, connection, u"IDCatalogo=?"_qs, {catalog}).toInt() == 0)
    throw Error(Texts::tr("Il catalogo %1 non esiste. Il comando \"catalogs\" elenca quelli che ci sono.")
                    .arg(catalog));
}

QString KeepCopy(BackupReason reason, const Arguments& arguments) {
  if (arguments.withoutCopy) return {};
  try {
    return KeepAutomaticBackup(reason);
  } catch (const Error& error) {
    throw Error(Texts::tr("Non è stato possibile tenere prima una copia automatica del database, e nulla è "
                          "stato modificato. Aggiungere --without-copy per continuare senza. (%1)")
                    .arg(error.Description()));
  }
}

Outcome RunCommand(const Arguments& arguments, const Progress& progress) {
  SettleApplicationFolder(arguments);
  if (arguments.command == u"plugins") return RunPlugins();
  if (arguments.command == u"restore") return RunRestore(arguments, progress);
  Connection connection;
  OpenCatalogs(connection);
  if (arguments.command == u"publish") return RunPublish(connection, arguments, progress);
  if (arguments.command == u"import") return RunImport(connection, arguments, progress);
  if (arguments.command == u"clone") return RunClone(connection, arguments, progress);
  if (arguments.command == u"delete") return RunDelete(connection, arguments);
  if (arguments.command == u"check") return RunCheck(connection);
  if (arguments.command == u"backup") return RunBackup(connection, arguments, progress);
  return RunCatalogs(connection);
}

}  // namespace vorlina
