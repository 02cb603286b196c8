#include "catalogs/Backup.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>
#include <limits>

#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

constexpr qint64 PieceSize = 1 << 18;
constexpr qint64 LargestManifest = 1 << 28;

// What pictures are worked on in; it holds nothing that lasts.
const QString ScratchName = QStringLiteral("temp.bmp");

struct Source {
  QString name;  // in the archive
  QString path;
  qint64 size;
};

void CollectFile(std::vector<Source>& sources, const QString& name, const QFileInfo& file) {
  if (file.isFile()) sources.push_back({name, file.filePath(), file.size()});
}

void CollectFolder(std::vector<Source>& sources, const QString& root, const QString& folder) {
  QDirIterator files(QDir(root).filePath(folder), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    if (files.fileName().compare(ScratchName, Qt::CaseInsensitive) != 0)
      CollectFile(sources, QDir(root).relativeFilePath(files.filePath()), files.fileInfo());
  }
}

// The database first, then the rest by name.
std::vector<Source> SourcesIn(const QString& root, const QString& databaseCopy) {
  std::vector<Source> sources;
  CollectFolder(sources, root, u"Images"_qs);
  CollectFolder(sources, root, u"Layouts"_qs);
  CollectFile(sources, u"CardLayout.lyt"_qs, QFileInfo(QDir(root).filePath(u"CardLayout.lyt"_qs)));
  std::sort(sources.begin(), sources.end(), [](const Source& a, const Source& b) { return a.name < b.name; });
  sources.insert(sources.begin(), {DatabaseName, databaseCopy, QFileInfo(databaseCopy).size()});
  return sources;
}

// What no restore would take must not go into a backup under a number either.
void RequireGoodName(const QString& name) {
  if (const QString problem = ProblemOfZipName(name); !problem.isEmpty()) throw Error(problem);
}

// Adds a file and gives its size and hash. Pictures are packed already.
ManifestFile AddSource(ZipWriter& writer, const Source& source, const QString& stored,
                       const std::function<void(qint64)>& advance) {
  QFile file(source.path);
  if (!file.open(QIODevice::ReadOnly))
    throw Error(EitherLanguage(u"Impossibile leggere il file %1: %2"_qs, u"The file %1 cannot be read: %2"_qs)
                    .arg(QDir::toNativeSeparators(source.path), file.errorString()));
  QCryptographicHash hash(QCryptographicHash::Sha256);
  const bool isPicture = source.name.endsWith(u".jpg", Qt::CaseInsensitive);
  writer.Add(stored, source.size, isPicture ? ZipWriter::Packing::Store : ZipWriter::Packing::Deflate, [&] {
    QByteArray piece = file.read(PieceSize);
    hash.addData(piece);
    advance(piece.size());
    return piece;
  });
  return {stored, source.size, hash.result().toHex()};
}

// Only a former backup is replaced: a slip of the fingers must not cost a file of another kind.
void RequireReplaceable(const QString& file, const QString& root) {
  QFile former(file);
  if (QFileInfo(file).isDir() || (former.open(QIODevice::ReadOnly) && !former.read(4).startsWith("PK\3\4")))
    throw Error(EitherLanguage(u"%1 esiste e non è una copia di sicurezza. Scegliere un altro nome."_qs,
                               u"%1 exists and is no backup. Choose another name."_qs)
                    .arg(QDir::toNativeSeparators(file)));
  const QString inside = QDir(root).relativeFilePath(QFileInfo(file).absoluteFilePath());
  for (const QString& folder : {u"Images"_qs, u"Layouts"_qs})
    if (inside.startsWith(folder + u'/'))
      throw Error(EitherLanguage(u"La copia di sicurezza non può stare nella cartella %1"_qs,
                                 u"The backup cannot lie in the folder %1"_qs)
                      .arg(folder));
}

// Files that are taken away again, however the work ends.
class Leftovers {
 public:
  explicit Leftovers(QStringList paths) : paths_(std::move(paths)) {}
  ~Leftovers() {
    for (const QString& path : paths_) QFile::remove(path);
  }
  Leftovers(const Leftovers&) = delete;
  Leftovers& operator=(const Leftovers&) = delete;

 private:
  QStringList paths_;
};

