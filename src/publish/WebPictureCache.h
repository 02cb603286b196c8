// The pictures for readers that were made: their files in a folder, and the list that tells what each was
// made of. The folder may be deleted at any time, and what was written into it may be cut short at any time:
// only what the list names, in the length that the list has, is taken for made.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QSize>
#include <QString>
#include <functional>
#include <vector>

namespace vorlina {

// A picture in one size.
struct CachedSize {
  QSize size;
  QString name;     // of its files below the folder, without ".jpg" and ".webp"
  qint64 jpeg = 0;  // the files' lengths
  qint64 webp = 0;  // 0: there is none

  QString JpegFile() const { return name + QStringLiteral(".jpg"); }
  QString WebpFile() const { return name + QStringLiteral(".webp"); }
};

struct CachedPicture {
  QByteArray mark;                // of the source as it was, and of how pictures are made
  QSize size;                     // of the source, upright
  std::vector<CachedSize> sizes;  // the last that were made at the end
  bool isBare = false;            // the source has nothing but the picture in it
  CachedSize full = {};           // else the source without the rest; without a name where nobody wanted it

  const CachedSize* Find(QSize wanted) const;
};

class WebPictureCache {
 public:
  // Reads the list. One that is missing or damaged names nothing.
  explicit WebPictureCache(const QString& folder);

  const QString& Folder() const { return folder_; }
  QString Path(const QString& file) const { return folder_ + u'/' + file; }

  // Null where nothing was made of the source.
  const CachedPicture* Find(const QString& source) const;
  // Whether the files are there in their lengths.
  bool Has(const CachedSize& size) const;
  // A name for files that nothing has yet, by any program.
  static QString NewName(QSize size);

  // Enters what was made of the source; what was made of the same source before stays in use. Files that are
  // in use no more stay for an hour: somebody may just have been given them.
  void Add(const QString& source, CachedPicture picture);
  // Brings pictures and list to the disk, with what other programs have entered meanwhile. Throws Error.
  void Store();

  // Drops the entries whose source is gone, and removes files that no entry has named for an hour, where that
  // was not done for a day or something was added. Throws Error.
  void Tidy(const std::function<bool(const QString& source)>& isThere);

 private:
  void Enter(const QString& source, CachedPicture picture);
  QHash<QString, CachedPicture>::iterator Drop(QHash<QString, CachedPicture>::iterator entry);
  void Read();
  void Write() const;
  QSet<QString> Named() const;
  void RemoveUnnamed() const;

  QString folder_;
  QHash<QString, CachedPicture> pictures_;
  QHash<QString, CachedPicture> added_;  // not yet stored
  qint64 tidied_ = 0;                    // when, in seconds
  bool changed_ = false;
};

}  // namespace vorlina
