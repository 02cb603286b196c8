#include "publish/PublishMemory.h"

#include <QJsonDocument>
#include <QJsonObject>

#include "base/Helpers.h"
#include "publish/ExtensionManager.h"
#include "publish/ProfileForm.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A member for each plug-in: the profile of the last publication, and what is remembered of each.
const QString MemoryExtension = QStringLiteral("Vorlina.Pubblicazione");
const QString LastMember = QStringLiteral("last");
const QString ProfilesMember = QStringLiteral("profiles");

QJsonObject Kept(Connection& connection, int IDCatalogo) {
  return QJsonDocument::fromJson(CatalogExtension(MemoryExtension, IDCatalogo, connection).toUtf8()).object();
}

// What a plug-in kept by itself, before there were profiles. It tells no catalog: of several that have it, as
// clones have, it is the oldest one's.
QString FormerTarget(Connection& connection, int IDCatalogo, const QString& plugin) {
  Rows rows(connection,
            u"SELECT C.Valore FROM Extensions E JOIN CExtension C USING (IDExtension) WHERE "
            "E.ExtensionName=?1 AND C.IDCatalogo=?2 AND NOT EXISTS (SELECT 1 FROM CExtension O WHERE "
            "O.IDExtension=C.IDExtension AND O.IDCatalogo<C.IDCatalogo AND O.Valore=C.Valore)"_qs,
            {QString(plugin + u".Cartella"_qs), IDCatalogo});
  return rows.Next() ? NullToEmpty(rows.Value(0)) : QString();
}

}  // namespace

PublishMemory RememberedPublication(Connection& connection, int IDCatalogo, const QString& plugin,
                                    const QString& profile) {
  const QJsonObject ofPlugin = Kept(connection, IDCatalogo)[plugin].toObject();
  PublishMemory memory;
  memory.profile = profile.isEmpty() ? ofPlugin[LastMember].toString() : profile;
  const QJsonObject remembered = ofPlugin[ProfilesMember][memory.profile].toObject();
  if (remembered.isEmpty() && (memory.profile.isEmpty() || memory.profile == FirstProfileIdentifier))
    memory.target = FormerTarget(connection, IDCatalogo, plugin);
  // A clone has the values of its original, whose target is not its own.
  if (remembered[u"catalog"].toInt() == IDCatalogo) memory.target = remembered[u"target"].toString();
  memory.options = remembered[u"options"].toObject().toVariantMap();
  return memory;
}

void RememberPublication(Connection& connection, int IDCatalogo, const QString& plugin,
                         const PublishMemory& publication) {
  Transaction transaction(connection);
  QJsonObject kept = Kept(connection, IDCatalogo);
  QJsonObject ofPlugin = kept[plugin].toObject();
  QJsonObject profiles = ofPlugin[ProfilesMember].toObject();
  profiles[publication.profile] =
      QJsonObject{{u"catalog"_qs, IDCatalogo},
                  {u"target"_qs, publication.target},
                  {u"options"_qs, QJsonObject::fromVariantMap(publication.options)}};
  ofPlugin[LastMember] = publication.profile;
  ofPlugin[ProfilesMember] = profiles;
  kept[plugin] = ofPlugin;
  KeepCatalogExtension(MemoryExtension, QString::fromUtf8(QJsonDocument(kept).toJson(QJsonDocument::Compact)),
                       IDCatalogo, connection);
  transaction.Commit();
}

}  // namespace vorlina
