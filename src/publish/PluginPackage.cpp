#include "publish/PluginPackage.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <map>
#include <set>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "publish/PluginLibrary.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

const QString ManifestName = u"manifest.json"_qs;
const QString PackageSuffix = u".vpk"_qs;
constexpr qint64 MostManifestBytes = 1'000'000;

using Pieces = std::function<QByteArray()>;
using TakeFile = std::function<void(const QString& name, const Pieces& next)>;

// The identifier that is entered into the settings is taken from the file's name, so that the two must agree.
// Who loads a package twice gets a number behind the second one's name.
void RequireName(const QString& package, const QString& identifier) {
  const QString name = QFileInfo(package).fileName();
  if (name.endsWith(PackageSuffix, Qt::CaseInsensitive) && name.chopped(PackageSuffix.size()) == identifier)
    return;
  throw Error(
      Texts::tr("Il file si chiama \"%1\", ma contiene il plug-in %2. Dargli il nome \"%3\" e riprovare.")
          .arg(name, identifier, identifier + PackageSuffix));
}

PackageManifest ManifestOf(const QString& package) {
  const std::optional<QByteArray> json = ReadZipFile(package, ManifestName, MostManifestBytes);
  if (!json)
    throw Error(Texts::tr("%1 non è un pacchetto di plug-in").arg(QDir::toNativeSeparators(package)));
  PackageManifest manifest = ManifestFrom(*json);
  RequireName(package, manifest.identifier);
  RequireUsable(manifest);
  return manifest;
}

void ReadFiles(const QString& package, const PackageManifest& manifest, const TakeFile& take) {
  std::set<QString> missing;
  for (const PackagedFile& file : manifest.files) missing.insert(file.name);
  ReadZip(package, ForeignZip, [&](ZipEntry& entry) {
    if (entry.name == ManifestName) return;
    const PackagedFile* listed = manifest.Find(entry.name);
    if (listed == nullptr)
      throw Error(
          Texts::tr("Il pacchetto contiene un file che non vi deve essere: %1").arg(entry.name.left(100)));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    qint64 size = 0;
    const Pieces next = [&] {
      QByteArray piece = entry.nextPiece();
      hash.addData(piece);
      size += piece.size();
      return piece;
    };
    take(entry.name, next);
    while (!next().isEmpty()) {
    }
    if (size != listed->size || hash.result().toHex() != listed->hash)
      throw Error(Texts::tr("Il file %1 nel pacchetto è danneggiato o è stato cambiato. Procurarsi un'altra "
                            "copia del pacchetto.")
                      .arg(entry.name));
    missing.erase(entry.name);
  });
  if (!missing.empty())
    throw Error(
        Texts::tr("Nel pacchetto manca il file %1. Procurarsene un'altra copia.").arg(*missing.begin()));
}

// What the library itself says counts before any of its code runs.
void RequireAsTold(const QString& library, const PackageManifest& manifest) {
  const LibraryFacts facts = FactsOf(library);
  if (facts.interface != manifest.interface || facts.qt.toString() != manifest.qt)
    throw Error(Texts::tr("La libreria nel pacchetto non è quella che il pacchetto dice (%1, Qt %2)")
                    .arg(facts.interface.left(100).simplified(), facts.qt.toString()));
}

// The files of a package by the names that they have in it.
std::map<QString, QString> SourcesOf(const QString& library, const QString& identifier,
                                     const QString& folder) {
  std::map<QString, QString> sources{{LibraryOfPlugin(identifier), library}};
  if (folder.isEmpty()) return sources;
  if (!QFileInfo(folder).isDir())
    throw Error(Texts::tr("La cartella %1 non esiste").arg(QDir::toNativeSeparators(folder)));
  const QDir root(QFileInfo(folder).absoluteFilePath());
  QDirIterator files(root.path(), QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const QFileInfo file = files.fileInfo();
    if (file.isSymLink() || file.isHidden() || (!file.isFile() && !file.isDir()))
      throw Error(Texts::tr("%1 è nascosto, o un collegamento: un pacchetto contiene soltanto file veri")
                      .arg(QDir::toNativeSeparators(path)));
    if (file.isFile()) sources[identifier + u'/' + root.relativeFilePath(path)] = path;
  }
  return sources;
}

QByteArray ContentOfFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw Error(Texts::tr("Impossibile leggere il file %1: %2")
                    .arg(QDir::toNativeSeparators(path), file.errorString()));
  return file.readAll();
}

}  // namespace

PackageManifest VerifyPackage(const QString& package) {
  PackageManifest manifest = ManifestOf(package);
  ReadFiles(package, manifest, [](const QString&, const Pieces&) {});
  return manifest;
}

PackageManifest UnpackPackage(const QString& package, const QString& folder) {
  PackageManifest manifest = ManifestOf(package);
  ReadFiles(package, manifest, [&](const QString& name, const Pieces& next) {
    const QString file = QDir(folder).filePath(name);
    MakeFolder(QFileInfo(file).path());
    WriteStagedFile(file, [&](QIODevice& device) {
      for (QByteArray piece = next(); !piece.isEmpty(); piece = next())
        if (device.write(piece) != piece.size()) return false;
      return true;
    });
  });
  RequireAsTold(QDir(folder).filePath(LibraryOfPlugin(manifest.identifier)), manifest);
  return manifest;
}

QString WritePackage(const QString& library, const QString& version, const QString& files,
                     const QString& target) {
  const LibraryFacts facts = FactsOf(library);
  if (facts.interface.isEmpty() || !library.endsWith(LibrarySuffix))
    throw Error(Texts::tr("%1 non è un plug-in di Vorlina").arg(QDir::toNativeSeparators(library)));
  PackageManifest manifest{QFileInfo(library).fileName().chopped(LibrarySuffix.size()),
                           version,
                           facts.interface,
                           facts.qt.toString(),
                           OwnPlatform(),
                           {}};
  const std::map<QString, QString> sources = SourcesOf(library, manifest.identifier, files);
  for (const auto& [name, path] : sources)
    manifest.files.push_back({name, QFileInfo(path).size(), HashOf(path)});
  const QByteArray json = JsonOf(manifest);
  ManifestFrom(json);
  const QString package = QDir(target).filePath(manifest.identifier + PackageSuffix);
  MakeFolder(target);
  // One that cannot be used is not left behind.
  const QTemporaryDir made(QDir(target).filePath(u".vpk-XXXXXX"_qs));
  const QString unproven = made.filePath(QFileInfo(package).fileName());
  if (!made.isValid()) FailWriting(package, 0, made.errorString());
  try {
    WriteStagedFile(unproven, [&](QIODevice& device) {
      ZipWriter zip(device);
      zip.Add(ManifestName, json, ZipWriter::Packing::Deflate);
      for (const auto& [name, path] : sources)
        zip.Add(name, ContentOfFile(path), ZipWriter::Packing::Deflate);
      zip.Close();
      return true;
    });
  } catch (const DiskFullError& full) {
    throw DiskFullError(package, full.Cause());
  }
  VerifyPackage(unproven);
  MoveFileSafely(unproven, package);
  return QDir::toNativeSeparators(package);
}

QByteArray HashOf(const QString& file) {
  QFile read(file);
  QCryptographicHash hash(QCryptographicHash::Sha256);
  return read.open(QIODevice::ReadOnly) && hash.addData(&read) ? hash.result().toHex() : QByteArray();
}

}  // namespace vorlina
