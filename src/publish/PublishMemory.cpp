#include "publish/PublishMemory.h"

#include <QJsonDocument>
#include <QJsonObject>

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

}  // namespace

PublishMemory RememberedPublication(Connection& connection, int IDCatalogo, const QString& plugin,
                                    const QString& profile) {
  const QJsonObject ofPlugin = Kept(connection, IDCatalogo)[plugin].toObject();
  PublishMemory memory;
  memory.profile = profile.isEmpty() ? ofPlugin[LastMember].toString() : profile;
  // What a plug-in kept by itself, before there were profiles.
  if (ofPlugin.isEmpty() && (profile.isEmpty() || profile == FirstProfileIdentifier))
    memory.target = CatalogExtension(plugin + u".Cartella"_qs, IDCatalogo, connection);
  if (ofPlugin.isEmpty()) return memory;
  const QJsonObject remembered = ofPlugin[ProfilesMember][memory.profile].toObject();
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
