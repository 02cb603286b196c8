#include <QJsonArray>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"

namespace vorlina {

Outcome RunClone(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const QString prefix = Texts::tr("Copia di ");
  CatalogClone cloning(arguments.catalog, connection);
  const int clone = cloning.DuplicaCatalogo(prefix, progress);
  const QStringList warnings = cloning.Warnings();
  Outcome outcome;
  outcome.text =
      (warnings +
       QStringList(Texts::tr("Il catalogo %1 è duplicato nel catalogo %2").arg(arguments.catalog).arg(clone)))
          .join(u'\n');
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"clone"_qs, clone},
                  {u"warnings"_qs, QJsonArray::fromStringList(warnings)}};
  return outcome;
}

Outcome RunDelete(Connection& connection, const Arguments& arguments) {
  RequireCatalog(connection, arguments.catalog);
  const QString copy = KeepCopy(BackupReason::Deletion, arguments);
  DeleteCatalog(arguments.catalog, connection);
  Outcome outcome;
  outcome.text = Texts::tr("Il catalogo %1 è eliminato").arg(arguments.catalog);
  outcome.json = {{u"catalog"_qs, arguments.catalog}, {u"copy"_qs, copy}};
  return outcome;
}

}  // namespace vorlina
