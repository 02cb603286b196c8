#include "images/PictureStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMultiHash>
#include <optional>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "store/Connection.h"
#include "store/Ranks.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

QString NameIn(const QString& path) { return path.mid(path.lastIndexOf(u'/') + 1); }

void Remove(const QString& path) {
  if (!QFile::remove(path)) qCDebug(images) << "not removed" << path;
}

// What has the name goes where it is no file of its own: it would be written through.
void MakeRoom(const QString& path) {
  const QFileInfo file(path);
  if (file.isSymLink() || (file.exists() && !file.isFile())) Remove(path);
}

bool IsOwnFile(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() && !file.isSymLink();
}

bool IsFileOrLink(const QString& path) { return IsOwnFile(path) || QFileInfo(path).isSymLink(); }

// Removes those of the files that lie in "Images" and that no row names.
void RemoveUnnamed(const PictureFiles& files, Connection& connection) {
  if (files.main.isEmpty() && files.others.isEmpty()) return;
  PictureFolder folder;
  QStringList ours;
  const auto take = [&](const QString& path) {
    const bool holds = folder.Holds(path);
    if (holds) ours += path;
    return holds;
  };
  for (const QString& path : files.others) take(path);
  QStringList withThumbnail;
  QStringList thumbnails;
  for (const QString& path : files.main) {
    // In a folder further down a name says nothing of the thumbnails, which all lie in "Images".
    if (!take(path) || folder.NameOf(path).contains(u'/')) continue;
    withThumbnail += path;
    thumbnails += ThumbnailPath(path);
  }
  if (ours.isEmpty()) return;
  const QSet<QString> named = NamedPictures(ours + thumbnails, connection);
  for (const QString& path : ours)
    if (!named.contains(path)) Remove(path);
  for (const QString& path : withThumbnail)
    if (!named.contains(path) && !named.contains(ThumbnailPath(path))) Remove(ThumbnailPath(path));
}

QStringList Paths(Connection& connection, const QString& sql, const QVariantList& values) {
  QStringList paths;
  Rows rows(connection, sql, values);
  while (rows.Next()) paths += rows.Value(0).toString();
  return paths;
}

}  // namespace

namespace {

// Catalogs and files, under the folder that is bound first: names alone are kept, so that a folder may move.
// What is no JSON names none.
QString ProfilePictures() {
  return u"(SELECT C.IDCatalogo IDCatalogo,?1||J.value Immagine FROM Extensions E JOIN CExtension C "
         "USING (IDExtension),json_tree(CASE WHEN json_valid(C.Valore) THEN C.Valore ELSE '{}' END) J "
         "WHERE E.ExtensionName='%1' AND J.key IN ('%2','%3') AND J.type='text' AND J.value<>'')"_qs.arg(
             ProfilesExtension, ProfileLogoMember, ProfileWideMember);
}

QString PicturesIn(const QString& folder) { return QDir::toNativeSeparators(folder + u"/Images/"_qs); }

QString FolderOfDatabase(const Connection& connection) {
  return QFileInfo(connection.DataSource()).absolutePath();
}

}  // namespace

void ForEachNamedPicture(Connection& connection, const std::function<void(const NamedPicture&)>& tell,
                         const QString& folder) {
  Rows rows(
      connection,
      u"SELECT 0,IDCatalogo,IDCatalogo,'',Logo FROM Cataloghi WHERE Logo<>'' "
      "UNION ALL SELECT 1,IDProdotto,IDCatalogo,CodiceProdotto,Immagine FROM Prodotti WHERE Immagine<>'' "
      "UNION ALL SELECT 2,IDImmagine,IDCatalogo,CodiceProdotto,Immagine FROM Immagini "
      "WHERE Immagine<>'' UNION ALL SELECT 3,IDCatalogo,IDCatalogo,'',Immagine FROM "_qs +
          ProfilePictures(),
      {PicturesIn(folder.isEmpty() ? FolderOfDatabase(connection) : folder)});
  while (rows.Next())
    tell({PictureUse(rows.Value(0).toInt()), rows.Value(1).toLongLong(), rows.Value(2).toInt(),
          rows.Value(3).toString(), rows.Value(4).toString()});
}

