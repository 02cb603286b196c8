#include "products/PictureImport.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "images/ImagePipeline.h"
#include "products/NewCode.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products")

// A missing thumbnail is not reported.
void StoreThumbnail(const QString& target, const QByteArray& thumbnail) {
  if (thumbnail.isEmpty()) return;
  try {
    WriteFileSafely(ThumbnailPath(target), thumbnail);
  } catch (const Error& error) {
    qCDebug(products) << error.Description();
  }
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
    if (progress && !progress(imported_, Count(), FileNameOf(path, true))) return false;
    ImportNext(QDir::toNativeSeparators(path), pictures);
    ++imported_;
  }
  if (progress) progress(imported_, Count(), QString());
  return true;
}

void PictureImport::ImportNext(const QString& source, PreparedPictures& pictures) {
  const QString code = NuovoCodice(IDCatalogo_, connection_);
  const QString target = MainImagePath(IDCatalogo_, code);
  const PreparedPicture picture = StorePicture(source, target, pictures);
  // After the picture: what the setting names was imported whole, should the program end at the next one.
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"LastProcessedJPG"_qs, source);
  StoreThumbnail(target, picture.thumbnail);
  InsertProduct(code, source, target, picture.size);
}

// A picture that cannot be prepared is copied all the same before its error is told, so that the user finds
// it; where the source cannot be read, that is the error.
PreparedPicture PictureImport::StorePicture(const QString& source, const QString& target,
                                            PreparedPictures& pictures) const {
  PreparedPicture picture;
  try {
    picture = pictures.Next();
  } catch (...) {
    CopyFileSafely(source, target);
    throw;
  }
  if (picture.jpeg.isEmpty())
    CopyFileSafely(source, target);
  else
    WriteFileSafely(target, picture.jpeg);
  return picture;
}

void PictureImport::InsertProduct(const QString& code, const QString& source, const QString& target,
                                  QSize size) {
  Transaction transaction(connection_);
  connection_.Execute(
      u"INSERT INTO PRODOTTI (IDCATALOGO,CODICEPRODOTTO,DESCRIZIONE,IMMAGINE,HEIGHT,WIDTH) VALUES (?,?,?,?,?,?)"_qs,
      {IDCatalogo_, code, FileNameOf(source, false), target, size.height(), size.width()});
  SetExtension(ImmagineModificata, u"1"_qs, IDCatalogo_, code, connection_);
  transaction.Commit();
}

}  // namespace vorlina
