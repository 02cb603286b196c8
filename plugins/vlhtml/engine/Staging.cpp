#include "Staging.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace vlhtml {
namespace {

namespace fs = std::filesystem;

fs::path Path(const QString& path) { return QFileInfo(path).filesystemFilePath(); }

QString StagingName(const QString& target) {
  const QFileInfo info(target);
  return info.path() + QStringLiteral("/.") + info.fileName() + QStringLiteral(".vorlina-new");
}

// Written beside, checked, renamed. The site is not brought to the disk by force: it can be made again at any
// time, a file that a power failure cut short is seen by its size at the next run, and waiting for the disk
// takes longer than the rest.
bool WriteWhole(const QString& path, const QByteArray& bytes) {
  QFile file(path + QStringLiteral(".partial"));
  const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
                       file.size() == bytes.size();
  file.close();
  if (!written) return false;
  std::error_code failure;
  fs::rename(Path(file.fileName()), Path(path), failure);
  return !failure;
}

// The folders that these files lie in, and those around them, as "" or "/images", each behind the one around
// it.
QStringList FoldersOf(const QStringList& files) {
  QSet<QString> folders = {QString(), QStringLiteral("/images")};
  for (const QString& file : files)
    for (qsizetype slash = file.indexOf(u'/'); slash > 0; slash = file.indexOf(u'/', slash + 1))
      folders.insert(u'/' + file.left(slash));
  QStringList sorted = folders.values();
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}

}  // namespace

Staging::Staging(const QString& target, bool italian)
    : target_(QDir::cleanPath(QFileInfo(target).absoluteFilePath())),
      staging_(StagingName(target_)),
      italian_(italian) {
  if (QFileInfo::exists(staging_ + u'/' + Manifest::FileName())) FinishSwap();
  QDir(staging_).removeRecursively();
  former_ = Manifest::Read(target_);
}

Staging::~Staging() {
  if (begun_ && !QFileInfo::exists(staging_ + u'/' + Manifest::FileName()))
    QDir(staging_).removeRecursively();
}

void Staging::Fail(const QString& italianText, const QString& englishText, const QString& file) const {
  throw std::runtime_error(
      (italian_ ? italianText : englishText).arg(QDir::toNativeSeparators(file)).toStdString());
}

bool Staging::IsCurrent(const QString& file, const QByteArray& input) const {
  const auto entry = former_.entries.constFind(file);
  if (entry == former_.entries.constEnd() || entry->input != input) return false;
  const QFileInfo info(target_ + u'/' + file);
  return info.isFile() && info.size() == entry->size &&
         info.lastModified().toMSecsSinceEpoch() == entry->time;
}

void Staging::Begin(const QStringList& files) {
  for (const QString& file : files)
    if (!former_.entries.contains(file) && QFileInfo::exists(target_ + u'/' + file))
      Fail(QStringLiteral("Nella cartella c'è già il file %1, che non è stato pubblicato da Vorlina. "
                          "Spostarlo, o scegliere un'altra cartella."),
           QStringLiteral("The folder already has the file %1, which Vorlina did not publish. Move it, or "
                          "choose another folder."),
           target_ + u'/' + file);
  if (QFileInfo(target_).exists() && !QFileInfo(target_).isDir())
    Fail(QStringLiteral("%1 non è una cartella"), QStringLiteral("%1 is no folder"), target_);
  begun_ = true;
  for (const QString& folder : FoldersOf(files))
    if (!QDir().mkpath(staging_ + folder))
      Fail(QStringLiteral("Impossibile creare la cartella %1. Controllare i permessi."),
           QStringLiteral("The folder %1 cannot be made. Check the permissions."), staging_ + folder);
}

ManifestEntry Staging::EntryOf(const QString& file, qint64 meant, const QByteArray& input) const {
  const QFileInfo info(staging_ + u'/' + file);
  if (info.size() != meant)
    Fail(QStringLiteral("Impossibile scrivere %1: il disco è pieno"),
         QStringLiteral("%1 cannot be written: the disk is full"), info.filePath());
  return {input, meant, info.lastModified().toMSecsSinceEpoch()};
}

ManifestEntry Staging::Write(const QString& file, const std::string& content, const QByteArray& input) const {
  QFile out(staging_ + u'/' + file);
  const auto size = qint64(content.size());
  const bool written =
      out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && out.write(content.data(), size) == size;
  out.close();
  if (!written)
    Fail(QStringLiteral("Impossibile scrivere %1: ") + out.errorString(),
         QStringLiteral("%1 cannot be written: ") + out.errorString(), out.fileName());
  return EntryOf(file, size, input);
}

ManifestEntry Staging::Copy(const QString& file, const QString& source, const QByteArray& input) const {
  std::error_code failure;
  const auto size = qint64(fs::file_size(Path(source), failure));
  if (!failure)
    fs::copy_file(Path(source), Path(staging_ + u'/' + file), fs::copy_options::overwrite_existing, failure);
  if (failure)
    Fail(QStringLiteral("Impossibile copiare %1: ") + QString::fromStdString(failure.message()),
         QStringLiteral("%1 cannot be copied: ") + QString::fromStdString(failure.message()), source);
  return EntryOf(file, size, input);
}

void Staging::Swap(const Manifest& manifest) {
  if (!WriteWhole(staging_ + u'/' + Manifest::FileName(), manifest.ToText()))
    Fail(QStringLiteral("Impossibile scrivere in %1: il disco è pieno"),
         QStringLiteral("%1 cannot be written: the disk is full"), staging_);
  FinishSwap();
}

// Every step can be done again: what was moved is no longer in the staging folder, and what was deleted is
// gone.
void Staging::FinishSwap() {
  const Manifest coming = Manifest::Read(staging_);
  const Manifest former = Manifest::Read(target_);
  std::error_code failure;
  if (!QFileInfo::exists(target_)) {
    fs::rename(Path(staging_), Path(target_), failure);
    if (!failure) return;
  }
  for (const QString& folder : FoldersOf(coming.entries.keys())) QDir().mkpath(target_ + folder);
  for (auto entry = coming.entries.cbegin(); entry != coming.entries.cend(); ++entry) {
    const QString staged = staging_ + u'/' + entry.key();
    failure.clear();
    if (QFileInfo::exists(staged)) fs::rename(Path(staged), Path(target_ + u'/' + entry.key()), failure);
    if (failure)
      Fail(QStringLiteral("Impossibile scrivere %1: ") + QString::fromStdString(failure.message()),
           QStringLiteral("%1 cannot be written: ") + QString::fromStdString(failure.message()),
           target_ + u'/' + entry.key());
  }
  for (auto entry = former.entries.cbegin(); entry != former.entries.cend(); ++entry)
    if (!coming.entries.contains(entry.key())) QFile::remove(target_ + u'/' + entry.key());
  QStringList emptied = FoldersOf(former.entries.keys());
  std::reverse(emptied.begin(), emptied.end());
  for (const QString& folder : emptied)
    if (!folder.isEmpty() && folder != u"/images") QDir().rmdir(target_ + folder);
  fs::rename(Path(staging_ + u'/' + Manifest::FileName()), Path(target_ + u'/' + Manifest::FileName()),
             failure);
  QDir(staging_).removeRecursively();
}

}  // namespace vlhtml
