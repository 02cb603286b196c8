#include "publish/PackageManifest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QSysInfo>
#include <QVersionNumber>
#include <algorithm>

#include "base/Error.h"
#include "base/Texts.h"
#include "publish/PluginLibrary.h"
#include "publish/plugin/IVorlinaPlugin.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

constexpr int Format = 1;

bool Matches(const QString& text, const QString& pattern) {
  return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

// Identifiers become names of files and stand in a list with semicolons.
bool IsIdentifier(const QString& text) {
  return text.size() <= 100 && Matches(text, u"[A-Za-z0-9_-]+(\\.[A-Za-z0-9_-]+)+"_qs) &&
         ProblemOfZipName(text).isEmpty();
}

[[noreturn]] void Refuse(const QString& about) {
  throw Error(Texts::tr("Il pacchetto è danneggiato o non è fatto come deve (%1). Procurarsene un'altra "
                        "copia.")
                  .arg(about));
}

PackagedFile FileFrom(const QJsonObject& object, const QString& identifier) {
  PackagedFile file{object.value(u"name"_qs).toString(), object.value(u"size"_qs).toInteger(-1),
                    object.value(u"sha256"_qs).toString().toLatin1()};
  const bool good = IsNameOfPlugin(file.name, identifier) && file.size >= 0 &&
                    Matches(QString::fromLatin1(file.hash), u"[0-9a-f]{64}"_qs);
  if (!good) Refuse(u"manifest.json: "_qs + file.name.left(100).simplified());
  return file;
}

QString CppLibrary() {
#if defined(_LIBCPP_VERSION)
  return u"libc++"_qs;
#elif defined(__GLIBCXX__)
  return u"libstdc++"_qs;
#else
  return u"msvc"_qs;
#endif
}

}  // namespace

const PackagedFile* PackageManifest::Find(const QString& name) const {
  const auto found =
      std::find_if(files.begin(), files.end(), [&](const PackagedFile& file) { return file.name == name; });
  return found == files.end() ? nullptr : &*found;
}

QString LibraryOfPlugin(const QString& identifier) { return identifier + LibrarySuffix; }

bool IsNameOfPlugin(const QString& name, const QString& identifier) {
  return ProblemOfZipName(name).isEmpty() &&
         (name == LibraryOfPlugin(identifier) || name.startsWith(identifier + u'/'));
}

QString OwnPlatform() { return QSysInfo::kernelType() + u'/' + QSysInfo::buildAbi() + u'/' + CppLibrary(); }

QByteArray JsonOf(const PackageManifest& manifest) {
  QJsonArray files;
  for (const PackagedFile& file : manifest.files)
    files.append(QJsonObject{
        {u"name"_qs, file.name}, {u"size"_qs, file.size}, {u"sha256"_qs, QString::fromLatin1(file.hash)}});
  return QJsonDocument(QJsonObject{{u"format"_qs, Format},
                                   {u"identifier"_qs, manifest.identifier},
                                   {u"version"_qs, manifest.version},
                                   {u"interface"_qs, manifest.interface},
                                   {u"qt"_qs, manifest.qt},
                                   {u"platform"_qs, manifest.platform},
                                   {u"files"_qs, files}})
      .toJson();
}

PackageManifest ManifestFrom(const QByteArray& json) {
  const QJsonObject object = QJsonDocument::fromJson(json).object();
  const int format = object.value(u"format"_qs).toInt();
  if (format > Format) throw Error(Texts::tr("Il pacchetto è fatto per una versione più recente di Vorlina"));
  if (format != Format) Refuse(u"manifest.json"_qs);
  const auto text = [&](const QString& key) { return object.value(key).toString(); };
  PackageManifest manifest{text(u"identifier"_qs), text(u"version"_qs),  text(u"interface"_qs),
                           text(u"qt"_qs),         text(u"platform"_qs), {}};
  if (!IsIdentifier(manifest.identifier))
    throw Error(
        Texts::tr("\"%1\" non è il nome di un plug-in").arg(manifest.identifier.left(100).simplified()));
  if (!Matches(manifest.version, u"[A-Za-z0-9.+-]{1,40}"_qs)) Refuse(u"manifest.json: version"_qs);
  for (const QJsonValue& file : object.value(u"files"_qs).toArray())
    manifest.files.push_back(FileFrom(file.toObject(), manifest.identifier));
  if (manifest.Find(LibraryOfPlugin(manifest.identifier)) == nullptr && manifest.platform == OwnPlatform())
    Refuse(u"manifest.json: "_qs + LibraryOfPlugin(manifest.identifier));
  return manifest;
}

void RequireUsable(const PackageManifest& manifest) {
  if (manifest.platform != OwnPlatform())
    throw Error(Texts::tr("Il plug-in è fatto per un altro tipo di computer (%1): qui ne serve uno per %2")
                    .arg(manifest.platform.left(100).simplified(), OwnPlatform()));
  if (manifest.interface != QStringLiteral(VORLINA_PLUGIN_IID))
    throw Error(
        Texts::tr("Il plug-in è fatto per un'altra versione di Vorlina (%1). Procurarsene una versione "
                  "adatta.")
            .arg(manifest.interface.left(100).simplified()));
  if (!FitsOwnQt(QVersionNumber::fromString(manifest.qt)))
    throw Error(
        Texts::tr("Il plug-in è fatto con Qt %1, e questo programma ha Qt %2. Procurarsene una versione "
                  "adatta.")
            .arg(manifest.qt.left(20).simplified(), QLibraryInfo::version().toString()));
}

}  // namespace vorlina