void WriteArchive(const QString& path, const std::vector<Source>& sources, BackupManifest& manifest,
                  const std::function<void(qint64)>& advance) {
  WriteStagedFile(path, [&](QIODevice& device) {
    ZipWriter writer(device);
    for (const Source& source : sources) {
      RequireGoodName(source.name);
      const QString stored = StoredName(source.name, manifest.files.size());
      manifest.files[source.name] = AddSource(writer, source, stored, advance);
    }
    writer.Add(ManifestName, ToJson(manifest), ZipWriter::Packing::Deflate);
    writer.Close();
    return true;
  });
}

}  // namespace

BackupManifest WriteBackup(Connection& connection, const QString& file, const Progress& progress) {
  const QString root = QFileInfo(connection.DataSource()).absolutePath();
  RequireReplaceable(file, root);
  const QString partial = file + u".partial"_qs;
  const QString databaseCopy = file + u".database.partial"_qs;
  const Leftovers leftovers({partial, databaseCopy});
  // A folder that cannot be written is told before anything is read.
  WriteStagedFile(partial, [](QIODevice&) { return true; });
  Report(progress, 0, 1, DatabaseName);
  BackupDatabase(connection, databaseCopy);
  const std::vector<Source> sources = SourcesIn(root, databaseCopy);

  BackupManifest manifest{SchemaVersion, QDir::toNativeSeparators(root), QDateTime::currentDateTimeUtc(), {}};
  qint64 total = 0;
  for (const Source& source : sources) total += 2 * source.size;
  qint64 done = 0;
  QString step = QFileInfo(file).fileName();
  const auto advance = [&](qint64 bytes) { Report(progress, done += bytes, total, step); };
  WriteArchive(partial, sources, manifest, advance);
  SyncVolume(QFileInfo(partial).absolutePath());

  const BackupManifest read =
      ReadBackup(partial, std::numeric_limits<qint64>::max(), [&](const QString&, const auto& nextPiece) {
        for (QByteArray piece = nextPiece(); !piece.isEmpty(); piece = nextPiece()) advance(piece.size());
      });
  if (read.files != manifest.files)
    throw Error(EitherLanguage(u"La copia di sicurezza non è leggibile così come è stata scritta"_qs,
                               u"The backup does not read as it was written"_qs));
  MoveFileSafely(partial, file);
  return manifest;
}

BackupManifest ReadBackup(const QString& file, qint64 mostBytes, const BackupVisitor& visitor) {
  constexpr qint64 AnyNumber = std::numeric_limits<qint64>::max();
  QByteArray json;
  std::map<QString, ManifestFile> found;  // by stored name
  ReadZip(file, {AnyNumber, mostBytes, 0}, [&](ZipEntry& entry) {
    if (entry.name == ManifestName) {
      for (QByteArray piece = entry.nextPiece(); !piece.isEmpty(); piece = entry.nextPiece())
        if (json.size() < LargestManifest) json += piece;
      return;
    }
    if (!IsBackupName(entry.name))
      throw Error(EitherLanguage(u"\"%1\" non appartiene a una copia di sicurezza di Vorlina"_qs,
                                 u"\"%1\" does not belong into a backup of Vorlina"_qs)
                      .arg(entry.name));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    ManifestFile& read = found[entry.name];
    read.stored = entry.name;
    const auto nextPiece = [&] {
      QByteArray piece = entry.nextPiece();
      hash.addData(piece);
      read.size += piece.size();
      return piece;
    };
    visitor(entry.name, nextPiece);
    while (!nextPiece().isEmpty()) {
    }
    read.sha256 = hash.result().toHex();
  });
  BackupManifest manifest = ManifestFromJson(json);
  std::map<QString, ManifestFile> meant;
  for (const auto& [name, entry] : manifest.files) meant[entry.stored] = entry;
  if (meant != found || meant.size() != manifest.files.size() || found.count(DatabaseName) == 0)
    throw Error(
        EitherLanguage(u"La copia di sicurezza %1 non è integra: il contenuto non è quello del suo elenco"_qs,
                       u"The backup %1 is not whole: its content is not what its list says"_qs)
            .arg(QDir::toNativeSeparators(file)));
  return manifest;
}

}  // namespace vorlina
