#include "catalogs/BackupPacker.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "base/SafeFile.h"
#include "base/Texts.h"
#include "catalogs/BackupPlace.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

constexpr qint64 PieceSize = 1 << 18;
// How often the database is copied anew because another program deletes pictures.
constexpr int MostRounds = 10;

[[noreturn]] void FailReading(const QFile& file) {
  throw Error(Texts::tr("Impossibile leggere il file %1: %2")
                  .arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
}

}  // namespace

ChangingError::ChangingError()
    : Error(Texts::tr("Un altro programma sta modificando le immagini. Attendere che finisca e riprovare.")) {
}

BackupPacker::BackupPacker(Connection& connection, const BackupStaging& staging, const Progress& progress,
                           MissingPictures missing)
    : connection_(connection),
      staging_(staging),
      progress_(progress),
      missing_(missing),
      root_(QFileInfo(connection.DataSource()).absolutePath()),
      rows_(root_) {
  report_.manifest = {SchemaVersion, QDir::toNativeSeparators(root_), QDateTime::currentDateTimeUtc(), {}};
}

BackupReport BackupPacker::Pack() {
  Report(progress_, 0, 1, DatabaseName);
  WriteStagedFile(staging_.Archive(), [&](QIODevice& device) {
    ZipWriter writer(device);
    PackPictures(writer);
    const QFileInfo database(staging_.Database());
    PackFile(writer, {DatabaseName, database.filePath(), database.size(), database.lastModified()});
    writer.Add(ManifestName, ToJson(report_.manifest), ZipWriter::Packing::Deflate);
    writer.Close();
    return true;
  });
  return report_;
}

void BackupPacker::Advance(qint64 bytes, const QString& step) {
  done_ += bytes;
  Report(progress_, std::min(done_, total_), total_, step);
}

// A file that a row names and that is gone was removed behind a change of the rows: then the copy of the
// database is out of date, and is made anew; what is packed already does no harm.
void BackupPacker::PackPictures(ZipWriter& writer) {
  for (int round = 1; round <= MostRounds; ++round) {
    const qint64 mark = connection_.ChangeMark();
    BackupDatabase(connection_, staging_.Database());
    const SourceFiles sources = SourcesIn(root_);
    unreadable_ = sources.unreadable;
    RequireUnchanged(sources.files);
    if (round == 1) Expect(sources.files, mark);
    const bool settled = PackNew(writer, sources.files);
    CompareRows(packedKeys_);
    if (settled && (report_.missing.isEmpty() || connection_.ChangeMark() == mark)) return RequireComplete();
  }
  throw ChangingError();
}

// Before time is spent on an archive that will not be kept.
void BackupPacker::Expect(const std::vector<SourceFile>& files, qint64 mark) {
  QSet<QString> keys;
  total_ = 2 * QFileInfo(staging_.Database()).size();
  for (const SourceFile& file : files) {
    keys.insert(rows_.KeyOf(file.path));
    total_ += 2 * file.size;
  }
  CompareRows(keys);
  if (connection_.ChangeMark() == mark) RequireComplete();
}

void BackupPacker::CompareRows(const QSet<QString>& present) {
  Connection copy;
  copy.Open(ConnectionTextFor(staging_.Database()));
  const PictureGaps gaps = rows_.Compare(copy, present);
  report_.missing = unreadable_ + gaps.missing;
  report_.missing.removeDuplicates();
  report_.outside = gaps.outside;
}

void BackupPacker::RequireComplete() const {
  if (missing_ == MissingPictures::Refused && !report_.missing.isEmpty())
    throw MissingPicturesError(report_.missing);
}

void BackupPacker::RequireUnchanged(const std::vector<SourceFile>& files) const {
  for (const SourceFile& file : files)
    if (const auto packed = packed_.find(file.name);
        packed != packed_.end() &&
        (packed->second.size != file.size || packed->second.modified != file.modified))
      throw ChangingError();
}

// False when a file has changed since the database was copied.
bool BackupPacker::PackNew(ZipWriter& writer, const std::vector<SourceFile>& files) {
  bool settled = true;
  for (const SourceFile& file : files)
    if (packed_.count(file.name) == 0) settled = PackFile(writer, file) && settled;
  return settled;
}

// Pictures are packed already, so that they are stored as they are.
bool BackupPacker::PackFile(ZipWriter& writer, const SourceFile& source) {
  // What no restore would take must not go into a backup under a number either.
  if (const QString problem = ProblemOfZipName(source.name); !problem.isEmpty()) throw Error(problem);
  QFile file(source.path);
  if (!file.open(QIODevice::ReadOnly)) {
    if (QFileInfo::exists(source.path)) unreadable_ += QDir::toNativeSeparators(source.path);
    return true;
  }
  const SourceFile opened{source.name, source.path, file.size(),
                          file.fileTime(QFileDevice::FileModificationTime)};
  QCryptographicHash hash(QCryptographicHash::Sha256);
  const bool isPicture = source.name.endsWith(u".jpg", Qt::CaseInsensitive);
  const QString stored = StoredName(source.name, report_.manifest.files.size());
  writer.Add(stored, opened.size, isPicture ? ZipWriter::Packing::Store : ZipWriter::Packing::Deflate, [&] {
    QByteArray piece = file.read(PieceSize);
    if (piece.isEmpty() && file.error() != QFileDevice::NoError) FailReading(file);
    hash.addData(piece);
    Advance(piece.size(), source.name);
    return piece;
  });
  report_.manifest.files[source.name] = {stored, opened.size, hash.result().toHex()};
  packed_[source.name] = opened;
  packedKeys_.insert(rows_.KeyOf(source.path));
  return opened.size == source.size && opened.modified == source.modified;
}

}  // namespace vorlina
