// The files in "Images": which rows name them, and the one way in which they get there and are taken away.
// Whatever a row says, nothing outside of that folder is written or removed.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "base/SafeFile.h"
#include "images/PictureRendering.h"

namespace vorlina {

class Connection;
class Transaction;

enum class PictureUse { Logo, Main, Additional, Profile };

// The named value of a catalog that holds how it is published, as JSON. Wherever in it a member has one of
// the two names, its text is the name of a file in "Images".
inline const QString ProfilesExtension = QStringLiteral("Vorlina.Profili");
inline const QString ProfileLogoMember = QStringLiteral("logo");
inline const QString ProfileWideMember = QStringLiteral("widePicture");

// A row that names a picture.
struct NamedPicture {
  PictureUse use = PictureUse::Main;
  qint64 row = 0;  // IDCatalogo, the product's key, IDImmagine, or IDCatalogo again
  int IDCatalogo = 0;
  QString CodiceProdotto;  // "" for a logo and a profile's picture
  QString path;
};

// Tells every row that names a picture: logos, main images, additional ones, those of profiles. The latter
// are names alone, and lie in the "Images" of the folder: that of the database, where none is told, as it is
// of a copy that lies elsewhere. Throws Error.
void ForEachNamedPicture(Connection& connection, const std::function<void(const NamedPicture&)>& tell,
                         const QString& folder = {});

// Those of the files that a row names, however it writes the path; the main image of one product may be left
// aside. Throws Error.
QSet<QString> NamedPictures(const QStringList& files, Connection& connection, qint64 exceptProduct = 0);

// Whether a picture can take the name: there is no file, or one that no row names but for the main image of
// that product. Throws Error.
bool IsPictureNameFree(const QString& path, Connection& connection, qint64 exceptProduct = 0);

// Whether a product's row names the file, as its main image or an additional one. Throws Error.
bool IsProductPicture(const QString& path, Connection& connection);

// Files that rows name or named.
struct PictureFiles {
  QStringList main;    // they have thumbnails
  QStringList others;  // additional pictures, logos, those of profiles
};

// The files that the rows of these products name, or all rows of a catalog, with the file that is its logo by
// its name. Throw Error.
PictureFiles PicturesOfProducts(const std::vector<qint64>& products, Connection& connection);
PictureFiles PicturesOfCatalog(int IDCatalogo, Connection& connection);

// What a transaction does in "Images". The files that it takes in go again where its rows are not stored;
// those that it gives up go once they are. Either way a file stays that a row names. A kill at any moment
// leaves at most files without a row; a file whose place another one was about to take stays until the next
// opening.
class PictureChange {
 public:
  // Enlists itself in the transaction.
  PictureChange(Transaction& transaction, Connection& connection);

  // Take a picture into "Images", replacing what has the name: a file once the rows are stored, so that what
  // fails leaves it as it was; a link as well, which is not followed. A picture without bytes of its own is
  // copied as it is. Throw Error where it cannot be written, and for a name that leads out of "Images". A
  // main image's thumbnail that cannot be written is missing; an older one would show another picture. A file
  // that is missing while a row names it, so that it would stay where nothing is stored, is told by the flag.
  void TakeMain(const QString& source, const QString& target, const PreparedPicture& picture);
  void Take(const QString& source, const QString& target, const PreparedPicture& picture = {},
            bool named = false);
  // A main image under another name, with its thumbnail. Throws Error.
  void CopyMain(const QString& source, const QString& target);

  // Copies for a whole catalog, not brought to the disk before Sync. Of a main image the thumbnail that lies
  // beside it comes along. Where there is nothing to copy nothing has the name afterwards. Throw Error.
  StagedCopy CopyStaged(PictureUse use, const QString& source, const QString& target);
  void Sync() const;

  // Once the rows are stored: throws Error where a file could not take the place of the one that has its
  // name, which stays, and so does all that was to be given up.
  void RequireReplaced() const;

  // Gives files up, of main images with their thumbnails. What cannot be removed stays, with a line in the
  // log.
  void Retire(const PictureFiles& files);

 private:
  struct Files;
  std::shared_ptr<Files> files_;
};

}  // namespace vorlina