QSet<QString> NamedPictures(const QStringList& files, Connection& connection, qint64 exceptProduct) {
  files::PathKeys keys;
  QMultiHash<QString, QString> byName;
  const auto nameIn = [](const QString& path) { return NameIn(QDir::fromNativeSeparators(path)); };
  for (const QString& file : files) byName.insert(nameIn(file).toCaseFolded(), file);
  QSet<QString> named;
  ForEachNamedPicture(connection, [&](const NamedPicture& picture) {
    if (picture.use == PictureUse::Main && picture.row == exceptProduct) return;
    const QString name = nameIn(picture.path);
    const auto [first, last] = byName.equal_range(name.toCaseFolded());
    for (auto file = first; file != last; ++file)
      // Of two letter cases only the system can tell whether they are one file.
      if (keys.Of(picture.path) == keys.Of(*file) &&
          (nameIn(*file) == name || IsSameFile(picture.path, *file)))
        named.insert(*file);
  });
  return named;
}

bool IsPictureNameFree(const QString& path, Connection& connection, qint64 exceptProduct) {
  return !QFile::exists(path) || NamedPictures({path}, connection, exceptProduct).isEmpty();
}

bool IsProductPicture(const QString& path, Connection& connection) {
  files::PathKeys keys;
  const QString name = NameIn(QDir::fromNativeSeparators(path));
  Rows rows(connection,
            u"SELECT Immagine FROM Prodotti WHERE substr(Immagine,-?1)=?2 COLLATE NOCASE "
            "UNION ALL SELECT Immagine FROM Immagini WHERE substr(Immagine,-?1)=?2 COLLATE NOCASE"_qs,
            {name.size(), name});
  while (rows.Next()) {
    const QString picture = rows.Value(0).toString();
    if (keys.Of(picture) == keys.Of(path) && IsSameFile(picture, path)) return true;
  }
  return false;
}

PictureFiles PicturesOfProducts(const std::vector<qint64>& products, Connection& connection) {
  const QVariantList keys{KeyList(products)};
  return {Paths(connection,
                u"SELECT Immagine FROM Prodotti WHERE IDProdotto IN (SELECT value FROM json_each(?)) AND "
                "Immagine<>''"_qs,
                keys),
          Paths(connection,
                u"SELECT I.Immagine FROM Prodotti P JOIN Immagini I USING (IDCatalogo,CodiceProdotto) WHERE "
                "P.IDProdotto IN (SELECT value FROM json_each(?)) AND I.Immagine<>''"_qs,
                keys)};
}

