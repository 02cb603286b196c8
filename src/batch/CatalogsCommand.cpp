#include <QJsonArray>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "batch/Commands.h"
#include "batch/Output.h"
#include "publish/ProfileStore.h"

namespace vorlina {
namespace {

// None where they cannot be read: publishing tells why.
QJsonArray ProfilesOf(Connection& connection, int IDCatalogo) {
  QJsonArray list;
  try {
    for (const VorlinaProfile& profile : ReadProfiles(connection, IDCatalogo))
      list += QJsonObject{{u"identifier"_qs, profile.identifier},
                          {u"name"_qs, profile.name},
                          {u"language"_qs, profile.language}};
  } catch (const DamagedProfiles&) {
  }
  return list;
}

}  // namespace

Outcome RunCatalogs(Connection& connection) {
  Rows rows(
      connection,
      u"SELECT C.IDCatalogo, C.NomeCatalogo, C.Descrizione, COUNT(P.CodiceProdotto) Products, "
      "COUNT(CASE WHEN P.Pubblica THEN 1 END) Published FROM Cataloghi C "
      "LEFT JOIN Prodotti P ON P.IDCatalogo=C.IDCatalogo GROUP BY C.IDCatalogo ORDER BY C.IDCatalogo"_qs);
  QJsonArray catalogs;
  std::vector<QStringList> lines;
  while (rows.Next()) {
    catalogs.append(QJsonObject{{u"id"_qs, rows.Value(0).toInt()},
                                {u"name"_qs, rows.Value(1).toString()},
                                {u"description"_qs, rows.Value(2).toString()},
                                {u"products"_qs, rows.Value(3).toInt()},
                                {u"published"_qs, rows.Value(4).toInt()},
                                {u"profiles"_qs, ProfilesOf(connection, rows.Value(0).toInt())}});
    lines.push_back({rows.Value(0).toString(), rows.Value(1).toString().simplified(),
                     rows.Value(3).toString(), rows.Value(4).toString()});
  }
  Outcome outcome;
  outcome.json = {{u"folder"_qs, AppPath()}, {u"catalogs"_qs, catalogs}};
  outcome.text =
      Table({Texts::tr("Numero"), Texts::tr("Nome"), Texts::tr("Prodotti"), Texts::tr("Pubblicati")}, lines);
  return outcome;
}

}  // namespace vorlina
