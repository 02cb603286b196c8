#include <QJsonArray>

#include "batch/Commands.h"
#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"

namespace vorlina {

Outcome RunClone(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const QString prefix = EitherLanguage(u"Copia di "_qs, u"Copy of "_qs);
  CatalogClone cloning(arguments.catalog, connection);
  const int clone = cloning.DuplicaCatalogo(prefix, progress);
  const QStringList warnings = cloning.Warnings();
  Outcome outcome;
  outcome.text = (warnings + QStringList(EitherLanguage(u"Il catalogo %1 è duplicato nel catalogo %2"_qs,
                                                        u"Catalog %1 is cloned as catalog %2"_qs)
                                             .arg(arguments.catalog)
                                             .arg(clone)))
                     .join(u'\n');
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"clone"_qs, clone},
                  {u"warnings"_qs, QJsonArray::fromStringList(warnings)}};
  return outcome;
}

Outcome RunDelete(Connection& connection, const Arguments& arguments) {
  RequireCatalog(connection, arguments.catalog);
  DeleteCatalog(arguments.catalog, connection);
  Outcome outcome;
  outcome.text =
      EitherLanguage(u"Il catalogo %1 è eliminato"_qs, u"Catalog %1 is deleted"_qs).arg(arguments.catalog);
  outcome.json = {{u"catalog"_qs, arguments.catalog}};
  return outcome;
}

}  // namespace vorlina