PictureFiles PicturesOfCatalog(int IDCatalogo, Connection& connection) {
  const QVariantList catalog{IDCatalogo};
  // The row of a clone names the logo of the catalog from which it was made, and so do its profiles.
  return {Paths(connection, u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=? AND Immagine<>''"_qs, catalog),
          Paths(connection,
                u"SELECT Immagine FROM Immagini WHERE IDCatalogo=?1 AND Immagine<>'' "
                "UNION ALL SELECT Logo FROM Cataloghi WHERE IDCatalogo=?1 AND Logo<>''"_qs,
                catalog) +
              Paths(connection, u"SELECT Immagine FROM %1 WHERE IDCatalogo=?2"_qs.arg(ProfilePictures()),
                    {PicturesIn(FolderOfDatabase(connection)), IDCatalogo}) +
              QStringList{LogoPath(IDCatalogo)}};
}

struct PictureChange::Files {
  PictureFolder folder;
  PictureFiles made;
  PictureFiles retired;
  QStringList staged;
  QStringList replacing;         // files that have another content once the rows are stored
  QStringList dropping;          // thumbnails that go then, as they show another picture
  std::optional<Error> failure;  // of that

  QStringList& Made(PictureUse use) { return use == PictureUse::Main ? made.main : made.others; }

  void RequireInside(const QString& path) {
    if (!folder.Holds(path))
      throw Error(
          Texts::tr("Il file %1 non viene scritto: non si trova nella cartella \"Images\" del programma.")
              .arg(path));
  }

  // A file that has the name stays until the rows are stored: what is written beside it then takes its place.
  void Write(const QString& target, const std::function<void(const QString& path)>& write,
             bool named = false) {
    if (!named && !IsFileOrLink(target)) {
      MakeRoom(target);
      return write(target);
    }
    replacing += target;
    try {
      write(StagedPath(target));
    } catch (const DiskFullError& full) {
      throw DiskFullError(target, full.Cause());
    }
  }

  void Take(PictureUse use, const QString& source, const QString& target, const QByteArray& jpeg,
            bool named = false) {
    RequireInside(target);
    if (!named && !IsFileOrLink(target)) Made(use) += target;
    // The source may be what a link under the target's name leads to.
    const QString file = QFileInfo(target).isSymLink() ? QFileInfo(source).canonicalFilePath() : source;
    const auto write = [&](const QString& path) {
      if (jpeg.isEmpty())
        CopyFileSafely(file, path);
      else
        WriteFileSafely(path, jpeg);
    };
    Write(target, write, named);
  }

  void Drop(const QString& target) {
    if (IsOwnFile(target))
      dropping += target;
    else
      MakeRoom(target);
  }

  void Replace() {
    replacing.removeDuplicates();
    try {
      for (const QString& target : std::as_const(replacing))
        if (QFile::exists(StagedPath(target))) MoveFileSafely(StagedPath(target), target);
      for (const QString& target : std::as_const(dropping)) Remove(target);
    } catch (const Error& error) {
      qCDebug(images) << "not replaced" << error.Description();
      failure = error;
      GiveUpReplacing();
    }
  }

  // A thumbnail before its picture: one that is left alone counts as that of a picture that has its place.
  void GiveUpReplacing() {
    for (auto target = replacing.crbegin(); target != replacing.crend(); ++target)
      QFile::remove(StagedPath(*target));
  }
};

PictureChange::PictureChange(Transaction& transaction, Connection& connection)
    : files_(std::make_shared<Files>()) {
  transaction.OnCommit([files = files_, &connection] {
    files->Replace();
    // It may be the only file with what was to be there.
    if (!files->failure) RemoveUnnamed(files->retired, connection);
  });
  transaction.OnRollback([files = files_, &connection] {
    files->GiveUpReplacing();
    RemoveUnnamed(files->made, connection);
  });
}

void PictureChange::TakeMain(const QString& source, const QString& target, const PreparedPicture& picture) {
  files_->Take(PictureUse::Main, source, target, picture.jpeg);
  const QString thumbnail = ThumbnailPath(target);
  try {
    if (picture.thumbnail.isEmpty()) throw Error(u"there is none"_qs);
    files_->Write(thumbnail, [&](const QString& path) { WriteFileSafely(path, picture.thumbnail); });
  } catch (const Error& error) {
    qCDebug(images) << thumbnail << error.Description();
    files_->Drop(thumbnail);
  }
}

void PictureChange::Take(const QString& source, const QString& target, const PreparedPicture& picture,
                         bool named) {
  files_->Take(PictureUse::Additional, source, target, picture.jpeg, named);
}

void PictureChange::CopyMain(const QString& source, const QString& target) {
  files_->Take(PictureUse::Main, source, target, {});
  const QString thumbnail = ThumbnailPath(target);
  if (IsPictureFile(ThumbnailPath(source)))
    files_->Write(thumbnail, [&](const QString& path) { CopyFileSafely(ThumbnailPath(source), path); });
  else
    files_->Drop(thumbnail);
}

StagedCopy PictureChange::CopyStaged(PictureUse use, const QString& source, const QString& target) {
  files_->RequireInside(target);
  files_->Made(use) += target;
  const auto copy = [this](const QString& from, const QString& to) {
    const bool isOther = QFile::exists(from) && !IsPictureFile(from);
    const StagedCopy copied = isOther ? StagedCopy::NotRead : CopyStagedFile(from, to);
    if (copied == StagedCopy::Made)
      files_->staged += to;
    else
      QFile::remove(to);
    return copied;
  };
  const StagedCopy copied = copy(source, target);
  if (copied != StagedCopy::Made) qCDebug(images) << "not copied" << source;
  if (use == PictureUse::Main) copy(FolderOf(source) + ThumbnailName(source), ThumbnailPath(target));
  return copied;
}

void PictureChange::Sync() const { SyncFiles(files_->staged); }

void PictureChange::RequireReplaced() const {
  if (files_->failure) throw Error(*files_->failure);
}

void PictureChange::Retire(const PictureFiles& files) {
  files_->retired.main += files.main;
  files_->retired.others += files.others;
}

}  // namespace vorlina
