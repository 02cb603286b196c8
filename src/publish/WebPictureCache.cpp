#include "publish/WebPictureCache.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>
#include <filesystem>

#include "base/SafeFile.h"

namespace vorlina {
namespace {

constexpr quint32 Magic = 0x564C5751;
constexpr qint64 LongestList = 256LL * 1024 * 1024;
const QString ListName = u"list"_qs;

// Profiles may want different sizes of one picture.
constexpr std::size_t MostSizes = 16;

constexpr qint64 Hour = 3600;
constexpr qint64 Day = 24 * Hour;

// "3f/5a0c91d2e4b7-400": two digits for the folder, since some file systems hold few names in one.
constexpr qsizetype FolderLength = 2;

bool IsName(const QString& name) {
  return name.size() > FolderLength && name[FolderLength] == u'/' &&
         std::all_of(name.begin(), name.end(), [](QChar c) {
           return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || c == u'-' || c == u'/';
         });
}

// By the system's own call: a publication with nothing to do does little else.
qint64 LengthOf(const QString& path) {
  std::error_code failure;
  const auto length = std::filesystem::file_size(QFile::encodeName(path).toStdString(), failure);
  return failure ? -1 : qint64(length);
}

// The hour in which it is kept begins.
void Release(const QString& path) {
  std::error_code failure;
  std::filesystem::last_write_time(QFile::encodeName(path).toStdString(),
                                   std::filesystem::file_time_type::clock::now(), failure);
}

qint64 Now() { return QDateTime::currentSecsSinceEpoch(); }

QByteArray HashOf(const QByteArray& bytes) {
  return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

QDataStream& operator<<(QDataStream& stream, const CachedSize& size) {
  return stream << size.size << size.name << size.jpeg << size.webp;
}

QDataStream& operator>>(QDataStream& stream, CachedSize& size) {
  stream >> size.size >> size.name >> size.jpeg >> size.webp;
  if (!size.name.isEmpty() && !IsName(size.name)) stream.setStatus(QDataStream::ReadCorruptData);
  return stream;
}

void Put(QDataStream& stream, const CachedPicture& picture) {
  stream << picture.mark << picture.size << picture.isBare << picture.full << quint32(picture.sizes.size());
  for (const CachedSize& size : picture.sizes) stream << size;
}

CachedPicture Take(QDataStream& stream) {
  CachedPicture picture;
  quint32 count = 0;
  stream >> picture.mark >> picture.size >> picture.isBare >> picture.full >> count;
  picture.sizes.resize(std::min<std::size_t>(count, MostSizes));
  for (CachedSize& size : picture.sizes) stream >> size;
  return picture;
}

QStringList FilesOf(const CachedPicture& picture) {
  QStringList files;
  const auto add = [&](const CachedSize& size) {
    if (!size.name.isEmpty()) files += size.JpegFile();
    if (size.webp != 0) files += size.WebpFile();
  };
  for (const CachedSize& size : picture.sizes) add(size);
  add(picture.full);
  return files;
}

}  // namespace

const CachedSize* CachedPicture::Find(QSize wanted) const {
  const auto found =
      std::find_if(sizes.begin(), sizes.end(), [&](const CachedSize& each) { return each.size == wanted; });
  return found == sizes.end() ? nullptr : &*found;
}

WebPictureCache::WebPictureCache(const QString& folder) : folder_(folder) { Read(); }

const CachedPicture* WebPictureCache::Find(const QString& source) const {
  const auto found = pictures_.constFind(source);
  return found == pictures_.constEnd() ? nullptr : &*found;
}

bool WebPictureCache::Has(const CachedSize& size) const {
  return LengthOf(Path(size.JpegFile())) == size.jpeg &&
         (size.webp == 0 || LengthOf(Path(size.WebpFile())) == size.webp);
}

QString WebPictureCache::NewName(QSize size) {
  QString digits = QString::number(QRandomGenerator::system()->generate64(), 16).rightJustified(16, u'0');
  return u"%1-%2"_qs.arg(digits.insert(FolderLength, u'/')).arg(std::max(size.width(), size.height()));
}

void WebPictureCache::Add(const QString& source, CachedPicture picture) {
  added_.insert(source, picture);
  Enter(source, std::move(picture));
}

void WebPictureCache::Enter(const QString& source, CachedPicture picture) {
  const CachedPicture former = pictures_.value(source);
  if (former.mark == picture.mark) {
    for (auto size = former.sizes.rbegin(); size != former.sizes.rend(); ++size)
      if (picture.Find(size->size) == nullptr) picture.sizes.insert(picture.sizes.begin(), *size);
    if (picture.full.name.isEmpty()) picture.full = former.full;
  }
  if (picture.sizes.size() > MostSizes)
    picture.sizes.erase(picture.sizes.begin(), picture.sizes.end() - std::ptrdiff_t(MostSizes));
  const QStringList kept = FilesOf(picture);
  for (const QString& file : FilesOf(former))
    if (!kept.contains(file)) Release(Path(file));
  pictures_.insert(source, picture);
}

void WebPictureCache::Store() {
  if (added_.isEmpty()) return;
  SyncVolume(folder_);
  Read();
  for (auto each = added_.cbegin(); each != added_.cend(); ++each) Enter(each.key(), each.value());
  Write();
  added_.clear();
  changed_ = true;
}

void WebPictureCache::Tidy(const std::function<bool(const QString& source)>& isThere) {
  if (!QDir(folder_).exists() || (!changed_ && std::abs(Now() - tidied_) < Day)) return;
  Read();
  for (auto each = pictures_.begin(); each != pictures_.end();)
    each = isThere(each.key()) ? ++each : Drop(each);
  tidied_ = Now();
  Write();
  RemoveUnnamed();
  changed_ = false;
}

QHash<QString, CachedPicture>::iterator WebPictureCache::Drop(QHash<QString, CachedPicture>::iterator entry) {
  for (const QString& file : FilesOf(*entry)) Release(Path(file));
  return pictures_.erase(entry);
}

void WebPictureCache::Read() {
  pictures_.clear();
  QFile file(Path(ListName));
  if (!file.open(QIODevice::ReadOnly) || file.size() > LongestList) return;
  const QByteArray hash = file.read(HashOf({}).size());
  const QByteArray content = file.readAll();
  if (HashOf(content) != hash) return;
  QDataStream stream(content);
  stream.setVersion(QDataStream::Qt_6_0);
  quint32 magic = 0;
  stream >> magic >> tidied_;
  while (magic == Magic && !stream.atEnd() && stream.status() == QDataStream::Ok) {
    QString source;
    stream >> source;
    pictures_.insert(source, Take(stream));
  }
  if (stream.status() != QDataStream::Ok) pictures_.clear();
}

void WebPictureCache::Write() const {
  QByteArray content;
  QDataStream stream(&content, QIODevice::WriteOnly);
  stream.setVersion(QDataStream::Qt_6_0);
  stream << Magic << tidied_;
  for (auto each = pictures_.cbegin(); each != pictures_.cend(); ++each) {
    stream << each.key();
    Put(stream, each.value());
  }
  WriteFileSafely(Path(ListName), HashOf(content) + content);
}

QSet<QString> WebPictureCache::Named() const {
  QSet<QString> names;
  for (const CachedPicture& picture : pictures_)
    for (const QString& file : FilesOf(picture)) names.insert(file);
  return names;
}

// What another program is making is named once it is done, which is within the hour.
void WebPictureCache::RemoveUnnamed() const {
  const QSet<QString> named = Named();
  const qint64 now = Now();
  QDirIterator files(folder_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const QString name = path.mid(folder_.size() + 1);
    const bool ours =
        IsName(name.section(u'.', 0, -2)) && (name.endsWith(u".jpg") || name.endsWith(u".webp"));
    if (ours && !named.contains(name) &&
        std::abs(now - files.fileInfo().lastModified().toSecsSinceEpoch()) > Hour)
      QFile::remove(path);
  }
}

}  // namespace vorlina
