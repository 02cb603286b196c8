#include "catalogs/BackupManifest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <numeric>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

const QString Format = QStringLiteral("vorlina-backup");
constexpr int FormatVersion = 1;

[[noreturn]] void Refuse(const QString& why) { throw Error(why); }

}  // namespace

qint64 BackupManifest::TotalSize() const {
  return std::accumulate(files.begin(), files.end(), qint64(0),
                         [](qint64 sum, const auto& file) { return sum + file.second.size; });
}

bool IsManifest(const QByteArray& json) {
  return QJsonDocument::fromJson(json).object().value(u"format").toString() == Format;
}

QByteArray ToJson(const BackupManifest& manifest) {
  QJsonArray files;
  for (const auto& [name, file] : manifest.files) {
    QJsonObject entry{
        {u"name"_qs, name}, {u"size"_qs, file.size}, {u"sha256"_qs, QString::fromLatin1(file.sha256)}};
    if (file.stored != name) entry[u"stored"_qs] = file.stored;
    files.append(entry);
  }
  return QJsonDocument(QJsonObject{{u"format"_qs, Format},
                                   {u"version"_qs, FormatVersion},
                                   {u"schemaVersion"_qs, manifest.schemaVersion},
                                   {u"applicationPath"_qs, manifest.applicationPath},
                                   {u"created"_qs, manifest.created.toString(Qt::ISODate)},
                                   {u"files"_qs, files}})
      .toJson(QJsonDocument::Compact);
}

BackupManifest ManifestFromJson(const QByteArray& json) {
  const QJsonObject object = QJsonDocument::fromJson(json).object();
  if (object.value(u"format").toString() != Format)
    Refuse(Texts::tr("L'archivio non è una copia di sicurezza di Vorlina"));
  if (object.value(u"version").toInt() > FormatVersion)
    Refuse(Texts::tr("La copia di sicurezza è stata creata da una versione più recente di Vorlina"));
  BackupManifest manifest;
  manifest.schemaVersion = object.value(u"schemaVersion").toInt();
  manifest.applicationPath = object.value(u"applicationPath").toString();
  manifest.created = QDateTime::fromString(object.value(u"created").toString(), Qt::ISODate);
  const QJsonArray files = object.value(u"files").toArray();
  for (const QJsonValue value : files) {
    const QJsonObject file = value.toObject();
    const QString name = file.value(u"name").toString();
    if (!IsBackupName(name) || !ProblemOfZipName(name).isEmpty())
      throw Error(Texts::tr("\"%1\" non appartiene a una copia di sicurezza di Vorlina").arg(name));
    manifest.files[name] = {file.value(u"stored").toString(name), file.value(u"size").toInteger(),
                            file.value(u"sha256").toString().toLatin1()};
  }
  return manifest;
}

QString StoredName(const QString& name, std::size_t number) {
  if (name.normalized(QString::NormalizationForm_C) == name) return name;
  return name.left(name.lastIndexOf(u'/') + 1) + u"=%1"_qs.arg(number);
}

bool IsBackupName(const QString& name) {
  return name == DatabaseName || name == u"CardLayout.lyt" || name.startsWith(u"Images/") ||
         name.startsWith(u"Layouts/");
}

}  // namespace vorlina
