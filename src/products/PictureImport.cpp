#include "products/PictureImport.h"

#include <QDir>
#include <QFileInfo>
#include <exception>

#include "base/SafeFile.h"
#include "base/Settings.h"
#include "images/ImagePipeline.h"
#include "products/NewCode.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

// What a file became, or why it did not.
struct Taken {
  PreparedPicture picture;
  std::exception_ptr failure;
};

Taken TakeNext(PreparedPictures& pictures) {
  Taken taken;
  try {
    taken.picture = pictures.Next();
  } catch (...) {
    taken.failure = std::current_exception();
  }
  return taken;
}

// The picture itself, or the file as it is. One that cannot be taken is copied all the same before its error
// is told, so that the user finds it; where the source cannot be read, that is the error.
void StorePicture(const QString& source, const QString& target, const Taken& taken) {
  if (taken.picture.jpeg.isEmpty())
    CopyFileSafely(source, target);
  else
    WriteFileSafely(target, taken.picture.jpeg);
  if (taken.failure) std::rethrow_exception(taken.failure);
}

}  // namespace

PictureImport::PictureImport(QString folder, int IDCatalogo, Connection& connection)
    : folder_(std::move(folder)), IDCatalogo_(IDCatalogo), connection_(connection) {
  const QDir directory(folder_);
  if (!directory.exists() || !QFileInfo(folder_).isReadable())
    throw Error(EitherLanguage(u"Impossibile leggere la cartella %1"_qs, u"The folder %1 cannot be read"_qs)
                    .arg(QDir::toNativeSeparators(folder_)));
  files_ = directory.entryList({u"*.jpg"_qs}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}

bool PictureImport::Run(const Progress& progress) {
  QStringList paths;
  for (const QString& file : files_) paths += QDir(folder_).filePath(file);
  PreparedPictures pictures(paths, PictureLimit(), ReadPictureSettings());
  for (const QString& path : paths) {
    if (progress && !progress(imported_, Count(), QFileInfo(path).fileName())) return false;
    ImportNext(QDir::toNativeSeparators(path), pictures);
    ++imported_;
  }
  if (progress) progress(imported_, Count(), QString());
  return true;
}

void PictureImport::ImportNext(const QString& source, PreparedPictures& pictures) {
  // It is waited for before the transaction, which keeps other programs from giving away the code.
  const Taken taken = TakeNext(pictures);
  Transaction transaction(connection_);
  const QString code = FreeCode();
  const QString target = MainImagePath(IDCatalogo_, code);
  StorePicture(source, target, taken);
  // After the picture: what the setting names was imported whole, should the program end at the next one.
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"LastProcessedJPG"_qs, source);
  StoreThumbnail(target, taken.picture.thumbnail);
  const bool marked =
      InsertProduct(code, QFileInfo(source).fileName().chopped(4), target, taken.picture.size);
  transaction.Commit();
  if (!marked) TellFaultyExtensions();
}

// A number whose file no row names: a product may have been given another code since.
QString PictureImport::FreeCode() const {
  for (QString code;;) {
    code = NuovoCodice(IDCatalogo_, connection_, code.toLongLong());
    const QString target = MainImagePath(IDCatalogo_, code);
    if (!QFile::exists(target) || !IsPictureNamed(target, connection_)) return code;
  }
}

bool PictureImport::InsertProduct(const QString& code, const QString& description, const QString& target,
                                  QSize size) {
  connection_.Execute(
      u"INSERT INTO PRODOTTI (IDCATALOGO,CODICEPRODOTTO,DESCRIZIONE,IMMAGINE,HEIGHT,WIDTH) "
      "VALUES (?,?,?,?,?,?)"_qs,
      {IDCatalogo_, code, description, target, size.height(), size.width()});
  return SetExtension(ImmagineModificata, u"1"_qs, IDCatalogo_, code, connection_);
}

}  // namespace vorlina
