#include "SkinArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <memory>
#include <stdexcept>

namespace vlhtml {
namespace {

constexpr int MostFiles = 500;
constexpr qint64 MostBytes = 50LL * 1024 * 1024;
constexpr qint64 MostRatio = 100;

struct Closer {
  void operator()(struct archive* archive) const { archive_read_free(archive); }
};
using Archive = std::unique_ptr<struct archive, Closer>;

[[noreturn]] void Refuse(bool italian, const QString& inItalian, const QString& inEnglish) {
  const QString text = italian
                           ? QStringLiteral("L'archivio della skin non può essere usato: %1").arg(inItalian)
                           : QStringLiteral("The skin archive cannot be used: %1").arg(inEnglish);
  throw std::runtime_error(text.toStdString());
}

bool IsReserved(const QString& part) {
  const QString name = part.section(u'.', 0, 0).toUpper();
  static const QStringList devices = {QStringLiteral("CON"), QStringLiteral("PRN"), QStringLiteral("AUX"),
                                      QStringLiteral("NUL")};
  const bool numbered =
      name.size() == 4 && (name.startsWith(u"COM") || name.startsWith(u"LPT")) && name[3].isDigit();
  return devices.contains(name) || numbered;
}

// What the systems of those who pack put beside the files.
bool IsOfTheSystem(const QString& name) {
  const QStringList parts = name.split(u'/');
  return std::any_of(parts.begin(), parts.end(), [](const QString& part) {
    return part == u"__MACOSX" || part.startsWith(u"._") || part == u".DS_Store" || part == u"Thumbs.db" ||
           part == u"desktop.ini";
  });
}

// A relative path of plain parts.
bool IsSafeName(const QString& name) {
  if (name.isEmpty() || name.size() > 200) return false;
  for (const QString& part : name.split(u'/')) {
    const bool plain = std::all_of(part.begin(), part.end(), [](QChar c) {
      return c.unicode() < 128 && (c.isLetterOrNumber() || QStringView(u" ._-").contains(c));
    });
    if (!plain || part.isEmpty() || part.startsWith(u'.') || part.endsWith(u'.') || part.endsWith(u' ') ||
        IsReserved(part))
      return false;
  }
  return true;
}

Archive Open(const QString& path, bool italian) {
  Archive archive(archive_read_new());
  archive_read_support_format_zip(archive.get());
  if (archive_read_open_filename(archive.get(), QFile::encodeName(path).constData(), 1 << 16) != ARCHIVE_OK)
    Refuse(italian, QStringLiteral("non è un archivio zip"), QStringLiteral("it is no zip archive"));
  return archive;
}

class Unpacker {
 public:
  Unpacker(const QString& folder, qint64 archiveSize, bool italian)
      : folder_(folder), archiveSize_(archiveSize), italian_(italian) {}

  void Take(struct archive* archive, struct archive_entry* entry) {
    if (IsOfTheSystem(QString::fromUtf8(archive_entry_pathname_utf8(entry)))) return;
    const QString name = Checked(entry);
    if (archive_entry_filetype(entry) == AE_IFDIR) return;
    if (++files_ > MostFiles)
      Refuse(italian_, QStringLiteral("contiene troppi file"), QStringLiteral("it holds too many files"));
    const QString path = folder_ + u'/' + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
      Refuse(italian_, file.errorString(), file.errorString());
    QByteArray buffer(1 << 16, Qt::Uninitialized);
    for (;;) {
      const auto got = archive_read_data(archive, buffer.data(), std::size_t(buffer.size()));
      if (got < 0) Refuse(italian_, QStringLiteral("è danneggiato"), QStringLiteral("it is damaged"));
      if (got == 0) break;
      bytes_ += got;
      if (bytes_ > MostBytes || bytes_ > archiveSize_ * MostRatio)
        Refuse(italian_, QStringLiteral("è troppo grande"), QStringLiteral("it is too large"));
      if (file.write(buffer.constData(), got) != got)
        Refuse(italian_, file.errorString(), file.errorString());
    }
    if (!file.flush()) Refuse(italian_, file.errorString(), file.errorString());
  }

 private:
  QString Checked(struct archive_entry* entry) {
    const char* raw = archive_entry_pathname_utf8(entry);
    QString name = QString::fromUtf8(raw);
    if (name.endsWith(u'/')) name.chop(1);
    const auto type = archive_entry_filetype(entry);
    const bool plain = (type == AE_IFREG || type == AE_IFDIR) && archive_entry_symlink(entry) == nullptr &&
                       archive_entry_hardlink(entry) == nullptr;
    if (raw == nullptr || !plain || !IsSafeName(name))
      Refuse(italian_, QStringLiteral("il nome \"%1\" non è ammesso").arg(name),
             QStringLiteral("the name \"%1\" is not allowed").arg(name));
    const QString folded = name.toLower();
    if (const auto twin = names_.constFind(folded);
        twin != names_.constEnd() && (*twin != name || type == AE_IFREG))
      Refuse(italian_, QStringLiteral("il nome \"%1\" c'è due volte").arg(name),
             QStringLiteral("the name \"%1\" is there twice").arg(name));
    names_.insert(folded, name);
    return name;
  }

  QString folder_;
  qint64 archiveSize_;
  bool italian_;
  int files_ = 0;
  qint64 bytes_ = 0;
  QHash<QString, QString> names_;
};

// Many tools pack the folder itself: then its content is the skin.
void LiftSingleFolder(const QString& folder) {
  const QStringList inside = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  if (inside.size() != 1 || !QFileInfo(folder + u'/' + inside[0]).isDir()) return;
  const QString aside = folder + QStringLiteral("-lifted");
  if (QDir().rename(folder + u'/' + inside[0], aside) && QDir().rmdir(folder)) QDir().rename(aside, folder);
}

}  // namespace

void UnpackSkinArchive(const QString& path, const QString& folder, bool italian) {
  const Archive archive = Open(path, italian);
  QDir().mkpath(folder);
  Unpacker unpacker(folder, QFileInfo(path).size(), italian);
  struct archive_entry* entry = nullptr;
  int result = ARCHIVE_OK;
  while ((result = archive_read_next_header(archive.get(), &entry)) == ARCHIVE_OK)
    unpacker.Take(archive.get(), entry);
  if (result != ARCHIVE_EOF)
    Refuse(italian, QStringLiteral("è danneggiato"), QStringLiteral("it is damaged"));
  LiftSingleFolder(folder);
}

}  // namespace vlhtml
